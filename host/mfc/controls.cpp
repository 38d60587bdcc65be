// The simple controls over their widgets.

#include "mfc/controls.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QLineEdit>

namespace {

/// The edit of an edit control or of a spin box; null for another widget.
QLineEdit* lineEditOf(QWidget* widget) {
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit;
    return qobject_cast<QAbstractSpinBox*>(widget) != nullptr ? widget->findChild<QLineEdit*>() : nullptr;
}

}  // namespace

int CButton::GetCheck() const {
    const auto* button = widgetAs<QAbstractButton>();
    return button != nullptr && button->isChecked() ? 1 : 0;
}

void CButton::SetCheck(int check) {
    if (auto* button = widgetAs<QAbstractButton>()) button->setChecked(check != 0);
}

void CEdit::SetSel(int start, int end) {
    QLineEdit* edit = lineEditOf(widget());
    if (edit == nullptr) return;
    if (end < 0) {
        edit->setSelection(start, static_cast<int>(edit->text().size()) - start);
    } else {
        edit->setSelection(start, end - start);
    }
}

void CEdit::ReplaceSel(const wchar_t* text) {
    if (QLineEdit* edit = lineEditOf(widget())) edit->insert(QString::fromWCharArray(text == nullptr ? L"" : text));
}

void CEdit::SetReadOnly(bool readOnly) {
    if (QLineEdit* edit = lineEditOf(widget())) edit->setReadOnly(readOnly);
}

bool CToolTipCtrl::Create(CWnd* parent) {
    Attach(parent == nullptr ? nullptr : parent->widget());
    return widget() != nullptr;
}

bool CToolTipCtrl::AddTool(CWnd* tool, const wchar_t* text) {
    if (tool == nullptr || tool->widget() == nullptr) return false;
    tool->widget()->setToolTip(QString::fromWCharArray(text == nullptr ? L"" : text));
    return true;
}

void CToolTipCtrl::Activate(bool) {}

void CToolTipCtrl::RelayEvent(MSG*) {}

void CToolBar::OnUpdateToolBar() {}
