// Resource modules: shared libraries whose Qt resources hold texts, widget trees and bitmaps.

#include "host/win32/modules.h"

#include <dlfcn.h>

#include <QFile>
#include <algorithm>
#include <array>
#include <cwchar>
#include <memory>
#include <optional>
#include <vector>

#include "host/rx/encoding.h"
#include "host/rx/faults.h"
#include "host/win32/texttable.h"

namespace {

struct LibraryCloser {
    void operator()(void* library) const { ::dlclose(library); }
};

constexpr std::array<const char*, 2> kLanguageFiles{"en", "zh_CN"};

}  // namespace

/// A loaded resource module. Its texts are parsed once for each language, when the first one is wanted.
struct KdModule {
    std::string path;
    std::wstring resourceName;
    std::unique_ptr<void, LibraryCloser> library;
    int references = 1;
    std::array<std::optional<kdhost::TextTable>, kLanguageFiles.size()> texts;

    const std::wstring* text(kdhost::Language language, unsigned number) {
        auto& table = texts[static_cast<std::size_t>(language)];
        if (!table) table = readTexts(kLanguageFiles[static_cast<std::size_t>(language)]);
        const auto found = table->find(number);
        return found == table->end() ? nullptr : &found->second;
    }

private:
    kdhost::TextTable readTexts(const char* languageName) const {
        QFile file(QStringLiteral(":/%1/strings/%2.tsv")
                       .arg(QString::fromStdWString(resourceName), QString::fromLatin1(languageName)));
        if (!file.open(QIODevice::ReadOnly)) return {};
        return kdhost::parseTextTable(file.readAll().toStdString());
    }
};

namespace {

struct State {
    std::string pluginFolder = ".";
    kdhost::Language language = kdhost::Language::English;
    std::vector<std::unique_ptr<KdModule>> modules;
};

/// Never destroyed: a module may still be freed by a finaliser at the end of the process.
State& state() {
    static auto* const instance = new State;
    return *instance;
}

/// Null for a handle that isn't loaded.
KdModule* loaded(HINSTANCE handle) {
    const auto& modules = state().modules;
    const auto found =
        std::find_if(modules.begin(), modules.end(), [&](const auto& module) { return module.get() == handle; });
    return found == modules.end() ? nullptr : found->get();
}

std::wstring withoutDll(std::wstring name) {
    constexpr std::wstring_view suffix = L".dll";
    if (name.ends_with(suffix)) name.resize(name.size() - suffix.size());
    return name;
}

}  // namespace

namespace kdhost {

void setPluginFolder(const std::string& folder) {
    state().pluginFolder = folder.empty() ? "." : folder;
}

const std::string& pluginFolder() {
    return state().pluginFolder;
}

std::string pluginPath(const std::string& name) {
    return name.find('/') == std::string::npos ? pluginFolder() + "/" + name : name;
}

std::wstring fileNameOf(const std::wstring& path) {
    return path.substr(path.find_last_of(L'/') + 1);
}

void setLanguage(Language language) {
    state().language = language;
}

Language language() {
    return state().language;
}

const std::wstring* moduleText(HINSTANCE handle, unsigned number) {
    KdModule* const module = loaded(handle);
    if (module == nullptr) return nullptr;
    const std::wstring* text = module->text(language(), number);
    return text != nullptr ? text : module->text(Language::English, number);
}

std::wstring moduleResourceName(HINSTANCE handle) {
    const KdModule* module = loaded(handle);
    return module == nullptr ? std::wstring() : module->resourceName;
}

}  // namespace kdhost

HINSTANCE LoadResourceDll(const wchar_t* name) {
    if (kdhost::faults().noResourceModule || name == nullptr || *name == L'\0') return nullptr;
    const std::string path = kdhost::pluginPath(kdhost::toUtf8(name));
    auto& modules = state().modules;
    const auto known =
        std::find_if(modules.begin(), modules.end(), [&](const auto& module) { return module->path == path; });
    if (known != modules.end()) {
        ++(*known)->references;
        return known->get();
    }
    auto module = std::make_unique<KdModule>();
    module->library.reset(::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!module->library) return nullptr;
    module->path = path;
    module->resourceName = withoutDll(kdhost::fileNameOf(name));
    return modules.emplace_back(std::move(module)).get();
}

int FreeLibrary(HINSTANCE handle) {
    KdModule* const module = loaded(handle);
    if (module == nullptr) return 0;
    if (--module->references == 0) {
        std::erase_if(state().modules, [&](const auto& candidate) { return candidate.get() == module; });
    }
    return 1;
}

int LoadStringW(HINSTANCE module, unsigned number, wchar_t* buffer, int length) {
    const std::wstring* text = kdhost::moduleText(module, number);
    if (text == nullptr || buffer == nullptr || length <= 0) return 0;
    const std::size_t count = std::min(text->size(), static_cast<std::size_t>(length) - 1);
    std::wmemcpy(buffer, text->data(), count);
    buffer[count] = L'\0';
    return static_cast<int>(count);
}

int GetKdadProductPreName(wchar_t* buffer) {
    if (buffer != nullptr) *buffer = L'\0';
    return 0;
}
