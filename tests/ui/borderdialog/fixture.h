// The dialog of cell borders for tests: a table in a drawing whose selected cells are given borders, by real widgets
// and within the mark of the edit.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <array>

#include "host/ui/automation/automation.h"
#include "host/ui/recentcolors.h"
#include "kd/ed/variables.h"
#include "module/style/edgelooks.h"
#include "tests/module/core/editfixture.h"
#include "tests/support/modalacts.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {

/// The controls behind their common beginning.
inline std::string borderControl(const char* name) {
    return QStringLiteral("IDC_CELLBORDERPROP_%1").arg(QLatin1String(name)).toStdString();
}
inline constexpr const char* kBorderWeight = "LWEIGHT_COMBOBOX";
inline constexpr const char* kBorderType = "LTYPE_COMBOBOX";
inline constexpr const char* kBorderColor = "COLOR_COMBOBOX";
inline constexpr const char* kBorderDouble = "DOUBLELINE_BUTTON";
inline constexpr const char* kBorderSpacing = "SPACING_EDIT";
inline constexpr const char* kBorderPreview = "PREVIEW_STATIC";

/// A button and what it does to lines, by their bits: 1 top, 2 horizontal inside, 4 bottom, 8 left, 16 vertical inside,
/// 32 right.
struct BorderMode {
    const char* button;
    int shown;
    int painted;
};
inline constexpr std::array kBorderModes = {
    BorderMode{"ALLBORDER_BUTTON", 1 | 2 | 4 | 8 | 16 | 32, 1 | 2 | 4 | 8 | 16 | 32},
    BorderMode{"OUTERBORDER_BUTTON", 1 | 4 | 8 | 32, 1 | 4 | 8 | 32},
    BorderMode{"INNERBORDER_BUTTON", 2 | 16, 2 | 16},
    BorderMode{"ONLYBOTTOMBORDER_BUTTON", 4, 2 | 4},
    BorderMode{"ONLYLEFTBORDER_BUTTON", 8, 8 | 16},
    BorderMode{"ONLYTOPBORDER_BUTTON", 1, 1 | 2},
    BorderMode{"ONLYRIGHTBORDER_BUTTON", 32, 16 | 32},
    BorderMode{"HORZINSIDEBORDER_BUTTON", 2, 0},
    BorderMode{"VERTINSIDEBORDER_BUTTON", 16, 0},
};
inline constexpr const char* kNoBorders = "NOBORDER_BUTTON";

class BorderDialogTest : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        kdhost::forgetRecentColors();
        table = add(TableBuilder(5, 4).fill());
        select(table, "B2");
    }
    void TearDown() override {
        m_dialogs.expectAllCame();
        kdhost::forgetRecentColors();
        TableEdits::TearDown();
    }

    using Act = std::function<void(QWidget& dialog)>;

    /// Gives borders to the selected cells; whatever `act` leaves open is closed by OK.
    int setBorders(const Act& act) {
        m_dialogs.next([act](QWidget& dialog) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            act(dialog);
            if (dialog.isVisible()) close(dialog, "IDOK");
        });
        return CVqTableCommon::SetBorders(table);
    }

    template <class Control>
    static Control& control(QWidget& dialog, const char* name) {
        auto* found = dialog.findChild<Control*>(QString::fromStdString(borderControl(name)));
        if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    static void click(QWidget& dialog, const char* name) {
        auto& button = control<QAbstractButton>(dialog, name);
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
    }
    static void close(QWidget& dialog, const char* button) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
    }
    static int row(QWidget& dialog, const char* name) { return control<QComboBox>(dialog, name).currentIndex(); }
    static std::string shown(QWidget& dialog, const char* name) {
        return control<QComboBox>(dialog, name).currentText().toStdString();
    }
    static std::string text(QWidget& dialog, const char* name) {
        return control<QLineEdit>(dialog, name).text().toStdString();
    }
    static bool isEnabled(QWidget& dialog, const char* name) { return control<QWidget>(dialog, name).isEnabled(); }
    static bool isChecked(QWidget& dialog, const char* name) { return control<QCheckBox>(dialog, name).isChecked(); }
    /// As a user does, by the box's list.
    static void choose(const char* name, const char* text) {
        const std::wstring box = QString::fromStdString(borderControl(name)).toStdWString();
        EXPECT_EQ(kdhost::automation::select(box, QString::fromUtf8(text).toStdWString()), L"");
    }
    /// Types into the spacing edit; the focus stays there.
    static void typeSpacing(QWidget& dialog, const char* text) {
        retype(control<QLineEdit>(dialog, kBorderSpacing), QString::fromUtf8(text));
    }
    static QImage picture(QWidget& dialog) {
        QApplication::processEvents();
        return control<QLabel>(dialog, kBorderPreview).pixmap(Qt::ReturnByValue).toImage();
    }

    static std::optional<short> weightsShown() {
        resbuf buffer;
        if (kdedGetVar(L"LWDISPLAY", &buffer) != RTNORM) return std::nullopt;
        return buffer.resval.rint;
    }

    void change(const std::function<void(KdDbTable&)>& act) {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        ASSERT_TRUE(open);
        act(*open);
    }
    /// The lines of a cell that show, as bits.
    int visible(int row, int column) const {
        int edges = 0;
        forEachEdge(kAllEdges, [&](KdDb::GridLineType edge) {
            if (look(table).gridVisibility(row, column, edge) == KdDb::kVisible) edges |= edge;
        });
        return edges;
    }
    static void hideAll(KdDbTable& open) {
        for (int row = 0; row < open.numRows(); ++row) {
            for (int column = 0; column < open.numColumns(); ++column) {
                forEachEdge(kAllEdges, [&](KdDb::GridLineType edge) {
                    open.setGridVisibility(row, column, edge, KdDb::kInvisible);
                });
            }
        }
    }
    /// Every line of every cell, a line of text each.
    static std::vector<std::string> linesOf(const KdDbTable& open) {
        std::vector<std::string> lines;
        for (int row = 0; row < open.numRows(); ++row) {
            for (int column = 0; column < open.numColumns(); ++column) {
                forEachEdge(kAllEdges,
                            [&](KdDb::GridLineType edge) { lines.push_back(lineOf(open, row, column, edge)); });
            }
        }
        return lines;
    }
    static std::string lineOf(const KdDbTable& open, int row, int column, KdDb::GridLineType edge) {
        std::ostringstream out;
        const KdCmColor color = open.gridColor(row, column, edge);
        out << row << ',' << column << ' ' << edge << ": " << open.gridVisibility(row, column, edge) << ' '
            << open.gridLineStyle(row, column, edge) << ' ' << static_cast<int>(color.colorMethod()) << '/'
            << color.colorIndex() << ' ' << open.gridLinetype(row, column, edge).asInteger() << ' '
            << open.gridLineWeight(row, column, edge) << ' ' << open.gridDoubleLineSpacing(row, column, edge);
        return out.str();
    }

    KdDbObjectId table;

private:
    ModalActs m_dialogs;
};

}  // namespace kdtest
