// Menus of the resource module are read once and built from what was read: they are what the general loader builds.

#include <QAction>
#include <QMenu>

#include "kd/ui/uicreator.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

const QString kFile = QStringLiteral("TvxTableRes/TvxTableRes");
constexpr int kAnyTree = 1;
constexpr int kMenus = 3;

/// The menu in lines: title or text, name, and what is below it.
QString describeMenu(const QMenu& menu, const QString& indent = {}) {
    QString lines = indent + QLatin1String(menu.metaObject()->className()) + QLatin1String(" ") + menu.objectName() +
                    QLatin1String(" \"") + menu.title() + QLatin1String("\"\n");
    for (const QAction* item : menu.actions()) {
        if (item->menu() != nullptr) {
            lines += describeMenu(*item->menu(), indent + QLatin1String("  "));
        } else {
            lines += indent +
                     (item->isSeparator() ? QStringLiteral("  -") : QStringLiteral("  ") + item->objectName()) +
                     QLatin1String(" \"") + item->text() + QLatin1String("\"") +
                     (item->isEnabled() ? QString() : QStringLiteral(" disabled")) + QLatin1Char('\n');
        }
    }
    return lines;
}

/// The names of a tree as its creator lists them.
QStringList listed(const VqUICreator& creator) {
    QStringList names;
    for (const QWidget* widget : creator.widgets()) names << widget->objectName();
    for (const QAction* action : creator.actions()) names << action->objectName();
    names.sort();
    return names;
}

class MenuTrees : public ModuleResources {
protected:
    /// Empty when it isn't built.
    static QString built(const char* name, int kind, QStringList* names = nullptr) {
        QWidget parent;
        VqUICreator creator(&parent, kFile, kind);
        if (!creator.generate(QString::fromLatin1(name))) return {};
        auto* menu = qobject_cast<QMenu*>(creator.widget(QString::fromLatin1(name)));
        if (menu == nullptr || menu->parentWidget() != &parent) return {};
        if (names != nullptr) *names = listed(creator);
        return describeMenu(*menu);
    }
    static QByteArray form(const QByteArray& content) {
        return "<ui version=\"4.0\"><class>IDR_ODD_MENU</class><widget class=\"QMenu\" name=\"IDR_ODD_MENU\">" +
               content + "</widget></ui>";
    }
};

TEST_F(MenuTrees, Are_what_the_general_loader_builds_in_both_languages) {
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        for (const char* name :
             {"IDR_TABLECELL_MENU", "IDR_TABLESTYLE_MENU", "IDR_BYROW_INSERT_MENU", "IDR_BYCOLUMN_INSERT_MENU",
              "IDR_ALIGNMENT_MENU", "IDR_DATAFORMAT_MENU", "IDR_FORMULA_MENU", "IDR_LOCKING_MENU", "IDR_MERGE_MENU",
              "IDR_MANAGECELL_MENU", "IDR_MANAGETABLE_MENU"}) {
            QStringList names, expectedNames;
            const QString expected = built(name, kAnyTree, &expectedNames);
            ASSERT_FALSE(expected.isEmpty()) << name;
            EXPECT_EQ(built(name, kMenus, &names).toStdString(), expected.toStdString());
            EXPECT_EQ(names, expectedNames) << name;
        }
    }
}

TEST_F(MenuTrees, Are_read_again_when_the_file_is_another_one) {
    const auto titled = [](const char* title) {
        return std::vector<std::pair<QString, QByteArray>>{
            {QStringLiteral("IDR_ODD_MENU.ui"),
             form("<property name=\"title\"><string notr=\"true\">" + QByteArray(title) + "</string></property>")}};
    };
    for (const char* title : {"First", "Second", "First"}) {
        const TestResources resources(titled(title));
        EXPECT_EQ(built("IDR_ODD_MENU", kMenus),
                  QStringLiteral("KdUiMenu IDR_ODD_MENU \"%1\"\n").arg(QLatin1String(title)));
    }
}

TEST_F(MenuTrees, With_more_than_texts_are_left_to_the_general_loader) {
    const QByteArray forms[] = {
        form("<action name=\"A\"><property name=\"enabled\"><bool>false</bool></property></action><addaction "
             "name=\"A\"/>"),
        form("<action name=\"A\"><property name=\"text\"><string comment=\"c\">Text</string></property></action>"
             "<addaction name=\"A\"/>"),
        form("<property name=\"toolTip\"><string>Tip</string></property>"),
        form("<addaction name=\"missing\"/>"),
    };
    for (const QByteArray& text : forms) {
        const TestResources resources({{QStringLiteral("IDR_ODD_MENU.ui"), text}});
        const QString expected = built("IDR_ODD_MENU", kAnyTree);
        EXPECT_FALSE(expected.isEmpty());
        EXPECT_EQ(built("IDR_ODD_MENU", kMenus).toStdString(), expected.toStdString());
    }
}

TEST_F(MenuTrees, That_cannot_be_read_are_not_built) {
    for (const QByteArray& text : {QByteArray("<ui"), QByteArray(), QByteArray("<menu/>")}) {
        const TestResources resources({{QStringLiteral("IDR_ODD_MENU.ui"), text}});
        EXPECT_EQ(built("IDR_ODD_MENU", kMenus), QString());
    }
    EXPECT_EQ(built("IDR_NONE_MENU", kMenus), QString());
}

}  // namespace
}  // namespace kdtest
