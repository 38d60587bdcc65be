// Message boxes over Qt's own.

#include "mfc/messagebox.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <algorithm>
#include <array>

#include "host/mfc/messagebox.h"

namespace {

std::wstring lastText;

/// Qt bounds the width of its boxes in plain pixels. Here a line holds the same number of letters at any scale.
class Box : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent* event) override {
        const bool done = QMessageBox::event(event);
        if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Show) fitToText();
        return done;
    }

private:
    void fitToText() {
        constexpr int kLongestLine = 60;  // in letters
        auto* label = findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        if (label == nullptr || layout() == nullptr) return;
        const QFontMetrics metrics = label->fontMetrics();
        const int natural = metrics.size(0, label->text()).width() + metrics.averageCharWidth();
        const int widest = metrics.averageCharWidth() * kLongestLine;
        label->setWordWrap(natural > widest);
        label->setMinimumWidth(std::min(natural, widest));
        layout()->activate();
        const int title = fontMetrics().horizontalAdvance(windowTitle()) + 4 * metrics.height();
        const int width = std::max(layout()->totalMinimumSize().width(), title);
        const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width)
                                                         : layout()->totalMinimumSize().height();
        setFixedSize(width, height);
    }
};

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
    Box box(parent);
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
