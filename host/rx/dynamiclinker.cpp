// The dynamic linker: maps a module, exchanges its messages and really unmaps it.

#include "host/rx/dynamiclinker.h"

#include <dlfcn.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "host/rx/encoding.h"
#include "host/win32/modules.h"

KDRX_DEFINE_MEMBERS(KdRxDynamicLinker, KdRxObject)

namespace kdhost {
namespace {

struct LibraryCloser {
    void operator()(void* library) const { ::dlclose(library); }
};

struct LoadedModule {
    std::wstring fileName;
    std::unique_ptr<void, LibraryCloser> library;
    KdRxEntryPoint entryPoint = nullptr;
    std::uint32_t apiVersion = 0;
    bool unloadAllowed = false;
    bool documentAware = false;
    int messagesRunning = 0;
};

std::function<int()>& openDocumentCount() {
    static auto* const count = new std::function<int()>;
    return *count;
}

LoadedModule*& messagedModule() {
    static LoadedModule* module = nullptr;
    return module;
}

/// Notes for the time of one message which module handles it.
class MessageScope {
public:
    explicit MessageScope(LoadedModule& module) : m_module(module), m_outer(std::exchange(messagedModule(), &module)) {
        ++m_module.messagesRunning;
    }
    ~MessageScope() {
        --m_module.messagesRunning;
        messagedModule() = m_outer;
    }
    MessageScope(const MessageScope&) = delete;
    MessageScope& operator=(const MessageScope&) = delete;

private:
    LoadedModule& m_module;
    LoadedModule* m_outer;
};

std::intptr_t send(LoadedModule& module, std::uint32_t message, void* argument) {
    const MessageScope scope(module);
    return module.entryPoint(message, argument);
}

void sendForEachDocument(LoadedModule& module, std::uint32_t message) {
    const int documents = openDocumentCount() ? openDocumentCount()() : 0;
    for (int i = 0; i < documents; ++i) send(module, message, nullptr);
}

/// False when `work` ends by an exception. The exception is gone on return: its type may live in a module that
/// is unmapped next.
template <class Work>
bool completes(Work work) {
    try {
        work();
        return true;
    } catch (...) {
        return false;
    }
}

/// Start of the library that holds an address.
const void* libraryOf(const void* address) {
    Dl_info info{};
    return ::dladdr(address, &info) == 0 ? nullptr : info.dli_fbase;
}

class DynamicLinker final : public KdRxDynamicLinker {
public:
    bool allowUnload(void* applicationId) override { return mark(applicationId, &LoadedModule::unloadAllowed); }
    bool isUnloadAllowed(void* applicationId) const override {
        const LoadedModule* module = find(applicationId);
        return module != nullptr && module->unloadAllowed;
    }
    bool declareDocumentAware(void* applicationId) override {
        return mark(applicationId, &LoadedModule::documentAware);
    }
    bool isDocumentAware(void* applicationId) const override {
        const LoadedModule* module = find(applicationId);
        return module != nullptr && module->documentAware;
    }

    bool loadModule(const wchar_t* path) override {
        m_error = load(path == nullptr ? L"" : path);
        return m_error.empty();
    }

    bool unloadModule(const wchar_t* path) override {
        LoadedModule* const module = path == nullptr ? nullptr : findName(path);
        // A module that is handling a message would come back into code that is gone.
        if (module == nullptr || !module->unloadAllowed || module->messagesRunning > 0) return false;
        completes([&] { sendForEachDocument(*module, KdRx::kUnloadDwgMsg); });
        completes([&] { send(*module, KdRx::kUnloadAppMsg, module); });
        discard(module);
        return true;
    }

    bool isModuleLoaded(const wchar_t* path) const override { return path != nullptr && findName(path) != nullptr; }

    LoadedModule* findName(const std::wstring& path) const {
        const std::wstring name = fileNameOf(path);
        const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                        [&](const auto& module) { return module->fileName == name; });
        return found == m_modules.end() ? nullptr : found->get();
    }

