// The tables behind the wiring of dialogs: which signal of which widget carries what.

#include "module/controls/wiring.h"

#include <QListWidget>
#include <cstring>

namespace {

enum class Shape { Plain, Notice, Item };

/// How a notification is carried. Some come by two signals.
struct NotificationRow {
    NotifyCode notification;
    const char* widgetClass;
    const char* signal;
    const char* secondSignal;
    Shape shape;
    Qt::ConnectionType type;
};

constexpr NotificationRow kNotifications[] = {
    {UDN_DELTAPOS, "KdUiDoubleSpinBox", "stepUp(NMHDR*,LRESULT*)", "stepDown(NMHDR*,LRESULT*)", Shape::Notice,
     Qt::DirectConnection},
    {LVN_ENDLABELEDIT, "QListWidget", "itemEntered(QListWidgetItem*)", nullptr, Shape::Item, Qt::AutoConnection},
    {TVN_ENDLABELEDIT, "KdUiTreeWidget", "editFinished(NMHDR*,LRESULT*)", nullptr, Shape::Notice, Qt::DirectConnection},
    {TVN_SELCHANGED, "QTreeWidget", "itemSelectionChanged()", nullptr, Shape::Plain, Qt::AutoConnection},
    {NM_CUSTOMDRAW, "KdUiSlider", "OnSliderValueChange(NMHDR*,LRESULT*)", nullptr, Shape::Notice, Qt::AutoConnection},
    {LVN_ITEMCHANGED, "QListWidget", "currentItemChanged(NMHDR*,LRESULT*)", nullptr, Shape::Notice, Qt::AutoConnection},
    {TCN_SELCHANGE, "KdUiTabBar", "currentChanged(NMHDR*,LRESULT*)", nullptr, Shape::Notice, Qt::AutoConnection},
    {NM_RCLICK, "QListWidget", "RightClickItem(NMHDR*,LRESULT*)", nullptr, Shape::Notice, Qt::AutoConnection},
};

struct SignalRow {
    ControlSignal kind;
    const char* widgetClass;
    const char* signal;
};

constexpr SignalRow kSignals[] = {
    {ControlSignal::Clicked, "QAbstractButton", "clicked()"},
    {ControlSignal::SelectionChange, "QComboBox", "currentIndexChanged(int)"},
    {ControlSignal::SelectionChange, "QListWidget", "itemSelectionChanged()"},
    {ControlSignal::KillFocus, "QWidget", "killFocus()"},
    {ControlSignal::TextChanged, "QWidget", "textChanged(const QString&)"},
    {ControlSignal::BoxDropDown, "QComboBox", "boxDropdowm()"},
};

bool connectItemEntered(KdUiBaseDialog& dialog, QWidget& control, std::function<void(QListWidgetItem*)> handler,
                        Qt::ConnectionType type) {
    auto* list = qobject_cast<QListWidget*>(&control);
    return list != nullptr && QObject::connect(list, &QListWidget::itemEntered, &dialog, std::move(handler), type);
}

bool connectRow(KdUiBaseDialog& dialog, const char* control, QWidget& widget, const NotificationRow& row,
                const char* signal, const wiring::BoundNotificationHandler& handler) {
    switch (row.shape) {
        case Shape::Plain:
            return dialog.connectControl(control, signal, std::get<std::function<void()>>(handler));
        case Shape::Notice:
            return dialog.connectNotification(control, signal, std::get<KdUiBaseDialog::NotifyHandler>(handler),
                                              row.type);
        case Shape::Item:
            return connectItemEntered(dialog, widget, std::get<std::function<void(QListWidgetItem*)>>(handler),
                                      row.type);
    }
    return false;
}

}  // namespace

bool buildTree(KdUiBaseDialog& dialog, const char* name) {
    if (!dialog.generateUICtrls(kModuleResources, name, 1, 0, 0)) return false;
    dialog.bindSingals();
    dialog.KdUiBaseDialog::bindSingals();
    return true;
}

namespace wiring {

bool connectControl(KdUiBaseDialog& dialog, const char* control, ControlSignal signal, std::function<void()> handler) {
    const QWidget* widget = dialog.getWidgetsFromOrignal(control);
    if (widget == nullptr) return false;
    for (const SignalRow& row : kSignals) {
        if (row.kind != signal || !widget->inherits(row.widgetClass)) continue;
        return dialog.connectControl(control, row.signal, std::move(handler));
    }
    return false;
}

bool connectNotification(KdUiBaseDialog& dialog, const char* control, NotifyCode notification,
                         const BoundNotificationHandler& handler) {
    QWidget* widget = dialog.getWidgetsFromOrignal(control);
    if (widget == nullptr) return false;
    for (const NotificationRow& row : kNotifications) {
        if (row.notification != notification || !widget->inherits(row.widgetClass)) continue;
        if (handler.index() != static_cast<std::size_t>(row.shape)) return false;
        bool connected = connectRow(dialog, control, *widget, row, row.signal, handler);
        if (row.secondSignal != nullptr) {
            connected = connectRow(dialog, control, *widget, row, row.secondSignal, handler) && connected;
        }
        return connected;
    }
    return false;
}

bool isFrom(const char* control, const char* sender) {
    return sender != nullptr && std::strcmp(control, sender) == 0;
}

}  // namespace wiring
