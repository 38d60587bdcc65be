// Runs of acts, and looks at what they leave.

#include "tests/faults/session.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <chrono>
#include <iostream>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/app/hostcommands.h"
#include "host/app/keyinput.h"
#include "host/app/scriptrunner.h"
#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/commands.h"
#include "host/rx/encoding.h"
#include "host/rx/faults.h"
#include "host/ui/automation/automation.h"
#include "host/ui/recentcolors.h"
#include "mfc/resource.h"

namespace kdtest {

const std::vector<FaultKind> kFaultKinds = {
    {"opening", [](int number) { kdhost::faults().failOpenNumber = number; },
     [] { return kdhost::faults().failOpenNumber; }},
    {"field", [](int number) { kdhost::faults().failFieldNumber = number; },
     [] { return kdhost::faults().failFieldNumber; }},
    {"clipboard", [](int number) { kdhost::faults().failClipboardNumber = number; },
     [] { return kdhost::faults().failClipboardNumber; }},
    {"file", FileFaults::arm, FileFaults::left},
};

const char* const kTables = "TABLEIMPORT\nschedule.csv\n0,200\nTABLEIMPORT\nschedule.csv\n400,200\n";

namespace {

constexpr const char* kSchedule = "No,Width,Height,Room\n1,10,,Hall\n2,20,,Kitchen\n3,30,,Study\n4,80,200,Bath\n";

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(content), content.size());
}

/// Without the lines of what is no part of the drawing, and without the selections of cells.
std::string drawingOf(const std::string& dump) {
    static const std::vector<std::string> others = {"\"toolbar\":", "\"undoSteps\":", "\"open\":"};
    std::istringstream lines(dump);
    std::string drawing;
    for (std::string line; std::getline(lines, line);) {
        const bool isOther = std::any_of(others.begin(), others.end(),
                                         [&](const std::string& start) { return line.rfind(start, 0) == 0; });
        if (!isOther) drawing += line + "\n";
    }
    for (std::size_t at = 0; (at = drawing.find("\"selection\":[", at)) != drawing.npos;) {
        const std::size_t from = at + 12;
        drawing.replace(from, drawing.find(']', from) - from + 1, "null");
        at = from;
    }
    return drawing;
}

void eraseBetween(std::string& text, const std::string& begin, char end) {
    for (std::size_t at = 0; (at = text.find(begin, at)) != text.npos;) {
        at += begin.size();
        text.erase(at, text.find(end, at) - at);
    }
}

/// Handles, and the numbers of tables that formulas read.
std::string withoutHandles(std::string drawing) {
    eraseBetween(drawing, "\"handle\":\"", '"');
    eraseBetween(drawing, "Table(", ')');
    return drawing;
}

std::string clipboardLook() {
    const QMimeData* held = QGuiApplication::clipboard()->mimeData();
    QStringList formats = held == nullptr ? QStringList() : held->formats();
    formats.sort();
    return (formats.join(QLatin1Char('\n')) + (held == nullptr ? QString() : held->text())).toStdString();
}

/// What commands write, and what the platform complains of, is no result of tests.
class Silence {
public:
    Silence()
        : m_shown(std::cout.rdbuf(m_written.rdbuf())),
          m_handler(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}
    ~Silence() {
        std::cout.rdbuf(m_shown);
        qInstallMessageHandler(m_handler);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    std::ostringstream m_written;
    std::streambuf* m_shown;
    QtMessageHandler m_handler;
};

}  // namespace

Session::TemporaryFolder::TemporaryFolder(const QString& path) : m_before(qgetenv("TMPDIR")) {
    const QString folder = path + QStringLiteral("/tmp");
    EXPECT_TRUE(QDir().mkpath(folder));
    qputenv("TMPDIR", QFile::encodeName(folder));
}

Session::TemporaryFolder::~TemporaryFolder() {
    qputenv("TMPDIR", m_before);
}

Session::Session() : m_cameFrom(QDir::currentPath().toStdString()) {
    EXPECT_TRUE(QDir::setCurrent(m_folder.path()));
    m_files = std::make_unique<FileFaults>(QDir(m_folder.path()).canonicalPath().toStdString());
    m_application = std::make_unique<kdhost::Application>();
    m_application->setMainWindow(&m_mainWindow);
    m_application->applicationInterface().setKeyReceiver(kdhost::takeKeyForDrawing);
    kdhost::registerHostCommands();
    m_application->documents().openNew();
    EXPECT_EQ(m_application->loadModule(L"TvxTable.tvx"), L"");
    m_commands = std::make_unique<OwnCommands>();
}

