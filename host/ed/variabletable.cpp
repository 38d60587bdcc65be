// The table of host variables, and the values of those that live in the drawing or in what the program does.

#include <limits>
#include <type_traits>

#include "host/db/access.h"
#include "host/db/symbols.h"
#include "host/db/travellingcells.h"
#include "host/ed/commands.h"
#include "host/ed/editor.h"
#include "host/ed/variables.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"

namespace kdhost {
namespace {

using Value = std::optional<VariableValue>;

KdDbDatabase* activeDatabase() {
    return currentEditor() == nullptr ? nullptr : &currentEditor()->database();
}

/// The current record of one kind, by its name.
template <KdDbObjectId (KdDbDatabase::*current)() const>
Value currentRecord() {
    const KdDbDatabase* database = activeDatabase();
    const bool isRecord = database != nullptr && peek<KdDbSymbolTableRecord>((database->*current)()) != nullptr;
    return isRecord ? Value(recordName((database->*current)())) : std::nullopt;
}

/// Makes the record of that name the current one of its kind.
template <KdDbObjectId (KdDbDatabase::*table)() const, void (KdDbDatabase::*setCurrent)(KdDbObjectId)>
bool setCurrentRecord(const VariableValue& name) {
    KdDbDatabase* database = activeDatabase();
    if (database == nullptr) return false;
    const KdDbObjectId id = recordNamed((database->*table)(), std::get<std::wstring>(name));
    if (!id.isNull()) (database->*setCurrent)(id);
    return !id.isNull();
}

const KdDbDictionary* tableStyles() {
    return activeDatabase() == nullptr ? nullptr : peek<KdDbDictionary>(activeDatabase()->tableStyleDictionaryId());
}

Value tableStyle() {
    std::wstring name;
    const KdDbDictionary* styles = tableStyles();
    if (styles == nullptr || styles->nameAt(activeDatabase()->tablestyle(), name) != Kdad::eOk) return std::nullopt;
    return name;
}

bool setTableStyle(const VariableValue& name) {
    KdDbObjectId id;
    const KdDbDictionary* styles = tableStyles();
    if (styles == nullptr || styles->getAt(std::get<std::wstring>(name).c_str(), id) != Kdad::eOk) return false;
    activeDatabase()->setTablestyle(id);
    return true;
}

Value tileMode() {
    if (activeDatabase() == nullptr) return std::nullopt;
    return std::int32_t(activeDatabase()->tilemode() ? 1 : 0);
}

bool setTileMode(const VariableValue& value) {
    if (activeDatabase() == nullptr) return false;
    activeDatabase()->setTilemode(std::get<std::int32_t>(value) != 0);
    return true;
}

/// 1 is the sheet of a layout, 2 the viewport of the model.
Value viewport() {
    if (activeDatabase() == nullptr) return std::nullopt;
    return std::int32_t(activeDatabase()->tilemode() ? 2 : 1);
}

/// A header variable of the drawing that is a number, by its getter and setter.
template <auto get>
Value header() {
    if (activeDatabase() == nullptr) return std::nullopt;
    using Number = decltype((activeDatabase()->*get)());
    if constexpr (std::is_same_v<Number, double>) {
        return (activeDatabase()->*get)();
    } else {
        return std::int32_t((activeDatabase()->*get)());
    }
}

template <class Number, Kdad::ErrorStatus (KdDbDatabase::*set)(Number)>
bool setHeader(const VariableValue& value) {
    using Kept = std::conditional_t<std::is_same_v<Number, double>, double, std::int32_t>;
    return activeDatabase() != nullptr &&
           (activeDatabase()->*set)(static_cast<Number>(std::get<Kept>(value))) == Kdad::eOk;
}

Value commandNames() {
    return runningCommandNames();
}

Value cellsTravelling() {
    return std::int32_t(areCellsTravelling() ? 1 : 0);
}

bool letCellsTravel(const VariableValue& value) {
    setCellsTravelling(std::get<std::int32_t>(value) != 0);
    return true;
}

constexpr double kUnbounded = std::numeric_limits<double>::max();
constexpr double kLowest = std::numeric_limits<std::int16_t>::min();
constexpr double kHighest = std::numeric_limits<std::int16_t>::max();

}  // namespace

const std::vector<VariableRecord>& variableRecords() {
    using enum VariableHome;
    using Db = KdDbDatabase;
    constexpr bool kReadOnly = true;
    constexpr bool kOpen = false;
    const std::wstring none;
    static const std::vector<VariableRecord> records = {
        {L"ANGBASE", RTREAL, Drawing, kOpen, -kUnbounded, kUnbounded, 0.0, header<&Db::angbase>,
         setHeader<double, &Db::setAngbase>},
        {L"ANGDIR", RTSHORT, Drawing, kOpen, 0, 1, 0, header<&Db::angdir>, setHeader<bool, &Db::setAngdir>},
        {L"AUNITS", RTSHORT, Drawing, kOpen, 0, 4, 0, header<&Db::aunits>, setHeader<int, &Db::setAunits>},
        {L"AUPREC", RTSHORT, Drawing, kOpen, 0, 8, 0, header<&Db::auprec>, setHeader<int, &Db::setAuprec>},
        {L"CLAYER", RTSTR, Drawing, kOpen, 0, 0, none, currentRecord<&KdDbDatabase::clayer>,
         setCurrentRecord<&KdDbDatabase::layerTableId, &KdDbDatabase::setClayer>},
        {L"CMDNAMES", RTSTR, State, kReadOnly, 0, 0, none, commandNames, nullptr},
        {L"CPROFILE", RTSTR, Session, kReadOnly, 0, 0, std::wstring(L"Default"), nullptr, nullptr},
        {L"CTABLESTYLE", RTSTR, Drawing, kOpen, 0, 0, none, tableStyle, setTableStyle},
        {L"CVPORT", RTSHORT, State, kReadOnly, kLowest, kHighest, 2, viewport, nullptr},
        {L"DIMZIN", RTSHORT, Drawing, kOpen, 0, 15, 8, header<&Db::dimzin>, setHeader<int, &Db::setDimzin>},
        {L"FILEDIA", RTSHORT, Session, kOpen, 0, 1, 1, nullptr, nullptr},
        {L"INSUNITS", RTSHORT, Drawing, kOpen, 0, 24, 4, header<&Db::insunits>, setHeader<int, &Db::setInsunits>},
        {L"LUNITS", RTSHORT, Drawing, kOpen, 1, 5, 2, header<&Db::lunits>, setHeader<int, &Db::setLunits>},
        {L"LUPREC", RTSHORT, Drawing, kOpen, 0, 8, 4, header<&Db::luprec>, setHeader<int, &Db::setLuprec>},
        {L"LWDISPLAY", RTSHORT, Session, kOpen, 0, 1, 0, nullptr, nullptr},
        {L"MEASUREMENT", RTSHORT, Drawing, kOpen, 0, 1, 1, header<&Db::measurement>,
         setHeader<int, &Db::setMeasurement>},
        {L"TABLETOOLBAR", RTSHORT, Session, kOpen, 0, 2, 1, nullptr, nullptr},
        {L"TEXTSTYLE", RTSTR, Drawing, kOpen, 0, 0, none, currentRecord<&KdDbDatabase::textstyle>,
         setCurrentRecord<&KdDbDatabase::textStyleTableId, &KdDbDatabase::setTextstyle>},
        {L"TILEMODE", RTSHORT, Drawing, kOpen, 0, 1, 1, tileMode, setTileMode},
        {L"UNITMODE", RTSHORT, Drawing, kOpen, 0, 1, 0, header<&Db::unitmode>, setHeader<int, &Db::setUnitmode>},
        // 1 while cells are cut, copied or pasted
        {L"_VQ_COPYTABLECELLS", RTSHORT, State, kOpen, 0, 1, 0, cellsTravelling, letCellsTravel},
    };
    return records;
}

}  // namespace kdhost
