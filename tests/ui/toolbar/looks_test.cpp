// The looks of the toolbar, in both languages and at the screen's scale.

#include <QStyleOptionComboBox>
#include <QToolBar>

#include "kd/ui/hostdialogs.h"
#include "module/core/resources.h"
#include "tests/ui/looks/menulooks.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

class ToolbarDialogLooks : public ToolbarTest, public ::testing::WithParamInterface<kdhost::Language> {
protected:
    void SetUp() override {
        ToolbarTest::SetUp();
        kdhost::setLanguage(GetParam());
    }
    /// The buttons are as small as they are told to be, their images smaller; the lists show their rows whole.
    static void expectWholeLists() {
        for (const std::string& fault : cutControls(*window())) {
            EXPECT_EQ(fault.find("COMBO"), std::string::npos) << fault;
        }
    }
    void keep(QWidget& shown, const char* name) {
        const char* language = GetParam() == kdhost::Language::Chinese ? "zh_CN" : "en";
        keepPicture(shown, QStringLiteral("%1_%2").arg(QLatin1String(name), QLatin1String(language)));
    }
};

struct TipCase {
    const char* control;
    unsigned text;
};
const TipCase kTips[] = {
    {"IDC_TABLEDIT_TOPINSERT", 1401},  {"IDC_TABLEDIT_BOTTOMINSERT", 1402}, {"IDC_TABLEDIT_ROWDELETE", 1403},
    {"IDC_TABLEDIT_LEFTINSERT", 1404}, {"IDC_TABLEDIT_RIGHTINSERT", 1405},  {"IDC_TABLEDIT_COLUMNDELETE", 1406},
    {"IDC_TABLEDIT_MERGECELL", 1407},  {"IDC_TABLEDIT_UNMERGECELL", 1408},  {"IDC_TABLEDIT_COLORCOMBO", 1421},
    {"IDC_TABLEDIT_CELLBORDER", 1409}, {"IDC_TABLEDIT_ALIGNMENT", 1410},    {"IDC_TABLEDIT_LOCKING", 1411},
    {"IDC_TABLEDIT_DATAFORMAT", 1412}, {"IDC_TABLEDIT_FORMULA", 1422},      {"IDC_TABLEDIT_CELLSTYLECOMBO", 1420},
};

TEST_P(ToolbarDialogLooks, every_control_has_the_tool_tip_of_its_number_and_takes_no_focus_by_keys) {
    showOver(TableBuilder(4, 4).select("B2:C3"));
    const ResourceScope resources;
    for (const TipCase& tip : kTips) {
        const auto& shown = control<QWidget>(tip.control);
        EXPECT_EQ(shown.toolTip().toStdWString(), loadText(tip.text).c_str()) << tip.control;
        const bool isList = qobject_cast<const QComboBox*>(&shown) != nullptr;
        EXPECT_EQ(shown.focusPolicy(), isList ? Qt::ClickFocus : Qt::NoFocus) << tip.control;
    }
}

TEST_P(ToolbarDialogLooks, every_drop_down_menu_shows_its_texts_whole) {
    showOver(TableBuilder(4, 4).select("B2:C3"));
    const std::pair<const char*, const char*> menus[] = {{"IDC_TABLEDIT_MERGECELL", "merge"},
                                                         {kAlignmentName, "alignment"},
                                                         {"IDC_TABLEDIT_LOCKING", "locking"},
                                                         {"IDC_TABLEDIT_DATAFORMAT", "dataformat"},
                                                         {"IDC_TABLEDIT_FORMULA", "formula"}};
    for (const auto& [name, picture] : menus) {
        dropAndAct(name, [&, picture = picture](QMenu& menu) {
            const InOneColumn shown(menu);
            EXPECT_EQ(shown.cutItems(), Faults());
            for (const QAction* item : menu.actions()) {
                const QString text = item->text();
                const bool isChinese =
                    std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x2E80; });
                EXPECT_EQ(isChinese, !item->isSeparator() && GetParam() == kdhost::Language::Chinese)
                    << text.toStdString();
            }
            keep(menu, (std::string("toolbar_menu_") + picture).c_str());
            QTest::keyClick(&menu, Qt::Key_Escape);
        });
    }
}

