// Table styles and tables in the dump.

#include "host/app/dump/tables.h"

#include <memory>

#include "host/app/dump/format.h"
#include "host/db/access.h"
#include "host/db/tableaccess.h"
#include "host/db/tablestylestate.h"
#include "host/rx/encoding.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/field.h"
#include "kd/db/tablestyle.h"

namespace kdhost::dump {
namespace {

namespace prop = kdhost::property;

/// The one id among the plain properties is the text style, and none means the drawing's current one.
template <class T>
Json valueIn(const KdDbDatabase* database, const T& of) {
    if constexpr (std::is_same_v<T, KdDbObjectId>) {
        return value(of.isNull() && database != nullptr ? database->textstyle() : of);
    } else {
        return value(of);
    }
}

Json cellStyle(const KdDbDatabase* database, const CellStyleRecord& record) {
    const CellFormat& format = record.format;
    Json json = {{"name", toUtf8(record.name)}};
    const auto add = [&](const auto&... which) { ((json[which.name] = valueIn(database, which.in(format))), ...); };
    add(prop::cellClass, prop::textHeight, prop::textStyle, prop::alignment, prop::rotation, prop::color,
        prop::background, prop::marginHorz, prop::marginVert, prop::format, prop::dataType, prop::unitType,
        prop::mergeAll);
    json["grid"] = grid([&](int edge) { return format.grid[static_cast<std::size_t>(edge)]; });
    return json;
}

Json tableStyle(const std::wstring& name, const KdDbTableStyle& style) {
    Json cellStyles = Json::array();
    for (const CellStylePtr& record : stateOf<TableStyleState>(style).records)
        cellStyles.push_back(cellStyle(style.database(), *record));
    return {{"name", toUtf8(name)}, {"flow", style.flowDirection()}, {"cellStyles", std::move(cellStyles)}};
}

std::string styleName(const KdDbTable& table) {
    const auto* style = peek<KdDbTableStyle>(table.tableStyle());
    const auto* styles = style == nullptr ? nullptr : peek<KdDbDictionary>(style->database()->tableStyleDictionaryId());
    std::wstring name;
    if (styles != nullptr) styles->nameAt(style->objectId(), name);
    return toUtf8(name);
}

/// With the codes of the fields within, so that the dump tells the formula.
Json fieldCode(const CellContent& cell) {
    const auto* field = peek<KdDbField>(cell.field());
    if (field == nullptr) return nullptr;
    return toUtf8(field->getFieldCode(KdDbField::kAddChildren).str());
}

Json block(const CellContent& cell) {
    if (cell.block().isNull()) return nullptr;
    const CellObjects& objects = *cell.objects;
    return {{"name", recordName(objects.block)},
            {"scale", objects.blockScale},
            {"rotation", objects.blockRotation},
            {"autofit", objects.autoFit}};
}

Json ownProperties(FormatBits own) {
    Json names = Json::array();
    const auto add = [&](const auto& which) {
        if ((own & which.bit) != 0) names.push_back(which.name);
    };
    std::apply([&](const auto&... which) { (add(which), ...); }, prop::kPlain);
    return names;
}

GridLook edgeOf(const KdDbTable& table, int row, int column, int index) {
    const KdDb::GridLineType edge = kEdges[static_cast<std::size_t>(index)];
    return {table.gridVisibility(row, column, edge), table.gridLineStyle(row, column, edge),
            table.gridLineWeight(row, column, edge), table.gridLinetype(row, column, edge),
            table.gridColor(row, column, edge),      table.gridDoubleLineSpacing(row, column, edge)};
}

Json cell(const KdDbTable& table, int row, int column) {
    const TableState& state = tableState(table);
    const CellContent& held = state.content(row, column);
    const FormatBits own = state.look(row, column).own();
    const CellLook* formatted = formatCell(state, row, column);
    Json json = {{"text", toUtf8(table.textString(row, column))},
                 {"type", static_cast<int>(table.cellType(row, column))},
                 {"content", table.contentType(row, column)},
                 {"field", fieldCode(held)},
                 {"style", toUtf8(table.cellStyle(row, column))}};
    const auto add = [&](const auto&... which) {
        ((json[which.name] = valueIn(table.database(), effective(state, formatted, which))), ...);
    };
    add(prop::alignment);
    json["state"] = static_cast<int>(table.cellState(row, column));
    add(prop::dataType, prop::unitType, prop::format, prop::background, prop::color, prop::textHeight, prop::textStyle,
        prop::rotation);
    json["block"] = block(held);
    json["own"] = ownProperties(own);
    if ((own & kGridBits) != 0) {
        json["grid"] = grid([&](int edge) { return edgeOf(table, row, column, edge); });
    }
    return json;
}

Json merges(const KdDbTable& table) {
    const TableState& state = tableState(table);
    Json list = Json::array();
    if (state.rowCount() == 0 || state.columnCount() == 0) return list;
    for (const KdCellRange& merge : state.mergesIn(state.whole())) {
        list.push_back({merge.m_topRow, merge.m_leftColumn, merge.m_bottomRow, merge.m_rightColumn});
    }
    return list;
}

Json selection(const KdDbTable& table) {
    if (!table.hasSubSelection()) return nullptr;
    const KdCellRange cells = table.getSubSelection();
    return {cells.m_topRow, cells.m_leftColumn, cells.m_bottomRow, cells.m_rightColumn};
}

template <class Get>
Json listOf(int count, Get get) {
    Json list = Json::array();
    for (int i = 0; i < count; ++i) list.push_back(get(i));
    return list;
}

/// Everything of a table but its cells.
Json tableHead(const KdDbTable& table) {
    const KdGePoint3d position = table.position();
    const KdGeVector3d direction = table.direction();
    const KdGeVector3d normal = table.normal();
    return {{"handle", handle(table.handle())},
            {"style", styleName(table)},
            {"layer", recordName(table.layerId())},
            {"position", point(position.x, position.y, position.z)},
            {"direction", point(direction.x, direction.y, direction.z)},
            {"normal", point(normal.x, normal.y, normal.z)},
            {"flow", table.flowDirection()},
            {"titleSuppressed", table.isTitleSuppressed()},
            {"headerSuppressed", table.isHeaderSuppressed()},
            {"rows", table.numRows()},
            {"columns", table.numColumns()},
            {"rowHeights", listOf(table.numRows(), [&](int row) { return table.rowHeight(row); })},
            {"columnWidths", listOf(table.numColumns(), [&](int column) { return table.columnWidth(column); })},
            {"rowTypes", listOf(table.numRows(), [&](int row) { return static_cast<int>(table.rowType(row)); })},
            {"merges", merges(table)},
            {"selection", selection(table)}};
}

}  // namespace

Json tableStyles(const KdDbDatabase& database) {
    Json list = Json::array();
    const auto* styles = peek<KdDbDictionary>(database.tableStyleDictionaryId());
    if (styles == nullptr) return list;
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (; !entry->done(); entry->next()) {
        if (const auto* style = peek<KdDbTableStyle>(entry->objectId()))
            list.push_back(tableStyle(entry->name(), *style));
    }
    return list;
}

void writeTable(std::ostream& out, const KdDbTable& table) {
    std::string head = tableHead(table).dump();
    head.pop_back();
    out << head << ",\"cells\":[";
    for (int row = 0; row < table.numRows(); ++row) {
        const Json cells = listOf(table.numColumns(), [&](int column) { return cell(table, row, column); });
        out << (row == 0 ? "\n" : ",\n") << cells.dump();
    }
    out << "]}";
}

}  // namespace kdhost::dump
