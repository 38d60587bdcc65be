// The host's profiles. Each has a key of its own in the registry, below the host's.

#include "kd/ad/profile.h"

#include <string>

#include "kd/ed/resbuf.h"
#include "win32/registry.h"

KdadProfileManager::~KdadProfileManager() = default;

namespace {

constexpr const wchar_t* profilesPath = L"Software\\KdHost\\Profiles\\";
constexpr const wchar_t* defaultProfile = L"Default";

/// Modules open the profile's key and make their own below it, so it has to be there.
void ensureKey(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr) ==
        ERROR_SUCCESS) {
        RegCloseKey(key);
    }
}

class ProfileManager : public KdadProfileManager {
public:
    Kdad::ErrorStatus ProfileRegistryPath(const wchar_t* name, wchar_t*& path) override {
        path = nullptr;
        const std::wstring profile = name == nullptr ? L"" : name;
        if (profile.empty() || profile.find(L'\\') != profile.npos) return Kdad::eInvalidInput;
        const std::wstring registryPath = profilesPath + profile;
        if (profile == defaultProfile) ensureKey(registryPath);
        return kdutNewString(registryPath.c_str(), path) == RTNORM ? Kdad::eOk : Kdad::eOutOfMemory;
    }
};

}  // namespace

KdadProfileManager* kdProfileManagerPtr() {
    static ProfileManager manager;
    return &manager;
}
