// How a dialog's controls reach its handlers: as tables, one row a connection. A dialog builds its tree with
// buildTree in its constructor; its bindSingals hands its tables to connectControls and connectNotifications,
// and its OnListNotify hands one to dispatchListNotification. A row whose control is missing connects nothing.
//
//     void CVqSomeDlg::bindSingals() {
//         static constexpr ControlWire<CVqSomeDlg> kControls[] = {
//             {"IDOK", ControlSignal::Clicked, &CVqSomeDlg::OnOk},
//             {"IDC_SOME_EDIT", ControlSignal::KillFocus, &CVqSomeDlg::OnKillfocusEdit},
//         };
//         static constexpr NotificationWire<CVqSomeDlg> kNotifications[] = {
//             {"IDC_SOME_LIST", NM_RCLICK, &CVqSomeDlg::OnRclickList},
//         };
//         connectControls(*this, kControls);
//         connectNotifications(*this, kNotifications);
//     }
#pragma once

#include <cstddef>
#include <functional>
#include <variant>

#include "kd/ui/basedialog.h"

class QListWidgetItem;

/// Where the module's widget trees lie.
inline constexpr const char* kModuleResources = "TvxTableRes/TvxTableRes";

/// Builds the dialog's widget tree from the resource module and, when that worked, runs the class's bindSingals
/// and then the base's. To be called in the constructor of the class whose bindSingals it is.
bool buildTree(KdUiBaseDialog& dialog, const char* name);

/// What a control tells its dialog.
enum class ControlSignal {
    Clicked,          ///< of buttons
    SelectionChange,  ///< of combo boxes, and of lists in their place
    KillFocus,        ///< of edits, when they are left
    TextChanged,      ///< of edits, at each change
    BoxDropDown,      ///< of the host's combo boxes, before the list drops
};

template <class Dialog>
struct ControlWire {
    const char* control;
    ControlSignal signal;
    void (Dialog::*handler)();
};

/// Handlers of notifications come in three shapes; each notification has one of them.
template <class Dialog>
using NotificationHandler =
    std::variant<void (Dialog::*)(), void (Dialog::*)(NMHDR*, LRESULT*), void (Dialog::*)(QListWidgetItem*)>;

template <class Dialog>
struct NotificationWire {
    const char* control;
    NotifyCode notification;
    NotificationHandler<Dialog> handler;
};

/// A notification that a list brings to OnListNotify.
template <class Dialog>
struct ListNotificationWire {
    const char* control;
    NotifyCode notification;
    void (Dialog::*handler)(NMHDR*, LRESULT*);
};

/// The record of a notification, whose first field the header is.
template <class Notice>
Notice& noticeOf(NMHDR* header) {
    static_assert(offsetof(Notice, hdr) == 0);
    return *reinterpret_cast<Notice*>(header);
}

namespace wiring {

using BoundNotificationHandler =
    std::variant<std::function<void()>, std::function<void(NMHDR*, LRESULT*)>, std::function<void(QListWidgetItem*)>>;

/// False, with nothing connected, when there is no such control or the control doesn't signal this.
bool connectControl(KdUiBaseDialog& dialog, const char* control, ControlSignal signal, std::function<void()> handler);

/// Translates the notification to the signal that carries it. False, with nothing connected, when none does,
/// when the control is of another class than the one that signals it, and for a handler of another shape.
bool connectNotification(KdUiBaseDialog& dialog, const char* control, NotifyCode notification,
                         const BoundNotificationHandler& handler);

bool isFrom(const char* control, const char* sender);

template <class Dialog, class... Arguments>
auto bind(Dialog& dialog, void (Dialog::*handler)(Arguments...)) {
    return std::function<void(Arguments...)>(
        [&dialog, handler](Arguments... arguments) { (dialog.*handler)(arguments...); });
}

}  // namespace wiring

/// Returns the number of rows connected.
template <class Dialog, std::size_t N>
int connectControls(Dialog& dialog, const ControlWire<Dialog> (&wires)[N]) {
    int connected = 0;
    for (const ControlWire<Dialog>& wire : wires) {
        connected += wiring::connectControl(dialog, wire.control, wire.signal, wiring::bind(dialog, wire.handler));
    }
    return connected;
}

/// Returns the number of rows connected.
template <class Dialog, std::size_t N>
int connectNotifications(Dialog& dialog, const NotificationWire<Dialog> (&wires)[N]) {
    int connected = 0;
    for (const NotificationWire<Dialog>& wire : wires) {
        const auto bound =
            std::visit([&](auto handler) -> wiring::BoundNotificationHandler { return wiring::bind(dialog, handler); },
                       wire.handler);
        connected += wiring::connectNotification(dialog, wire.control, wire.notification, bound);
    }
    return connected;
}

/// Calls the handler of the notification that OnListNotify was given. False when no row is for it.
template <class Dialog, std::size_t N>
bool dispatchListNotification(Dialog& dialog, const ListNotificationWire<Dialog> (&wires)[N], const char* control,
                              NMHDR* header, LRESULT* result) {
    for (const ListNotificationWire<Dialog>& wire : wires) {
        if (wire.notification != header->code || !wiring::isFrom(wire.control, control)) continue;
        (dialog.*wire.handler)(header, result);
        return true;
    }
    return false;
}
