// The Win32 semantics of the registry's calls.

#include <QFile>

#include "tests/host/win32/registryfixture.h"

namespace {

TEST_F(RegistryStore, a_missing_key_or_value_is_not_found) {
    open(L"A", ERROR_FILE_NOT_FOUND);
    const HKEY key = create(L"A");
    open(L"A\\B", ERROR_FILE_NOT_FOUND);
    get(key, L"x", ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteValueW(key, L"x"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyW(key, L"B"), ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryStore, looking_makes_no_file) {
    open(L"A", ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(QFile::exists(config.hostFolder()));
}

TEST_F(RegistryStore, a_key_is_created_with_all_its_levels_once) {
    for (const DWORD wanted : {REG_CREATED_NEW_KEY, REG_OPENED_EXISTING_KEY}) {
        HKEY key = nullptr;
        DWORD disposition = 0;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"A\\B\\C", 0, nullptr, 0, KEY_READ, nullptr, &key, &disposition),
                  ERROR_SUCCESS);
        EXPECT_EQ(disposition, wanted);
        EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    }
    open(L"A");
    open(L"A\\B");
    open(L"A\\B\\C");
}

TEST_F(RegistryStore, names_are_compared_without_regard_to_case_and_kept_as_written) {
    const HKEY key = create(L"Soft\\\u00c4rger");
    EXPECT_EQ(set(key, L"Value", 1), ERROR_SUCCESS);
    EXPECT_EQ(set(key, L"VALUE", 2), ERROR_SUCCESS);
    EXPECT_EQ(get(open(L"soft\\\u00e4RGER"), L"value"), 2);
    EXPECT_TRUE(config.registryText().contains("\"Value\""));
    EXPECT_FALSE(config.registryText().contains("\"VALUE\""));
    EXPECT_TRUE(config.registryText().contains("\"Soft\""));
}

TEST_F(RegistryStore, paths_end_with_one_backslash_at_most) {
    create(L"A\\B");
    open(L"A\\B\\");
    open(L"\\A", ERROR_BAD_PATHNAME);
    open(L"A\\\\B", ERROR_BAD_PATHNAME);
    open(L"A\\B\\\\", ERROR_BAD_PATHNAME);
    create(L"\\C", ERROR_BAD_PATHNAME);
}

TEST_F(RegistryStore, an_empty_path_opens_the_key_once_more) {
    const HKEY key = create(L"A");
    for (const wchar_t* path : {static_cast<const wchar_t*>(nullptr), L""}) {
        HKEY again = nullptr;
        EXPECT_EQ(RegOpenKeyExW(key, path, 0, KEY_READ | KEY_WRITE, &again), ERROR_SUCCESS);
        EXPECT_NE(again, key);
        EXPECT_EQ(set(again, L"x", 3), ERROR_SUCCESS);
        EXPECT_EQ(get(key, L"x"), 3);
        RegCloseKey(again);
    }
}

TEST_F(RegistryStore, levels_and_names_have_limits) {
    create(std::wstring(255, L'a').c_str());
    create(std::wstring(256, L'a').c_str(), ERROR_INVALID_PARAMETER);
    std::wstring deep;
    for (int level = 0; level < 513; ++level) deep += L"a\\";
    create(deep.c_str(), ERROR_INVALID_PARAMETER);
    create(deep.substr(2).c_str());
    open(deep.substr(2).c_str());
    const wchar_t surrogate[] = {0xd800, 0};
    create(surrogate, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(set(HKEY_CURRENT_USER, surrogate, 1), ERROR_INVALID_PARAMETER);
}

TEST_F(RegistryStore, values_come_back_with_type_and_size) {
    const HKEY key = create(L"A");
    const BYTE bytes[] = {0, 255, 1, 2, 128, 7, 9, 0};
    for (const DWORD type : {DWORD{REG_NONE}, DWORD{REG_SZ}, DWORD{REG_DWORD}, DWORD{REG_QWORD}, DWORD{0xffffffff}}) {
        EXPECT_EQ(RegSetValueExW(key, L"v", 0, type, bytes, sizeof bytes), ERROR_SUCCESS);
        DWORD gotType = 99;
        DWORD size = 0;
        EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, &gotType, nullptr, &size), ERROR_SUCCESS);
        EXPECT_EQ(gotType, type);
        ASSERT_EQ(size, sizeof bytes);
        BYTE got[sizeof bytes] = {};
        EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, nullptr, got, &size), ERROR_SUCCESS);
        EXPECT_TRUE(std::equal(std::begin(bytes), std::end(bytes), got));
    }
}

