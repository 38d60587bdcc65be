// The small values that dialogs remember between runs, in one key of the user's profile.

#include <memory>
#include <type_traits>

#include "kd/ad/profile.h"
#include "kd/ed/variables.h"
#include "module/valuetext/tableutils.h"
#include "win32/registry.h"

namespace {

/// The key's levels below the profile's root.
constexpr const wchar_t* keyTail = L"\\InitSetting\\Dialog\\VqTable:Table";

// Every value is stored under the type of a 32-bit number, doubles with their eight bytes too.
constexpr DWORD valueType = REG_DWORD;

constexpr REGSAM readAndWrite = 0x2001f;
constexpr REGSAM readAndCreate = 131101;
static_assert(readAndWrite == (KEY_READ | KEY_WRITE) && readAndCreate == (KEY_READ | KEY_CREATE_SUB_KEY));
static_assert(KEY_READ == 131097 && KEY_ALL_ACCESS == 0xf003f);

/// Frees texts that the host hands out.
struct HostText {
    HostText() = default;
    HostText(const HostText&) = delete;
    HostText& operator=(const HostText&) = delete;
    ~HostText() { kdutDelBuffer(text); }
    wchar_t* text = nullptr;
};

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

/// Null when the key can't be opened that way.
OpenKey openKey(const CStdStr<wchar_t>& path, REGSAM access) {
    HKEY key = nullptr;
    return OpenKey(RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, access, &key) == ERROR_SUCCESS ? key : nullptr);
}

void createKey(HKEY parent, const wchar_t* path) {
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    OpenKey(status == ERROR_SUCCESS ? key : nullptr).reset();
}

/// The current profile's name, as the host variable tells it.
CStdStr<wchar_t> profileName() {
    resbuf variable;
    HostText value;
    const int status = kdedGetVar(L"CPROFILE", &variable);
    if (status == RTNORM && variable.restype == RTSTR) value.text = variable.resval.rstring;
    return value.text == nullptr || *value.text == 0 ? L"Default" : value.text;
}

void removeTrailing(CStdStr<wchar_t>& path, wchar_t separator) {
    while (!path.empty() && path.back() == separator) path.pop_back();
}

template <class Value>
int queryValue(const CStdStr<wchar_t>& name, Value& value) {
    const OpenKey key = openKey(CVqTableUtils::GetRegistryProfilesRoot(1), readAndWrite);
    if (key == nullptr) return 0;
    Value stored{};
    DWORD size = sizeof stored;
    DWORD type = valueType;
    const LSTATUS status =
        RegQueryValueExW(key.get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&stored), &size);
    // A value of another size is another kind of value.
    if (status != ERROR_SUCCESS || size != sizeof stored) return 0;
    value = stored;
    return 1;
}

template <class Value>
int setValue(const CStdStr<wchar_t>& name, Value value) {
    const OpenKey key = openKey(CVqTableUtils::GetRegistryProfilesRoot(1), readAndWrite);
    if (key == nullptr) return 0;
    RegSetValueExW(key.get(), name.c_str(), 0, valueType, reinterpret_cast<const BYTE*>(&value), sizeof value);
    return 1;
}

/// One level of the key, and what is to be made under the level before where it is missing.
struct KeyLevel {
    const wchar_t* tail;
    const wchar_t* missing;
};
constexpr KeyLevel keyLevels[] = {
    {L"\\InitSetting", L"InitSetting\\Dialog\\VqTable:Table"},
    {L"\\Dialog", L"Dialog\\VqTable:Table"},
    {L"\\VqTable:Table", L"VqTable:Table"},
};

}  // namespace

CStdStr<wchar_t> CVqTableUtils::GetRegistryProfilesRoot(int withTail) {
    HostText path;
    kdProfileManagerPtr()->ProfileRegistryPath(profileName().c_str(), path.text);
    CStdStr<wchar_t> root = path.text;
    removeTrailing(root, L'\\');
    removeTrailing(root, L'/');
    if (withTail != 0) root += keyTail;
    return root;
}

int CVqTableUtils::RegeditQueryValue(const CStdStr<wchar_t>& name, int& value) {
    return queryValue(name, value);
}
int CVqTableUtils::RegeditQueryValue(const CStdStr<wchar_t>& name, unsigned int& value) {
    return queryValue(name, value);
}
int CVqTableUtils::RegeditQueryValue(const CStdStr<wchar_t>& name, double& value) {
    return queryValue(name, value);
}

int CVqTableUtils::RegeditSetValue(const CStdStr<wchar_t>& name, int value) {
    return setValue(name, value);
}
int CVqTableUtils::RegeditSetValue(const CStdStr<wchar_t>& name, unsigned int value) {
    return setValue(name, value);
}
int CVqTableUtils::RegeditSetValue(const CStdStr<wchar_t>& name, double value) {
    return setValue(name, value);
}

int CVqTableUtils::IsRegeditOpenKey() {
    CStdStr<wchar_t> path = GetRegistryProfilesRoot(0);
    OpenKey parent = openKey(path, KEY_READ);
    for (const KeyLevel& level : keyLevels) {
        if (parent == nullptr) break;
        path += level.tail;
        OpenKey key = openKey(path, readAndCreate);
        if (key == nullptr) createKey(parent.get(), level.missing);
        parent = std::move(key);
    }
    return 1;
}
