// The small values that dialogs remember: where they are kept, as what, and what happens when they can't be.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <cstring>

#include "host/ed/variables.h"
#include "host/rx/faults.h"
#include "kd/ad/profile.h"
#include "kd/ed/resbuf.h"
#include "module/valuetext/tableutils.h"
#include "tests/support/configfolder.h"
#include "tests/support/otherprocess.h"
#include "win32/registry.h"

namespace {

constexpr const wchar_t* root = L"Software\\KdHost\\Profiles\\Default";
constexpr const wchar_t* key = L"Software\\KdHost\\Profiles\\Default\\InitSetting\\Dialog\\VqTable:Table";

bool exists(const std::wstring& path) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &opened);
    if (status == ERROR_SUCCESS) RegCloseKey(opened);
    return status == ERROR_SUCCESS;
}

class StoredSettings : public ::testing::Test {
protected:
    kdtest::ConfigFolder config;
};

TEST_F(StoredSettings, lie_below_the_current_profile) {
    EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(0), root);
    for (const int withTail : {1, 2, -1}) EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(withTail), key) << withTail;
}

TEST_F(StoredSettings, lie_below_the_profile_Default_when_none_is_told) {
    kdhost::faults().unreadableVariables.insert(L"CPROFILE");
    EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(0), root);
}

TEST_F(StoredSettings, come_back_as_they_were_stored) {
    EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", -5), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Rows", 4000000000U), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Width", 63.5), 1);
    int columns = 0;
    unsigned rows = 0;
    double width = 0.0;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", columns), 1);
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Rows", rows), 1);
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Width", width), 1);
    EXPECT_EQ(columns, -5);
    EXPECT_EQ(rows, 4000000000U);
    EXPECT_EQ(width, 63.5);
}

TEST_F(StoredSettings, are_kept_as_raw_bytes_under_the_type_of_a_32_bit_number) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    CVqTableUtils::RegeditSetValue(L"Rows", 6U);
    CVqTableUtils::RegeditSetValue(L"Width", 63.5);
    const auto expectStored = [](const wchar_t* name, auto wanted) {
        HKEY opened = nullptr;
        ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, key, 0, KEY_READ, &opened), ERROR_SUCCESS);
        DWORD type = 0;
        DWORD size = 16;
        BYTE bytes[16] = {};
        EXPECT_EQ(RegQueryValueExW(opened, name, nullptr, &type, bytes, &size), ERROR_SUCCESS);
        EXPECT_EQ(type, 4U);
        EXPECT_EQ(size, sizeof wanted);
        std::decay_t<decltype(wanted)> stored{};
        std::memcpy(&stored, bytes, sizeof stored);
        EXPECT_EQ(stored, wanted);
        RegCloseKey(opened);
    };
    expectStored(L"Columns", std::int32_t{5});
    expectStored(L"Rows", std::uint32_t{6});
    expectStored(L"Width", 63.5);
}

TEST_F(StoredSettings, leave_the_default_in_place_when_they_are_missing) {
    int number = 7;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 0);
    CVqTableUtils::IsRegeditOpenKey();
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 0);
    EXPECT_EQ(number, 7);
}

TEST_F(StoredSettings, of_another_size_count_as_missing) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Width", 63.5);
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    int number = 7;
    double real = 1.5;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Width", number), 0);
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", real), 0);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(real, 1.5);
}

TEST_F(StoredSettings, are_not_stored_while_a_level_of_the_key_is_missing) {
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", 5), 0);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Width", 5.0), 0);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Rows", 5U), 0);
    EXPECT_FALSE(exists(key));
}

TEST_F(StoredSettings, tell_that_their_key_opened_not_that_they_were_written) {
    CVqTableUtils::IsRegeditOpenKey();
    // A folder in the place of the lock's file lets keys open and nothing be written.
    const QString lock = config.hostFolder() + QStringLiteral("/registry.lock");
    ASSERT_TRUE(QFile::remove(lock));
    ASSERT_TRUE(QDir().mkdir(lock));
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", 5), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Width", 5.0), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Rows", 5U), 1);
    int columns = 7;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", columns), 0);
    EXPECT_EQ(columns, 7);
}

TEST_F(StoredSettings, get_whatever_level_of_their_key_is_missing) {
    const std::wstring levels[] = {L"", L"\\InitSetting", L"\\InitSetting\\Dialog",
                                   L"\\InitSetting\\Dialog\\VqTable:Table"};
    for (const std::wstring& level : levels) {
        const kdtest::ConfigFolder own;
        HKEY made = nullptr;
        ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, (root + level).c_str(), 0, nullptr, 0, KEY_READ, nullptr, &made,
                                  nullptr),
                  ERROR_SUCCESS);
        RegCloseKey(made);
        EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
        EXPECT_TRUE(exists(key));
    }
}

TEST_F(StoredSettings, keep_what_is_in_their_key_when_it_is_made_sure_of) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
    int number = 0;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 1);
    EXPECT_EQ(number, 5);
}

