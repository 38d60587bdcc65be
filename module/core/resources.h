// The module's resource handle, its scope, and the loading of texts.
#pragma once

#include "mfc/stdstr.h"
#include "win32/module.h"

/// The loaded resource module; null after the module was unloaded.
extern HINSTANCE hLibModule;
/// The same handle, read when the application object is initialised.
extern HINSTANCE _hdllInstance;

/// The module's record at the host. The module never writes it.
struct CKdExtensionModule {
    void* m_reserved1 = nullptr;
    void* m_reserved2 = nullptr;
    HINSTANCE m_resourceInstance = nullptr;  ///< serves where hLibModule is null
};
extern CKdExtensionModule TvxTable;

/// Puts a resource handle in place for its lifetime, the module's where no other is given, and then puts back the one
/// before, also when an exception passes.
class ResourceScope {
public:
    ResourceScope();
    explicit ResourceScope(HINSTANCE handle);
    ~ResourceScope();
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;

private:
    HINSTANCE m_kept;
};

/// Text `number` of the current resource handle, cut at 1023 characters; empty when it is missing.
CStdStr<wchar_t> loadText(unsigned number);
