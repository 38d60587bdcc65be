// Asking for a file: for the editor, and under the framework's name.

#include "host/ui/dialogs/filedialog.h"

#include <QFileInfo>

#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/dialogs/navigationdialog.h"
#include "host/ui/hosttexts.h"
#include "mfc/filedialog.h"
#include "mfc/messagebox.h"

namespace kdhost {
namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

QStringList filtersFor(const QString& extension) {
    QStringList filters;
    if (!extension.isEmpty()) filters << QStringLiteral("%1 (*.%2)").arg(extension.toUpper(), extension);
    return filters << hostText(HostText::FileFilterAll);
}

/// The framework's list of names and patterns, in pairs between bars.
QStringList filtersOf(const std::wstring& list) {
    const QStringList parts = qt(list).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    if (parts.size() == 1) return parts;
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' '));
        filters << QStringLiteral("%1 (%2)").arg(parts[i].section(QStringLiteral(" ("), 0, 0), patterns);
    }
    return filters;
}

}  // namespace

WindowFileDialog::WindowFileDialog() {
    setFileDialog(this);
}

WindowFileDialog::~WindowFileDialog() {
    setFileDialog(nullptr);
}

std::optional<std::wstring> WindowFileDialog::ask(const FileDialogRequest& request) {
    NavigationDialog dialog({.title = qt(request.title),
                             .name = qt(request.defaultName),
                             .extension = qt(request.extension),
                             .filters = filtersFor(qt(request.extension)),
                             .mode = request.forWriting ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen,
                             .mustExist = true},
                            HostDialog::windowBelow());
    const QString path = dialog.ask();
    if (path.isEmpty()) return std::nullopt;
    return path.toStdWString();
}

}  // namespace kdhost

CFileDialog::CFileDialog(bool open, const wchar_t* defaultExtension, const wchar_t* fileName, UINT flags,
                         const wchar_t* filter, CWnd* parent)
    : m_open(open),
      m_flags(flags),
      m_defaultExtension(defaultExtension),
      m_fileName(fileName),
      m_filter(filter),
      m_parent(parent) {}

int CFileDialog::DoModal() {
    using namespace kdhost;
    QStringList filters = filtersOf(m_filter);
    if (filters.isEmpty()) filters << hostText(HostText::FileFilterAll);
    NavigationDialog dialog({.title = {},
                             .name = qt(m_fileName),
                             .extension = qt(m_defaultExtension),
                             .filters = filters,
                             .mode = m_open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave,
                             .mustExist = (m_flags & OFN_FILEMUSTEXIST) != 0},
                            m_parent != nullptr ? m_parent->widget() : HostDialog::windowBelow());
    m_path = dialog.ask().toStdWString();
    // The window below is active again, also where no window manager sees to it.
    if (m_parent != nullptr && m_parent->widget() != nullptr) m_parent->widget()->window()->activateWindow();
    return m_path.IsEmpty() ? IDCANCEL : IDOK;
}

CStdStr<wchar_t> CFileDialog::GetFileExt() const {
    return QFileInfo(QString::fromStdWString(m_path)).suffix().toStdWString();
}
