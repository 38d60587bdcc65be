// Samples as the host draws them: the looks of edges on screen and on paper, and galleries that were looked at, of
// texts by alignment, rotation and flow, of borders single, double and hidden, and of ranges of all shapes.

#include "tests/module/preview/gallery.h"

#include <gtest/gtest.h>

#include "tests/module/preview/previewfixture.h"
#include "tests/module/preview/rangefixture.h"

namespace kdtest::preview {
namespace {

namespace draw = kdhost::draw;

/// The lines that the host draws of a sample, with their weights.
std::vector<draw::Polyline> drawnLines(const CVqTableCellFromTableStyle& sample, bool plotted) {
    std::vector<draw::Polyline> lines;
    for (const draw::Primitive& primitive :
         draw::primitivesOf(*sample.GetTableCell(), {.lineWeights = true, .plotted = plotted})) {
        if (const auto* line = std::get_if<draw::Polyline>(&primitive)) lines.push_back(*line);
    }
    return lines;
}

class DrawnSamples : public PreviewTest {};

TEST_F(DrawnSamples, Edges_have_the_dashes_weights_and_colours_of_their_style) {
    CellLook look;
    Edge& top = look.edges[kTop];
    top.linetype = linetype(L"SHORT");
    top.weight = KdDb::kLnWt070;
    top.color = KdCmColor::fromRgb(10, 20, 30);
    StyleSample made(look);
    const std::vector<draw::Polyline> lines = drawnLines(made.make().sample, false);
    ASSERT_EQ(lines.size(), 12u);
    EXPECT_EQ(lines[0].dashes, (std::vector<double>{0.5, 0.25}));
    EXPECT_EQ(lines[0].lineWeight, 70);
    EXPECT_EQ(lines[0].color, (draw::Color{10, 20, 30}));
    EXPECT_EQ(lines[1].dashes, std::vector<double>{}) << "the left edge";
    EXPECT_EQ(lines[1].lineWeight, 35);
}

TEST_F(DrawnSamples, Hidden_edges_are_shown_grey_and_thin_and_are_not_plotted) {
    CellLook look;
    look.edges[kTop].visible = false;
    look.edges[kTop].weight = KdDb::kLnWt211;
    StyleSample made(look);
    const std::vector<draw::Polyline> lines = drawnLines(made.make().sample, false);
    ASSERT_EQ(lines.size(), 12u);
    const KdCmColor grey = KdCmColor::fromIndex(8);
    EXPECT_EQ(lines[0].color, (draw::Color{grey.red(), grey.green(), grey.blue()}));
    EXPECT_EQ(lines[0].lineWeight, 0);
    EXPECT_EQ(drawnLines(made.sample, true).size(), 10u) << "all but the two tops";
}

class PreviewGallery : public RangePreviewTest {
protected:
    static void add(Gallery& gallery, const std::string& title, const CellLook& look, bool singleColumn = false,
                    double rowHeight = 0.0) {
        StyleSample made(look, singleColumn);
        if (rowHeight != 0.0) made.sample.SetRowHeight(rowHeight);
        made.make();
        gallery.add(title, *made.sample.GetTableCell());
    }
};

constexpr int kDegrees[] = {0, 90, 180, 270, 35, 125, 215, 325};
constexpr const char* kAlignmentNames[] = {"top left",    "top centre",    "top right",
                                           "middle left", "middle centre", "middle right",
                                           "bottom left", "bottom centre", "bottom right"};

class TextGallery : public PreviewGallery, public ::testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Flows, TextGallery, ::testing::Values(0, 1),
                         [](const auto& info) { return info.param == 0 ? "downward" : "upward"; });

TEST_P(TextGallery, Texts_of_all_alignments_and_rotations_are_drawn_as_kept) {
    Gallery gallery(GetParam() == 0 ? "texts_downward" : "texts_upward", std::size(kDegrees));
    CellLook look;
    look.flow = GetParam();
    look.color = KdCmColor::fromIndex(7);
    for (Edge& edge : look.edges) edge.color = KdCmColor::fromIndex(4);
    for (look.alignment = 1; look.alignment <= 9; ++look.alignment) {
        for (const int degrees : kDegrees) {
            look.rotation = degrees * kPi / 180.0;
            const std::string title =
                std::string(kAlignmentNames[look.alignment - 1]) + ", " + std::to_string(degrees) + " degrees";
            // Rows don't grow by the length of text that runs up or down; these are high enough to tell texts apart.
            add(gallery, title, look, true, degrees % 180 == 90 ? 12.0 : 0.0);
        }
    }
    gallery.finish();
}

struct BorderCase {
    const char* name;
    std::vector<EdgeName> doubles;
    std::vector<EdgeName> hidden;
};

const std::vector<EdgeName> kOuter{kTop, kBottom, kLeft, kRight};
const std::vector<EdgeName> kInner{kInsideHorz, kInsideVert};
const std::vector<EdgeName> kEveryEdge{kTop, kInsideHorz, kBottom, kLeft, kInsideVert, kRight};

const std::vector<BorderCase> kBorders{
    {"single", {}, {}},
    {"double", kEveryEdge, {}},
    {"hidden", {}, kEveryEdge},
    {"double and hidden", kEveryEdge, kEveryEdge},
    {"outside hidden", {}, kOuter},
    {"inside hidden", {}, kInner},
    {"top double", {kTop}, {}},
    {"bottom double", {kBottom}, {}},
    {"left double", {kLeft}, {}},
    {"right double", {kRight}, {}},
    {"top and left double, right hidden", {kTop, kLeft}, {kRight}},
};

std::array<Edge, kEdgeCount> edgesOf(const BorderCase& borders) {
    std::array<Edge, kEdgeCount> edges = CellLook().edges;
    for (std::size_t name = 0; name < edges.size(); ++name) {
        edges.at(name).color = KdCmColor::fromIndex(1 + static_cast<int>(name));
        edges.at(name).spacing = 1.2;
    }
    for (const EdgeName name : borders.doubles) edges.at(static_cast<std::size_t>(name)).isDouble = true;
    for (const EdgeName name : borders.hidden) edges.at(static_cast<std::size_t>(name)).visible = false;
    return edges;
}

TEST_F(PreviewGallery, Borders_of_styles_are_drawn_as_kept) {
    Gallery gallery("style_borders", 4);
    for (const BorderCase& borders : kBorders) {
        CellLook look;
        look.alignment = KdDb::kMiddleCenter;
        look.edges = edgesOf(borders);
        add(gallery, borders.name, look);
        look.flow = 1;
        add(gallery, std::string(borders.name) + ", upward", look);
        look.flow = 0;
        add(gallery, std::string(borders.name) + ", one column", look, true);
        look.mergeAll = true;
        look.background = KdCmColor::fromRgb(225, 240, 255);
        add(gallery, std::string(borders.name) + ", merge all, filled", look);
    }
    gallery.finish();
}

TEST_F(PreviewGallery, Ranges_of_all_shapes_are_drawn_as_kept) {
    struct Shape {
        const char* name;
        CVqTableCellRange range;
    };
    constexpr Shape kShapes[] = {
        {"one cell", {0, 0, 0, 0}}, {"a row", {0, 0, 0, 1}}, {"a column", {0, 0, 1, 0}}, {"five by one", {0, 0, 4, 0}}};
    Gallery gallery("ranges", std::size(kShapes));
    for (const BorderCase& borders : kBorders) {
        for (const Shape& shape : kShapes) {
            table = makeTable(6, 6);
            table->setTextHeight(0, 0, 3.0);
            // The first cell last: its edges are those of its neighbours too.
            for (const auto& [row, column] : {std::pair{1, 1}, std::pair{1, 0}, std::pair{0, 1}, std::pair{0, 0}}) {
                dressCell(row, column, edgesOf(borders));
            }
            RangeSample made(*table, shape.range);
            made.make();
            gallery.add(std::string(borders.name) + ", " + shape.name, *made.sample.GetTableCell());
        }
    }
    gallery.finish();
}

}  // namespace
}  // namespace kdtest::preview
