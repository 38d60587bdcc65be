// The answers of scripts to message boxes and the host's own dialogs.

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <array>
#include <vector>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"
#include "host/ui/colorchoice.h"

namespace kdhost::automation {

namespace {

struct Answer {
    const wchar_t* name;
    QMessageBox::StandardButton button;
};

constexpr std::array kAnswers = {
    Answer{L"OK", QMessageBox::Ok},
    Answer{L"CANCEL", QMessageBox::Cancel},
    Answer{L"YES", QMessageBox::Yes},
    Answer{L"NO", QMessageBox::No},
};

void press(QAbstractButton& button) {
    pressMouse(button, button.rect().center());
}

/// The button of the dialog's own that stands for an answer; null when it has none.
QAbstractButton* buttonOf(const QDialog& dialog, QDialogButtonBox::ButtonRole role) {
    const auto* box = dialog.findChild<QDialogButtonBox*>();
    if (box == nullptr) return nullptr;
    for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role) return button;
    }
    return nullptr;
}

struct NamedColor {
    bool (KdCmColor::*is)() const;
    const wchar_t* button;
};

constexpr std::array kNamedColors = {
    NamedColor{&KdCmColor::isByLayer, L"IDC_COLOR_BYLAYER_BUTTON"},
    NamedColor{&KdCmColor::isByBlock, L"IDC_COLOR_BYBLOCK_BUTTON"},
    NamedColor{&KdCmColor::isNone, L"IDC_COLOR_NONE_BUTTON"},
};

/// Where the colour dialog takes a colour's numbers.
struct ColorNumber {
    const wchar_t* page;
    const wchar_t* control;
    int value;
};

std::vector<ColorNumber> numbersOf(const KdCmColor& color) {
    if (color.isByACI()) return {{L"#0", L"IDC_COLOR_INDEX_EDIT", color.colorIndex()}};
    return {{L"#1", L"IDC_COLOR_RED_SPIN", color.red()},
            {L"#1", L"IDC_COLOR_GREEN_SPIN", color.green()},
            {L"#1", L"IDC_COLOR_BLUE_SPIN", color.blue()}};
}

/// By the controls of the colour dialog, which has no button for what it doesn't offer.
std::wstring enterColor(const KdCmColor& color) {
    for (const NamedColor& named : kNamedColors) {
        if ((color.*named.is)()) return click(named.button);
    }
    std::wstring error;
    for (const ColorNumber& number : numbersOf(color)) {
        if (error.empty()) error = select(L"IDC_COLOR_PAGES", number.page);
        if (error.empty()) error = set(number.control, std::to_wstring(number.value));
    }
    return error;
}

}  // namespace

std::wstring answer(const std::wstring& button) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return L"no message box is open.";
    for (const Answer& known : kAnswers) {
        if (button != known.name) continue;
        QAbstractButton* pressed = box->button(known.button);
        if (pressed == nullptr) return L"the message box has no button " + button + L".";
        press(*pressed);
        return {};
    }
    return L"a message box is answered with OK, CANCEL, YES or NO.";
}

std::wstring file(const std::wstring& path) {
    const auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return L"no file dialog is open.";
    if (path.empty()) return L"a file dialog is answered with a path or CANCEL.";
    if (path == L"CANCEL") {
        press(*buttonOf(*dialog, QDialogButtonBox::RejectRole));
        return {};
    }
    // What the dialog shows depends on where its user has been; a script starts from the program's folder.
    const QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(qt(path)));
    if (QDir(absolute).exists()) return path + L" is a folder.";
    return onControl(L"fileNameEdit", [&](QWidget& edit) -> std::wstring {
        // With the focus elsewhere the dialog would hold on to the file that its list has selected.
        edit.setFocus(Qt::OtherFocusReason);
        static_cast<QLineEdit&>(edit).setText(absolute);
        QAbstractButton* button = buttonOf(*dialog, QDialogButtonBox::AcceptRole);
        // So it is with a file to be read that isn't there.
        if (!button->isEnabled()) return path + L" can't be chosen.";
        press(*button);
        return {};
    });
}

std::wstring color(const std::wstring& color) {
    const QWidget* top = QApplication::activeModalWidget();
    if (top == nullptr || top->objectName() != QLatin1String("ColorDialog")) return L"no colour dialog is open.";
    if (color == L"CANCEL") return click(L"IDCANCEL");
    const std::optional<KdCmColor> wanted = colorOfText(qt(color));
    const std::wstring error = wanted ? enterColor(*wanted) : L"no colour";
    if (error.empty()) return click(L"IDOK");
    return L"the colour dialog takes none, bylayer and byblock where it offers them, N, R,G,B or CANCEL, not " + color +
           L".";
}

}  // namespace kdhost::automation
