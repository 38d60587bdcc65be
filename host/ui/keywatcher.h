// Shows key presses to the dialogs that a control stands in, before the control gets them.
#pragma once

#include <QObject>
#include <QPointer>

namespace kdhost {

/// Watches the whole application while dialogs exist, so that controls made at any time are seen too. A key
/// goes to the nearest dialog first, then to those around it within the window; the first that takes it
/// ends its way. A key that its control leaves to its parent is shown once only.
class KeyWatcher : public QObject {
public:
    /// Each dialog attaches once and detaches at its end; the watcher lives as long as one is attached.
    static void attach();
    static void detach();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isPassedOn(const QWidget& watched, const QEvent& event) const;

    /// The press shown last and the widget that it was meant for.
    const QEvent* m_press = nullptr;
    QPointer<QWidget> m_receiver;
};

}  // namespace kdhost
