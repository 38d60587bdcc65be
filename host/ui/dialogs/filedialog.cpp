// Asking for a file in a dialog.

#include "host/ui/dialogs/filedialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QSplitter>
#include <QTreeView>

#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/hosttexts.h"
#include "mfc/messagebox.h"

namespace kdhost {
namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// Asks in the host's own message box, so that it speaks its language and is seen by those who watch the boxes.
class NavigationDialog : public QFileDialog {
public:
    NavigationDialog(const FileDialogRequest& request, QWidget* parent) : QFileDialog(parent) {
        setObjectName(QStringLiteral("FileDialog"));
        setOption(QFileDialog::DontUseNativeDialog);
        setOption(QFileDialog::DontConfirmOverwrite);
        setWindowTitle(qt(request.title));
        setAcceptMode(request.forWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        setFileMode(request.forWriting ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
        setNameFilters(filtersFor(request.extension));
        if (!request.extension.empty()) setDefaultSuffix(qt(request.extension));
        // A name to begin with is a proposal for a new file; for an existing one the user has to choose.
        if (request.forWriting && !request.defaultName.empty()) selectFile(qt(request.defaultName));
        giveRoom();
    }

protected:
    void accept() override {
        const QStringList chosen = selectedFiles();
        if (chosen.isEmpty() || mayTake(QFileInfo(chosen.constFirst()))) QFileDialog::accept();
    }

private:
    static QStringList filtersFor(const std::wstring& extension) {
        QStringList filters;
        const QString suffix = qt(extension);
        if (!suffix.isEmpty()) filters << QStringLiteral("%1 (*.%2)").arg(suffix.toUpper(), suffix);
        return filters << hostText(HostText::FileFilterAll);
    }

    /// All columns are seen whole, at any scale.
    void giveRoom() {
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
    bool mayTake(const QFileInfo& file) {
        if (acceptMode() != QFileDialog::AcceptSave || !file.exists() || file.isDir()) return true;
        const std::wstring question = hostText(HostText::FileReplace).arg(file.fileName()).toStdWString();
        const std::wstring title = windowTitle().toStdWString();
        return kdMessageBox(this, question.c_str(), title.c_str(), MB_YESNO | MB_ICONWARNING) == IDYES;
    }
};

}  // namespace

WindowFileDialog::WindowFileDialog() {
    setFileDialog(this);
}

WindowFileDialog::~WindowFileDialog() {
    setFileDialog(nullptr);
}

std::optional<std::wstring> WindowFileDialog::ask(const FileDialogRequest& request) {
    NavigationDialog dialog(request, HostDialog::windowBelow());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst().toStdWString();
}

}  // namespace kdhost
