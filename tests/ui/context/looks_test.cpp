// The looks of the context menus in both languages and at the screen's scale: whole texts, mnemonics of their own,
// pictures for people to see.

#include <QTest>

#include "tests/ui/context/fixture.h"
#include "tests/ui/looks/menulooks.h"

namespace kdtest {
namespace {

class ContextMenuDialogLooks : public ContextMenus, public ::testing::WithParamInterface<kdhost::Language> {
protected:
    void SetUp() override {
        ContextMenus::SetUp();
        kdhost::setLanguage(GetParam());
        table = put(TableBuilder(4, 4).fill());
    }

    /// The menu and its sub-menus.
    static void forEachMenu(QMenu& menu, const std::function<void(QMenu&)>& look) {
        look(menu);
        for (QAction* item : menu.actions()) {
            if (item->menu() != nullptr) forEachMenu(*item->menu(), look);
        }
    }
    /// Calls `look` with each of the four menus and its name.
    void forEachChoice(const std::function<void(QMenu&, const QString&)>& look) {
        look(*ask(table), QStringLiteral("table"));
        select(table, "B2");
        look(*ask(table), QStringLiteral("cell"));
        moveToRowIndicator(1);
        look(*ask(table), QStringLiteral("row"));
        moveToColumnIndicator(1);
        look(*ask(table), QStringLiteral("column"));
    }

    KdDbObjectId table;
};

INSTANTIATE_TEST_SUITE_P(Languages, ContextMenuDialogLooks,
                         ::testing::Values(kdhost::Language::English, kdhost::Language::Chinese), [](const auto& info) {
                             return info.param == kdhost::Language::English ? "English" : "Chinese";
                         });

TEST_P(ContextMenuDialogLooks, Items_have_texts_in_the_language_each_with_a_mnemonic_of_its_own) {
    forEachChoice([](QMenu& choice, const QString&) {
        forEachMenu(choice, [](QMenu& menu) {
            std::set<QChar> mnemonics;
            for (const QAction* item : menu.actions()) {
                if (item->isSeparator()) continue;
                const QString text = item->text();
                const bool isStyle = item->objectName().contains(QLatin1String("STYLE_B")) ||
                                     item->objectName() == QLatin1String("IDR_TABLEDIT_CELLSTYLE_TITLE");
                if (isStyle) continue;
                const int mark = text.indexOf(QLatin1Char('&'));
                ASSERT_GE(mark, 0) << text.toStdString();
                EXPECT_TRUE(mnemonics.insert(text.at(mark + 1).toUpper()).second) << text.toStdString();
                const bool chinese =
                    std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x2E80; });
                EXPECT_EQ(chinese, GetParam() == kdhost::Language::Chinese) << text.toStdString();
            }
        });
    });
}

TEST_P(ContextMenuDialogLooks, Every_text_is_shown_whole) {
    const char* language = GetParam() == kdhost::Language::English ? "en" : "zh";
    forEachChoice([&](QMenu& choice, const QString& name) {
        forEachMenu(choice, [&](QMenu& menu) {
            if (menu.isEmpty()) return;
            show(menu, [&] {
                const InOneColumn shown(menu);
                EXPECT_EQ(shown.cutItems(), Faults());
                const QString own = menu.objectName().isEmpty() ? QStringLiteral("styles") : menu.objectName();
                const QString part = &menu == &choice ? QStringLiteral("menu") : own.section(QLatin1Char('_'), -1);
                keepPicture(menu,
                            QStringLiteral("context_%1_%2_%3").arg(name, part.toLower(), QLatin1String(language)));
                QTest::keyClick(&menu, Qt::Key_Escape);
            });
        });
    });
}

}  // namespace
}  // namespace kdtest