TEST_P(ToolbarDialogLooks, every_control_has_its_size_and_is_told_to_the_user) {
    showOver(TableBuilder(4, 4).select("B2:C3"));
    const double scale = kdadGetDPIScale();
    std::set<QString> tips;
    for (const ToolbarRow& row : kToolbarRows) {
        if (row.name == nullptr) continue;
        const auto& shown = control<QWidget>(row.name);
        EXPECT_FALSE(shown.toolTip().isEmpty()) << row.name;
        EXPECT_EQ(shown.accessibleName(), shown.toolTip()) << row.name;
        EXPECT_TRUE(tips.insert(shown.toolTip()).second) << row.name;
        const bool isChinese = shown.toolTip().at(0).unicode() > 0x2E80;
        EXPECT_EQ(isChinese, GetParam() == kdhost::Language::Chinese) << row.name;
        EXPECT_TRUE(window()->rect().contains(QRect(shown.mapTo(window(), QPoint()), shown.size()))) << row.name;
        const bool isCombo = row.item == ToolbarItem::ColorCombo || row.item == ToolbarItem::CellStyleCombo;
        const double width = isCombo                             ? 1.5 * static_cast<int>(90.0 * scale)
                             : row.item == ToolbarItem::Dropdown ? 40.0 * scale
                                                                 : 20.0 * scale;
        EXPECT_EQ(shown.width(), static_cast<int>(width)) << row.name;
        EXPECT_GE(shown.height(), static_cast<int>(20.0 * scale)) << row.name;
        if (isCombo) {
            EXPECT_EQ(combo(row.name).comboBoxStyle(), 3) << row.name;
        }
    }
    EXPECT_EQ(tips.size(), 15U);
    expectWholeLists();
    keep(*window(), "toolbar");
}

TEST_P(ToolbarDialogLooks, groups_of_controls_stand_apart) {
    showOver(TableBuilder(4, 4).select("B2:C3"));
    const auto between = [](const char* left, const char* right) {
        return control<QWidget>(right).x() - control<QWidget>(left).geometry().right() - 1;
    };
    const int spacing = between("IDC_TABLEDIT_TOPINSERT", "IDC_TABLEDIT_BOTTOMINSERT");
    const auto gap = [&](const char* left, const char* right) { return between(left, right) - 2 * spacing; };
    EXPECT_EQ(between("IDC_TABLEDIT_BOTTOMINSERT", "IDC_TABLEDIT_ROWDELETE"), spacing);
    EXPECT_EQ(gap("IDC_TABLEDIT_ROWDELETE", "IDC_TABLEDIT_LEFTINSERT"), 5);
    EXPECT_EQ(gap("IDC_TABLEDIT_COLUMNDELETE", "IDC_TABLEDIT_MERGECELL"), 5);
    EXPECT_EQ(gap("IDC_TABLEDIT_UNMERGECELL", kColorComboName), static_cast<int>(5.0 * kdadGetDPIScale()));
    EXPECT_EQ(gap("IDC_TABLEDIT_FORMULA", kCellStyleComboName), 5);
}

TEST_P(ToolbarDialogLooks, its_images_are_drawn_for_the_scale_of_the_screen) {
    showOver(TableBuilder(4, 4).select("B2:C3"));
    const int times = std::clamp(static_cast<int>(kdadGetDPIScale()), 1, 3);
    const QPixmap unscaled(QStringLiteral(":/TvxTableRes/TvxTableRes/IDR_TABLEDIT_BAR"));
    ASSERT_GT(unscaled.height(), 0);
    EXPECT_EQ(window()->findChild<QToolBar*>()->iconSize(), QSize(1, 1) * times * unscaled.height());
}

TEST_P(ToolbarDialogLooks, disabled_controls_and_other_fills_look_so) {
    const KdDbObjectId table = showOver(TableBuilder(4, 4).lock("B2").align("A1:D4", KdDb::kBottomRight).select("B2"));
    CVqTableCommon::SetBackgroundColor(table, KdCmColor::fromRgb(200, 220, 255));
    expectWholeLists();
    const QComboBox& colors = combo(kColorComboName);
    QStyleOptionComboBox option;
    option.initFrom(&colors);
    const int field =
        colors.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &colors).width();
    EXPECT_LE(colors.iconSize().width() + 4 + colors.fontMetrics().horizontalAdvance(colors.currentText()), field)
        << colors.currentText().toStdString();
    keep(*window(), "toolbar_locked");
    select(table, "A1:B2");
    keep(*window(), "toolbar_mixed");
}

INSTANTIATE_TEST_SUITE_P(Languages, ToolbarDialogLooks,
                         ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese), [](const auto& info) {
                             return info.param == kdhost::Language::English ? std::string("English")
                                                                            : std::string("Chinese");
                         });

}  // namespace
}  // namespace kdtest
