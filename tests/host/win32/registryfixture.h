// Short forms of the registry's calls, for tests, in a configuration folder of their own.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <cstdint>
#include <vector>

#include "tests/support/configfolder.h"
#include "win32/registry.h"

class RegistryStore : public ::testing::Test {
protected:
    ~RegistryStore() override {
        for (const HKEY key : m_keys) RegCloseKey(key);
    }

    /// Null, with the expected status, when the key can't be opened.
    HKEY open(const wchar_t* path, LSTATUS expected = ERROR_SUCCESS, REGSAM access = KEY_READ | KEY_WRITE) {
        HKEY key = HKEY_CURRENT_USER;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, access, &key), expected);
        return kept(key, expected);
    }
    HKEY create(const wchar_t* path, LSTATUS expected = ERROR_SUCCESS, REGSAM access = KEY_ALL_ACCESS,
                HKEY parent = HKEY_CURRENT_USER) {
        HKEY key = HKEY_CURRENT_USER;
        EXPECT_EQ(RegCreateKeyExW(parent, path, 0, nullptr, 0, access, nullptr, &key, nullptr), expected);
        return kept(key, expected);
    }
    static LSTATUS set(HKEY key, const wchar_t* name, DWORD value) {
        return RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    }
    /// -1, with the expected status, when the value can't be read.
    static std::int64_t get(HKEY key, const wchar_t* name, LSTATUS expected = ERROR_SUCCESS) {
        DWORD value = 0;
        DWORD size = sizeof value;
        EXPECT_EQ(RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size), expected);
        return expected == ERROR_SUCCESS ? std::int64_t{value} : -1;
    }
    QString inFolder(const char* name) const { return config.hostFolder() + QLatin1Char('/') + QLatin1String(name); }

    kdtest::ConfigFolder config;

private:
    HKEY kept(HKEY key, LSTATUS expected) {
        if (expected == ERROR_SUCCESS) {
            m_keys.push_back(key);
        } else {
            EXPECT_EQ(key, nullptr);
        }
        return key;
    }
    std::vector<HKEY> m_keys;
};