Session::~Session() {
    m_commands.reset();
    m_application.reset();
    kdhost::unregisterHostCommands();
    kdhost::takeLeftOpen();
    kdhost::forgetRecentColors();
    QGuiApplication::clipboard()->clear();
    QDir::setCurrent(QString::fromStdString(m_cameFrom));
}

void Session::clearFiles() const {
    QDir folder(m_folder.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) folder.remove(name);
    QDir(m_config.hostFolder()).removeRecursively();
    write(folder.filePath(QStringLiteral("schedule.csv")), kSchedule);
    write(folder.filePath(QStringLiteral("old.csv")), "old\n");
}

void Session::begin(const Scenario& scenario) {
    clearFiles();
    kdhost::forgetRecentColors();
    QGuiApplication::clipboard()->clear();
    kdhost::commandLine().clear();
    kdhost::DocumentManager& documents = m_application->documents();
    kdhost::Document& fresh = documents.openNew();
    for (int i = documents.documentCount() - 1; i >= 0; --i) {
        if (documents.at(i) != &fresh) documents.close(*documents.at(i));
    }
    kdhost::takeLeftOpen();
    kdhost::takeDisciplineBreaches();
    EXPECT_EQ(run(scenario.setUp).failure, "") << "setting up " << scenario.name;
}

Ending Session::run(const std::string& lines) {
    Ending ending;
    const Silence silence;
    kdhost::WindowFeeder windows{std::chrono::milliseconds(50)};
    ending.failure = kdhost::ScriptRunner(*m_application, kdhost::Script("act", lines), windows).run();
    ending.message = kdhost::commandLine().lastMessage();
    return ending;
}

Ending Session::run(const std::string& lines, const FaultKind& kind, int number) {
    kind.arm(number);
    Ending ending = run(lines);
    ending.struck = kind.left() == 0;
    kind.arm(0);
    return ending;
}

int Session::count(const std::string& lines, const FaultKind& kind) {
    constexpr int far = 10000000;
    kind.arm(far);
    EXPECT_EQ(run(lines).failure, "");
    const int left = kind.left();
    kind.arm(0);
    return far - left;
}

Look Session::look() {
    Look look;
    kdhost::DocumentManager& documents = m_application->documents();
    for (int i = 0; i < documents.documentCount(); ++i) {
        std::ostringstream dump;
        kdhost::writeDump(dump, *documents.at(i));
        look.drawing += drawingOf(dump.str());
    }
    look.unnamed = withoutHandles(look.drawing);
    look.steps = kdhost::undoHistory(*document().database())->undoSteps().size();
    const QDir folder(m_folder.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        look.files[name.toStdString()] = file.readAll().toStdString();
    }
    look.clipboard = clipboardLook();
    return look;
}

void Session::restoreFiles(const Look& look) const {
    const QDir folder(m_folder.path());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        if (look.files.count(name.toStdString()) == 0) QFile::remove(folder.filePath(name));
    }
    for (const auto& [name, content] : look.files) {
        write(folder.filePath(QString::fromStdString(name)), QByteArray::fromStdString(content));
    }
}

std::string Session::damagedFiles(const Look& look) {
    std::string damaged;
    for (const auto& [name, content] : look.files) {
        if (!QString::fromStdString(name).endsWith(QLatin1String(".dxf"))) continue;
        KdDbDatabase database(false, true);
        if (database.readDwgFile(kdhost::fromUtf8(name).c_str(), 0, false, nullptr) != Kdad::eOk)
            damaged += name + "\n";
    }
    return damaged;
}

std::string Session::disorder() {
    std::string found;
    const auto note = [&](const std::string& what) { found += what + "\n"; };
    if (const std::wstring running = kdhost::runningCommandNames(); !running.empty())
        note("still running: " + kdhost::toUtf8(running));
    for (const kdhost::OpenObject& object : kdhost::openObjects())
        note("left open: " + kdhost::toUtf8(object.className) + " by " + kdhost::toUtf8(object.command));
    kdhost::takeLeftOpen();
    for (const std::wstring& breach : kdhost::takeDisciplineBreaches()) note("breach: " + kdhost::toUtf8(breach));
    const auto history = kdhost::undoHistory(*document().database());
    if (history->transactionCount() != 0) note("a transaction is left open");
    if (AfxGetResourceHandle() != nullptr) note("the resource handle is not put back");
    if (kdhost::automation::isBlocked())
        note("left on the screen: " + kdhost::toUtf8(kdhost::automation::topWindowName()));
    if (!document().editor().input().isEmpty()) note("input is left in the queue");
    return found;
}

}  // namespace kdtest
