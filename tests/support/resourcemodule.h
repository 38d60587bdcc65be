// The module's resources for a test: loaded, and their handle in place, until it ends.
#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "mfc/resource.h"
#include "win32/module.h"

namespace kdtest {

class ResourceModule {
public:
    ResourceModule() : m_kept(AfxGetResourceHandle()) { load(); }
    ~ResourceModule() {
        unload();
        AfxSetResourceHandle(m_kept);
    }
    ResourceModule(const ResourceModule&) = delete;
    ResourceModule& operator=(const ResourceModule&) = delete;

    HINSTANCE handle() const { return m_handle; }

    void load() {
        m_handle = LoadResourceDll(L"TvxTableRes.dll");
        EXPECT_NE(m_handle, nullptr);
        AfxSetResourceHandle(m_handle);
    }
    /// As if there were no resources, until they are loaded again. A handle of before is none of theirs then.
    void unload() {
        AfxSetResourceHandle(nullptr);
        if (m_handle == nullptr) return;
        EXPECT_NE(FreeLibrary(std::exchange(m_handle, nullptr)), 0);
    }

private:
    HINSTANCE m_kept;
    HINSTANCE m_handle = nullptr;
};

}  // namespace kdtest
