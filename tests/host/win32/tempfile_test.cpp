// Tests of the names of temporary files.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <array>
#include <set>
#include <string>

#include "win32/tempfile.h"

namespace {

class TempFile : public ::testing::Test {
protected:
    UINT make(const std::wstring& folder, const wchar_t* prefix, UINT unique = 0) {
        return GetTempFileNameW(folder.c_str(), prefix, unique, m_name.data());
    }
    QString name() const { return QString::fromWCharArray(m_name.data()); }
    std::wstring folder() const { return m_folder.path().toStdWString(); }

    QTemporaryDir m_folder;
    std::array<wchar_t, KD_MAX_PATH> m_name{L'k', L'e', L'p', L't'};
};

TEST_F(TempFile, a_new_name_takes_three_characters_of_the_prefix_and_makes_its_file) {
    const UINT number = make(folder(), L"cells");
    ASSERT_NE(number, 0U);
    const QString digits = QString::number(number, 16).rightJustified(4, QLatin1Char('0')).toUpper();
    EXPECT_EQ(name(), m_folder.filePath(QStringLiteral("cel%1.tmp").arg(digits)));
    EXPECT_TRUE(QFileInfo::exists(name()));
    EXPECT_EQ(QFileInfo(name()).size(), 0);
    EXPECT_EQ(GetLastError(), 0U);
}

TEST_F(TempFile, names_are_never_given_twice) {
    std::set<QString> names;
    for (int i = 0; i < 200; ++i) {
        ASSERT_NE(make(folder(), L"t"), 0U);
        names.insert(name());
    }
    EXPECT_EQ(names.size(), 200U);
}

TEST_F(TempFile, a_given_number_makes_a_name_and_no_file) {
    EXPECT_EQ(make(folder() + L"/", L"ab", 0x1ABCD), 0xABCDU);
    EXPECT_EQ(name(), m_folder.filePath(QStringLiteral("abABCD.tmp")));
    EXPECT_FALSE(QFileInfo::exists(name()));
}

TEST_F(TempFile, a_null_prefix_is_an_empty_one) {
    EXPECT_EQ(make(folder(), nullptr, 1), 1U);
    EXPECT_EQ(name(), m_folder.filePath(QStringLiteral("0001.tmp")));
}

TEST_F(TempFile, a_failure_leaves_the_buffer_and_tells_why) {
    struct Case {
        std::wstring folder;
        const wchar_t* prefix;
        DWORD error;
    };
    const Case cases[] = {
        {folder() + L"/missing", L"a", LAST_PATH_NOT_FOUND},
        {folder(), L"a/b", LAST_INVALID_NAME},
        {L"/" + std::wstring(KD_MAX_PATH, L'x'), L"a", LAST_BUFFER_OVERFLOW},
        {L"/proc", L"a", LAST_ACCESS_DENIED},
    };
    for (const Case& bad : cases) {
        EXPECT_EQ(make(bad.folder, bad.prefix), 0U);
        EXPECT_EQ(GetLastError(), bad.error);
        EXPECT_EQ(name(), QStringLiteral("kept"));
    }
    EXPECT_EQ(GetTempFileNameW(nullptr, L"a", 0, m_name.data()), 0U);
    EXPECT_EQ(GetTempFileNameW(folder().c_str(), L"a", 0, nullptr), 0U);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(LAST_INVALID_PARAMETER));
}

TEST_F(TempFile, every_code_is_success_as_a_status_of_the_host) {
    for (const DWORD code : {LAST_NO_ERROR, LAST_PATH_NOT_FOUND, LAST_ACCESS_DENIED, LAST_FILE_EXISTS}) {
        EXPECT_EQ(getKdadErrorFromWinErr(code), 0) << code;
    }
}

}  // namespace
