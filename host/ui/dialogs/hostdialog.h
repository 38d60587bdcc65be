// The base of the host's own dialogs: content, a row of buttons, and the rule of the Enter key.
#pragma once

#include <QDialog>

#include "host/ui/hosttexts.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace kdhost {

class HostDialog : public QDialog {
public:
    /// Controls are found by their object names, as in the dialogs of modules.
    HostDialog(const char* name, HostText title, QWidget* parent);
    ~HostDialog() override;

    /// Runs the dialog; true when it was closed with OK.
    bool run();

    /// The window that a dialog opened now stands over; null when there is none.
    static QWidget* windowBelow();

protected:
    QVBoxLayout* content() const { return m_content; }
    /// OK and Cancel, "IDOK" and "IDCANCEL", below everything that is in the content then.
    void addButtons();
    QPushButton* addButton(QHBoxLayout* row, const char* name, HostText text);
    /// A label whose mnemonic leads to the control; its text becomes the control's accessible name.
    QLabel* labelFor(QWidget* control, HostText text);
    /// What OK does before the dialog closes; false keeps it open.
    virtual bool commit();
    /// Tells what is wrong and puts the focus there.
    void refuse(HostText message, QWidget* control);

    void keyPressEvent(QKeyEvent* event) override;

private:
    QVBoxLayout* m_content;
    QPushButton* m_ok = nullptr;
};

/// A text without the mark of its mnemonic.
QString withoutMnemonic(const QString& text);

/// Names a control for scripts and, where it has no label, for readers of the screen.
void nameControl(QWidget* control, const char* name, const QString& spoken = {});

}  // namespace kdhost
