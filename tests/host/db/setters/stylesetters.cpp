// What changes a table style.

#include "kd/db/tablestyle.h"
#include "tests/host/db/setters/setters.h"

namespace kdtest {
namespace {

using Style = KdDbTableStyle;

constexpr const wchar_t* kCells = L"Notes";

template <class Set, class Show>
Setter row(const char* name, Set set, Show show, std::string variant = {}) {
    return setterOf<Style>(&SetterWorld::style, name, set, show, CellLock::None, std::move(variant));
}

std::string names(const Style& style) {
    KdArray<KdString> all;
    style.getCellStyles(all);
    return asText(all);
}

std::string dataType(const Style& style) {
    KdValue::DataType data{};
    KdValue::UnitType unit{};
    style.getDataType(data, unit, kCells);
    return asText(int(data)) + '/' + asText(int(unit));
}

void addEdges(std::vector<Setter>& list) {
    for (const KdDb::GridLineType edge : kEdges) {
        const auto add = [&](const char* name, auto set, auto show) {
            list.push_back(row(name, set, show, asText(int(edge))));
        };
        add(
            "setGridVisibility", [=](Style& s, auto&) { s.setGridVisibility(KdDb::kInvisible, edge, kCells); },
            [=](const Style& s) { return int(s.gridVisibility(edge, kCells)); });
        add(
            "setGridLineStyle", [=](Style& s, auto&) { s.setGridLineStyle(KdDb::kGridLineStyleDouble, edge, kCells); },
            [=](const Style& s) { return int(s.gridLineStyle(edge, kCells)); });
        add(
            "setGridColor", [=](Style& s, auto&) { s.setGridColor(KdCmColor::fromIndex(4), edge, kCells); },
            [=](const Style& s) { return s.gridColor(edge, kCells); });
        add(
            "setGridLineWeight", [=](Style& s, auto&) { s.setGridLineWeight(KdDb::kLnWt050, edge, kCells); },
            [=](const Style& s) { return int(s.gridLineWeight(edge, kCells)); });
        add(
            "setGridLinetype", [=](Style& s, SetterWorld& w) { s.setGridLinetype(w.linetype, edge, kCells); },
            [=](const Style& s) { return s.gridLinetype(edge, kCells); });
        add(
            "setGridDoubleLineSpacing", [=](Style& s, auto&) { s.setGridDoubleLineSpacing(0.75, edge, kCells); },
            [=](const Style& s) { return s.gridDoubleLineSpacing(edge, kCells); });
    }
}

void addCellProperties(std::vector<Setter>& list) {
    const auto add = [&](const char* name, auto set, auto show, std::string variant = {}) {
        list.push_back(row(name, set, show, std::move(variant)));
    };
    add(
        "setCellClass", [](Style& s, auto&) { s.setCellClass(KdDb::kCellClassLabel, kCells); },
        [](const Style& s) { return s.cellClass(kCells); });
    add(
        "setTextHeight", [](Style& s, auto&) { s.setTextHeight(17.0, kCells); },
        [](const Style& s) { return s.textHeight(kCells); });
    add(
        "setTextStyle", [](Style& s, SetterWorld& w) { s.setTextStyle(w.textStyle, kCells); },
        [](const Style& s) { return s.textStyle(kCells); });
    add(
        "setAlignment", [](Style& s, auto&) { s.setAlignment(KdDb::kBottomRight, kCells); },
        [](const Style& s) { return int(s.alignment(kCells)); });
    add(
        "setRotation", [](Style& s, auto&) { s.setRotation(1.5, kCells); },
        [](const Style& s) { return s.rotation(kCells); });
    add(
        "setColor", [](Style& s, auto&) { s.setColor(KdCmColor::fromIndex(3), kCells); },
        [](const Style& s) { return s.color(kCells); });
    add(
        "setBackgroundColor", [](Style& s, auto&) { s.setBackgroundColor(KdCmColor::fromRgb(1, 2, 3), kCells); },
        [](const Style& s) { return s.backgroundColor(kCells); });
    for (const KdDb::CellMargin margin : {KdDb::kCellMarginTop, KdDb::kCellMarginLeft}) {
        add(
            "setMargin", [=](Style& s, auto&) { s.setMargin(margin, 3.25, kCells); },
            [=](const Style& s) { return s.margin(margin, kCells); }, asText(int(margin)));
    }
    add(
        "setFormat", [](Style& s, auto&) { s.setFormat(L"%lu2%pr3", kCells); },
        [](const Style& s) { return s.format(kCells); });
    add(
        "setDataType", [](Style& s, auto&) { s.setDataType(KdValue::kDouble, KdValue::kAngle, kCells); }, dataType);
    add(
        "enableMergeAll", [](Style& s, auto&) { s.enableMergeAll(true, kCells); },
        [](const Style& s) { return s.isMergeAllEnabled(kCells); });
}

}  // namespace

void addStyleSetters(std::vector<Setter>& list) {
    list.push_back(row(
        "setFlowDirection", [](Style& s, auto&) { s.setFlowDirection(1); },
        [](const Style& s) { return s.flowDirection(); }));
    list.push_back(row(
        "createCellStyle", [](Style& s, auto&) { s.createCellStyle(L"More", kCells); }, names));
    list.push_back(row(
        "deleteCellStyle", [](Style& s, auto&) { s.deleteCellStyle(kCells); }, names));
    list.push_back(row(
        "renameCellStyle", [](Style& s, auto&) { s.renameCellStyle(kCells, L"Remarks"); }, names));
    addCellProperties(list);
    addEdges(list);
}

}  // namespace kdtest
