// What changes a table.

#include "tests/host/db/setters/setters.h"
#include "tests/support/tablebuilder.h"

namespace kdtest {
namespace {

using Db = KdDbTable;

constexpr auto kTable = &SetterWorld::table;

/// A setter of one cell, at B4: neither merged nor locked, with a text.
constexpr int kRow = 3;
constexpr int kColumn = 1;

template <class Set, class Show>
Setter row(const char* name, Set set, Show show, CellLock lock = CellLock::None, std::string variant = {}) {
    return setterOf<Db>(kTable, name, set, show, lock, std::move(variant));
}

std::string sizes(const Db& table) {
    std::string all;
    for (int row = 0; row < table.numRows(); ++row) all += asText(table.rowHeight(row)) + ' ';
    for (int column = 0; column < table.numColumns(); ++column) all += asText(table.columnWidth(column)) + ' ';
    return all;
}

std::string dataType(const Db& table) {
    KdValue::DataType data{};
    KdValue::UnitType unit{};
    table.getDataType(kRow, kColumn, data, unit);
    return asText(int(data)) + '/' + asText(int(unit));
}

/// Rows and columns as a whole, and what is of the whole table.
void addGrid(std::vector<Setter>& list) {
    const auto whole = [](const Db& t) { return describe(t); };
    const auto add = [&](Setter setter) { list.push_back(std::move(setter)); };
    add(row(
        "setNormal",
        [](Db& t, auto&) {
            t.setNormal({0, 0, -1});
        },
        [](const Db& t) { return t.normal(); }));
    add(row(
        "setPosition",
        [](Db& t, auto&) {
            t.setPosition({7, 8, 9});
        },
        [](const Db& t) { return t.position(); }));
    add(row(
        "setTableStyle", [](Db& t, SetterWorld& w) { t.setTableStyle(w.style); },
        [](const Db& t) { return t.tableStyle(); }));
    add(row(
        "setDirection",
        [](Db& t, auto&) {
            t.setDirection({0, 1, 0});
        },
        [](const Db& t) { return t.direction(); }));
    add(row(
        "setNumRows", [](Db& t, auto&) { t.setNumRows(6); }, [](const Db& t) { return t.numRows(); }));
    add(row(
        "setNumColumns", [](Db& t, auto&) { t.setNumColumns(2); }, [](const Db& t) { return t.numColumns(); }));
    add(row(
        "setSize", [](Db& t, auto&) { t.setSize(2, 5); }, whole));
    add(row(
        "setColumnWidth", [](Db& t, auto&) { t.setColumnWidth(1, 33.0); }, sizes, CellLock::None, "one"));
    add(row(
        "setColumnWidth", [](Db& t, auto&) { t.setColumnWidth(44.0); }, sizes, CellLock::None, "all"));
    add(row(
        "setRowHeight", [](Db& t, auto&) { t.setRowHeight(2, 55.0); }, sizes, CellLock::None, "one"));
    add(row(
        "setRowHeight", [](Db& t, auto&) { t.setRowHeight(66.0); }, sizes, CellLock::None, "all"));
    add(row(
        "setFlowDirection", [](Db& t, auto&) { t.setFlowDirection(1); },
        [](const Db& t) { return t.flowDirection(); }));
    add(row(
        "suppressHeaderRow", [](Db& t, auto&) { t.suppressHeaderRow(true); },
        [](const Db& t) { return t.isHeaderSuppressed(); }));
    add(row(
        "deleteColumns", [](Db& t, auto&) { t.deleteColumns(1, 1); }, whole));
    add(row(
        "deleteRows", [](Db& t, auto&) { t.deleteRows(1, 2); }, whole));
    add(row(
        "insertRowsAndInherit", [](Db& t, auto&) { t.insertRowsAndInherit(2, 3, 2); }, whole));
    add(row(
        "insertColumnsAndInherit", [](Db& t, auto&) { t.insertColumnsAndInherit(2, 1, 3); }, whole));
    add(row(
        "mergeCells", [](Db& t, auto&) { t.mergeCells(2, 3, 0, 1); }, whole, CellLock::Content));
    add(row(
        "unmergeCells", [](Db& t, auto&) { t.unmergeCells(0, 3, 0, 2); }, whole, CellLock::Content));
    add(row(
        "generateLayout", [](Db& t, auto&) { t.generateLayout(); }, sizes));
    add(row(
        "transformBy", [](Db& t, auto&) { t.transformBy(KdGeMatrix3d::scaling(2.0, KdGePoint3d(1, 1, 1))); },
        [](const Db& t) { return sizes(t) + asText(t.position()); }));
    add(row(
        "copyFrom", [](Db& t, auto&) { t.copyFrom(TableBuilder(2, 2).text("A1", L"copied").build().get()); }, whole,
        CellLock::None, "whole"));
    add(row(
        "copyFrom",
        [](Db& t, auto&) {
            const auto source = TableBuilder(1, 1).text("A1", L"copied").build();
            t.copyFrom(source.get(), KdDb::kTableCopyDefault, cells("A1"), cells("B4"), nullptr);
        },
        [](const Db& t) { return t.textString(kRow, kColumn); }, CellLock::Content, "cells"));
}

void addContent(std::vector<Setter>& list) {
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(row(name, set, show, CellLock::Content));
    };
    // C4 holds a block.
    add(
        "setCellType", [](Db& t, auto&) { t.setCellType(kRow, kColumn, KdDb::kBlockCell); },
        [](const Db& t) { return int(t.cellType(kRow, kColumn)); });
    add(
        "setTextString", [](Db& t, auto&) { t.setTextString(kRow, kColumn, L"another text"); },
        [](const Db& t) { return t.textString(kRow, kColumn); });
    add(
        "setFieldId", [](Db& t, SetterWorld& w) { t.setFieldId(kRow, kColumn, w.field); },
        [](const Db& t) { return t.fieldId(kRow, kColumn); });
    add(
        "setBlockScale", [](Db& t, auto&) { t.setBlockScale(kRow, 2, 2.5); },
        [](const Db& t) { return t.blockScale(kRow, 2); });
    add(
        "setBlockRotation", [](Db& t, auto&) { t.setBlockRotation(kRow, 2, 1.5); },
        [](const Db& t) { return t.blockRotation(kRow, 2); });
    add(
        "setBlockTableRecordId",
        [](Db& t, SetterWorld& w) { t.setBlockTableRecordId(kRow, kColumn, 0, w.block, true); },
        [](const Db& t) {
            return asText(t.blockTableRecordId(kRow, kColumn)) + asText(t.isAutoScale(kRow, kColumn, 0));
        });
    add(
        "deleteContent", [](Db& t, auto&) { t.deleteContent(cells("A1:C3")); }, [](const Db& t) { return texts(t); });
}

void addLooks(std::vector<Setter>& list) {
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(row(name, set, show, CellLock::Format));
    };
    // A4 has an alignment of its own.
    add(
        "clearTableStyleOverrides", [](Db& t, auto&) { t.clearTableStyleOverrides(0); },
        [](const Db& t) { return int(t.alignment(kRow, 0)); });
    add(
        "clearCellOverrides", [](Db& t, auto&) { t.clearCellOverrides(kRow, 0); },
        [](const Db& t) { return int(t.alignment(kRow, 0)); });
    add(
        "setCellStyle", [](Db& t, auto&) { t.setCellStyle(kRow, kColumn, L"_HEADER"); },
        [](const Db& t) { return t.cellStyle(kRow, kColumn); });
    add(
        "setAlignment", [](Db& t, auto&) { t.setAlignment(kRow, kColumn, KdDb::kBottomRight); },
        [](const Db& t) { return int(t.alignment(kRow, kColumn)); });
    add(
        "setBackgroundColor", [](Db& t, auto&) { t.setBackgroundColor(kRow, kColumn, KdCmColor::fromIndex(3)); },
        [](const Db& t) { return t.backgroundColor(kRow, kColumn); });
    add(
        "setContentColor", [](Db& t, auto&) { t.setContentColor(kRow, kColumn, KdCmColor::fromRgb(1, 2, 3)); },
        [](const Db& t) { return t.contentColor(kRow, kColumn); });
    add(
        "setTextStyle", [](Db& t, SetterWorld& w) { t.setTextStyle(kRow, kColumn, w.textStyle); },
        [](const Db& t) { return t.textStyle(kRow, kColumn); });
    add(
        "setTextHeight", [](Db& t, auto&) { t.setTextHeight(kRow, kColumn, 17.0); },
        [](const Db& t) { return asText(t.textHeight(kRow, kColumn)) + ' ' + asText(t.rowHeight(kRow)); });
    add(
        "setDataFormat", [](Db& t, auto&) { t.setDataFormat(kRow, kColumn, L"%lu2%pr3"); },
        [](const Db& t) { return t.format(kRow, kColumn); });
    add(
        "setDataType", [](Db& t, auto&) { t.setDataType(kRow, kColumn, KdValue::kDouble, KdValue::kAngle); }, dataType);
}

