// The program as a process: its exit status and what it writes.

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include "tests/support/places.h"

namespace {

class Program : public ::testing::Test {
protected:
    struct Result {
        int status = -1;
        std::string error;
        std::string output;
    };

    /// Without a display, unless a platform is given that has one.
    void start(QProcess& process, const QStringList& arguments, const char* platform = nullptr) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(QString::fromUtf8(name));
        }
        if (platform != nullptr) environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QString::fromUtf8(platform));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.start(kdtest::builtPath("bin/kdhost"), arguments);
    }

    Result run(const QStringList& arguments, const char* platform = nullptr) {
        QProcess process;
        start(process, arguments, platform);
        EXPECT_TRUE(process.waitForFinished(60000)) << "the program hangs";
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                process.readAllStandardError().toStdString(), process.readAllStandardOutput().toStdString()};
    }

    Result headless(const QStringList& arguments) { return run(QStringList(QStringLiteral("--headless")) + arguments); }

    QString write(const char* name, const QByteArray& text) {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return QString::fromUtf8(name);
    }

    QByteArray read(const char* name) {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
};

TEST_F(Program, wrong_arguments_end_with_status_2_and_one_line) {
    for (const QStringList& arguments : {QStringList(), QStringList(QStringLiteral("--nosuch")),
                                         QStringList{QStringLiteral("--headless"), QStringLiteral("--open")}}) {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.error.rfind("kdhost: ", 0), 0u) << result.error;
        EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << result.error;
    }
}

TEST_F(Program, a_drawing_is_opened_before_the_script_and_saved_after_it) {
    const QString script = write("s.kds", "LINE 0,0 10,5 \n");
    const QStringList play{QStringLiteral("--headless"), QStringLiteral("--script"), script};
    EXPECT_EQ(run(play + QStringList{QStringLiteral("--save"), QStringLiteral("one.dxf")}).status, 0);
    EXPECT_EQ(run(play + QStringList{QStringLiteral("--open"), QStringLiteral("one.dxf"), QStringLiteral("--dump"),
                                     QStringLiteral("two.json")})
                  .status,
              0);
    const QByteArray dump = read("two.json");
    EXPECT_EQ(dump.count("\"class\":\"KdDbLine\""), 2);
    const Result missing = run(play + QStringList{QStringLiteral("--open"), QStringLiteral("missing.dxf")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.error, "missing.dxf: there is no such file.\n");
}

TEST_F(Program, without_a_display_needs_something_to_do) {
    EXPECT_EQ(run({}).error, "kdhost: there is no display: start it with --headless\n");
    const QString script = write("s.kds", "LINE 0,0 10,5 \n");
    EXPECT_EQ(run({QStringLiteral("--script"), script, QStringLiteral("--render"), QStringLiteral("p.png")}).status, 0);
    EXPECT_TRUE(QFile::exists(m_folder.filePath(QStringLiteral("p.png"))));
}

TEST_F(Program, with_a_window_ends_with_the_QUIT_of_its_script) {
    const QString script = write("s.kds", "LINE 0,0 10,5 \nQUIT\n");
    const Result result =
        run({QStringLiteral("--script"), script, QStringLiteral("--dump"), QStringLiteral("d.json")}, "offscreen");
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(QJsonDocument::fromJson(read("d.json")).object()[QStringLiteral("entities")].toArray().size(), 1);
}

TEST_F(Program, with_a_window_stays_open_after_script_and_outputs) {
    const QString script = write("s.kds", "LINE 0,0 10,5 \n");
    QProcess process;
    start(process, {QStringLiteral("--script"), script, QStringLiteral("--dump"), QStringLiteral("d.json")},
          "offscreen");
    const QString dump = m_folder.filePath(QStringLiteral("d.json"));
    for (int i = 0; i < 600 && !QFile::exists(dump); ++i) process.waitForFinished(50);
    EXPECT_TRUE(QFile::exists(dump));
    EXPECT_FALSE(process.waitForFinished(300)) << "the window has closed by itself";
    process.kill();
    process.waitForFinished();
}

TEST_F(Program, with_a_window_takes_the_language_that_was_chosen) {
    const QString script = write("s.kds", "LANGUAGE Chinese\nQUIT\n");
    const Result choosing = run({QStringLiteral("--script"), script}, "offscreen");
    EXPECT_NE(choosing.output.find("下次启动时使用中文。"), std::string::npos) << choosing.output;
    const QString asking = write("a.kds", "EDITTABLECELL\n@expect prompt 选择表格：\n@key ESC\nQUIT\n");
    EXPECT_EQ(run({QStringLiteral("--script"), asking}, "offscreen").error, "");
    // Without a window the run is the same for every user.
    EXPECT_NE(headless({QStringLiteral("--script"), asking}).error, "");
}

TEST_F(Program, help_tells_the_arguments) {
    const Result result = run({QStringLiteral("--help")});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find("--script FILE"), std::string::npos);
}