TEST_F(RegistryStore, a_small_buffer_is_told_the_size_and_left_alone) {
    const HKEY key = create(L"A");
    const double value = 63.5;
    RegSetValueExW(key, L"v", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
    BYTE got[4] = {1, 2, 3, 4};
    DWORD size = sizeof got;
    EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, nullptr, got, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, sizeof value);
    EXPECT_EQ(got[0], 1);
    EXPECT_EQ(got[3], 4);
}

TEST_F(RegistryStore, a_larger_buffer_is_told_the_size_too) {
    const HKEY key = create(L"A");
    set(key, L"v", 5);
    BYTE got[8] = {};
    DWORD size = sizeof got;
    EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, nullptr, got, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4U);
}

TEST_F(RegistryStore, the_unnamed_value_is_one_of_its_own) {
    const HKEY key = create(L"A");
    EXPECT_EQ(set(key, nullptr, 1), ERROR_SUCCESS);
    EXPECT_EQ(get(key, L""), 1);
    EXPECT_EQ(RegSetValueExW(key, L"", 0, REG_NONE, nullptr, 0), ERROR_SUCCESS);
    DWORD size = 9;
    EXPECT_EQ(RegQueryValueExW(key, nullptr, nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 0U);
    EXPECT_EQ(RegDeleteValueW(key, nullptr), ERROR_SUCCESS);
    get(key, nullptr, ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryStore, a_handle_does_only_what_it_was_opened_for) {
    set(create(L"A"), L"v", 1);
    const HKEY reading = open(L"A", ERROR_SUCCESS, KEY_READ);
    EXPECT_EQ(get(reading, L"v"), 1);
    EXPECT_EQ(set(reading, L"v", 2), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueW(reading, L"v"), ERROR_ACCESS_DENIED);
    const HKEY writing = open(L"A", ERROR_SUCCESS, KEY_SET_VALUE);
    EXPECT_EQ(set(writing, L"v", 3), ERROR_SUCCESS);
    get(writing, L"v", ERROR_ACCESS_DENIED);
    EXPECT_EQ(get(reading, L"v"), 3);
}

TEST_F(RegistryStore, keys_are_created_below_a_handle_that_only_reads) {
    create(L"A");
    create(L"B\\C", ERROR_SUCCESS, KEY_ALL_ACCESS, open(L"A", ERROR_SUCCESS, KEY_READ));
    open(L"A\\B\\C");
}

TEST_F(RegistryStore, a_key_is_deleted_when_nothing_lies_below_it) {
    create(L"A\\B");
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"A"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"a\\b"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"A"), ERROR_SUCCESS);
    open(L"A", ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L""), ERROR_ACCESS_DENIED);
}

TEST_F(RegistryStore, a_handle_outlives_its_key_without_its_values) {
    const HKEY key = create(L"A");
    set(key, L"v", 1);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, L"A"), ERROR_SUCCESS);
    EXPECT_EQ(set(key, L"v", 1), ERROR_KEY_DELETED);
    get(key, L"v", ERROR_KEY_DELETED);
    EXPECT_EQ(RegDeleteValueW(key, L"v"), ERROR_KEY_DELETED);
    create(L"B", ERROR_KEY_DELETED, KEY_ALL_ACCESS, key);
}

TEST_F(RegistryStore, a_closed_or_unknown_handle_is_refused) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"A", 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    const HKEY localMachine = kdPredefinedKey(0x80000002U);
    for (const HKEY bad : {key, static_cast<HKEY>(nullptr), localMachine}) {
        HKEY result = nullptr;
        EXPECT_EQ(RegCloseKey(bad), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegOpenKeyExW(bad, L"A", 0, KEY_READ, &result), ERROR_INVALID_HANDLE);
        create(L"A", ERROR_INVALID_HANDLE, KEY_READ, bad);
        EXPECT_EQ(set(bad, L"v", 1), ERROR_INVALID_HANDLE);
        get(bad, L"v", ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegDeleteValueW(bad, L"v"), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegDeleteKeyW(bad, L"v"), ERROR_INVALID_HANDLE);
    }
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
}

TEST_F(RegistryStore, nulls_where_a_place_is_needed_are_refused) {
    const HKEY key = create(L"A");
    BYTE byte = 0;
    HKEY result = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"A", 0, KEY_READ, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"A", 0, nullptr, 0, 0, nullptr, nullptr, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, nullptr, 0, nullptr, 0, 0, nullptr, &result, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegQueryValueExW(key, L"v", nullptr, nullptr, &byte, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueExW(key, L"v", 0, REG_DWORD, nullptr, 4), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegDeleteKeyW(key, nullptr), ERROR_INVALID_PARAMETER);
}

}  // namespace
