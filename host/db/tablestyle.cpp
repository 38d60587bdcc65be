// Table styles: cell styles by name, and the direction that tables of the style grow in.

#include "kd/db/tablestyle.h"

#include "host/db/access.h"
#include "host/db/tablestylestate.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/ed/resbuf.h"

using kdhost::CellFormat;
using kdhost::CellStyleRecord;
using kdhost::TableStyleState;
namespace property = kdhost::property;

KDRX_DEFINE_MEMBERS(KdDbTableStyle, KdDbObject)

namespace {

std::wstring text(const wchar_t* name) {
    return name == nullptr ? L"" : name;
}

const CellFormat& formatOf(const KdDbTableStyle& style, const wchar_t* name) {
    return stateOf<TableStyleState>(style).styleOrData(text(name)).format;
}

/// Changes the format of the cell style of that name; of an unknown one nothing.
template <class Change>
void changeFormat(KdDbTableStyle& style, const wchar_t* name, Change change) {
    const kdhost::CellStylePtr old = stateOf<TableStyleState>(style).find(text(name));
    if (old == nullptr) return;
    CellStyleRecord record = *old;
    change(record.format);
    if (record.format == old->format) return;
    if (auto* state = writableStateOf<TableStyleState>(style)) state->replace(old->index, std::move(record));
}

template <class T>
void setProperty(KdDbTableStyle& style, const wchar_t* name, const kdhost::FormatProperty<T>& which, const T& value) {
    changeFormat(style, name, [&](CellFormat& format) { which.in(format) = value; });
}

/// Of the first edge in the set; of the top edge when the set names none.
template <class T>
T gridPart(const KdDbTableStyle& style, const wchar_t* name, KdDb::GridLineType edges,
           const kdhost::property::GridPart<T>& part) {
    const int edge = std::max(0, kdhost::edgeIndex(edges));
    return part.at(edge).in(formatOf(style, name));
}

template <class T>
void setGridPart(KdDbTableStyle& style, const wchar_t* name, KdDb::GridLineType edges,
                 const kdhost::property::GridPart<T>& part, const T& value) {
    changeFormat(style, name, [&](CellFormat& format) {
        for (int edge = 0; edge < kdhost::kEdgeCount; ++edge) {
            const bool named = (edges & kdhost::kEdges[static_cast<std::size_t>(edge)]) != 0;
            if (named) part.at(edge).in(format) = value;
        }
    });
}

const kdhost::FormatProperty<double>& marginProperty(KdDb::CellMargin margin) {
    return margin == KdDb::kCellMarginLeft ? property::marginHorz : property::marginVert;
}

}  // namespace

KdDbTableStyle::KdDbTableStyle() : KdDbObject(std::make_unique<TableStyleState>()) {}
KdDbTableStyle::~KdDbTableStyle() = default;

int KdDbTableStyle::flowDirection() const {
    return stateOf<TableStyleState>(*this).flow;
}

Kdad::ErrorStatus KdDbTableStyle::postTableStyleToDb(KdDbDatabase* database, const wchar_t* name, KdDbObjectId& id) {
    id.setNull();
    if (database == nullptr) return Kdad::eNullObjectPointer;
    KdDbDictionary* styles = nullptr;
    Kdad::ErrorStatus status = database->getTableStyleDictionary(styles, KdDb::kForWrite);
    if (status != Kdad::eOk) return status;
    // The dictionary would put the new style in the old one's place.
    status = name != nullptr && styles->has(name) ? Kdad::eDuplicateKey : styles->setAt(name, this, id);
    styles->close();
    return status;
}
void KdDbTableStyle::setFlowDirection(int flow) {
    if (auto* state = writableStateOf<TableStyleState>(*this)) state->flow = flow;
}

Kdad::ErrorStatus KdDbTableStyle::getName(wchar_t*& name) const {
    name = nullptr;
    if (database() == nullptr) return Kdad::eNotInDatabase;
    const auto* dictionary = kdhost::peek<KdDbDictionary>(ownerId());
    if (dictionary == nullptr) return Kdad::eKeyNotFound;
    std::wstring found;
    const Kdad::ErrorStatus status = dictionary->nameAt(objectId(), found);
    if (status == Kdad::eOk) name = kdutNewString(found.c_str());
    return status;
}

bool KdDbTableStyle::isTitleSuppressed() const {
    return stateOf<TableStyleState>(*this).titleSuppressed;
}

