// The program for one run.

#include "tests/endurance/session.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QWidget>
#include <chrono>
#include <memory>

#include "host/ad/application.h"
#include "host/app/hostcommands.h"
#include "host/app/keyinput.h"
#include "host/app/windowfeeder.h"
#include "host/mfc/messagebox.h"
#include "host/rx/encoding.h"
#include "host/ui/dialogs/filedialog.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"
#include "host/ui/recentcolors.h"
#include "host/win32/modules.h"
#include "tests/endurance/checks.h"
#include "tests/endurance/user.h"
#include "tests/support/configfolder.h"
#include "tests/support/places.h"

namespace endurance {
namespace {

using namespace std::chrono_literals;

constexpr const char* languageArgument = "--lang ";

/// The files that scenarios find, in a folder that is the current one while it lives.
class Folder {
public:
    Folder() : m_before(QDir::currentPath()) {
        const QDir inputs(kdtest::sourcePath("tests/scenario/inputs"));
        for (const QString& name : inputs.entryList(QDir::Files)) {
            QFile::copy(inputs.filePath(name), m_folder.filePath(name));
        }
        QDir::setCurrent(m_folder.path());
    }
    ~Folder() { QDir::setCurrent(m_before); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

private:
    QString m_before;
    QTemporaryDir m_folder;
};

class LanguageFor {
public:
    explicit LanguageFor(kdhost::Language language) : m_before(kdhost::language()) { kdhost::setLanguage(language); }
    ~LanguageFor() { kdhost::setLanguage(m_before); }
    LanguageFor(const LanguageFor&) = delete;
    LanguageFor& operator=(const LanguageFor&) = delete;

private:
    kdhost::Language m_before;
};

/// What Qt complained of, but for what a platform without a display can't do.
std::string complaint;

void hear(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support"))) complaint = message.toStdString();
}

class Listening {
public:
    Listening() : m_before(qInstallMessageHandler(hear)) { complaint.clear(); }
    ~Listening() { qInstallMessageHandler(m_before); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

private:
    QtMessageHandler m_before;
};

/// The application with the table's module loaded, as the program starts it.
class Program {
public:
    Program() {
        QGuiApplication::clipboard()->clear();
        kdhost::forgetMessageBoxes();
        kdhost::forgetRecentColors();
        m_application.setMainWindow(&m_mainWindow);
        m_application.applicationInterface().setKeyReceiver(kdhost::takeKeyForDrawing);
        kdhost::registerHostCommands();
        m_application.documents().openNew();
        m_failure = m_application.loadModule(kdhost::fromUtf8(kdhost::pluginFolder() + "/TvxTable.tvx"));
    }
    ~Program() { kdhost::unregisterHostCommands(); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    kdhost::Application& application() { return m_application; }
    kdhost::WindowFeeder& windows() { return m_windows; }
    std::string failure() const { return kdhost::toUtf8(m_failure); }

private:
    kdhost::WindowFeeder m_windows{10s};
    kdhost::WindowFileDialog m_fileDialog;
    kdhost::InstalledInPlaceEditor m_editor = kdhost::installInPlaceEditor();
    QWidget m_mainWindow;  // hidden
    kdhost::Application m_application;
    std::wstring m_failure;
};

}  // namespace

namespace {

/// What all runs share: `drive` says how the user is driven.
template <class Drive>
Outcome runIn(bool isChinese, std::uint64_t seed, Drive drive) {
    const kdtest::ConfigFolder settings;
    const Folder folder;
    const Listening listening;
    const LanguageFor language(isChinese ? kdhost::Language::Chinese : kdhost::Language::English);
    Program program;
    Outcome outcome;
    outcome.failure = program.failure();
    if (!outcome.failure.empty()) return outcome;

    Journal journal(std::string(languageArgument) + (isChinese ? "zh_CN" : "en"));
    RandomUser user(program.application(), program.windows(), journal, seed);
    outcome.failure = drive(user);
    if (outcome.failure.empty() && !complaint.empty()) outcome.failure = "Qt complains: " + complaint;
    if (!outcome.failure.empty()) {
        outcome.failure +=
            "\nafter " + std::to_string(user.actionsDone()) + " actions; the last lines were\n" + journal.tail(25);
    }
    outcome.journal = journal.text();
    outcome.dump = dumpOf(*program.application().documents().current());
    outcome.actions = user.actionsDone();
    outcome.counts = user.counts();
    return outcome;
}

}  // namespace

Outcome runSession(std::uint64_t seed, int actions) {
    return runIn(seed % 2 == 1, seed, [&](RandomUser& user) { return user.run(actions); });
}

namespace {

bool isInChinese(const std::string& journal) {
    return journal.find(std::string(languageArgument) + "zh_CN") != std::string::npos;
}

}  // namespace

Outcome replay(const std::string& journal) {
    return runIn(isInChinese(journal), 0, [&](RandomUser& user) {
        user.play(journal);
        return user.run(0);
    });
}

std::string dumpOfProgram(const std::string& journal) {
    const kdtest::ConfigFolder settings;
    const Folder folder;
    QFile script(folder.file("journal.kds"));
    if (!script.open(QIODevice::WriteOnly)) return {};
    script.write(QByteArray::fromStdString(journal));
    script.close();
    QFile dump(folder.file("dump.json"));
    QProcess program;
    program.start(kdtest::builtPath("bin/kdhost"),
                  {QStringLiteral("--headless"), QStringLiteral("--lang"),
                   isInChinese(journal) ? QStringLiteral("zh_CN") : QStringLiteral("en"), QStringLiteral("--script"),
                   script.fileName(), QStringLiteral("--dump"), dump.fileName()});
    if (!program.waitForFinished(60000) || program.exitCode() != 0 || !dump.open(QIODevice::ReadOnly)) return {};
    return dump.readAll().toStdString();
}

}  // namespace endurance
