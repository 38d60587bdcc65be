// Looking at dialogs: by rules, and by pictures.

#include "tests/ui/looks/dialoglooks.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <map>
#include <set>

#include "kd/ui/hostdialogs.h"

namespace kdtest {
namespace {

std::string nameOf(const QWidget& widget) {
    const QString name = widget.objectName();
    return (name.isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : name).toStdString();
}

std::vector<const QWidget*> shownWithin(const QWidget& window) {
    std::vector<const QWidget*> shown;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window) shown.push_back(widget);
    }
    return shown;
}

QString textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return box->currentText();
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button == nullptr ? QString() : button->text();
}

bool roomForComboText(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.editable = box.isEditable();
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    const int icon = box.itemIcon(box.currentIndex()).isNull() ? 0 : box.iconSize().width() + 4;
    return box.fontMetrics().horizontalAdvance(box.currentText()) + icon <= field.width();
}

bool roomForTabs(const QTabBar& bar) {
    for (int tab = 0; tab < bar.count(); ++tab) {
        if (!bar.rect().contains(bar.tabRect(tab))) return false;
    }
    return true;
}

bool hasRoom(const QWidget& widget) {
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return roomForComboText(*box);
    if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) return roomForTabs(*bar);
    if (const auto* list = qobject_cast<const QListView*>(&widget)) {
        return list->sizeHintForColumn(0) <= list->viewport()->width();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    if (label != nullptr && label->wordWrap()) return label->height() >= label->heightForWidth(label->width());
    const bool showsText = label != nullptr || qobject_cast<const QPushButton*>(&widget) != nullptr;
    const QSize wanted = showsText ? widget.sizeHint() : widget.minimumSizeHint();
    return widget.width() >= wanted.width() && widget.height() >= wanted.height();
}

/// Parts of a control lie over it by design.
bool isControlPart(const QWidget& widget) {
    for (const QWidget* parent = widget.parentWidget(); parent != nullptr && !parent->isWindow();
         parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(parent) != nullptr ||
            qobject_cast<const QComboBox*>(parent) != nullptr || qobject_cast<const QAbstractSpinBox*>(parent) ||
            qobject_cast<const QTabBar*>(parent) != nullptr || qobject_cast<const QLineEdit*>(parent) != nullptr) {
            return true;
        }
    }
    return false;
}

bool coversASibling(const QWidget& widget) {
    for (const QObject* each : widget.parentWidget()->children()) {
        const auto* sibling = qobject_cast<const QWidget*>(each);
        if (sibling == nullptr || sibling == &widget || !sibling->isVisible() || sibling->isWindow()) continue;
        if (sibling->geometry().intersects(widget.geometry())) return true;
    }
    return false;
}

bool isChinese(QChar character) {
    return character.script() == QChar::Script_Han;
}

/// The letter behind the mark of the mnemonic; null without one.
QChar mnemonicOf(const QString& text) {
    const int mark = text.indexOf(QLatin1Char('&'));
    return mark < 0 || mark + 1 >= text.size() ? QChar() : text.at(mark + 1).toUpper();
}

bool takesTheFocus(const QWidget& widget) {
    return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 && !isControlPart(widget);
}

bool isPressedByAKey(const QWidget& widget) {
    static const std::set<std::string> names = {"IDOK", "IDCANCEL", "IDHELP"};
    return names.contains(nameOf(widget));
}

/// A picture has no letter to mark. Tab leads to such a button, and its tool tip tells what it does.
bool isPictureButton(const QWidget& widget) {
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    return button != nullptr && button->text().isEmpty() && !button->icon().isNull() && !button->toolTip().isEmpty();
}

/// The mnemonics of its tabs lead to a tab bar and its frame, and Tab from there to the first control of the page.
bool isReachedByATab(const QWidget& widget) {
    if (qobject_cast<const QTabWidget*>(&widget) != nullptr || qobject_cast<const QTabBar*>(&widget) != nullptr) {
        return true;
    }
    const auto* pages = qobject_cast<const QStackedWidget*>(widget.parentWidget()->parentWidget());
    return pages != nullptr && widget.parentWidget()->nextInFocusChain() == &widget;
}

/// Tab leads from a choice to the edit that it opens.
bool isReachedFromItsChoice(const QWidget& widget) {
    const QWidget* before = widget.previousInFocusChain();
    while (before != &widget && !(before->isVisible() && takesTheFocus(*before)))
        before = before->previousInFocusChain();
    const auto* choice = qobject_cast<const QRadioButton*>(before);
    return choice != nullptr && choice->isChecked() && !mnemonicOf(choice->text()).isNull();
}

}  // namespace