TEST_F(Program, what_can_not_be_read_or_written_ends_with_status_1) {
    EXPECT_EQ(headless({QStringLiteral("--script"), QStringLiteral("missing.kds")}).error,
              "missing.kds: No such file or directory\n");
    EXPECT_EQ(headless({QStringLiteral("--script"), QStringLiteral("missing.kds")}).status, 1);
    EXPECT_EQ(headless({QStringLiteral("--load"), QStringLiteral("missing.tvx")}).status, 1);
    EXPECT_EQ(headless({QStringLiteral("--dump"), QStringLiteral("no/such/dump.json")}).status, 1);
    EXPECT_EQ(headless({QStringLiteral("--render"), QStringLiteral("picture.bmp")}).status, 1);
}

TEST_F(Program, a_failing_script_line_is_told_and_writes_no_outputs) {
    const QString script = write("s.kds", "; two lines\nNOSUCH\n");
    const Result result =
        headless({QStringLiteral("--script"), script, QStringLiteral("--dump"), QStringLiteral("d.json")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "s.kds:2: Unknown command \"NOSUCH\".\n");
    EXPECT_FALSE(QFile::exists(m_folder.filePath(QStringLiteral("d.json"))));
}

TEST_F(Program, a_script_ends_in_a_dump_and_a_picture) {
    const QString script = write("s.kds", "LINE 0,0 10,5 \n");
    const Result result = headless({QStringLiteral("--script"), script, QStringLiteral("--dump"),
                                    QStringLiteral("d.json"), QStringLiteral("--render"), QStringLiteral("图.svg")});
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_EQ(result.error, "");
    const QJsonObject dump = QJsonDocument::fromJson(read("d.json")).object();
    EXPECT_EQ(dump[QStringLiteral("entities")].toArray().size(), 1);
    EXPECT_TRUE(read("图.svg").contains("<svg"));
}

TEST_F(Program, what_is_left_open_at_the_end_is_told_with_status_1) {
    const QString script = write("s.kds", "FORGET\n");
    const QString module = kdtest::builtPath("test_plugins/Forgetful.tvx");
    const Result result = headless({QStringLiteral("--load"), module, QStringLiteral("--script"), script,
                                    QStringLiteral("--dump"), QStringLiteral("d.json")});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.error.find("left open: KdDbLayerTable of FORGET\n"), std::string::npos) << result.error;
    EXPECT_EQ(QJsonDocument::fromJson(read("d.json")).object()[QStringLiteral("open")].toArray().size(), 1);
}

TEST_F(Program, the_table_module_beside_the_program_is_loaded_unless_another_is_named) {
    const QString script = write("s.kds", "-TABLE\n");
    EXPECT_EQ(headless({QStringLiteral("--script"), script}).error, "");
    const QString module = kdtest::builtPath("test_plugins/Forgetful.tvx");
    EXPECT_EQ(headless({QStringLiteral("--load"), module, QStringLiteral("--script"), script}).error,
              "s.kds:1: Unknown command \"-TABLE\".\n");
}

}  // namespace
