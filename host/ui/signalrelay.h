// Carries a signal that is known by its name to a function.
#pragma once

#include <QObject>
#include <functional>

#include "mfc/notify.h"

namespace kdhost {

/// Lives as a child of the dialog that it serves.
class SignalRelay : public QObject {
    Q_OBJECT
public:
    SignalRelay(QObject* parent, std::function<void()> handler) : QObject(parent), m_plain(std::move(handler)) {}
    SignalRelay(QObject* parent, std::function<void(NMHDR*, LRESULT*)> handler)
        : QObject(parent), m_notify(std::move(handler)) {}

public slots:
    void fire() { m_plain(); }
    void notify(NMHDR* header, LRESULT* result) { m_notify(header, result); }

private:
    std::function<void()> m_plain;
    std::function<void(NMHDR*, LRESULT*)> m_notify;
};

}  // namespace kdhost