TEST_F(StoredSettings, behave_as_missing_in_a_read_only_folder_and_stay_there) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    const QByteArray before = config.registryText();
    config.makeReadOnly();
    {
        const kdtest::PlainUser user;
        int number = 7;
        EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 0);
        EXPECT_EQ(number, 7);
        EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", 9), 0);
        EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
    }
    EXPECT_EQ(config.registryText(), before);
    int number = 0;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 1);
    EXPECT_EQ(number, 5);
}

TEST_F(StoredSettings, behave_as_missing_in_a_damaged_file_which_is_set_aside) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    const QByteArray damaged = config.registryText().left(40);
    config.writeRegistryText(damaged);
    int number = 7;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 0);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", 9), 1);
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", number), 1);
    EXPECT_EQ(number, 9);
    QFile aside(config.hostFolder() + QStringLiteral("/registry.damaged-1.json"));
    ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
    EXPECT_EQ(aside.readAll(), damaged);
}

TEST_F(StoredSettings, written_by_one_process_are_read_by_the_next_to_the_last_bit) {
    const double width = 1.0 / 3.0;
    EXPECT_EQ(kdtest::inOtherProcess([&] {
                  return CVqTableUtils::IsRegeditOpenKey() + CVqTableUtils::RegeditSetValue(L"Columns", -7) +
                         CVqTableUtils::RegeditSetValue(L"Rows", 8U) + CVqTableUtils::RegeditSetValue(L"Width", width);
              }),
              4);
    EXPECT_EQ(kdtest::inOtherProcess([&] {
                  int columns = 0;
                  unsigned rows = 0;
                  double read = 0.0;
                  const int found = CVqTableUtils::RegeditQueryValue(L"Columns", columns) +
                                    CVqTableUtils::RegeditQueryValue(L"Rows", rows) +
                                    CVqTableUtils::RegeditQueryValue(L"Width", read);
                  return columns == -7 && rows == 8U && read == width ? found : 0;
              }),
              3);
}

/// The profile that the host tells as the current one.
class OtherProfiles : public StoredSettings {
protected:
    ~OtherProfiles() override { kdhost::resetVariables(); }
    static void take(const wchar_t* name) {
        kdhost::VariableRecord profile = *kdhost::findVariable(L"CPROFILE");
        profile.readOnly = false;
        EXPECT_TRUE(kdhost::writeVariable(profile, std::wstring(name)));
    }
};

TEST_F(OtherProfiles, have_settings_of_their_own) {
    CVqTableUtils::IsRegeditOpenKey();
    CVqTableUtils::RegeditSetValue(L"Columns", 5);
    take(L"Mine");
    EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(0), L"Software\\KdHost\\Profiles\\Mine");
    int columns = 9;
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", columns), 0);
    EXPECT_EQ(columns, 9);
    take(L"");
    EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"Columns", columns), 1);
    EXPECT_EQ(columns, 5);
}

TEST_F(OtherProfiles, without_a_key_of_theirs_get_none_made) {
    take(L"Mine");
    const QByteArray before = config.registryText();
    EXPECT_EQ(CVqTableUtils::IsRegeditOpenKey(), 1);
    EXPECT_EQ(CVqTableUtils::RegeditSetValue(L"Columns", 5), 0);
    EXPECT_FALSE(exists(L"Software\\KdHost\\Profiles\\Mine"));
    EXPECT_EQ(config.registryText(), before);
}

TEST_F(OtherProfiles, whose_path_ends_with_separators_get_one_before_the_tail) {
    for (const wchar_t* name : {L"Mine/", L"Mine///"}) {
        take(name);
        EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(0), L"Software\\KdHost\\Profiles\\Mine");
        EXPECT_EQ(CVqTableUtils::GetRegistryProfilesRoot(1),
                  L"Software\\KdHost\\Profiles\\Mine\\InitSetting\\Dialog\\VqTable:Table");
    }
}

class ProfileManager : public StoredSettings {};

TEST_F(ProfileManager, tells_the_path_of_each_profile_and_makes_the_default_ones_key) {
    wchar_t* path = nullptr;
    EXPECT_EQ(kdProfileManagerPtr()->ProfileRegistryPath(L"Default", path), Kdad::eOk);
    EXPECT_STREQ(path, root);
    kdutDelBuffer(path);
    EXPECT_TRUE(exists(root));
    EXPECT_EQ(kdProfileManagerPtr()->ProfileRegistryPath(L"Mine", path), Kdad::eOk);
    EXPECT_STREQ(path, L"Software\\KdHost\\Profiles\\Mine");
    kdutDelBuffer(path);
    EXPECT_FALSE(exists(L"Software\\KdHost\\Profiles\\Mine"));
}

TEST_F(ProfileManager, refuses_what_is_no_name) {
    for (const wchar_t* name : {static_cast<const wchar_t*>(nullptr), L"", L"a\\b"}) {
        wchar_t unused = 0;
        wchar_t* path = &unused;
        EXPECT_EQ(kdProfileManagerPtr()->ProfileRegistryPath(name, path), Kdad::eInvalidInput);
        EXPECT_EQ(path, nullptr);
    }
}

}  // namespace
