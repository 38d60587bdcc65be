// The help: a page of the documents in a window of its own, and the scale of the screen.

#include "host/ui/help.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "host/ui/hostdialog.h"
#include "host/ui/hosttexts.h"
#include "kd/ed/prompts.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

QString chosenFolder;

/// Pages in the folder and those below it, in the order of their names.
QStringList pages() {
    QStringList found;
    const QString folder = helpFolder();
    if (folder.isEmpty()) return found;
    QDirIterator walk(folder, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext()) found << walk.next();
    found.sort(Qt::CaseInsensitive);
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

void showPage(QTextBrowser& browser, const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        browser.setPlainText(hostText(HostText::HelpMissing));
        return;
    }
    browser.setSearchPaths({QFileInfo(path).absolutePath()});
    browser.setMarkdown(QString::fromUtf8(file.readAll()));
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
