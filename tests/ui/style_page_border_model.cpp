// The border page against a plain model: whatever is picked and pressed, the six edges are what one would write down on
// paper.

#include <QCheckBox>
#include <map>
#include <random>

#include "tests/ui/style_borders.h"

namespace kdtest {
namespace {

struct Edge {
    bool visible = true;
    bool isDouble = false;
    KdDb::LineWeight weight = KdDb::kLnWtByBlock;
    KdCmColor color;
    KdDbObjectId linetype;
    double spacing = 0.0;

    friend bool operator==(const Edge&, const Edge&) = default;
};
using Edges = std::map<int, Edge>;

class StylePageBorderModel : public StylePageBorder {
protected:
    Edges edgesOf(const wchar_t* name) {
        Edges edges;
        for (const KdDb::GridLineType edge : kEdges) {
            edges[edge] = {style().gridVisibility(edge, name) == KdDb::kVisible,
                           style().gridLineStyle(edge, name) == KdDb::kGridLineStyleDouble,
                           style().gridLineWeight(edge, name),
                           style().gridColor(edge, name),
                           style().gridLinetype(edge, name),
                           style().gridDoubleLineSpacing(edge, name)};
        }
        return edges;
    }
};

TEST_F(StylePageBorderModel, Agrees_with_the_edges_after_any_row_of_picks_and_presses) {
    struct Pick {
        bool isDouble = false;
        bool spacingTyped = false;
        double spacing = 0.0;
    };
    std::mt19937 random(23);
    const auto upTo = [&](unsigned count) { return static_cast<int>(random() % count); };
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        const wchar_t* const names[] = {L"_DATA", L"_HEADER"};
        std::map<int, Edges> model = {{0, edgesOf(L"_DATA")}, {1, edgesOf(L"_HEADER")}};
        Pick pick;
        int current = 0;
        for (int step = 0; step < 250; ++step) {
            switch (upTo(7)) {
                case 0:
                    box(dialog, kWeightBox).setCurrentIndex(upTo(12));
                    break;
                case 1:
                    box(dialog, kColorBox).setCurrentIndex(upTo(9));
                    break;
                case 2:
                    box(dialog, kTypeBox).setCurrentIndex(upTo(3));
                    break;
                case 3: {
                    auto& button = in<QCheckBox>(dialog, kDouble);
                    button.click();
                    pick.isDouble = button.isChecked();
                    break;
                }
                case 4: {
                    auto& edit = in<QLineEdit>(dialog, kSpacing);
                    if (!edit.isEnabled()) break;
                    const int tenths = upTo(20) - 3;
                    enter(dialog, kSpacing, QByteArray::number(tenths / 10.0).constData());
                    if (tenths < 0) break;
                    pick.spacingTyped = true;
                    pick.spacing = tenths / 10.0;
                    break;
                }
                case 5: {
                    current = 1 - current;
                    choose(kCellStyleBox, current);
                    break;
                }
                default: {
                    const auto& button = kButtons[random() % kButtons.size()];
                    const bool none = button.edges == 0;
                    CKdUiLineWeightComboBox weights;
                    for (auto& [edge, values] : model[current]) {
                        if (!none && (button.edges & edge) == 0) continue;
                        values.visible = !none;
                        values.linetype = none ? host.database().byBlockLinetype()
                                               : KdDbObjectId(box(dialog, kTypeBox).currentData().toULongLong());
                        if (none) continue;
                        values.isDouble = pick.isDouble;
                        values.weight = static_cast<KdDb::LineWeight>(box(dialog, kWeightBox).currentData().toInt());
                        values.color = box(dialog, kColorBox).currentData(kColorItemRole).value<ColorItemData>().color;
                        if (pick.spacingTyped) values.spacing = pick.spacing;
                    }
                    press(dialog, button.name);
                    break;
                }
            }
            for (int i = 0; i < 2; ++i) ASSERT_TRUE(edgesOf(names[i]) == model[i]) << step;
        }
    });
}

}  // namespace
}  // namespace kdtest
