// The root of a dialog's widget tree.
//
// The file calls it a dialog; here it stands inside one, which takes its content over. What a file connects to its
// dialog ("accept()", "reject()") ends at the root, and goes on to the dialog from there.
#pragma once

#include <QDialog>

namespace kdhost {

class TreeRoot : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;

    /// The file connects something to its dialog.
    void setConnected(bool connected) { m_connected = connected; }
    bool isConnected() const { return m_connected; }

public slots:
    void accept() {
        if (auto* dialog = qobject_cast<QDialog*>(parentWidget())) dialog->accept();
    }
    void reject() {
        if (auto* dialog = qobject_cast<QDialog*>(parentWidget())) dialog->reject();
    }

private:
    bool m_connected = false;
};

}  // namespace kdhost
