// The help: a page of the documents in a window of its own, and the scale of the screen.

#include "host/ui/help.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "host/ui/hostdialog.h"
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

/// Belongs to the window below it, so that it can be read while a dialog is open, and goes with it.
QDialog* helpWindow() {
    QWidget* below = HostDialog::windowBelow();
    const QString name = QStringLiteral("HelpWindow");
    if (below != nullptr) {
        if (auto* open = below->findChild<QDialog*>(name)) return open;
    }
    auto* window = new QDialog(below);
    window->setObjectName(name);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(hostText(HostText::HelpTitle));
    auto* browser = new QTextBrowser(window);
    nameControl(browser, "IDC_HELP_PAGE", hostText(HostText::HelpTitle));
    browser->setOpenExternalLinks(false);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(browser);
    const QFontMetrics metrics = window->fontMetrics();
    window->resize(metrics.averageCharWidth() * 100, metrics.height() * 30);
    return window;
}

/// Links of a page lead to the pages beside it; the browser walks back and forth between them.
void showPage(QTextBrowser& browser, const QString& path) {
    if (path.isEmpty() || !QFileInfo(path).isReadable()) {
        browser.setPlainText(hostText(HostText::HelpMissing));
    } else {
        browser.setSource(QUrl::fromLocalFile(path));
    }
}

}  // namespace

void setHelpFolder(const QString& folder) {
    chosenFolder = folder;
}

QString helpFolder() {
    if (!chosenFolder.isEmpty()) return chosenFolder;
    const QString named = qEnvironmentVariable("KDHOST_DOCS");
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
    QDialog* window = kdhost::helpWindow();
    const QString wanted = QString::fromWCharArray(topic == nullptr ? L"" : topic);
    kdhost::showPage(*window->findChild<QTextBrowser*>(), kdhost::helpPage(wanted));
    window->show();
    window->raise();
    return RTNORM;
}

double kdadGetDPIScale() {
    constexpr double kUnscaledDots = 96.0;
    const QScreen* screen = qApp == nullptr ? nullptr : QGuiApplication::primaryScreen();
    return screen == nullptr ? 1.0 : screen->logicalDotsPerInch() / kUnscaledDots;
}