bool KdDbTableStyle::isHeaderSuppressed() const {
    return stateOf<TableStyleState>(*this).headerSuppressed;
}

int KdDbTableStyle::numCellStyles() const {
    return static_cast<int>(stateOf<TableStyleState>(*this).records.size());
}

KdString KdDbTableStyle::cellStyleName(int index) const {
    const kdhost::CellStylePtr record = stateOf<TableStyleState>(*this).find(index);
    return record == nullptr ? KdString() : KdString(record->name);
}

int KdDbTableStyle::getCellStyles(KdArray<KdString>& names) const {
    for (const kdhost::CellStylePtr& record : stateOf<TableStyleState>(*this).records) {
        names.append(KdString(record->name));
    }
    return numCellStyles();
}

Kdad::ErrorStatus KdDbTableStyle::createCellStyle(const wchar_t* name, const wchar_t* copiedFrom) {
    const auto& state = stateOf<TableStyleState>(*this);
    if (text(name).empty()) return Kdad::eInvalidKey;
    if (state.find(text(name)) != nullptr) return Kdad::eDuplicateKey;
    const kdhost::CellStylePtr source = state.find(text(copiedFrom));
    if (source == nullptr) return Kdad::eKeyNotFound;
    auto* writable = writableStateOf<TableStyleState>(*this);
    if (writable == nullptr) return Kdad::eNotOpenForWrite;
    writable->records.push_back(
        std::make_shared<CellStyleRecord>(CellStyleRecord{writable->nextIndex++, name, source->format}));
    writable->changed();
    return Kdad::eOk;
}

namespace {

/// The user's cell style of that name. The standard three are no one's to delete or rename.
Kdad::ErrorStatus findUserStyle(const TableStyleState& state, const wchar_t* name, kdhost::CellStylePtr& found) {
    found = state.find(text(name));
    if (found == nullptr) return Kdad::eKeyNotFound;
    return found->index <= 3 ? Kdad::eNotApplicable : Kdad::eOk;
}

}  // namespace

Kdad::ErrorStatus KdDbTableStyle::deleteCellStyle(const wchar_t* name) {
    kdhost::CellStylePtr record;
    const Kdad::ErrorStatus status = findUserStyle(stateOf<TableStyleState>(*this), name, record);
    if (status != Kdad::eOk) return status;
    auto* state = writableStateOf<TableStyleState>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    state->lastName[record->index] = record->name;
    std::erase(state->records, record);
    state->changed();
    return Kdad::eOk;
}

// Cells hold their style by its index, so that a rename carries them along without a look at any table.
Kdad::ErrorStatus KdDbTableStyle::renameCellStyle(const wchar_t* oldName, const wchar_t* newName) {
    kdhost::CellStylePtr record;
    const Kdad::ErrorStatus status = findUserStyle(stateOf<TableStyleState>(*this), oldName, record);
    if (status != Kdad::eOk) return status;
    if (text(newName).empty()) return Kdad::eInvalidKey;
    const kdhost::CellStylePtr holder = stateOf<TableStyleState>(*this).find(text(newName));
    if (holder != nullptr && holder != record) return Kdad::eDuplicateKey;
    auto* state = writableStateOf<TableStyleState>(*this);
    if (state == nullptr) return Kdad::eNotOpenForWrite;
    state->replace(record->index, {record->index, newName, record->format});
    return Kdad::eOk;
}

int KdDbTableStyle::cellClass(const wchar_t* name) const {
    return formatOf(*this, name).cellClass;
}

void KdDbTableStyle::setCellClass(int cellClass, const wchar_t* name) {
    setProperty(*this, name, property::cellClass, cellClass);
}

double KdDbTableStyle::textHeight(const wchar_t* name) const {
    return formatOf(*this, name).textHeight;
}

void KdDbTableStyle::setTextHeight(double height, const wchar_t* name) {
    if (height > 0.0) setProperty(*this, name, property::textHeight, height);
}

KdDbObjectId KdDbTableStyle::textStyle(const wchar_t* name) const {
    return formatOf(*this, name).textStyle;
}

void KdDbTableStyle::setTextStyle(const KdDbObjectId& style, const wchar_t* name) {
    setProperty(*this, name, property::textStyle, style);
}

KdDb::CellAlignment KdDbTableStyle::alignment(const wchar_t* name) const {
    return formatOf(*this, name).alignment;
}

