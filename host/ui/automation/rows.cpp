// The actions of scripts on the rows of lists, combo boxes and tab bars, and clicks on all controls.

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"
#include "kd/ui/widgets.h"

namespace kdhost::automation {

namespace {

/// A place of a widget.
struct Target {
    QWidget* widget;
    QPoint place;
};

/// The middle; of a check box or radio button its mark, since the space behind its text is no part of it.
Target middleOf(QWidget& control) {
    const bool isMark =
        qobject_cast<QCheckBox*>(&control) != nullptr || qobject_cast<QRadioButton*>(&control) != nullptr;
    if (!isMark) return {&control, control.rect().center()};
    const int half = control.height() / 2;
    const bool fromRight = control.layoutDirection() == Qt::RightToLeft;
    return {&control, QPoint(fromRight ? control.width() - half : half, half)};
}

/// None for a row that isn't there, and for empty space where there is none.
std::optional<Target> targetOn(QWidget& control, const std::wstring& place) {
    if (place.empty()) return middleOf(control);
    const Choices choices(control);
    const std::optional<int> row = choices.find(qt(place));
    if (QAbstractItemView* view = choices.view()) {
        QWidget* viewport = view->viewport();
        if (place == L"empty") {
            const QPoint below(viewport->width() / 2, viewport->height() - 2);
            return view->indexAt(below).isValid() ? std::nullopt : std::optional(Target{viewport, below});
        }
        if (!row) return std::nullopt;
        const QModelIndex index = view->model()->index(*row, 0);
        view->scrollTo(index);
        return Target{viewport, view->visualRect(index).center()};
    }
    if (QTabBar* tabs = choices.tabs(); tabs != nullptr && row) return Target{tabs, tabs->tabRect(*row).center()};
    return std::nullopt;
}

std::wstring pressOn(const std::wstring& name, const std::wstring& place, Qt::MouseButton button, bool twice) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        const std::optional<Target> target = targetOn(control, place);
        if (!target) return name + L" has no " + (place == L"empty" ? L"empty space" : place) + L".";
        pressMouse(*target->widget, target->place, button, twice);
        return {};
    });
}

/// Opens the box unless it is; false when there is nothing in it to open.
bool openBox(QComboBox& combo) {
    const QPointer<QComboBox> held(&combo);
    if (!combo.view()->isVisible()) {
        combo.setFocus(Qt::MouseFocusReason);
        if (hasKeys(held.data())) pressKey(Qt::Key_F4);
    }
    return held != nullptr && held->view()->isVisible();
}

std::wstring selectInCombo(QComboBox& combo, const std::wstring& name, const std::wstring& choice) {
    if (!openBox(combo)) return name + L" has no row " + choice + L".";
    // Rows may have come with the opening.
    const std::optional<int> row = Choices(combo).find(qt(choice));
    const QModelIndex index =
        row ? combo.model()->index(*row, combo.modelColumn(), combo.rootModelIndex()) : QModelIndex();
    if (!row || (index.flags() & Qt::ItemIsEnabled) == 0) {
        pressKey(Qt::Key_Escape);
        return row ? name + L"'s row " + choice + L" is disabled." : name + L" has no row " + choice + L".";
    }
    combo.view()->setCurrentIndex(index);
    pressKey(Qt::Key_Return);
    return {};
}

/// The list whose label is being edited; null when none is.
KdUiListWidget* listInLabelEdit() {
    QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr && qobject_cast<KdUiListWidget*>(widget) == nullptr) widget = widget->parentWidget();
    auto* list = static_cast<KdUiListWidget*>(widget);
    return list != nullptr && list->labelEditor() != nullptr ? list : nullptr;
}

}  // namespace

std::wstring select(const std::wstring& name, const std::wstring& choice) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        const Choices choices(control);
        if (!choices.exist()) return name + L" has no rows.";
        if (choices.combo() != nullptr) return selectInCombo(*choices.combo(), name, choice);
        const std::optional<int> row = choices.find(qt(choice));
        if (!row) return name + L" has no row " + choice + L".";
        return pressOn(name, L"#" + std::to_wstring(*row), Qt::LeftButton, false);
    });
}

std::wstring drop(const std::wstring& name) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        if (auto* combo = qobject_cast<QComboBox*>(&control)) {
            return openBox(*combo) ? L"" : name + L" has nothing to drop.";
        }
        const auto* button = qobject_cast<KdUiPushButton*>(&control);
        if (button == nullptr || !button->hasArrowPart()) return name + L" has nothing to drop.";
        pressMouse(control, QPoint(control.width() - 2, control.height() / 2));
        return {};
    });
}

std::wstring click(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::LeftButton, false);
}

std::wstring doubleClick(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::LeftButton, true);
}

std::wstring context(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::RightButton, false);
}

std::wstring label(const std::wstring& text) {
    const QPointer<KdUiListWidget> list = listInLabelEdit();
    if (list == nullptr) return L"no label is being edited.";
    if (text == L"CANCEL") {
        pressKey(Qt::Key_Escape);
        return {};
    }
    std::wstring error = replaceText(*list->labelEditor(), L"the label", text);
    if (!error.empty()) return error;
    pressKey(Qt::Key_Return);
    // The list ends its edit with the next turn of the loop.
    if (list != nullptr) QCoreApplication::sendPostedEvents(list->itemDelegate(), QEvent::MetaCall);
    return {};
}

}  // namespace kdhost::automation
