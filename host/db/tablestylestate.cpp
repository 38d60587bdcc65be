// The cell styles of a table style, and the values that every style begins with.

#include "host/db/tablestylestate.h"

#include <algorithm>

#include "host/db/names.h"

namespace kdhost {
namespace {

std::vector<CellStylePtr> standardRecords() {
    CellStyleRecord title{1, kTitleStyle, {}};
    title.format.mergeAll = true;
    title.format.cellClass = KdDb::kCellClassLabel;
    title.format.textHeight = 6.0;
    title.format.alignment = KdDb::kMiddleCenter;
    CellStyleRecord header{2, kHeaderStyle, {}};
    header.format.cellClass = KdDb::kCellClassLabel;
    header.format.alignment = KdDb::kMiddleCenter;
    CellStyleRecord data{3, kDataStyle, {}};
    return {std::make_shared<CellStyleRecord>(title), std::make_shared<CellStyleRecord>(header),
            std::make_shared<CellStyleRecord>(data)};
}

std::uint64_t newRevision() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

TableStyleState::TableStyleState() {
    // One set of records serves all, until a style changes its own.
    static const std::vector<CellStylePtr> standard = standardRecords();
    static const std::uint64_t standardRevision = newRevision();
    records = standard;
    revision = standardRevision;
}

void TableStyleState::mapIds(const IdMapper& map) {
    KdDbObjectState::mapIds(map);
    for (CellStylePtr& record : records) {
        CellStyleRecord mapped = *record;
        mapFormatIds(mapped.format, [&](KdDbObjectId id) { return map(id, IdRole::pointer); });
        if (mapped.format != record->format) replace(record->index, std::move(mapped));
    }
}

CellStylePtr TableStyleState::find(const std::wstring& name) const {
    auto found = std::find_if(records.begin(), records.end(),
                              [&](const CellStylePtr& record) { return sameName(record->name, name); });
    return found == records.end() ? nullptr : *found;
}

CellStylePtr TableStyleState::find(int index) const {
    auto found = std::find_if(records.begin(), records.end(),
                              [&](const CellStylePtr& record) { return record->index == index; });
    return found == records.end() ? nullptr : *found;
}

const CellStyleRecord& TableStyleState::styleOrData(const std::wstring& name) const {
    const CellStylePtr record = find(name);
    // "_DATA" can't be deleted or renamed, so that it stands third in every style.
    return record != nullptr ? *record : *records[2];
}

void TableStyleState::replace(int index, CellStyleRecord record) {
    for (CellStylePtr& each : records) {
        if (each->index != index) continue;
        each = std::make_shared<CellStyleRecord>(std::move(record));
        break;
    }
    changed();
}

void TableStyleState::changed() {
    revision = newRevision();
    ++stateEpoch;
}

const TableStyleState& standardTableStyle() {
    static const TableStyleState standard;
    return standard;
}

}  // namespace kdhost
