// What the host as an application offers beside the working drawing.

#include <gtest/gtest.h>

#include <QDir>
#include <array>

#include "kd/db/database.h"
#include "tests/support/application.h"

namespace {

class HostServices : public kdtest::ApplicationTest {};

TEST_F(HostServices, The_temporary_folder_is_the_systems) {
    std::array<wchar_t, 1024> folder{};
    ASSERT_TRUE(kddbHostApplicationServices()->getTempFolder(folder.data(), static_cast<int>(folder.size())));
    EXPECT_EQ(std::wstring(folder.data()), QDir::tempPath().toStdWString());
    EXPECT_TRUE(QDir(QString::fromWCharArray(folder.data())).exists());
}

TEST_F(HostServices, A_temporary_folder_that_does_not_fit_is_not_cut) {
    const int needed = QDir::tempPath().size() + 1;
    std::array<wchar_t, 1024> folder{L"before"};
    for (const int length : {needed - 1, 0, -1}) {
        EXPECT_FALSE(kddbHostApplicationServices()->getTempFolder(folder.data(), length));
        EXPECT_STREQ(folder.data(), L"before");
    }
    EXPECT_FALSE(kddbHostApplicationServices()->getTempFolder(nullptr, needed));
    EXPECT_TRUE(kddbHostApplicationServices()->getTempFolder(folder.data(), needed));
}

TEST_F(HostServices, A_temporary_folder_that_is_not_there_is_none) {
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/there/is/no/such/folder");
    std::array<wchar_t, 1024> folder{L"before"};
    EXPECT_FALSE(kddbHostApplicationServices()->getTempFolder(folder.data(), static_cast<int>(folder.size())));
    EXPECT_STREQ(folder.data(), L"before");
    qputenv("TMPDIR", before);
}

TEST_F(HostServices, Services_that_know_of_no_temporary_folder_say_so) {
    struct Services : KdDbHostApplicationServices {
        KdDbDatabase* workingDatabase() const override { return nullptr; }
        void setWorkingDatabase(KdDbDatabase*) override {}
        const KdCommandLineState* commandLineState() const override { return nullptr; }
    };
    std::array<wchar_t, 1024> folder{L"before"};
    EXPECT_FALSE(Services().getTempFolder(folder.data(), static_cast<int>(folder.size())));
    EXPECT_STREQ(folder.data(), L"before");
}

}  // namespace
