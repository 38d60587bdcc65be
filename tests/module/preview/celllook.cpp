// Looks of cell styles: put on table styles, measured, told.

#include "tests/module/preview/celllook.h"

#include <QString>
#include <sstream>

#include "kd/db/mtext.h"

namespace kdtest::preview {

CellLook::CellLook() {
    constexpr std::array kWeights{KdDb::kLnWt013, KdDb::kLnWt018, KdDb::kLnWt025,
                                  KdDb::kLnWt035, KdDb::kLnWt050, KdDb::kLnWt070};
    constexpr std::array kSpacings{0.20, 0.26, 0.34, 0.46, 0.62, 0.80};
    for (std::size_t edge = 0; edge < edges.size(); ++edge) {
        edges.at(edge).color = KdCmColor::fromIndex(11 + static_cast<int>(edge));
        edges.at(edge).weight = kWeights.at(edge);
        edges.at(edge).spacing = kSpacings.at(edge);
    }
}

void dress(KdDbTableStyle& style, const CellLook& look) {
    const wchar_t* name = look.name.c_str();
    style.setFlowDirection(look.flow);
    style.setTextHeight(look.textHeight, name);
    style.setMargin(KdDb::kCellMarginLeft, look.marginHorz, name);
    style.setMargin(KdDb::kCellMarginTop, look.marginVert, name);
    style.setRotation(look.rotation, name);
    style.setAlignment(static_cast<KdDb::CellAlignment>(look.alignment), name);
    style.enableMergeAll(look.mergeAll, name);
    style.setTextStyle(look.textStyle, name);
    style.setColor(look.color, name);
    style.setBackgroundColor(look.background, name);
    for (int edge = 0; edge < kEdgeCount; ++edge) {
        const Edge& values = look.edges.at(static_cast<std::size_t>(edge));
        const KdDb::GridLineType type = edgeType(edge);
        style.setGridVisibility(values.visible ? KdDb::kVisible : KdDb::kInvisible, type, name);
        style.setGridLineStyle(values.isDouble ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle, type, name);
        style.setGridDoubleLineSpacing(values.spacing, type, name);
        style.setGridColor(values.color, type, name);
        style.setGridLineWeight(values.weight, type, name);
        style.setGridLinetype(values.linetype, type, name);
    }
}

std::unique_ptr<KdDbTableStyle> styleOf(const CellLook& look) {
    auto style = std::make_unique<KdDbTableStyle>();
    style->createCellStyle(look.name.c_str(), L"_DATA");  // refused, rightly, for one that is there
    dress(*style, look);
    return style;
}

std::string told(const CellLook& look) {
    std::ostringstream out;
    out << '"' << QString::fromStdWString(look.shownName).toStdString() << "\" alignment " << look.alignment
        << " rotation " << look.rotation << " flow " << look.flow << (look.mergeAll ? " merge all" : "") << " edges";
    for (const Edge& edge : look.edges) out << ' ' << (edge.visible ? "" : "hidden ") << (edge.isDouble ? "=" : "-");
    return out.str();
}

TextExtent measured(const CellLook& look, double wrapWidth) {
    KdDbMText text;
    text.setTextStyle(look.textStyle);
    text.setTextHeight(look.textHeight);
    text.setWidth(wrapWidth);
    text.setContents(look.shownName.c_str());
    return {text.actualWidth(), text.actualHeight(), text.width()};
}

}  // namespace kdtest::preview