void addEdges(std::vector<Setter>& list) {
    for (const KdDb::GridLineType edge : kEdges) {
        const auto add = [&](const char* name, auto set, auto show) {
            list.push_back(row(name, set, show, CellLock::Format, asText(int(edge))));
        };
        add(
            "setGridVisibility", [=](Db& t, auto&) { t.setGridVisibility(kRow, kColumn, edge, KdDb::kInvisible); },
            [=](const Db& t) { return int(t.gridVisibility(kRow, kColumn, edge)); });
        add(
            "setGridLineStyle",
            [=](Db& t, auto&) { t.setGridLineStyle(kRow, kColumn, edge, KdDb::kGridLineStyleDouble); },
            [=](const Db& t) { return int(t.gridLineStyle(kRow, kColumn, edge)); });
        add(
            "setGridColor", [=](Db& t, auto&) { t.setGridColor(kRow, kColumn, edge, KdCmColor::fromIndex(4)); },
            [=](const Db& t) { return t.gridColor(kRow, kColumn, edge); });
        add(
            "setGridLineWeight", [=](Db& t, auto&) { t.setGridLineWeight(kRow, kColumn, edge, KdDb::kLnWt050); },
            [=](const Db& t) { return int(t.gridLineWeight(kRow, kColumn, edge)); });
        add(
            "setGridLinetype", [=](Db& t, SetterWorld& w) { t.setGridLinetype(kRow, kColumn, edge, w.linetype); },
            [=](const Db& t) { return t.gridLinetype(kRow, kColumn, edge); });
        add(
            "setGridDoubleLineSpacing", [=](Db& t, auto&) { t.setGridDoubleLineSpacing(kRow, kColumn, edge, 0.75); },
            [=](const Db& t) { return t.gridDoubleLineSpacing(kRow, kColumn, edge); });
    }
}

}  // namespace

void addTableSetters(std::vector<Setter>& list) {
    addGrid(list);
    addContent(list);
    addLooks(list);
    addEdges(list);
    // A lock must not lock itself in.
    list.push_back(row(
        "setCellState", [](Db& t, auto&) { t.setCellState(kRow, kColumn, KdDb::kCellStateContentReadOnly); },
        [](const Db& t) { return int(t.cellState(kRow, kColumn)); }));
}

}  // namespace kdtest
