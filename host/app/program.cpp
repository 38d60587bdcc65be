// A run of the program: arguments, start, modules, script, outputs.

#include "host/app/program.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QTextCodec>
#include <QWidget>
#include <clocale>
#include <iostream>

#include "host/app/dump/dump.h"
#include "host/app/hostcommands.h"
#include "host/app/options.h"
#include "host/app/scriptrunner.h"
#include "host/db/access.h"
#include "host/draw/render.h"
#include "host/ed/variables.h"
#include "host/rx/encoding.h"
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

/// What has to be settled before Qt starts: no display is needed, and nothing is scaled but by the host itself.
void prepareQt(const Options& options) {
    if (options.headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        provideRuntimeFolder();
    }
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
std::string loadModules(Application& application, const Options& options) {
    const std::vector<std::string> standard = {pluginFolder() + "/" + kTableModule};
    for (const std::string& module : options.modules.empty() ? standard : options.modules) {
        const std::wstring error = application.loadModule(fromUtf8(module));
        if (!error.empty()) return "the module can't be loaded: " + toUtf8(error);
    }
    return {};
}

std::string runScript(Application& application, const Options& options) {
    if (options.script.empty()) return {};
    std::string error;
    std::optional<Script> script = Script::load(options.script, error);
    if (!script) return error;
    return ScriptRunner(application, std::move(*script)).run();
}

draw::Options drawingOptions() {
    draw::Options options;
    const auto value = readVariable(*findVariable(L"LWDISPLAY"));
    options.lineWeights = value && std::get<std::int32_t>(*value) == 1;
    return options;
}

std::string writeOutputs(Application& application, const Options& options) {
    Document* document = application.documents().current();
    if (!options.dump.empty()) {
        std::string error = writeDumpFile(options.dump, *document);
        if (!error.empty()) return error;
    }
    if (options.render.empty()) return {};
    return draw::render(*document->database(), options.render, drawingOptions());
}

std::string describeOpenObjects() {
    std::string text;
    for (const OpenObject& object : openObjects()) {
        text += (text.empty() ? "left open: " : ", ") + toUtf8(object.className) + " of " +
                (object.command.empty() ? std::string("no command") : toUtf8(object.command));
    }
    return text;
}

std::string runApplication(const Options& options) {
    QWidget mainWindow;
    Application application;
    application.setMainWindow(&mainWindow);
    registerHostCommands();
    application.documents().openNew();
    for (const auto step : {loadModules, runScript, writeOutputs}) {
        std::string error = step(application, options);
        if (!error.empty()) return error;
    }
    return describeOpenObjects();
}

}  // namespace

int runProgram(int argc, char** argv) {
    const auto [options, error] = parseOptions({argv + 1, argv + argc});
    if (!error.empty()) return complain(kWrongArguments, "kdhost: " + error);
    if (options.help) {
        std::cout << usage();
        return kDone;
    }
    prepareQt(options);
    const QApplication qt(argc, argv);
    settleLocale();
    setPluginFolder(QCoreApplication::applicationDirPath().toStdString() + "/../plugins");
    setLanguage(options.language);
    const std::string failure = runApplication(options);
    return failure.empty() ? kDone : complain(kFailed, failure);
}

}  // namespace kdhost
