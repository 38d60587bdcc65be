// The dialog in which a file is looked for, behind all that ask for one.
#pragma once

#include <QFileDialog>

namespace kdhost {

struct NavigationRequest {
    QString title;      ///< empty for the usual one
    QString name;       ///< proposed for a new file
    QString extension;  ///< given to a name without one; without its dot
    QStringList filters;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    bool mustExist = true;  ///< where a file is opened
};

/// Named "FileDialog". Asks in the host's own message box, so that it speaks its language and is seen by those who
/// watch the boxes.
class NavigationDialog : public QFileDialog {
public:
    NavigationDialog(const NavigationRequest& request, QWidget* parent);

    /// Runs the dialog. The path chosen; empty when the user cancels.
    QString ask();

protected:
    void accept() override;

private:
    void giveRoom();
    bool mayTake(const QFileInfo& file);
};

}  // namespace kdhost