Faults cutControls(const QWidget& window) {
    Faults faults;
    for (const QWidget* widget : shownWithin(window)) {
        if (isControlPart(*widget)) continue;
        if (!hasRoom(*widget)) {
            faults.push_back(nameOf(*widget) + " has no room for \"" + textOf(*widget).toStdString() + "\"");
        }
        if (!widget->parentWidget()->rect().contains(widget->geometry())) {
            faults.push_back(nameOf(*widget) + " lies outside its parent");
        }
        const bool isFrameOfTabs = widget->inherits("QStackedWidget") || widget->inherits("QTabBar");
        if (!isFrameOfTabs && coversASibling(*widget)) faults.push_back(nameOf(*widget) + " covers a sibling");
    }
    return faults;
}

Faults untranslatedTexts(const QWidget& window) {
    Faults faults;
    const auto check = [&](const std::string& name, QString text) {
        text.remove(QRegularExpression(QStringLiteral("\\(&.\\)|[^\\p{L}]")));
        const bool translated = text.isEmpty() || std::any_of(text.begin(), text.end(), isChinese);
        if (!translated) faults.push_back(name + " shows \"" + text.toStdString() + "\"");
    };
    check("the title", window.windowTitle());
    for (const QWidget* widget : shownWithin(window)) {
        // What a box lists may be names of the drawing.
        const bool lists = qobject_cast<const QComboBox*>(widget) != nullptr;
        if (!isControlPart(*widget) && !lists) check(nameOf(*widget), textOf(*widget));
        const auto* bar = qobject_cast<const QTabBar*>(widget);
        for (int tab = 0; bar != nullptr && tab < bar->count(); ++tab) check(nameOf(*widget), bar->tabText(tab));
    }
    return faults;
}

Faults unreachableControls(const QWidget& window) {
    Faults faults;
    std::map<QChar, std::string> mnemonics;
    std::set<const QWidget*> led;
    int defaults = 0;
    const std::vector<const QWidget*> shown = shownWithin(window);
    const auto note = [&](const QWidget& widget, const QString& text) {
        const QChar mnemonic = mnemonicOf(text);
        if (mnemonic.isNull()) return false;
        const auto [before, isNew] = mnemonics.emplace(mnemonic, nameOf(widget));
        if (!isNew) faults.push_back(nameOf(widget) + " has the mnemonic of " + before->second);
        return true;
    };
    for (const QWidget* widget : shown) {
        const auto* button = qobject_cast<const QPushButton*>(widget);
        if (button != nullptr && button->isDefault()) ++defaults;
        const auto* bar = qobject_cast<const QTabBar*>(widget);
        for (int tab = 0; bar != nullptr && tab < bar->count(); ++tab) {
            if (!note(*bar, bar->tabText(tab))) faults.push_back("no mnemonic leads to a tab of " + nameOf(*bar));
        }
        if (qobject_cast<const QComboBox*>(widget) != nullptr || !note(*widget, textOf(*widget))) continue;
        const auto* label = qobject_cast<const QLabel*>(widget);
        const QWidget* target = label == nullptr ? widget : label->buddy();
        if (target == nullptr) faults.push_back("the mnemonic of " + textOf(*widget).toStdString() + " leads nowhere");
        led.insert(target);
    }
    for (const QWidget* widget : shown) {
        if (!takesTheFocus(*widget)) continue;
        const bool says = !textOf(*widget).isEmpty() && qobject_cast<const QComboBox*>(widget) == nullptr;
        if (widget->accessibleName().isEmpty() && !says && !widget->inherits("QTabBar")) {
            faults.push_back(nameOf(*widget) + " has no name for readers of the screen");
        }
        if (!led.contains(widget) && !isPressedByAKey(*widget) && !isReachedByATab(*widget) &&
            !isReachedFromItsChoice(*widget) && !isPictureButton(*widget)) {
            faults.push_back("no mnemonic leads to " + nameOf(*widget));
        }
    }
    if (defaults != 1) faults.push_back(std::to_string(defaults) + " default buttons");
    if (window.windowTitle().isEmpty()) faults.push_back("no title");
    return faults;
}

void keepPicture(const QImage& image, const QString& name) {
    const QString folder = kdtest::builtPath("pictures/%1x").arg(qRound(kdadGetDPIScale()));
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString path = QStringLiteral("%1/%2.png").arg(folder, name);
    EXPECT_TRUE(image.save(path)) << path.toStdString();
}

void keepPicture(QWidget& window, const QString& name) {
    keepPicture(window.grab().toImage(), name);
}

}  // namespace kdtest
