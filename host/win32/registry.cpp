// The Win32-named calls on the registry: handles, paths and rights. Every call reads the stored tree anew, and a
// change is a read, a change and a replacement of the file under its lock, so that processes don't undo each other.

#include "host/win32/registry.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <mutex>
#include <unordered_map>

using namespace kdhost::registry;

namespace {
using Path = std::vector<std::wstring>;
}

struct KdRegistryKey {
    Path path;
    REGSAM access = 0;
};

namespace {

constexpr REGSAM writingRights = KEY_SET_VALUE | KEY_CREATE_SUB_KEY;
constexpr std::size_t longestLevel = 255;

/// Open handles. The current user's branch is none of them.
std::unordered_map<HKEY, std::unique_ptr<KdRegistryKey>> openKeys;
std::mutex openKeysMutex;

/// What a handle stands for; false when it isn't open.
bool find(HKEY handle, KdRegistryKey& key) {
    if (handle == HKEY_CURRENT_USER) {
        key = {{}, KEY_ALL_ACCESS};
        return true;
    }
    const std::scoped_lock lock(openKeysMutex);
    const auto found = openKeys.find(handle);
    if (found == openKeys.end()) return false;
    key = *found->second;
    return true;
}

HKEY newHandle(Path path, REGSAM access) {
    auto key = std::make_unique<KdRegistryKey>(KdRegistryKey{std::move(path), access});
    const std::scoped_lock lock(openKeysMutex);
    const HKEY handle = key.get();
    openKeys.emplace(handle, std::move(key));
    return handle;
}

/// Names are stored as Unicode text, which has no lone surrogates.
bool isName(const std::wstring& name) {
    constexpr wchar_t firstSurrogate = 0xd800;
    constexpr wchar_t lastSurrogate = 0xdfff;
    constexpr wchar_t lastCharacter = 0x10ffff;
    return std::none_of(name.begin(), name.end(), [](wchar_t c) {
        return (c >= firstSurrogate && c <= lastSurrogate) || c < 0 || c > lastCharacter;
    });
}

/// Adds the levels of a path text. One backslash at the end is let pass.
LSTATUS appendLevels(const wchar_t* text, Path& path) {
    const std::wstring rest = text == nullptr ? L"" : text;
    for (std::size_t start = 0; start < rest.size();) {
        const std::size_t end = std::min(rest.find(L'\\', start), rest.size());
        if (end == start) return ERROR_BAD_PATHNAME;
        if (end - start > longestLevel || path.size() == mostLevels) return ERROR_INVALID_PARAMETER;
        path.push_back(rest.substr(start, end - start));
        if (!isName(path.back())) return ERROR_INVALID_PARAMETER;
        start = end + 1;
    }
    return ERROR_SUCCESS;
}

/// The full path behind a handle and a path text below it.
LSTATUS resolve(HKEY handle, const wchar_t* subKey, Path& path) {
    KdRegistryKey parent;
    if (!find(handle, parent)) return ERROR_INVALID_HANDLE;
    path = std::move(parent.path);
    return appendLevels(subKey, path);
}

/// Null when a level is missing.
Key* findKey(Key& root, const Path& path) {
    Key* key = &root;
    for (const std::wstring& name : path) {
        const auto below = key->keys.find(name);
        if (below == key->keys.end()) return nullptr;
        key = &below->second;
    }
    return key;
}

/// Reads the tree and hands it to `look`, a function of the root that gives a status.
template <class Look>
LSTATUS inspect(Look look) {
    Stored stored = read();
    if (stored.condition == Condition::kUnreadable) return ERROR_ACCESS_DENIED;
    return look(stored.root);
}

/// The same for a change, which is stored when the function succeeds and has changed anything.
template <class Change>
LSTATUS change(Change apply) {
    const Lock lock;
    if (lock.status() != ERROR_SUCCESS) return lock.status();
    const Stored stored = read();
    if (stored.condition == Condition::kUnreadable) return ERROR_ACCESS_DENIED;
    Key root = stored.root;
    const LSTATUS status = apply(root);
    if (status != ERROR_SUCCESS || root == stored.root) return status;
    return write(root, stored.condition == Condition::kDamaged) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

/// The handle's key, where it has the right and is still there.
LSTATUS requireRight(HKEY handle, REGSAM right, Path& path) {
    KdRegistryKey key;
    if (!find(handle, key)) return ERROR_INVALID_HANDLE;
    if ((key.access & right) != right) return ERROR_ACCESS_DENIED;
    path = std::move(key.path);
    return ERROR_SUCCESS;
}

bool lacksWriting(REGSAM access) {
    return (access & writingRights) != 0 && !isWritable();
}

std::wstring valueName(const wchar_t* name) {
    return name == nullptr ? L"" : name;
}

}  // namespace

LSTATUS RegOpenKeyExW(HKEY key, const wchar_t* subKey, DWORD, REGSAM access, HKEY* result) {
    if (result == nullptr) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    Path path;
    if (const LSTATUS status = resolve(key, subKey, path); status != ERROR_SUCCESS) return status;
    const LSTATUS status =
        inspect([&](Key& root) { return findKey(root, path) == nullptr ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS; });
    if (status != ERROR_SUCCESS) return status;
    if (lacksWriting(access)) return ERROR_ACCESS_DENIED;
    *result = newHandle(std::move(path), access);
    return ERROR_SUCCESS;
}

LSTATUS RegCreateKeyExW(HKEY key, const wchar_t* subKey, DWORD, wchar_t*, DWORD, REGSAM access, const void*,
                        HKEY* result, DWORD* disposition) {
    if (result == nullptr || subKey == nullptr) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    Path parent;
    if (const LSTATUS status = resolve(key, nullptr, parent); status != ERROR_SUCCESS) return status;
    Path path = parent;
    if (const LSTATUS status = appendLevels(subKey, path); status != ERROR_SUCCESS) return status;
    if (RegOpenKeyExW(key, subKey, 0, access, result) == ERROR_SUCCESS) {
        if (disposition != nullptr) *disposition = REG_OPENED_EXISTING_KEY;
        return ERROR_SUCCESS;
    }
    const LSTATUS status = change([&](Key& root) -> LSTATUS {
        if (findKey(root, parent) == nullptr) return ERROR_KEY_DELETED;
        Key* made = &root;
        for (const std::wstring& name : path) made = &made->keys[name];
        return ERROR_SUCCESS;
    });
    if (status != ERROR_SUCCESS) return status;
    if (disposition != nullptr) *disposition = REG_CREATED_NEW_KEY;
    *result = newHandle(std::move(path), access);
    return ERROR_SUCCESS;
}

LSTATUS RegQueryValueExW(HKEY key, const wchar_t* name, DWORD*, DWORD* type, BYTE* data, DWORD* size) {
    if (data != nullptr && size == nullptr) return ERROR_INVALID_PARAMETER;
    Path path;
    if (const LSTATUS status = requireRight(key, KEY_QUERY_VALUE, path); status != ERROR_SUCCESS) return status;
    return inspect([&](Key& root) -> LSTATUS {
        const Key* found = findKey(root, path);
        if (found == nullptr) return ERROR_KEY_DELETED;
        const auto value = found->values.find(valueName(name));
        if (value == found->values.end()) return ERROR_FILE_NOT_FOUND;
        const std::vector<BYTE>& bytes = value->second.data;
        if (type != nullptr) *type = value->second.type;
        if (size == nullptr) return ERROR_SUCCESS;
        const bool fits = bytes.size() <= *size;
        *size = static_cast<DWORD>(bytes.size());
        if (data == nullptr) return ERROR_SUCCESS;
        if (!fits) return ERROR_MORE_DATA;
        std::copy(bytes.begin(), bytes.end(), data);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegSetValueExW(HKEY key, const wchar_t* name, DWORD, DWORD type, const BYTE* data, DWORD size) {
    if ((data == nullptr && size != 0) || !isName(valueName(name))) return ERROR_INVALID_PARAMETER;
    Path path;
    if (const LSTATUS status = requireRight(key, KEY_SET_VALUE, path); status != ERROR_SUCCESS) return status;
    return change([&](Key& root) -> LSTATUS {
        Key* found = findKey(root, path);
        if (found == nullptr) return ERROR_KEY_DELETED;
        Value value{type, {}};
        if (size != 0) value.data.assign(data, data + size);
        found->values[valueName(name)] = std::move(value);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteValueW(HKEY key, const wchar_t* name) {
    Path path;
    if (const LSTATUS status = requireRight(key, KEY_SET_VALUE, path); status != ERROR_SUCCESS) return status;
    return change([&](Key& root) -> LSTATUS {
        Key* found = findKey(root, path);
        if (found == nullptr) return ERROR_KEY_DELETED;
        return found->values.erase(valueName(name)) == 0 ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteKeyW(HKEY key, const wchar_t* subKey) {
    if (subKey == nullptr) return ERROR_INVALID_PARAMETER;
    Path path;
    if (const LSTATUS status = resolve(key, subKey, path); status != ERROR_SUCCESS) return status;
    // The branch itself stays.
    if (path.empty()) return ERROR_ACCESS_DENIED;
    return change([&](Key& root) -> LSTATUS {
        const Key* found = findKey(root, path);
        if (found == nullptr) return ERROR_FILE_NOT_FOUND;
        if (!found->keys.empty()) return ERROR_ACCESS_DENIED;
        const std::wstring name = path.back();
        path.pop_back();
        findKey(root, path)->keys.erase(name);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCloseKey(HKEY key) {
    if (key == HKEY_CURRENT_USER) return ERROR_SUCCESS;
    const std::scoped_lock lock(openKeysMutex);
    return openKeys.erase(key) == 0 ? ERROR_INVALID_HANDLE : ERROR_SUCCESS;
}
