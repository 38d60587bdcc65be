// The simple controls over their widgets.

#include "mfc/controls.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QLineEdit>
#include <algorithm>

namespace {

/// The edit of an edit control or of a spin box; null for another widget.
QLineEdit* lineEditOf(QWidget* widget) {
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) return edit;
    return qobject_cast<QAbstractSpinBox*>(widget) != nullptr ? widget->findChild<QLineEdit*>() : nullptr;
}

}  // namespace

/// Brings what happens to the widget to the control.
class CStatic::Relay final : public QObject {
public:
    Relay(CStatic& control, QWidget& widget) : m_control(control) { widget.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = static_cast<const QWidget*>(watched);
        switch (event->type()) {
            case QEvent::Resize:
                m_control.OnSize(0, widget->width(), widget->height());
                break;
            case QEvent::Paint:
                m_control.OnPaint();
                break;
            default:
                break;
        }
        return false;
    }

private:
    CStatic& m_control;
};

CStatic::CStatic() = default;
CStatic::~CStatic() = default;

void CStatic::Attach(QWidget* widget) {
    m_relay.reset();
    CWnd::Attach(widget);
    if (widget == nullptr) return;
    m_relay = std::make_unique<Relay>(*this, *widget);
    QObject::connect(widget, &QObject::destroyed, m_relay.get(), [this] { OnDestroy(); });
}

void CStatic::OnSize(UINT, int, int) {}
void CStatic::OnPaint() {}
void CStatic::OnDestroy() {}

int CButton::GetCheck() const {
    const auto* button = widgetAs<QAbstractButton>();
    return button != nullptr && button->isChecked() ? 1 : 0;
}

void CButton::SetCheck(int check) {
    auto* button = widgetAs<QAbstractButton>();
    if (button == nullptr) return;
    // Qt never unchecks the one checked button of an exclusive group; the program may.
    QButtonGroup* group = button->group();
    const bool groupIsExclusive = group != nullptr && group->exclusive();
    const bool isExclusive = button->autoExclusive();
    if (check == 0) {
        if (groupIsExclusive) group->setExclusive(false);
        button->setAutoExclusive(false);
    }
    button->setChecked(check != 0);
    button->setAutoExclusive(isExclusive);
    if (groupIsExclusive) group->setExclusive(true);
}

void CEdit::SetSel(int start, int end) {
    QLineEdit* edit = lineEditOf(widget());
    if (edit == nullptr) return;
    if (start < 0) {
        edit->deselect();
    } else if (end < 0) {
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
    const QString tip = QString::fromWCharArray(text == nullptr ? L"" : text);
    const auto known =
        std::find_if(m_tools.begin(), m_tools.end(), [&](const Tool& added) { return added.widget == tool->widget(); });
    if (known != m_tools.end()) {
        known->text = tip;
    } else {
        m_tools.push_back({tool->widget(), tip});
    }
    tool->widget()->setToolTip(m_active ? tip : QString());
    return true;
}

void CToolTipCtrl::Activate(bool active) {
    m_active = active;
    for (const Tool& tool : m_tools) {
        if (tool.widget != nullptr) tool.widget->setToolTip(active ? tool.text : QString());
    }
}

void CToolTipCtrl::RelayEvent(MSG*) {}

void CToolBar::OnUpdateToolBar() {}
