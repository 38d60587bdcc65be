// Answers to windows.

#include "tests/endurance/windows.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <algorithm>
#include <array>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"
#include "kd/ui/widgets.h"
#include "tests/endurance/controls.h"

namespace endurance {
namespace {

/// What those who answer know.
struct Asked {
    Random& random;
    const Stand& stand;
    QWidget& window;
    Visit& visit;
    int& editsLeft;
};

// Menus.

/// What scripts call the items that can be chosen, those of sub-menus included.
void gatherItems(const QMenu& menu, std::vector<std::wstring>& names) {
    for (const QAction* action : menu.actions()) {
        if (!action->isVisible() || !action->isEnabled() || action->isSeparator()) continue;
        if (action->menu() != nullptr) {
            gatherItems(*action->menu(), names);
        } else if (!action->objectName().isEmpty()) {
            names.push_back(action->objectName().toStdWString());
        } else {
            names.push_back(L"\"" + kdhost::automation::plainText(*action).toStdWString() + L"\"");
        }
    }
}

/// Tables stay of a size that is quickly looked through.
bool growsTables(const std::wstring& name) {
    return name.find(L"INSERT") != std::wstring::npos;
}

std::wstring chooseItem(Asked asked) {
    std::vector<std::wstring> names;
    gatherItems(static_cast<QMenu&>(asked.window), names);
    if (names.empty() || asked.random.chance(5)) return L"@menu CANCEL";
    const std::wstring& chosen = asked.random.oneOf(names);
    return growsTables(chosen) && asked.random.chance(50) ? L"@menu CANCEL" : L"@menu " + chosen;
}

std::wstring chooseRow(Asked asked) {
    auto* box = qobject_cast<QComboBox*>(asked.window.parentWidget());
    // A row that opens its box again does so each time it is chosen.
    const bool leaves = box == nullptr || box->count() == 0 || asked.random.chance(15) || ++asked.visit.triesToEnd > 3;
    return leaves ? L"@key ESC" : rowOf(asked.random, *box);
}

// The editor in the cell.

constexpr const wchar_t* goingOn[] = {L"TAB", L"SHIFTTAB", L"ENTER", L"SHIFTENTER", L"UP", L"DOWN", L"LEFT", L"RIGHT"};
constexpr const wchar_t* ending[] = {L"CTRLENTER", L"CTRLENTER", L"ESC", L"OUTSIDE"};
constexpr const wchar_t* texts[] = {
    L"Sum",   L"pump station", L"12",     L"3.75", L"-7", L"泵站",    L"two\\nlines", L"a b c d e f",
    L"%%c20", L"45 %",         L"$1,200", L"x",    L"0",  L"(draft)", L"2024-02-29",  L"one long text that wraps"};

std::wstring someReference(Random& random) {
    return columnName(random.below(6)) + random.number(1, 8);
}

std::wstring someFormula(Random& random) {
    constexpr const wchar_t* functions[] = {L"Sum", L"Average", L"Count"};
    constexpr const wchar_t* signs[] = {L"+", L"-", L"*", L"/", L"^"};
    const std::wstring first = someReference(random);
    const std::wstring second = someReference(random);
    if (random.chance(40)) return std::wstring(L"=") + random.oneOf(functions) + L"(" + first + L":" + second + L")";
    if (random.chance(10)) return L"=(" + first;
    return L"=" + first + random.oneOf(signs) + (random.chance(50) ? second : random.number(0, 20));
}

std::wstring textForCell(Random& random) {
    if (random.chance(25)) return L"";
    return L" " + (random.chance(30) ? someFormula(random) : std::wstring(random.oneOf(texts)));
}

std::wstring editCell(Asked asked) {
    const bool goesOn = --asked.editsLeft > 0;
    return std::wstring(L"@edit ") + (goesOn ? asked.random.oneOf(goingOn) : asked.random.oneOf(ending)) +
           textForCell(asked.random);
}

// Message boxes and the host's dialogs with answers of their own.

struct BoxButton {
    QMessageBox::StandardButton button;
    const wchar_t* answer;
};
constexpr std::array boxButtons = {BoxButton{QMessageBox::Ok, L"OK"}, BoxButton{QMessageBox::Cancel, L"CANCEL"},
                                   BoxButton{QMessageBox::Yes, L"YES"}, BoxButton{QMessageBox::No, L"NO"}};

std::wstring answerBox(Asked asked) {
    const auto& box = static_cast<QMessageBox&>(asked.window);
    std::vector<const wchar_t*> answers;
    for (const BoxButton& known : boxButtons) {
        if (box.button(known.button) != nullptr) answers.push_back(known.answer);
    }
    // A file that is to be replaced is asked about again and again by who never says yes.
    return std::wstring(L"@answer ") + (++asked.visit.triesToEnd > 0 ? asked.random.oneOf(answers) : answers.front());
}

constexpr const wchar_t* newNames[] = {L"one", L"two", L"three", L"图纸"};

/// The ending that a file dialog looks for, without its dot.
std::wstring wantedExtension(const QFileDialog& dialog) {
    for (const wchar_t* known : {L"dxf", L"csv", L"png", L"svg", L"pdf"}) {
        const QString pattern = QStringLiteral("*.") + QString::fromWCharArray(known);
        if (dialog.nameFilters().join(QLatin1Char(';')).contains(pattern)) return known;
    }
    return L"";
}

/// Of the files that came with the run: what it wrote may be anything.
bool isReadable(const std::wstring& name) {
    return name.find(L"latin1") == std::wstring::npos && name.find(L"empty") == std::wstring::npos;
}

std::wstring chooseFile(Asked asked) {
    const auto& dialog = static_cast<QFileDialog&>(asked.window);
    const std::wstring extension = wantedExtension(dialog);
    if (extension.empty() || asked.random.chance(10) || ++asked.visit.triesToEnd > 3) return L"@file CANCEL";
    if (dialog.acceptMode() == QFileDialog::AcceptSave) {
        const std::wstring name = asked.random.oneOf(newNames) + (L"." + extension);
        return L"@file " + (asked.stand.isFileOfOther(name) ? L"CANCEL" : name);
    }
    std::vector<std::wstring> files = asked.stand.files(extension);
    std::erase_if(files, [](const std::wstring& name) { return !isReadable(name); });
    return files.empty() ? L"@file CANCEL" : L"@file " + asked.random.oneOf(files);
}

constexpr const wchar_t* colors[] = {L"1", L"5", L"30", L"250", L"1,2,3", L"200,100,0", L"CANCEL"};

std::wstring chooseColor(Asked asked) {
    return std::wstring(L"@color ") + asked.random.oneOf(colors);
}

// Dialogs by their controls.

bool isLabelEdited() {
    QWidget* widget = QApplication::focusWidget();
    while (widget != nullptr && qobject_cast<KdUiListWidget*>(widget) == nullptr) widget = widget->parentWidget();
    const auto* list = static_cast<KdUiListWidget*>(widget);
    return list != nullptr && list->labelEditor() != nullptr;
}

std::wstring endLabel(Asked asked) {
    const bool isOdd = asked.random.chance(15);
    return L"@label " + (isOdd ? std::wstring(L"a,b") : asked.random.chance(10) ? L"CANCEL" : someName(asked.random));
}

bool isUsable(const QWidget& window, const char* name) {
    const auto* button = window.findChild<QWidget*>(QString::fromLatin1(name));
    return button != nullptr && button->isVisible() && button->isEnabled();
}

std::wstring endDialog(Asked asked) {
    const int tries = ++asked.visit.triesToEnd;
    if (tries > 6 || (asked.random.chance(4) && tries > 1)) return L"@close";
    const bool isTaken = tries < 3 && asked.random.chance(75);
    if (isTaken && isUsable(asked.window, "IDOK")) return L"@click IDOK";
    if (isUsable(asked.window, "IDCANCEL")) return L"@click IDCANCEL";
    return isUsable(asked.window, "IDOK") ? L"@click IDOK" : L"@close";
}

std::wstring useDialog(Asked asked) {
    if (isLabelEdited()) return endLabel(asked);
    if (QWidget* owed = asked.visit.owed) {
        asked.visit.owed = nullptr;
        if (owed->isVisible() && owed->isEnabled()) return remedyOf(asked.random, asked.stand, *owed);
    }
    const std::vector<QWidget*> controls = usableControls(asked.window);
    if (--asked.visit.stepsLeft < 0 || controls.empty()) return endDialog(asked);
    QWidget* control = asked.random.oneOf(controls);
    std::wstring line = useOf(asked.random, asked.stand, *control);
    if (mayBeRefused(line)) asked.visit.owed = control;
    return line;
}

struct Habit {
    bool (*is)(const QWidget&);
    std::wstring (*answer)(Asked);
};

template <class Window>
bool is(const QWidget& window) {
    return qobject_cast<const Window*>(&window) != nullptr;
}

bool isEditor(const QWidget& window) {
    return &window == kdhost::openInPlaceEditor();
}

bool isPopup(const QWidget& window) {
    return window.windowType() == Qt::Popup;
}

bool isColorDialog(const QWidget& window) {
    return window.objectName() == QLatin1String("ColorDialog");
}

bool isAny(const QWidget&) {
    return true;
}

/// The first row that fits counts.
constexpr std::array habits = {
    Habit{is<QMenu>, chooseItem},      Habit{isPopup, chooseRow},          Habit{isEditor, editCell},
    Habit{is<QMessageBox>, answerBox}, Habit{is<QFileDialog>, chooseFile}, Habit{isColorDialog, chooseColor},
    Habit{isAny, useDialog},
};

}  // namespace

void Windows::forget() {
    m_visits.clear();
    m_editsLeft = m_random.between(1, 4);
}

Visit& Windows::visitOf(QWidget* window) {
    const auto at = std::find_if(m_visits.begin(), m_visits.end(), [&](const Visit& v) { return v.window == window; });
    if (at != m_visits.end()) {
        m_visits.erase(at + 1, m_visits.end());
    } else {
        // A window over others is left sooner.
        const int most = m_visits.size() < 2 ? 7 : m_visits.size() < 5 ? 3 : 0;
        m_visits.push_back({window, m_random.between(0, most), 0, nullptr});
    }
    return m_visits.back();
}

std::wstring Windows::next() {
    QWidget* top = kdhost::automation::topWindow();
    const auto* habit = std::find_if(habits.begin(), habits.end(), [&](const Habit& each) { return each.is(*top); });
    return habit->answer({m_random, m_stand, *top, visitOf(top), m_editsLeft});
}

}  // namespace endurance
