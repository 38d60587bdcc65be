// Settings in the registry.

#include "host/app/usersettings.h"

#include <memory>

#include "win32/registry.h"

namespace kdhost {
namespace {

constexpr const wchar_t* kPath = L"Software\\kdhost\\Window";
constexpr const wchar_t* kLanguage = L"Language";
constexpr const wchar_t* kPlace = L"Place";
constexpr DWORD kLargestValue = 4096;

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<KdRegistryKey, CloseKey>;

/// Empty when there is no such value of that type.
QByteArray stored(const wchar_t* name, DWORD wantedType) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kPath, 0, KEY_READ, &opened) != ERROR_SUCCESS) return {};
    const OpenKey key(opened);
    QByteArray bytes(static_cast<int>(kLargestValue), Qt::Uninitialized);
    DWORD size = kLargestValue;
    DWORD type = REG_NONE;
    auto* place = reinterpret_cast<BYTE*>(bytes.data());
    const LSTATUS status = RegQueryValueExW(key.get(), name, nullptr, &type, place, &size);
    return status == ERROR_SUCCESS && type == wantedType ? bytes.left(static_cast<int>(size)) : QByteArray();
}

bool store(const wchar_t* name, DWORD type, const QByteArray& bytes) {
    HKEY opened = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kPath, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &opened, nullptr) !=
        ERROR_SUCCESS) {
        return false;
    }
    const OpenKey key(opened);
    const auto* place = reinterpret_cast<const BYTE*>(bytes.constData());
    return RegSetValueExW(key.get(), name, 0, type, place, static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
}

/// A language as it is stored: one byte.
constexpr char kEnglish = 'e';
constexpr char kChinese = 'z';

}  // namespace

std::optional<Language> storedLanguage() {
    const QByteArray value = stored(kLanguage, REG_BINARY);
    if (value.size() != 1 || (value[0] != kEnglish && value[0] != kChinese)) return std::nullopt;
    return value[0] == kChinese ? Language::Chinese : Language::English;
}

bool storeLanguage(Language language) {
    return store(kLanguage, REG_BINARY, QByteArray(1, language == Language::Chinese ? kChinese : kEnglish));
}

QByteArray storedWindowPlace() {
    return stored(kPlace, REG_BINARY);
}

bool storeWindowPlace(const QByteArray& place) {
    return store(kPlace, REG_BINARY, place);
}

}  // namespace kdhost
