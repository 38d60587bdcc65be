// The table of host variables, and the values of those that live in the drawing or in what the program does.

#include <limits>

#include "host/db/access.h"
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

Value recordName(KdDbObjectId id) {
    const auto* record = peek<KdDbSymbolTableRecord>(id);
    std::wstring name;
    if (record == nullptr || record->getName(name) != Kdad::eOk) return std::nullopt;
    return name;
}

KdDbObjectId recordOfName(KdDbObjectId table, const VariableValue& name) {
    KdDbObjectId id;
    const auto* records = peek<KdDbSymbolTable>(table);
    if (records != nullptr) records->getAt(std::get<std::wstring>(name).c_str(), id);
    return id;
}

Value layer() {
    return activeDatabase() == nullptr ? std::nullopt : recordName(activeDatabase()->clayer());
}

bool setLayer(const VariableValue& name) {
    if (activeDatabase() == nullptr) return false;
    const KdDbObjectId id = recordOfName(activeDatabase()->layerTableId(), name);
    if (!id.isNull()) activeDatabase()->setClayer(id);
    return !id.isNull();
}

Value textStyle() {
    return activeDatabase() == nullptr ? std::nullopt : recordName(activeDatabase()->textstyle());
}

bool setTextStyle(const VariableValue& name) {
    if (activeDatabase() == nullptr) return false;
    const KdDbObjectId id = recordOfName(activeDatabase()->textStyleTableId(), name);
    if (!id.isNull()) activeDatabase()->setTextstyle(id);
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

/// 1 is the sheet of a layout, 2 the viewport of the model.
Value viewport() {
    if (activeDatabase() == nullptr) return std::nullopt;
    return std::int32_t(activeDatabase()->tilemode() ? 2 : 1);
}

Value measurement() {
    if (activeDatabase() == nullptr) return std::nullopt;
    return std::int32_t(activeDatabase()->measurementIsMetric() ? 1 : 0);
}

Value commandNames() {
    return runningCommandNames();
}

constexpr double kLowest = std::numeric_limits<std::int16_t>::min();
constexpr double kHighest = std::numeric_limits<std::int16_t>::max();

}  // namespace

const std::vector<VariableRecord>& variableRecords() {
    using enum VariableHome;
    constexpr bool kReadOnly = true;
    constexpr bool kOpen = false;
    const std::wstring none;
    static const std::vector<VariableRecord> records = {
        {L"CLAYER", RTSTR, Drawing, kOpen, 0, 0, none, layer, setLayer},
        {L"CMDNAMES", RTSTR, State, kReadOnly, 0, 0, none, commandNames, nullptr},
        {L"CPROFILE", RTSTR, Session, kReadOnly, 0, 0, std::wstring(L"Default"), nullptr, nullptr},
        {L"CTABLESTYLE", RTSTR, Drawing, kOpen, 0, 0, none, tableStyle, setTableStyle},
        {L"CVPORT", RTSHORT, State, kReadOnly, kLowest, kHighest, 2, viewport, nullptr},
        {L"FILEDIA", RTSHORT, Session, kOpen, 0, 1, 1, nullptr, nullptr},
        {L"LWDISPLAY", RTSHORT, Session, kOpen, 0, 1, 0, nullptr, nullptr},
        {L"MEASUREMENT", RTSHORT, Drawing, kReadOnly, 0, 1, 1, measurement, nullptr},
        {L"TABLETOOLBAR", RTSHORT, Session, kOpen, 0, 2, 1, nullptr, nullptr},
        {L"TEXTSTYLE", RTSTR, Drawing, kOpen, 0, 0, none, textStyle, setTextStyle},
        {L"TILEMODE", RTSHORT, Drawing, kReadOnly, 0, 1, 1, tileMode, nullptr},
    };
    return records;
}

}  // namespace kdhost
