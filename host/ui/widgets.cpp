// The small widgets: edits, spin boxes, combo boxes, tabs, sliders, and when each of them loses the focus.

#include "kd/ui/widgets.h"

#include <QApplication>
#include <QFocusEvent>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "host/ui/focus.h"

namespace kdhost {

bool losesFocus(const QWidget& widget, Qt::FocusReason reason) {
    const QWidget* next = QApplication::focusWidget();
    if (next != nullptr && next->window()->windowType() == Qt::Popup) return false;
    switch (reason) {
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            return false;
        case Qt::ActiveWindowFocusReason: {
            // Another program in front is no reason to commit, nor is the end of the own dialog; another
            // window of this program is one.
            const QWidget* own = widget.window();
            if (own->isHidden()) return false;
            const QWidget* active = QApplication::activeWindow();
            const QWidget* modal = QApplication::activeModalWidget();
            return (active != nullptr && active != own) || (modal != nullptr && modal != own);
        }
        default:
            return true;
    }
}

}  // namespace kdhost

KdUiLineEdit::KdUiLineEdit(QWidget* parent) : QLineEdit(parent) {}

void KdUiLineEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (kdhost::losesFocus(*this, event->reason())) emit killFocus();
}

namespace {

/// Positions in notifications are whole numbers.
constexpr double kLargestPosition = 2147483647.0;

}  // namespace

KdUiDoubleSpinBox::KdUiDoubleSpinBox(QWidget* parent) : QAbstractSpinBox(parent) {
    connect(lineEdit(), &QLineEdit::textChanged, this, &KdUiDoubleSpinBox::textChanged);
}

QString KdUiDoubleSpinBox::text() const {
    return lineEdit()->text();
}

void KdUiDoubleSpinBox::setText(const QString& text) {
    lineEdit()->setText(text);
}

double KdUiDoubleSpinBox::value() const {
    bool isNumber = false;
    const double value = lineEdit()->text().trimmed().toDouble(&isNumber);
    return isNumber ? value : 0.0;
}

void KdUiDoubleSpinBox::setValue(double value) {
    lineEdit()->setText(m_integers ? QString::number(std::llround(value)) : QString::number(value, 'g', 15));
}

void KdUiDoubleSpinBox::setRange(double minimum, double maximum, bool integers, bool wrap) {
    m_minimum = minimum;
    m_maximum = std::max(minimum, maximum);
    m_integers = integers;
    m_wrap = wrap;
    m_autoStep = true;
}

void KdUiDoubleSpinBox::setAutoStep(bool on) {
    m_autoStep = on;
}

void KdUiDoubleSpinBox::stepBy(int steps) {
    if (steps == 0) return;
    NMUPDOWN notice;
    notice.hdr = {this, UDN_DELTAPOS};
    notice.iPos = static_cast<int>(std::clamp(value(), -kLargestPosition, kLargestPosition));
    notice.iDelta = -steps;
    LRESULT result = 0;
    if (steps > 0) {
        emit stepUp(&notice.hdr, &result);
    } else {
        emit stepDown(&notice.hdr, &result);
    }
    if (m_autoStep && result == 0) setValue(stepped(steps));
}

/// A step goes to the end of the range first; only from the end itself it goes on at the other one.
double KdUiDoubleSpinBox::stepped(int steps) const {
    const double now = std::clamp(value(), m_minimum, m_maximum);
    const double next = now + steps;
    if (next > m_maximum) return m_wrap && now >= m_maximum ? m_minimum : m_maximum;
    if (next < m_minimum) return m_wrap && now <= m_minimum ? m_maximum : m_minimum;
    return next;
}

QAbstractSpinBox::StepEnabled KdUiDoubleSpinBox::stepEnabled() const {
    if (isReadOnly()) return StepNone;
    if (!m_autoStep || m_wrap) return StepUpEnabled | StepDownEnabled;
    StepEnabled possible = StepNone;
    if (value() < m_maximum) possible |= StepUpEnabled;
    if (value() > m_minimum) possible |= StepDownEnabled;
    return possible;
}

void KdUiDoubleSpinBox::wheelEvent(QWheelEvent* event) {
    // Without a range of its own the wheel is its dialog's matter.
    if (m_autoStep) {
        QAbstractSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

void KdUiDoubleSpinBox::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    if (kdhost::losesFocus(*this, event->reason())) emit killFocus();
}

KdUiComboBox::KdUiComboBox(QWidget* parent) : QComboBox(parent) {
    // The style's own delegate has no ear for heights of rows.
    setItemDelegate(new QStyledItemDelegate(this));
}

void KdUiComboBox::setComboBoxStyle(int style) {
    m_style = style;
    update();  // the samples of another style
}

void KdUiComboBox::showPopup() {
    emit boxDropdowm();
    QComboBox::showPopup();
}

void KdUiComboBox::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if (kdhost::losesFocus(*this, event->reason())) emit killFocus();
}

KdUiTreeWidget::KdUiTreeWidget(QWidget* parent) : QTreeWidget(parent) {
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
        const std::wstring text = item->text(0).toStdWString();
        NMLVDISPINFO notice;
        notice.hdr = {this, TVN_ENDLABELEDIT};
        notice.pszText = text.c_str();
        LRESULT result = 0;
        emit editFinished(&notice.hdr, &result);
    });
}

KdUiTabBar::KdUiTabBar(QWidget* parent) : QTabBar(parent) {
    connect(this, &QTabBar::currentChanged, this, [this] {
        NMHDR header{this, TCN_SELCHANGE};
        LRESULT result = 0;
        emit currentChanged(&header, &result);
    });
}

KdUiSlider::KdUiSlider(QWidget* parent) : QSlider(parent) {
    connect(this, &QSlider::valueChanged, this, [this] {
        NMHDR header{this, NM_CUSTOMDRAW};
        LRESULT result = 0;
        emit OnSliderValueChange(&header, &result);
    });
}
