// Drawings on disk: what is read and refused, and that an old file is whole until a new one is.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "host/db/access.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"

namespace {

using kdtest::contentOf;

class SavedFiles : public kdtest::DrawingFiles {
protected:
    /// A drawing of that many lines.
    static void draw(KdDbDatabase& database, int lines) {
        for (int line = 0; line < lines; ++line) kdtest::appendLine(database, 1.0 + line);
    }
    void write(const std::string& name, const std::string& bytes) const {
        QFile file(QString::fromStdString(path(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes.data(), qint64(bytes.size())), qint64(bytes.size()));
    }
    std::vector<std::string> filesIn() const {
        std::vector<std::string> names;
        const QDir folder(QString::fromStdString(path("")));
        for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
            names.push_back(name.toStdString());
        }
        return names;
    }
    /// Runs in a process of its own, which ends with the status.
    template <class Run>
    static int inChild(Run run) {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(run());
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(SavedFiles, a_drawing_is_told_by_what_it_holds_and_not_by_its_name) {
    KdDbDatabase database;
    draw(database, 3);
    ASSERT_EQ(database.saveAs(widePath("temporary.DWG").c_str(), false, 33, nullptr), Kdad::eOk);
    KdDbDatabase read(false, true);
    ASSERT_EQ(read.readDwgFile(widePath("temporary.DWG").c_str(), 64, true, nullptr), Kdad::eOk);
    EXPECT_EQ(kdhost::file::drawingBytes(read), kdhost::file::drawingBytes(database));
}

TEST_F(SavedFiles, what_is_no_drawing_is_refused_with_a_status) {
    write("text.dxf", "this is no drawing\n");
    write("empty.dxf", "");
    write("old.dxf",
          "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nENDSEC\n0\n"
          "SECTION\n2\nBLOCKS\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n0\n"
          "ENDSEC\n0\nEOF\n");
    KdDbDatabase read(false, true);
    EXPECT_EQ(read.readDwgFile(nullptr), Kdad::eInvalidInput);
    EXPECT_EQ(read.readDwgFile(L""), Kdad::eInvalidInput);
    EXPECT_EQ(read.readDwgFile(widePath("missing.dxf").c_str()), Kdad::eFileNotFound);
    EXPECT_EQ(read.readDwgFile(widePath("text.dxf/inside").c_str()), Kdad::eFileNotFound);
    EXPECT_EQ(read.readDwgFile(widePath("").c_str()), Kdad::eFileAccessError);
    EXPECT_EQ(read.readDwgFile(widePath("text.dxf").c_str()), Kdad::eFileCorrupt);
    EXPECT_EQ(read.readDwgFile(widePath("empty.dxf").c_str()), Kdad::eFileCorrupt);
    EXPECT_EQ(read.readDwgFile(widePath("old.dxf").c_str()), Kdad::eFileVersion);
    EXPECT_TRUE(read.modelSpaceId().isNull());
}

TEST_F(SavedFiles, a_database_that_holds_something_reads_nothing) {
    KdDbDatabase database;
    draw(database, 1);
    ASSERT_EQ(database.saveAs(widePath("a.dxf").c_str()), Kdad::eOk);
    const std::string before = kdhost::file::drawingBytes(database);
    EXPECT_EQ(database.readDwgFile(widePath("a.dxf").c_str()), Kdad::eInvalidContext);
    EXPECT_EQ(kdhost::file::drawingBytes(database), before);
}

TEST_F(SavedFiles, saving_is_refused_without_a_name_in_other_versions_and_with_nothing_to_save) {
    KdDbDatabase database;
    EXPECT_EQ(database.saveAs(L""), Kdad::eInvalidInput);
    EXPECT_EQ(database.saveAs(nullptr), Kdad::eInvalidInput);
    EXPECT_EQ(database.saveAs(widePath("a.dxf").c_str(), false, 32), Kdad::eNotApplicable);
    EXPECT_EQ(database.saveAs(widePath("a.dxf").c_str(), false, 33, &database), Kdad::eNotApplicable);
    KdDbDatabase empty(false, true);
    EXPECT_EQ(empty.saveAs(widePath("a.dxf").c_str()), Kdad::eNotApplicable);
    EXPECT_EQ(database.saveAs(widePath("no folder/a.dxf").c_str()), Kdad::eFileAccessError);
    EXPECT_TRUE(filesIn().empty());
}

TEST_F(SavedFiles, the_old_file_stays_beside_the_new_one_on_demand) {
    KdDbDatabase database;
    ASSERT_EQ(database.saveAs(widePath("a.dxf").c_str(), true), Kdad::eOk);
    EXPECT_EQ(filesIn(), (std::vector<std::string>{"a.dxf"}));
    const std::string old = contentOf(path("a.dxf"));
    draw(database, 1);
    ASSERT_EQ(database.saveAs(widePath("a.dxf").c_str(), true), Kdad::eOk);
    EXPECT_EQ(filesIn(), (std::vector<std::string>{"a.dxf", "a.dxf.bak"}));
    EXPECT_EQ(contentOf(path("a.dxf.bak")), old);
    EXPECT_NE(contentOf(path("a.dxf")), old);
}

TEST_F(SavedFiles, links_and_rights_of_the_old_file_stay) {
    KdDbDatabase database;
    write("real.dxf", "old");
    ASSERT_EQ(::chmod(path("real.dxf").c_str(), 0640), 0);
    ASSERT_EQ(::symlink("real.dxf", path("link.dxf").c_str()), 0);
    ASSERT_EQ(database.saveAs(widePath("link.dxf").c_str()), Kdad::eOk);
    struct stat about {};
    ASSERT_EQ(::lstat(path("link.dxf").c_str(), &about), 0);
    EXPECT_TRUE(S_ISLNK(about.st_mode));
    ASSERT_EQ(::stat(path("real.dxf").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 0777U, 0640U);
    EXPECT_EQ(contentOf(path("real.dxf")), kdhost::file::drawingBytes(database));
}

TEST_F(SavedFiles, a_disk_that_fills_up_leaves_the_old_file_and_nothing_else) {
    KdDbDatabase database;
    draw(database, 100);
    write("a.dxf", "old");
    const int status = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return database.saveAs(widePath("a.dxf").c_str(), true) == Kdad::eFileAccessError ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(filesIn(), (std::vector<std::string>{"a.dxf"}));
    EXPECT_EQ(contentOf(path("a.dxf")), "old");
}

TEST_F(SavedFiles, what_is_no_plain_file_is_not_replaced) {
    KdDbDatabase database;
    ASSERT_EQ(::mkfifo(path("pipe.dxf").c_str(), 0600), 0);
    ASSERT_EQ(::mkdir(path("folder.dxf").c_str(), 0700), 0);
    ASSERT_EQ(::symlink("pipe.dxf", path("link.dxf").c_str()), 0);
    for (const char* name : {"pipe.dxf", "folder.dxf", "link.dxf"}) {
        EXPECT_EQ(database.saveAs(widePath(name).c_str()), Kdad::eFileAccessError) << name;
        EXPECT_EQ(database.saveAs(widePath(name).c_str(), true), Kdad::eFileAccessError) << name;
    }
    struct stat about {};
    ASSERT_EQ(::stat(path("pipe.dxf").c_str(), &about), 0);
    EXPECT_TRUE(S_ISFIFO(about.st_mode));
    KdDbDatabase read(false, true);
    for (const char* name : {"pipe.dxf", "folder.dxf"}) {
        EXPECT_EQ(read.readDwgFile(widePath(name).c_str()), Kdad::eFileAccessError) << name;
    }
}

TEST_F(SavedFiles, a_folder_that_is_not_to_be_written_keeps_the_old_file) {
    KdDbDatabase database;
    write("a.dxf", "old");
    ASSERT_EQ(::chmod(path("").c_str(), 0555), 0);
    const int status = inChild([&] {
        constexpr uid_t kNobody = 65534;
        if (::geteuid() == 0 && ::setuid(kNobody) != 0) return 2;
        return database.saveAs(widePath("a.dxf").c_str()) == Kdad::eFileAccessError ? 0 : 1;
    });
    ::chmod(path("").c_str(), 0755);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(contentOf(path("a.dxf")), "old");
}

TEST_F(SavedFiles, a_save_that_is_killed_leaves_the_old_file_or_the_new_one) {
    KdDbDatabase database;
    draw(database, 2000);
    ASSERT_EQ(database.saveAs(widePath("a.dxf").c_str()), Kdad::eOk);
    const std::string old = contentOf(path("a.dxf"));
    draw(database, 1);
    const std::string next = kdhost::file::drawingBytes(database);
    std::mt19937 random(17);
    int killed = 0;
    for (int round = 0; round < 30; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) database.saveAs(widePath("a.dxf").c_str());
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 30000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);
        killed += WIFSIGNALED(status) ? 1 : 0;
        const std::string now = contentOf(path("a.dxf"));
        ASSERT_TRUE(now == old || now == next) << "round " << round;
    }
    EXPECT_EQ(killed, 30);
}

}  // namespace
