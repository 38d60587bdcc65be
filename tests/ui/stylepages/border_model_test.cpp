// The border page against a plain model: whatever is picked and pressed, the six edges are what one would write down on
// paper.

#include <QCheckBox>
#include <array>
#include <map>
#include <optional>
#include <random>

#include "tests/ui/style/borders.h"

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

/// What the page keeps from one button to the next, beside what its boxes show.
struct Pick {
    bool isDouble = false;
    std::optional<double> spacing;  ///< once one was typed
};

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

    int upTo(unsigned count) { return static_cast<int>(random() % count); }

    // What a user does, by chance, and what it means on paper.

    void pickLooks(QWidget& dialog) {
        box(dialog, kWeightBox).setCurrentIndex(upTo(12));
        if (upTo(2) == 0) box(dialog, kColorBox).setCurrentIndex(upTo(9));
        if (upTo(2) == 0) box(dialog, kTypeBox).setCurrentIndex(upTo(3));
    }
    void pickDouble(QWidget& dialog) {
        auto& button = in<QCheckBox>(dialog, kDouble);
        button.click();
        pick.isDouble = button.isChecked();
    }
    void typeSpacing(QWidget& dialog) {
        if (!in<QLineEdit>(dialog, kSpacing).isEnabled()) return;
        const double typed = (upTo(20) - 3) / 10.0;
        enter(dialog, kSpacing, QByteArray::number(typed).constData());
        if (typed >= 0.0) pick.spacing = typed;
    }
    void changeCellStyle() {
        current = 1 - current;
        choose(kCellStyleBox, static_cast<int>(current));
    }
    void pressButton(QWidget& dialog) {
        const BorderButtonEdges& button = kButtons[random() % kButtons.size()];
        if (button.edges == 0) {
            hide(model[current]);
        } else {
            draw(dialog, model[current], button.edges);
        }
        press(dialog, button.name);
    }

    void hide(Edges& edges) {
        for (auto& [edge, values] : edges) {
            values.visible = false;
            values.linetype = host.database().byBlockLinetype();
        }
    }
    void draw(QWidget& dialog, Edges& edges, int drawn) {
        for (auto& [edge, values] : edges) {
            if ((drawn & edge) == 0) continue;
            values.visible = true;
            values.isDouble = pick.isDouble;
            values.weight = static_cast<KdDb::LineWeight>(box(dialog, kWeightBox).currentData().toInt());
            values.color = box(dialog, kColorBox).currentData(kColorItemRole).value<ColorItemData>().color;
            values.linetype = KdDbObjectId(box(dialog, kTypeBox).currentData().toULongLong());
            values.spacing = pick.spacing.value_or(values.spacing);
        }
    }

    std::mt19937 random{23};
    Pick pick;
    std::array<Edges, 2> model;  ///< of the two cell styles
    std::size_t current = 0;     ///< the one on the page
};

TEST_F(StylePageBorderModel, Agrees_with_the_edges_after_any_row_of_picks_and_presses) {
    constexpr std::array kNames = {L"_DATA", L"_HEADER"};
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        for (std::size_t i = 0; i < kNames.size(); ++i) model[i] = edgesOf(kNames[i]);
        const std::array<std::function<void()>, 6> steps = {[&] { pickLooks(dialog); },   [&] { pickDouble(dialog); },
                                                            [&] { typeSpacing(dialog); }, [&] { changeCellStyle(); },
                                                            [&] { pressButton(dialog); }, [&] { pressButton(dialog); }};
        for (int step = 0; step < 250; ++step) {
            steps[random() % steps.size()]();
            for (std::size_t i = 0; i < kNames.size(); ++i) ASSERT_TRUE(edgesOf(kNames[i]) == model[i]) << step;
        }
    });
}

}  // namespace
}  // namespace kdtest
