// What the host's own dialogs have in common.

#include "host/ui/dialogs/hostdialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

#include "mfc/messagebox.h"

namespace kdhost {

HostDialog::HostDialog(const char* name, HostText title, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint), m_content(new QVBoxLayout(this)) {
    setObjectName(QString::fromLatin1(name));
    setWindowTitle(hostText(title));
    setWindowIcon(QApplication::windowIcon());
}

HostDialog::~HostDialog() = default;

bool HostDialog::run() {
    return exec() == QDialog::Accepted;
}

QWidget* HostDialog::windowBelow() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

void HostDialog::addButtons() {
    auto* row = new QHBoxLayout;
    row->addStretch();
    m_ok = addButton(row, "IDOK", HostText::Ok);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, [this] {
        if (commit()) accept();
    });
    connect(addButton(row, "IDCANCEL", HostText::Cancel), &QPushButton::clicked, this, &QDialog::reject);
    m_content->addLayout(row);
}

QPushButton* HostDialog::addButton(QHBoxLayout* row, const char* name, HostText text) {
    auto* button = new QPushButton(hostText(text), this);
    nameControl(button, name, withoutMnemonic(hostText(text)));
    row->addWidget(button);
    return button;
}

QLabel* HostDialog::labelFor(QWidget* control, HostText text) {
    auto* label = new QLabel(hostText(text), this);
    label->setBuddy(control);
    QString spoken = withoutMnemonic(hostText(text));
    if (spoken.endsWith(QLatin1Char(':'))) spoken.chop(1);
    control->setAccessibleName(spoken);
    return label;
}

bool HostDialog::commit() {
    return true;
}

void HostDialog::refuse(HostText message, QWidget* control) {
    kdMessageBox(this, hostText(message).toStdWString().c_str(), GetOemProductName(), MB_OK | MB_ICONWARNING);
    if (control != nullptr) control->setFocus(Qt::OtherFocusReason);
}

void HostDialog::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    if (!enter || focused != nullptr || m_ok == nullptr) {
        QDialog::keyPressEvent(event);
        return;
    }
    // The focus goes to OK first, so that the edit it leaves has committed.
    m_ok->setFocus(Qt::OtherFocusReason);
    m_ok->click();
}

QString withoutMnemonic(const QString& text) {
    // Languages without letters of their own keep the mnemonic in brackets behind the text.
    static const QRegularExpression bracketed(QStringLiteral("\\(&.\\)"));
    QString plain = text;
    plain.remove(bracketed);
    return plain.remove(QLatin1Char('&'));
}

void nameControl(QWidget* control, const char* name, const QString& spoken) {
    control->setObjectName(QString::fromLatin1(name));
    if (!spoken.isEmpty()) control->setAccessibleName(spoken);
}

}  // namespace kdhost