    LoadedModule* find(const void* applicationId) const {
        const auto found = std::find_if(m_modules.begin(), m_modules.end(),
                                        [&](const auto& module) { return module.get() == applicationId; });
        return found == m_modules.end() ? nullptr : found->get();
    }

    const std::vector<std::unique_ptr<LoadedModule>>& modules() const { return m_modules; }
    const std::wstring& error() const { return m_error; }

private:
    bool mark(void* applicationId, bool LoadedModule::*flag) {
        LoadedModule* const module = find(applicationId);
        if (module == nullptr) return false;
        module->*flag = true;
        return true;
    }

    void discard(const LoadedModule* module) {
        std::erase_if(m_modules, [&](const auto& candidate) { return candidate.get() == module; });
    }

    /// Empty on success, else what is wrong.
    std::wstring load(const std::wstring& path) {
        if (path.empty()) return L"no module name";
        if (findName(path) != nullptr) return path + L": is loaded already";

        auto module = std::make_unique<LoadedModule>();
        module->fileName = fileNameOf(path);
        module->library.reset(::dlopen(pluginPath(toUtf8(path)).c_str(), RTLD_NOW | RTLD_LOCAL));
        if (!module->library) return fromUtf8(::dlerror());
        module->entryPoint = reinterpret_cast<KdRxEntryPoint>(::dlsym(module->library.get(), "kdrxEntryPoint"));
        const auto version = reinterpret_cast<KdRxGetApiVersion>(::dlsym(module->library.get(), "kdrxGetApiVersion"));
        if (module->entryPoint == nullptr || version == nullptr) {
            return path + L": is no module, kdrxEntryPoint or kdrxGetApiVersion is missing";
        }
        module->apiVersion = version();

        LoadedModule& loaded = *m_modules.emplace_back(std::move(module));
        const bool initialised = completes([&] {
            send(loaded, KdRx::kInitAppMsg, &loaded);
            sendForEachDocument(loaded, KdRx::kLoadDwgMsg);
        });
        if (initialised) return {};
        discard(&loaded);
        return path + L": failed to initialise";
    }

    std::vector<std::unique_ptr<LoadedModule>> m_modules;
    std::wstring m_error;
};

DynamicLinker& linker() {
    static auto* const instance = new DynamicLinker;
    return *instance;
}

}  // namespace

KdRxDynamicLinker& dynamicLinker() {
    return linker();
}

void setOpenDocumentCount(std::function<int()> count) {
    openDocumentCount() = std::move(count);
}

void* findExport(const std::wstring& moduleName, const char* symbol) {
    const LoadedModule* module = linker().findName(moduleName);
    if (module == nullptr || symbol == nullptr) return nullptr;
    void* const address = ::dlsym(module->library.get(), symbol);
    // The libraries below a module are searched too, and what they export is not the module's.
    const bool own = libraryOf(address) == libraryOf(reinterpret_cast<void*>(module->entryPoint));
    return own ? address : nullptr;
}

std::intptr_t sendMessage(void* applicationId, std::uint32_t message, void* argument) {
    LoadedModule* const module = linker().find(applicationId);
    return module == nullptr ? 0 : send(*module, message, argument);
}

void sendMessage(std::uint32_t message, void* argument) {
    // By id, since a module may load or unload another one while it handles the message.
    for (void* id : loadedApplications()) sendMessage(id, message, argument);
}

void* applicationId(const std::wstring& moduleName) {
    return linker().findName(moduleName);
}

void* messagedApplication() {
    return messagedModule();
}

std::vector<void*> loadedApplications() {
    std::vector<void*> ids;
    for (const auto& module : linker().modules()) ids.push_back(module.get());
    return ids;
}

std::uint32_t apiVersion(void* applicationId) {
    const LoadedModule* module = linker().find(applicationId);
    return module == nullptr ? 0 : module->apiVersion;
}

const std::wstring& lastLoadError() {
    return linker().error();
}

}  // namespace kdhost
