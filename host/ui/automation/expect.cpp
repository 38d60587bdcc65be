// What scripts expect of controls and of the items of an open menu.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <algorithm>
#include <iterator>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"

namespace kdhost::automation {

namespace {

const wchar_t* flag(bool value) {
    return value ? L"on" : L"off";
}

bool isChecked(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->isChecked();
}

int rowsOf(const QAction& item) {
    return item.menu() == nullptr ? 0 : item.menu()->actions().size();
}

struct Property {
    const wchar_t* name;
    bool isFlag;
    std::wstring (*ofControl)(QWidget& control);
    std::wstring (*ofItem)(QAction& item);
};

constexpr Property kProperties[] = {
    {L"text", false, [](QWidget& control) { return shownText(control).toStdWString(); },
     [](QAction& item) { return plainText(item).toStdWString(); }},
    {L"rows", false, [](QWidget& control) { return std::to_wstring(Choices(control).count()); },
     [](QAction& item) { return std::to_wstring(rowsOf(item)); }},
    {L"enabled", true, [](QWidget& control) { return std::wstring(flag(control.isEnabled())); },
     [](QAction& item) { return std::wstring(flag(item.isEnabled())); }},
    {L"checked", true, [](QWidget& control) { return std::wstring(flag(isChecked(control))); },
     [](QAction& item) { return std::wstring(flag(item.isChecked())); }},
    {L"visible", true, [](QWidget& control) { return std::wstring(flag(control.isVisible())); },
     [](QAction& item) { return std::wstring(flag(item.isVisible())); }},
};

/// Null when there is none.
const Property* findProperty(const std::wstring& name) {
    const auto* found = std::find_if(std::begin(kProperties), std::end(kProperties),
                                     [&](const Property& property) { return property.name == name; });
    return found == std::end(kProperties) ? nullptr : found;
}

}  // namespace

std::wstring expect(const std::wstring& name, const std::wstring& property, const std::wstring& value) {
    QAction* item = findMenuItem(qt(name));
    QWidget* control = item == nullptr ? findControl(qt(name)) : nullptr;
    if (item == nullptr && control == nullptr) return L"there is no control " + name + L".";
    const Property* read = findProperty(property);
    if (read == nullptr) return L"nothing is called " + property + L" of a control.";
    const std::optional<bool> wantedFlag = flagOf(value);
    if (read->isFlag && !wantedFlag) return property + L" is on or off.";
    const std::wstring wanted = read->isFlag ? flag(*wantedFlag) : value;
    const std::wstring found = item != nullptr ? read->ofItem(*item) : read->ofControl(*control);
    return found == wanted ? L"" : name + L" " + property + L" is " + found + L", not " + wanted + L".";
}

std::wstring expectFocus(const std::wstring& name) {
    if (QApplication::activePopupWidget() == nullptr) bringTopDialogToFront();
    const QWidget* focused = QApplication::focusWidget();
    const std::wstring found = focused == nullptr ? L"nowhere" : focused->objectName().toStdWString();
    return found == name ? L"" : L"the focus is in " + found + L", not in " + name + L".";
}

}  // namespace kdhost::automation