void KdDbTableStyle::setAlignment(KdDb::CellAlignment alignment, const wchar_t* name) {
    if (alignment >= KdDb::kTopLeft && alignment <= KdDb::kBottomRight) {
        setProperty(*this, name, property::alignment, alignment);
    }
}

double KdDbTableStyle::rotation(const wchar_t* name) const {
    return formatOf(*this, name).rotation;
}

void KdDbTableStyle::setRotation(double angle, const wchar_t* name) {
    setProperty(*this, name, property::rotation, angle);
}

KdCmColor KdDbTableStyle::color(const wchar_t* name) const {
    return formatOf(*this, name).color;
}

void KdDbTableStyle::setColor(const KdCmColor& color, const wchar_t* name) {
    setProperty(*this, name, property::color, color);
}

KdCmColor KdDbTableStyle::backgroundColor(const wchar_t* name) const {
    return formatOf(*this, name).background;
}

void KdDbTableStyle::setBackgroundColor(const KdCmColor& color, const wchar_t* name) {
    setProperty(*this, name, property::background, color);
}

double KdDbTableStyle::margin(KdDb::CellMargin margin, const wchar_t* name) const {
    return marginProperty(margin).in(formatOf(*this, name));
}

void KdDbTableStyle::setMargin(KdDb::CellMargin margin, double value, const wchar_t* name) {
    if (value >= 0.0) setProperty(*this, name, marginProperty(margin), value);
}

KdString KdDbTableStyle::format(const wchar_t* name) const {
    return KdString(formatOf(*this, name).format);
}

void KdDbTableStyle::setFormat(const wchar_t* format, const wchar_t* name) {
    setProperty(*this, name, property::format, text(format));
}

void KdDbTableStyle::getDataType(KdValue::DataType& dataType, KdValue::UnitType& unitType, const wchar_t* name) const {
    dataType = formatOf(*this, name).dataType;
    unitType = formatOf(*this, name).unitType;
}

void KdDbTableStyle::setDataType(KdValue::DataType dataType, KdValue::UnitType unitType, const wchar_t* name) {
    changeFormat(*this, name, [&](CellFormat& format) {
        format.dataType = dataType;
        format.unitType = unitType;
    });
}

bool KdDbTableStyle::isMergeAllEnabled(const wchar_t* name) const {
    return formatOf(*this, name).mergeAll;
}

void KdDbTableStyle::enableMergeAll(bool enable, const wchar_t* name) {
    setProperty(*this, name, property::mergeAll, enable);
}

KdDb::Visibility KdDbTableStyle::gridVisibility(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::visibility);
}

void KdDbTableStyle::setGridVisibility(KdDb::Visibility visibility, KdDb::GridLineType edge, const wchar_t* name) {
    setGridPart(*this, name, edge, property::visibility, visibility);
}

KdDb::GridLineStyle KdDbTableStyle::gridLineStyle(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::lineStyle);
}

void KdDbTableStyle::setGridLineStyle(KdDb::GridLineStyle style, KdDb::GridLineType edge, const wchar_t* name) {
    setGridPart(*this, name, edge, property::lineStyle, style);
}

KdCmColor KdDbTableStyle::gridColor(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::lineColor);
}

void KdDbTableStyle::setGridColor(KdCmColor color, KdDb::GridLineType edge, const wchar_t* name) {
    setGridPart(*this, name, edge, property::lineColor, color);
}

KdDb::LineWeight KdDbTableStyle::gridLineWeight(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::weight);
}

void KdDbTableStyle::setGridLineWeight(KdDb::LineWeight weight, KdDb::GridLineType edge, const wchar_t* name) {
    setGridPart(*this, name, edge, property::weight, weight);
}

KdDbObjectId KdDbTableStyle::gridLinetype(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::linetype);
}

void KdDbTableStyle::setGridLinetype(const KdDbObjectId& linetype, KdDb::GridLineType edge, const wchar_t* name) {
    setGridPart(*this, name, edge, property::linetype, linetype);
}

double KdDbTableStyle::gridDoubleLineSpacing(KdDb::GridLineType edge, const wchar_t* name) const {
    return gridPart(*this, name, edge, property::spacing);
}

void KdDbTableStyle::setGridDoubleLineSpacing(double spacing, KdDb::GridLineType edge, const wchar_t* name) {
    if (spacing >= 0.0) setGridPart(*this, name, edge, property::spacing, spacing);
}
