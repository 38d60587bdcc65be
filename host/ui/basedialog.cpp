// Dialogs and pages: how they are built, opened, exchanged and closed.

#include "kd/ui/basedialog.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QWheelEvent>
#include <map>

#include "host/ui/keywatcher.h"
#include "host/ui/signalrelay.h"
#include "host/ui/treeroot.h"
#include "kd/ui/uicreator.h"
#include "kd/ui/widgets.h"

using kdhost::SignalRelay;

struct KdUiBaseDialog::Private {
    CWnd* parent = nullptr;
    std::unique_ptr<VqUICreator> creator;
    bool built = false;
    bool isPage = false;
    bool initialised = false;
    /// Set by done, so that an end within OnInitDialog is noticed.
    bool ended = false;
    /// Buttons that the class has connected itself.
    bool connectedOk = false;
    bool connectedCancel = false;
    std::map<std::string, std::unique_ptr<CWnd>> wrappers;
};

KdUiBaseDialog::KdUiBaseDialog(CWnd* parent)
    : QDialog(parent != nullptr ? parent->widget() : nullptr), CWnd(this), m_private(std::make_unique<Private>()) {
    m_private->parent = parent;
    kdhost::KeyWatcher::attach();
}

KdUiBaseDialog::~KdUiBaseDialog() {
    kdhost::KeyWatcher::detach();
    // A control that loses the focus while Qt takes the window down would call a handler of a class that is gone.
    qDeleteAll(findChildren<SignalRelay*>(QString(), Qt::FindDirectChildrenOnly));
}

namespace {

/// A widget goes to the dialog as it is: place and hiddenness are kept.
void adoptWidget(QDialog& dialog, QWidget& widget) {
    const QRect place = widget.geometry();
    const bool hidden = widget.isHidden();
    widget.setParent(&dialog);
    widget.setGeometry(place);
    widget.setVisible(!hidden);
}

/// The tree's layout, widgets and other objects (button groups, actions) become the dialog's own, so that a
/// control's parent is its dialog.
void adoptContent(QDialog& dialog, QWidget& root) {
    dialog.setWindowTitle(root.windowTitle());
    dialog.setAccessibleName(root.accessibleName());
    dialog.setStyleSheet(root.styleSheet());
    dialog.setSizePolicy(root.sizePolicy());
    dialog.setMinimumSize(root.minimumSize());
    dialog.setMaximumSize(root.maximumSize());
    dialog.resize(root.size());
    if (QLayout* layout = root.layout()) dialog.setLayout(layout);
    // Children leave it while they are adopted.
    const QObjectList left = root.children();  // NOLINT(performance-unnecessary-copy-initialization)
    for (QObject* child : left) {
        if (auto* widget = qobject_cast<QWidget*>(child)) {
            adoptWidget(dialog, *widget);
        } else {
            child->setParent(&dialog);
        }
    }
}

/// A root that something is connected to stays, unseen and without a name.
void retire(QWidget* root) {
    const auto* tree = qobject_cast<const kdhost::TreeRoot*>(root);
    if (tree == nullptr || !tree->isConnected()) {
        delete root;
        return;
    }
    root->setObjectName({});
    root->setMinimumSize(0, 0);
    root->hide();
}

}  // namespace

bool KdUiBaseDialog::generateUICtrls(const char* resourcePath, const char* name, int kind, int, int) {
    if (m_private->built) return false;
    setObjectName(QString::fromUtf8(name));
    m_private->creator = std::make_unique<VqUICreator>(this, QString::fromUtf8(resourcePath), kind);
    m_private->built = m_private->creator->generate(QString::fromUtf8(name));
    if (!m_private->built) return false;
    QWidget* root = m_private->creator->widgets().first();
    adoptContent(*this, *root);
    retire(root);
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
    m_private->ended = false;
    if (!m_private->initialised) {
        m_private->initialised = true;
        OnInitDialog();
    }
    if (!m_private->ended) exec();
    OnDestroy();
    return result() == QDialog::Accepted ? IDOK : IDCANCEL;
}

void KdUiBaseDialog::done(int result) {
    m_private->ended = true;
    QDialog::done(result);
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
    if (control == nullptr) return;
    control->SetFocus();
    if (auto* edit = control->widgetAs<QLineEdit>()) edit->selectAll();
    if (auto* box = control->widgetAs<QAbstractSpinBox>()) box->selectAll();
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
    const QMetaMethod from = sender.metaObject()->method(signalIndex);
    const QMetaMethod to = receiver.metaObject()->method(slotIndex);
    return QMetaObject::checkConnectArgs(from, to) && QObject::connect(&sender, from, &receiver, to, type);
}

}  // namespace

bool KdUiBaseDialog::connectControl(const char* name, const char* signal, std::function<void()> handler) {
    QWidget* control = getWidgetsFromOrignal(name);
    if (control == nullptr) return false;
    auto relay = std::make_unique<SignalRelay>(this, std::move(handler));
    if (!connectByName(*control, signal, *relay, "fire()")) return false;
    (void)relay.release();  // the dialog is its parent
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
    (void)relay.release();  // the dialog is its parent
    return true;
}

void KdUiBaseDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    cancelByUser();
}

void KdUiBaseDialog::cancelByUser() {
    if (auto* cancel = qobject_cast<QPushButton*>(getWidgetsFromOrignal("IDCANCEL"))) {
        cancel->click();
    } else {
        OnCancel();
    }
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
            cancelByUser();
            break;
        case Qt::Key_F1:
            OnHelp();
            break;
        default:
            QDialog::keyPressEvent(event);
    }
}

/// The button that has the focus, else the one marked as default, else "IDOK"; null when there is none.
QPushButton* KdUiBaseDialog::defaultButton() const {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    if (focused != nullptr && focused->autoDefault()) return focused;
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (button->isDefault() && button->isVisibleTo(this)) return button;
    }
    return qobject_cast<QPushButton*>(getWidgetsFromOrignal("IDOK"));
}

void KdUiBaseDialog::pressDefaultButton() {
    QPointer<QPushButton> pressed = defaultButton();
    if (pressed == nullptr || !pressed->isEnabled()) return;
    // The focus goes there first, so that the edit it leaves has committed; an edit that objects brings the
    // focus back, and the press is then not done. What it commits may disable the button.
    pressed->setFocus(Qt::OtherFocusReason);
    if (pressed != nullptr && focusWidget() == pressed) pressed->click();
}

void KdUiBaseDialog::wheelEvent(QWheelEvent* event) {
    if (OnMouseWheel(event->angleDelta().y()) == 0) QDialog::wheelEvent(event);
}
