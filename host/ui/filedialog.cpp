// Asking for a file in a dialog.

#include "host/ui/filedialog.h"

#include <QFileDialog>

#include "host/ui/hostdialog.h"
#include "host/ui/hosttexts.h"

namespace kdhost {
namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

void setUp(QFileDialog& dialog, const FileDialogRequest& request) {
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(qt(request.title));
    dialog.setAcceptMode(request.forWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.forWriting ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    QStringList filters;
    if (!request.extension.empty()) {
        const QString extension = qt(request.extension);
        filters << QStringLiteral("%1 (*.%2)").arg(extension.toUpper(), extension);
        dialog.setDefaultSuffix(extension);
    }
    filters << hostText(HostText::FileFilterAll);
    dialog.setNameFilters(filters);
    // A name to begin with is a proposal for a new file; for an existing one the user has to choose.
    if (request.forWriting && !request.defaultName.empty()) dialog.selectFile(qt(request.defaultName));
}

}  // namespace

WindowFileDialog::WindowFileDialog() {
    setFileDialog(this);
}

WindowFileDialog::~WindowFileDialog() {
    setFileDialog(nullptr);
}

std::optional<std::wstring> WindowFileDialog::ask(const FileDialogRequest& request) {
    QFileDialog dialog(HostDialog::windowBelow());
    setUp(dialog, request);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().constFirst().toStdWString();
}

}  // namespace kdhost
