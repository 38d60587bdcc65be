// The help: a page of the documents in a window of its own.

#include "host/ui/help.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/hosttexts.h"
#include "host/win32/modules.h"
#include "kd/ed/prompts.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

QString chosenFolder;

/// Folders of pages that are written in one language, in the order of Language.
constexpr std::array kLanguageFolders = {"en", "zh_CN"};

/// 0 for a page in the host's language, 2 for one in another, 1 for one that stands in the folder of none.
int rankOf(const QString& page) {
    const QString folder = QFileInfo(page).dir().dirName();
    for (std::size_t each = 0; each < kLanguageFolders.size(); ++each) {
        if (folder != QLatin1String(kLanguageFolders[each])) continue;
        return each == static_cast<std::size_t>(language()) ? 0 : 2;
    }
    return 1;
}

/// Pages in the folder and those below it: those in the host's language first, and in the order of their names.
QStringList pages() {
    QStringList found;
    const QString folder = helpFolder();
    if (folder.isEmpty()) return found;
    QDirIterator walk(folder, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) found << walk.next();
    std::sort(found.begin(), found.end(), [](const QString& a, const QString& b) {
        const int byRank = rankOf(a) - rankOf(b);
        return byRank != 0 ? byRank < 0 : a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return found;
}

QString pageNamed(const QStringList& pages, const QString& name) {
    for (const QString& page : pages) {
        if (QFileInfo(page).completeBaseName().compare(name, Qt::CaseInsensitive) == 0) return page;
    }
    return {};
}

/// The pages, and the way back. It belongs to the window below it, so that it can be read while a dialog is open, and
/// goes with it.
class HelpWindow : public HostDialog {
public:
    explicit HelpWindow(QWidget* below) : HostDialog(kName, HostText::HelpTitle, below) {
        setAttribute(Qt::WA_DeleteOnClose);
        m_browser = new QTextBrowser(this);
        nameControl(m_browser, "IDC_HELP_PAGE", hostText(HostText::HelpTitle));
        m_browser->setOpenExternalLinks(false);
        m_browser->document()->setDocumentMargin(fontMetrics().height());
        content()->addWidget(m_browser);
        addWays();
        connect(m_browser, &QTextBrowser::sourceChanged, this, [this] { spaceTables(); });
        resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 34);
        m_browser->setFocus();
    }

    void show(const QString& page) {
        if (page.isEmpty() || !QFileInfo(page).isReadable()) {
            m_browser->setPlainText(hostText(HostText::HelpMissing));
        } else {
            m_browser->setSource(QUrl::fromLocalFile(page));
        }
        QDialog::show();
        raise();
        activateWindow();
    }

    static constexpr const char* kName = "HelpWindow";

private:
    void addWays() {
        auto* row = new QHBoxLayout;
        QPushButton* back = addButton(row, "IDC_HELP_BACK_BUTTON", HostText::HelpBack);
        back->setEnabled(false);
        connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
        connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
        QPushButton* contents = addButton(row, "IDC_HELP_CONTENTS_BUTTON", HostText::HelpContents);
        connect(contents, &QPushButton::clicked, this, [this] { show(helpPage({})); });
        row->addStretch();
        QPushButton* close = addButton(row, "IDCANCEL", HostText::HelpClose);
        close->setDefault(true);
        connect(close, &QPushButton::clicked, this, &QWidget::close);
        content()->addLayout(row);
    }

    /// Tables of a page come without any space in their cells.
    void spaceTables() {
        for (QTextFrame* frame : m_browser->document()->rootFrame()->childFrames()) {
            auto* table = qobject_cast<QTextTable*>(frame);
            if (table == nullptr) continue;
            QTextTableFormat format = table->format();
            format.setCellPadding(fontMetrics().height() / 4.0);
            format.setCellSpacing(0);
            format.setBorderCollapse(true);
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBorderBrush(palette().mid());
            format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
            // Fields and what they do stand in line from table to table.
            if (table->columns() == 2) {
                format.setColumnWidthConstraints(
                    {QTextLength(QTextLength::PercentageLength, 28), QTextLength(QTextLength::PercentageLength, 72)});
            }
            table->setFormat(format);
        }
    }

    QTextBrowser* m_browser = nullptr;
};

/// The open one is used again, with its way back.
HelpWindow& helpWindow() {
    QWidget* below = HostDialog::windowBelow();
    for (QWidget* window = below; window != nullptr; window = window->parentWidget()) {
        if (auto* open = dynamic_cast<HelpWindow*>(window)) return *open;
        auto* open = dynamic_cast<HelpWindow*>(window->findChild<QWidget*>(QString::fromLatin1(HelpWindow::kName)));
        if (open != nullptr && open->isVisible()) return *open;
    }
    return *new HelpWindow(below);  // deleted when it closes
}

}  // namespace

void setHelpFolder(const QString& folder) {
    chosenFolder = folder;
}

QString helpFolder() {
    if (!chosenFolder.isEmpty()) return chosenFolder;
    QString named = qEnvironmentVariable("KDHOST_DOCS");
    if (!named.isEmpty()) return named;
    for (QDir folder(QCoreApplication::applicationDirPath());;) {
        if (folder.exists(QStringLiteral("docs"))) return folder.filePath(QStringLiteral("docs"));
        if (folder.isRoot() || !folder.cdUp()) return {};
    }
}

QString helpPage(const QString& topic) {
    const QStringList all = pages();
    QString page = topic.isEmpty() ? QString() : pageNamed(all, topic);
    if (page.isEmpty()) page = pageNamed(all, QStringLiteral("index"));
    return page.isEmpty() && !all.isEmpty() ? all.first() : page;
}

}  // namespace kdhost

int kdedHelp(const wchar_t*, const wchar_t* topic, int) {
    const QString wanted = QString::fromWCharArray(topic == nullptr ? L"" : topic);
    kdhost::helpWindow().show(kdhost::helpPage(wanted));
    return RTNORM;
}
