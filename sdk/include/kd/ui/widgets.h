// The host's widgets: Qt's own with the signals that the framework's dialogs listen to. In `.ui` files they
// stand under these class names.
#pragma once

#include <QAbstractSpinBox>
#include <QColor>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTabBar>
#include <QTreeWidget>

#include "mfc/notify.h"

/// killFocus() comes when the focus moves to another control, or to another dialog; not for a popup of the
/// widget's own.
class KdUiLineEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit KdUiLineEdit(QWidget* parent = nullptr);
signals:
    void killFocus();

protected:
    void focusOutEvent(QFocusEvent* event) override;
};

/// An edit with arrows that also takes any text; what a text means is its dialog's matter.
class KdUiDoubleSpinBox : public QAbstractSpinBox {
    Q_OBJECT
public:
    explicit KdUiDoubleSpinBox(QWidget* parent = nullptr);
    QString text() const;
    void setText(const QString& text);
    double value() const;
    /// Shows the value; as a whole number where the range is one of whole numbers.
    void setValue(double value);
    /// Range of the steps; typed text is free. `integers` shows whole numbers; `wrap` goes on at the other end.
    /// From now on the box steps by itself, after it has signalled.
    void setRange(double minimum, double maximum, bool integers, bool wrap);
    /// Off, as at first: a step only signals, and the dialog changes the text.
    void setAutoStep(bool on);
    void stepBy(int steps) override;
    QLineEdit* edit() const { return lineEdit(); }
signals:
    void killFocus();
    void textChanged(const QString& text);
    void stepUp(NMHDR* header, LRESULT* result);
    void stepDown(NMHDR* header, LRESULT* result);

protected:
    StepEnabled stepEnabled() const override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double stepped(int steps) const;

    double m_minimum = 0.0;
    double m_maximum = 100.0;
    bool m_integers = false;
    bool m_wrap = false;
    bool m_autoStep = false;
};

/// A combo box; boxDropdowm() (spelt so) comes before its list opens.
class KdUiComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit KdUiComboBox(QWidget* parent = nullptr);
    /// What the box lists: 0 texts, 1 line types, 2 line weights, 3 colours. The rows' samples are painted
    /// accordingly.
    void setComboBoxStyle(int style);
    int comboBoxStyle() const { return m_style; }
    void showPopup() override;
signals:
    void boxDropdowm();
    void killFocus();

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    int m_style = 0;
};

/// A push button with a picture, and in style 6 with an arrow part of its own.
class KdUiPushButton : public QPushButton {
    Q_OBJECT
public:
    explicit KdUiPushButton(QWidget* parent = nullptr);
    using QPushButton::setIcon;
    /// The picture at a resource path, its `mask` colour made transparent; on a dense screen the one whose name has
    /// "_2X" or "_3X" behind it, where there is one. A missing picture leaves the button as it was.
    void setIcon(const QString& path, const QColor& mask);
    /// 0 an ordinary button, 2 a flat tool button, 6 a flat tool button with an arrow part.
    void setButtonStyle(int style);
    int buttonStyle() const { return m_style; }
    bool hasArrowPart() const;
    /// Presses the arrow part.
    void clickArrow();
signals:
    void clickedEventEx();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int m_style = 0;
};

/// A list. Its notifications go to the OnListNotify of the nearest dialog around it: a changed row before the
/// click that changed it, click, double click, right click (the keyboard's menu key too), begin and end of a
/// label edit, keys; two of them are signals as well. While its signals are blocked it notifies nothing.
class KdUiListWidget : public QListWidget {
    Q_OBJECT
public:
    explicit KdUiListWidget(QWidget* parent = nullptr);
    /// Starts the edit of a row's text, if the dialog allows it; an edit that is open ends first, with its text.
    /// The row shows a typed text when the dialog answers its end with a result other than 0.
    bool editLabel(int row);
    /// The edit of a label that is open; null when none is.
    QLineEdit* labelEditor() const;
signals:
    void RightClickItem(NMHDR* header, LRESULT* result);
    void currentItemChanged(NMHDR* header, LRESULT* result);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void tellRightClick(int row, const QPoint& place);

    /// Set while a menu key has had its menu already, by way of the platform.
    bool m_menuKeyServed = false;
};

class KdUiTreeWidget : public QTreeWidget {
    Q_OBJECT
public:
    explicit KdUiTreeWidget(QWidget* parent = nullptr);
signals:
    void editFinished(NMHDR* header, LRESULT* result);
};

class KdUiTabBar : public QTabBar {
    Q_OBJECT
public:
    explicit KdUiTabBar(QWidget* parent = nullptr);
signals:
    void currentChanged(NMHDR* header, LRESULT* result);
};

class KdUiSlider : public QSlider {
    Q_OBJECT
public:
    explicit KdUiSlider(QWidget* parent = nullptr);
signals:
    void OnSliderValueChange(NMHDR* header, LRESULT* result);
};
