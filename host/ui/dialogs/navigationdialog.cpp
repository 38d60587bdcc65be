// Looking for a file.

#include "host/ui/dialogs/navigationdialog.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>

#include "host/ui/hosttexts.h"
#include "mfc/messagebox.h"

namespace kdhost {

NavigationDialog::NavigationDialog(const NavigationRequest& request, QWidget* parent) : QFileDialog(parent) {
    const bool forWriting = request.mode == QFileDialog::AcceptSave;
    setObjectName(QStringLiteral("FileDialog"));
    setOption(QFileDialog::DontUseNativeDialog);
    setOption(QFileDialog::DontConfirmOverwrite);
    if (!request.title.isEmpty()) setWindowTitle(request.title);
    setAcceptMode(request.mode);
    setFileMode(forWriting || !request.mustExist ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    setNameFilters(request.filters);
    if (!request.extension.isEmpty()) setDefaultSuffix(request.extension);
    // A name to begin with is a proposal for a new file; for an existing one the user has to choose.
    if (forWriting && !request.name.isEmpty()) selectFile(request.name);
    giveRoom();
}

QString NavigationDialog::ask() {
    if (exec() != QDialog::Accepted || selectedFiles().isEmpty()) return {};
    return selectedFiles().constFirst();
}

void NavigationDialog::accept() {
    const QStringList chosen = selectedFiles();
    if (chosen.isEmpty() || mayTake(QFileInfo(chosen.constFirst()))) QFileDialog::accept();
}

/// All columns are seen whole, at any scale.
void NavigationDialog::giveRoom() {
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 28);
    if (auto* parts = findChild<QSplitter*>(QStringLiteral("splitter"))) {
        const int places = fontMetrics().averageCharWidth() * 22;
        parts->setSizes({places, width() - places});
    }
    auto* details = findChild<QTreeView*>(QStringLiteral("treeView"));
    if (details == nullptr) return;
    details->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    details->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    details->header()->setStretchLastSection(false);
}

/// A file that would be replaced is asked about; a folder is gone into.
bool NavigationDialog::mayTake(const QFileInfo& file) {
    if (acceptMode() != QFileDialog::AcceptSave || !file.exists() || file.isDir()) return true;
    const std::wstring question = hostText(HostText::FileReplace).arg(file.fileName()).toStdWString();
    const std::wstring title = windowTitle().toStdWString();
    return kdMessageBox(this, question.c_str(), title.c_str(), MB_YESNO | MB_ICONWARNING) == IDYES;
}

}  // namespace kdhost
