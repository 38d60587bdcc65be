// Marks of the active drawing, and the indicator colour in the user's profile.

#include "host/ad/mainapp.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>

#include "host/ad/application.h"
#include "host/db/undo.h"
#include "host/ed/display.h"
#include "host/ed/variables.h"
#include "host/rx/faults.h"
#include "kd/ad/profile.h"
#include "kd/ed/resbuf.h"
#include "win32/registry.h"

KdadMainAppService::~KdadMainAppService() = default;

namespace kdhost {
namespace {

constexpr const wchar_t* kIndicatorColor = L"TableIndicatorColor";

/// A grey-blue that letters and numbers stand out from.
KdCmColor standardIndicatorColor() {
    return KdCmColor::fromRgb(168, 184, 206);
}

/// The colour as it is stored: how it is given in the highest byte, its index or its red, green and blue below.
std::uint32_t stored(const KdCmColor& color) {
    std::uint32_t value = 0;
    if (color.isByACI()) value = static_cast<std::uint32_t>(color.colorIndex());
    if (color.isByColor()) {
        value = static_cast<std::uint32_t>(color.red() << 16 | color.green() << 8 | color.blue());
    }
    return static_cast<std::uint32_t>(color.colorMethod()) << 24 | value;
}

/// False for a number that is no colour.
bool restore(std::uint32_t value, KdCmColor& color) {
    const auto part = [&](int shift) { return static_cast<int>(value >> shift & 0xFF); };
    switch (part(24)) {
        case KdCmEntityColor::kByColor:
            color = KdCmColor::fromRgb(part(16), part(8), part(0));
            return true;
        case KdCmEntityColor::kByACI:
            if (part(0) == 0) return false;
            color = KdCmColor::fromIndex(part(0));
            return true;
        case KdCmEntityColor::kByLayer:
            color = {};
            return true;
        case KdCmEntityColor::kByBlock:
            color = KdCmColor::byBlock();
            return true;
        case KdCmEntityColor::kNone:
            color = KdCmColor::none();
            return true;
        default:
            return false;
    }
}

/// Where the user's profile keeps its settings; empty when that can't be told.
std::wstring profilePath() {
    const std::optional<VariableValue> profile = readVariable(*findVariable(L"CPROFILE"));
    wchar_t* path = nullptr;
    if (!profile) return {};
    kdProfileManagerPtr()->ProfileRegistryPath(std::get<std::wstring>(*profile).c_str(), path);
    std::wstring found = path == nullptr ? L"" : path;
    kdutDelBuffer(path);
    return found;
}

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using OpenKey = std::unique_ptr<KdRegistryKey, CloseKey>;

OpenKey openProfile(REGSAM access) {
    HKEY key = nullptr;
    const std::wstring path = profilePath();
    if (path.empty() || RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, access, &key) != ERROR_SUCCESS) return {};
    return OpenKey(key);
}

KdDbDatabase* activeDatabase() {
    const Document* document = Application::current()->documents().current();
    return document == nullptr ? nullptr : document->database();
}

}  // namespace

void MainAppService::beginCommandMark(const wchar_t* name, const KdString& title) {
    KdDbDatabase* database = activeDatabase();
    const std::shared_ptr<UndoHistory> history = database == nullptr ? nullptr : undoHistory(*database);
    if (history != nullptr) history->beginMark(name == nullptr || *name == L'\0' ? kUnnamedStep : name, title.str());
    m_marks.push_back(history);
}

void MainAppService::endCommandMark() {
    if (m_marks.empty()) return;
    if (const std::shared_ptr<UndoHistory> history = m_marks.back().lock()) history->endMark();
    m_marks.pop_back();
}

void MainAppService::dialogCancelled() {
    queueAllForRedraw();
    updateDisplay();
}

void MainAppService::toWorld(KdGePoint3d& point) const {
    if (const Editor* editor = currentEditor()) point = editor->toWorld(point);
}

bool MainAppService::tableIndicatorColor(KdCmColor& color) const {
    const OpenKey profile = openProfile(KEY_READ);
    BYTE bytes[4] = {};
    DWORD size = sizeof bytes;
    DWORD type = REG_NONE;
    const LSTATUS status = profile == nullptr
                               ? ERROR_FILE_NOT_FOUND
                               : RegQueryValueExW(profile.get(), kIndicatorColor, nullptr, &type, bytes, &size);
    if (status == ERROR_FILE_NOT_FOUND) {
        color = standardIndicatorColor();
        return true;
    }
    std::uint32_t value = 0;
    if (status != ERROR_SUCCESS || type != REG_DWORD || size != sizeof value) return false;
    std::memcpy(&value, bytes, sizeof value);
    return restore(value, color);
}

void MainAppService::setTableIndicatorColor(const KdCmColor& color) {
    const OpenKey profile = openProfile(KEY_READ | KEY_WRITE);
    if (profile == nullptr) return;
    const std::uint32_t value = stored(color);
    RegSetValueExW(profile.get(), kIndicatorColor, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
}

}  // namespace kdhost

KdadMainAppService* vqcadMainAppService() {
    kdhost::Application* application = kdhost::Application::current();
    return application == nullptr || kdhost::faults().noMainAppService ? nullptr : &application->mainAppService();
}

QWidget* kfsw_kdadMainWnd() {
    kdhost::Application* application = kdhost::Application::current();
    return application == nullptr ? nullptr : application->mainWindow();
}
