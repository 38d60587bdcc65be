// Dialogs and pages: how they are built, opened, exchanged and closed.

#include "kd/ui/basedialog.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLayout>
#include <QMessageBox>
#include <QMetaMethod>
#include <QPushButton>
#include <QWheelEvent>
#include <map>

#include "host/ui/signalrelay.h"
#include "kd/ui/uicreator.h"
#include "kd/ui/widgets.h"

using kdhost::SignalRelay;

struct KdUiBaseDialog::Private {
    CWnd* parent = nullptr;
    std::unique_ptr<VqUICreator> creator;
    bool built = false;
    bool isPage = false;
    bool initialised = false;
    /// Buttons that the class has connected itself.
    bool connectedOk = false;
    bool connectedCancel = false;
    std::map<std::string, std::unique_ptr<CWnd>> wrappers;
};

KdUiBaseDialog::KdUiBaseDialog(CWnd* parent)
    : QDialog(parent != nullptr ? parent->widget() : nullptr), CWnd(this), m_private(std::make_unique<Private>()) {
    m_private->parent = parent;
}

KdUiBaseDialog::~KdUiBaseDialog() = default;

namespace {

/// The tree's layout and widgets become the dialog's own, so that a control's parent is its dialog.
void adoptContent(QDialog& dialog, QWidget& root) {
    dialog.setWindowTitle(root.windowTitle());
    dialog.setMinimumSize(root.minimumSize());
    dialog.setMaximumSize(root.maximumSize());
    dialog.resize(root.size());
    if (QLayout* layout = root.layout()) {
        dialog.setLayout(layout);
        return;
    }
    for (QObject* child : root.children()) {
        auto* widget = qobject_cast<QWidget*>(child);
        if (widget == nullptr) continue;
        const QRect place = widget->geometry();
        const bool hidden = widget->isHidden();
        widget->setParent(&dialog);
        widget->setGeometry(place);
        widget->setVisible(!hidden);
    }
}

}  // namespace

bool KdUiBaseDialog::generateUICtrls(const char* resourcePath, const char* name, int kind, int, int) {
    setObjectName(QString::fromUtf8(name));
    m_private->creator = std::make_unique<VqUICreator>(this, QString::fromUtf8(resourcePath), kind);
    m_private->built = m_private->creator->generate(QString::fromUtf8(name));
    if (!m_private->built) return false;
    QWidget* root = m_private->creator->widgets().first();
    adoptContent(*this, *root);
    delete root;
    for (QWidget* widget : m_private->creator->widgets()) widget->installEventFilter(this);
    return true;
}

QWidget* KdUiBaseDialog::getWidgetsFromOrignal(const char* name, int) const {
    return m_private->creator == nullptr ? nullptr : m_private->creator->widget(QString::fromUtf8(name));
}

CWnd* KdUiBaseDialog::GetDlgItem(const char* name) const {
    QWidget* widget = getWidgetsFromOrignal(name);
    if (widget == nullptr) return nullptr;
    std::unique_ptr<CWnd>& wrapper = m_private->wrappers[name];
    if (wrapper == nullptr || wrapper->widget() != widget) wrapper = std::make_unique<CWnd>(widget);
    return wrapper.get();
}

int KdUiBaseDialog::DoModal() {
    if (!m_private->built) return -1;
    if (!m_private->initialised) {
        m_private->initialised = true;
        OnInitDialog();
    }
    const int closed = exec();
    OnDestroy();
    return closed == QDialog::Accepted ? IDOK : IDCANCEL;
}

void KdUiBaseDialog::becomePage(CWnd* parent, QWidget* host) {
    m_private->parent = parent;
    m_private->isPage = true;
    setParent(host, Qt::Widget);
    if (m_private->initialised || !m_private->built) return;
    m_private->initialised = true;
    OnInitDialog();
}

CWnd* KdUiBaseDialog::GetParent() const {
    return m_private->parent;
}

bool KdUiBaseDialog::UpdateData(bool saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
        return true;
    } catch (const CDataExchangeFailed&) {
        if (exchange.m_lastControl != nullptr) GotoDlgCtrl(GetDlgItem(exchange.m_lastControl));
        return false;
    }
}

int KdUiBaseDialog::MessageBoxW(const wchar_t* text, const wchar_t* caption, UINT type) {
    return kdMessageBox(this, text, caption, type);
}

void KdUiBaseDialog::GotoDlgCtrl(CWnd* control) {
    if (control != nullptr) control->SetFocus();
}

void KdUiBaseDialog::NextDlgCtrl() {
    focusNextChild();
}

void KdUiBaseDialog::OnListNotify(const char*, NMHDR*, LRESULT*) {}

bool KdUiBaseDialog::PreTranslateMessage(MSG*) {
    return false;
}

