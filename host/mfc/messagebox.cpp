// Message boxes over Qt's own.

#include "mfc/messagebox.h"

#include <QApplication>
#include <QMessageBox>
#include <array>

#include "host/mfc/messagebox.h"

namespace {

std::wstring lastText;

constexpr UINT kButtonMask = 0x0F;
constexpr UINT kIconMask = 0xF0;

struct Buttons {
    UINT type;
    QMessageBox::StandardButtons buttons;
};

const std::array kButtons = {
    Buttons{MB_OK, QMessageBox::Ok},
    Buttons{MB_OKCANCEL, QMessageBox::Ok | QMessageBox::Cancel},
    Buttons{MB_YESNOCANCEL, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel},
    Buttons{MB_YESNO, QMessageBox::Yes | QMessageBox::No},
};

struct Icon {
    UINT type;
    QMessageBox::Icon icon;
};

constexpr std::array kIcons = {
    Icon{MB_ICONSTOP, QMessageBox::Critical},
    Icon{MB_ICONQUESTION, QMessageBox::Question},
    Icon{MB_ICONWARNING, QMessageBox::Warning},
    Icon{MB_ICONINFORMATION, QMessageBox::Information},
};

struct Result {
    QMessageBox::StandardButton button;
    int result;
};

constexpr std::array kResults = {
    Result{QMessageBox::Ok, IDOK},
    Result{QMessageBox::Cancel, IDCANCEL},
    Result{QMessageBox::Yes, IDYES},
    Result{QMessageBox::No, IDNO},
};

}  // namespace

namespace kdhost {

const std::wstring& lastMessageBoxText() {
    return lastText;
}

void forgetMessageBoxes() {
    lastText.clear();
}

}  // namespace kdhost

int kdMessageBox(QWidget* parent, const wchar_t* text, const wchar_t* caption, UINT type) {
    lastText = text == nullptr ? L"" : text;
    QMessageBox box(parent);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdWString(lastText));
    box.setWindowTitle(QString::fromWCharArray(caption == nullptr ? L"" : caption));
    box.setStandardButtons(QMessageBox::Ok);
    for (const Buttons& known : kButtons) {
        if (known.type == (type & kButtonMask)) box.setStandardButtons(known.buttons);
    }
    for (const Icon& known : kIcons) {
        if (known.type == (type & kIconMask)) box.setIcon(known.icon);
    }
    const int pressed = box.exec();
    // The window below is active again, also where no window manager sees to it.
    if (parent != nullptr) parent->window()->activateWindow();
    for (const Result& known : kResults) {
        if (known.button == pressed) return known.result;
    }
    return IDCANCEL;
}

int AfxMessageBox(const wchar_t* text, UINT type, UINT) {
    QWidget* over = QApplication::activeModalWidget();
    return kdMessageBox(over != nullptr ? over : QApplication::activeWindow(), text, GetOemProductName(), type);
}

const wchar_t* GetOemProductName() {
    return L"Tables";
}
