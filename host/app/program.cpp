// A run of the program: arguments, start, modules, script, outputs.

#include "host/app/program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QTextCodec>
#include <QWidget>
#include <chrono>
#include <clocale>
#include <iostream>

#include "host/app/commands/filecommands.h"
#include "host/app/dump/dump.h"
#include "host/app/hostcommands.h"
#include "host/app/keyinput.h"
#include "host/app/options.h"
#include "host/app/scriptrunner.h"
#include "host/app/usersettings.h"
#include "host/app/window/mainwindow.h"
#include "host/app/window/windowsession.h"
#include "host/app/windowfeeder.h"
#include "host/db/access.h"
#include "host/draw/render.h"
#include "host/ed/drawingoptions.h"
#include "host/file/drawingfile.h"
#include "host/rx/encoding.h"
#include "host/ui/dialogs/filedialog.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"
#include "host/win32/modules.h"

namespace kdhost {
namespace {

enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongArguments = 2 };

constexpr const char* kTableModule = "TvxTable.tvx";

int complain(ExitStatus status, const std::string& message) {
    std::cerr << message << std::endl;
    return status;
}

/// Machines without a login session have no runtime folder, which Qt would complain about in each run.
void provideRuntimeFolder() {
    if (qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) return;
    const QByteArray folder = QDir::temp().filePath(QStringLiteral("kdhost-runtime-%1").arg(::getuid())).toUtf8();
    ::mkdir(folder.constData(), S_IRWXU);
    qputenv("XDG_RUNTIME_DIR", folder);
}

QtMessageHandler qtsOwnHandler = nullptr;

/// A platform without a display complains of each window that it can't raise or give a least size to.
void dropComplaintsOfPlatform(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support"))) qtsOwnHandler(type, context, message);
}

bool hasDisplay() {
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

/// Whether the run has an end without a person.
bool hasWork(const Options& options) {
    return !options.script.empty() || !options.dump.empty() || !options.render.empty() || !options.save.empty();
}

/// A run without a window is the same for every user.
Language languageOf(const Options& options) {
    if (options.language) return *options.language;
    return options.headless ? Language::English : storedLanguage().value_or(Language::English);
}

/// What has to be settled before Qt starts: no display is needed, and nothing is scaled but by the host itself.
void prepareQt(const Options& options) {
    provideRuntimeFolder();
    if (options.headless) qputenv("QT_QPA_PLATFORM", "offscreen");
    qtsOwnHandler = qInstallMessageHandler(dropComplaintsOfPlatform);
    for (const char* name : {"QT_SCALE_FACTOR", "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS"}) {
        qunsetenv(name);
    }
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling);
}

/// Qt takes over the user's locale when it starts; numbers, characters and file names are the same everywhere.
void settleLocale() {
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

/// Empty on success, else what is wrong.
std::string loadModules(Application& application, const Options& options, WindowFeeder&) {
    const std::vector<std::string> standard = {pluginFolder() + "/" + kTableModule};
    for (const std::string& module : options.modules.empty() ? standard : options.modules) {
        const std::wstring error = application.loadModule(fromUtf8(module));
        if (!error.empty()) return "the module can't be loaded: " + toUtf8(error);
    }
    return {};
}

std::string runScript(Application& application, const Options& options, WindowFeeder& windows) {
    if (options.script.empty()) return {};
    std::string error;
    std::optional<Script> script = Script::load(options.script, error);
    if (!script) return error;
    return ScriptRunner(application, std::move(*script), windows).run();
}

std::string writeOutputs(Application& application, const Options& options, WindowFeeder&) {
    Document* document = application.documents().current();
    if (!options.dump.empty()) {
        std::string error = writeDumpFile(options.dump, *document);
        if (!error.empty()) return error;
    }
    if (!options.render.empty()) {
        std::string error = draw::render(*document->database(), options.render, drawingOptions());
        if (!error.empty()) return error;
    }
    return options.save.empty() ? std::string() : saveFile(*document, options.save);
}

/// The drawing that the run begins with: a new one, unless a file is asked for and can be read.
std::string openFirst(Application& application, const Options& options) {
    std::string error;
    if (!options.open.empty()) error = openFile(application.documents(), options.open);
    if (application.documents().documentCount() == 0) application.documents().openNew();
    return error;
}

std::string describeOpenObjects() {
    std::string text;
    for (const OpenObject& object : openObjects()) {
        text += (text.empty() ? "left open: " : ", ") + toUtf8(object.className) + " of " +
                (object.command.empty() ? std::string("no command") : toUtf8(object.command));
    }
    return text;
}

/// How long a window that no line answers is waited for; on a screen a person may answer it. The environment
/// shortens it for tests.
std::optional<std::chrono::milliseconds> patience(const Options& options) {
    if (!options.headless) return std::nullopt;
    bool isSet = false;
    const int milliseconds = qEnvironmentVariableIntValue("KDHOST_IDLE_MILLISECONDS", &isSet);
    return isSet ? std::chrono::milliseconds(milliseconds) : std::chrono::seconds(10);
}

/// Whether the drawing is written at the end of the session: the person at the window draws what no script does.
bool personDraws(const Options& options) {
    return !options.headless && options.script.empty();
}

/// Empty on success, else what the first step that failed says.
std::string runSteps(Application& application, const Options& options, WindowFeeder& windows) {
    const auto writeNow = personDraws(options) ? nullptr : &writeOutputs;
    for (const auto step : {loadModules, runScript, writeNow}) {
        if (step == nullptr) continue;
        std::string error = step(application, options, windows);
        if (!error.empty()) return error;
        if (!windows.failure().empty()) return windows.failure();
    }
    return describeOpenObjects();
}

/// The window stays, whatever the steps before have come to: a person reads there what was wrong.
void runSession(WindowSession& session, Application& application, const Options& options, WindowFeeder& windows,
                std::string& failure) {
    if (!failure.empty()) commandLine().fail(fromUtf8(failure));
    session.run();
    if (failure.empty() && personDraws(options)) failure = writeOutputs(application, options, windows);
    if (failure.empty()) failure = describeOpenObjects();
}

std::string runApplication(const Options& options) {
    WindowFeeder windows(patience(options));
    const WindowFileDialog fileDialog;
    const InstalledInPlaceEditor inPlaceEditor = installInPlaceEditor();
    std::string failure;
    {
        const std::unique_ptr<QWidget> hidden = options.headless ? std::make_unique<QWidget>() : nullptr;
        const std::unique_ptr<MainWindow> window = options.headless ? nullptr : std::make_unique<MainWindow>();
        Application application;
        application.setMainWindow(window == nullptr ? hidden.get() : window.get());
        application.applicationInterface().setKeyReceiver(takeKeyForDrawing);
        registerHostCommands();
        std::optional<WindowSession> session;
        if (window != nullptr) session.emplace(application, *window);
        failure = openFirst(application, options);
        // A person goes on in the window with the modules at hand.
        const std::string later =
            failure.empty() ? runSteps(application, options, windows) : loadModules(application, options, windows);
        if (failure.empty()) failure = later;
        if (session) runSession(*session, application, options, windows, failure);
    }
    // Modules may have asked something in their last message.
    return failure.empty() ? windows.failure() : failure;
}

}  // namespace

int runProgram(int argc, char** argv) {
    auto [options, error] = parseOptions({argv + 1, argv + argc});
    if (!error.empty()) return complain(kWrongArguments, "kdhost: " + error);
    if (options.help) {
        std::cout << usage();
        return kDone;
    }
    if (!options.headless && !hasDisplay()) {
        if (!hasWork(options))
            return complain(kWrongArguments, "kdhost: there is no display: start it with --headless");
        options.headless = true;
    }
    prepareQt(options);
    const QApplication qt(argc, argv);
    settleLocale();
    setPluginFolder(QCoreApplication::applicationDirPath().toStdString() + "/../plugins");
    setLanguage(languageOf(options));
    file::saveOptions().insertsTables = options.insertTables;
    const std::string failure = runApplication(options);
    return failure.empty() ? kDone : complain(kFailed, failure);
}

}  // namespace kdhost