void KdUiBaseDialog::OnDestroy() {}

void KdUiBaseDialog::OnOK() {
    accept();
}

void KdUiBaseDialog::OnCancel() {
    reject();
}

int KdUiBaseDialog::OnInitDialog() {
    UpdateData(false);
    return 1;
}

void KdUiBaseDialog::DoDataExchange(CDataExchange*) {}

void KdUiBaseDialog::bindSingals() {
    if (!m_private->connectedOk) connectControl("IDOK", "clicked()", [this] { OnOK(); });
    if (!m_private->connectedCancel) connectControl("IDCANCEL", "clicked()", [this] { OnCancel(); });
}

void KdUiBaseDialog::OnHelp() {}

int KdUiBaseDialog::OnMouseWheel(int) {
    return 0;
}

void KdUiBaseDialog::setWindowIcon() {
    QDialog::setWindowIcon(QApplication::windowIcon());
}

namespace {

/// Connects a signal given by its name; false when the sender doesn't have it.
bool connectByName(QObject& sender, const char* signal, QObject& receiver, const char* slot,
                   Qt::ConnectionType type = Qt::AutoConnection) {
    const QByteArray signature = QMetaObject::normalizedSignature(signal);
    const int signalIndex = sender.metaObject()->indexOfSignal(signature.constData());
    const int slotIndex = receiver.metaObject()->indexOfSlot(slot);
    if (signalIndex < 0 || slotIndex < 0) return false;
    return QObject::connect(&sender, sender.metaObject()->method(signalIndex), &receiver,
                            receiver.metaObject()->method(slotIndex), type);
}

}  // namespace

bool KdUiBaseDialog::connectControl(const char* name, const char* signal, std::function<void()> handler) {
    QWidget* control = getWidgetsFromOrignal(name);
    if (control == nullptr) return false;
    auto relay = std::make_unique<SignalRelay>(this, std::move(handler));
    if (!connectByName(*control, signal, *relay, "fire()")) return false;
    relay.release();  // the dialog is its parent
    if (qstrcmp(name, "IDOK") == 0) m_private->connectedOk = true;
    if (qstrcmp(name, "IDCANCEL") == 0) m_private->connectedCancel = true;
    return true;
}

bool KdUiBaseDialog::connectNotification(const char* name, const char* signal, NotifyHandler handler,
                                         Qt::ConnectionType type) {
    QWidget* control = getWidgetsFromOrignal(name);
    if (control == nullptr) return false;
    auto relay = std::make_unique<SignalRelay>(this, std::move(handler));
    if (!connectByName(*control, signal, *relay, "notify(NMHDR*,LRESULT*)", type)) return false;
    relay.release();  // the dialog is its parent
    return true;
}

bool KdUiBaseDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        MSG message;
        message.hwnd = qobject_cast<QWidget*>(watched);
        message.message = WM_KEYDOWN;
        switch (key->key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
                message.wParam = VK_RETURN;
                break;
            case Qt::Key_Escape:
                message.wParam = VK_ESCAPE;
                break;
            default:
                message.wParam = static_cast<WPARAM>(key->key());
        }
        if (PreTranslateMessage(&message)) return true;
    }
    return QDialog::eventFilter(watched, event);
}

void KdUiBaseDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    OnCancel();
}

void KdUiBaseDialog::keyPressEvent(QKeyEvent* event) {
    // A page leaves its keys to the dialog that it stands in.
    if (m_private->isPage) {
        event->ignore();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            pressDefaultButton();
            break;
        case Qt::Key_Escape:
            if (auto* cancel = qobject_cast<QPushButton*>(getWidgetsFromOrignal("IDCANCEL"))) {
                cancel->click();
            } else {
                OnCancel();
            }
            break;
        case Qt::Key_F1:
            OnHelp();
            break;
        default:
            QDialog::keyPressEvent(event);
    }
}

void KdUiBaseDialog::pressDefaultButton() {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    QPushButton* pressed = focused != nullptr && focused->autoDefault() ? focused : nullptr;
    if (pressed == nullptr) {
        for (QPushButton* button : findChildren<QPushButton*>()) {
            if (button->isDefault()) pressed = button;
        }
    }
    if (pressed == nullptr) pressed = qobject_cast<QPushButton*>(getWidgetsFromOrignal("IDOK"));
    if (pressed == nullptr || !pressed->isEnabled()) return;
    // The focus goes there first, so that the edit it leaves has committed; what the edit objects to may
    // bring the focus back, and the press is then not done.
    pressed->setFocus(Qt::OtherFocusReason);
    if (focusWidget() == pressed) pressed->click();
}

void KdUiBaseDialog::wheelEvent(QWheelEvent* event) {
    if (OnMouseWheel(event->angleDelta().y()) == 0) QDialog::wheelEvent(event);
}
