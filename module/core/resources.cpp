// The resource handle's scope and the text loader.

#include "module/core/resources.h"

#include <array>

#include "mfc/resource.h"

HINSTANCE hLibModule = nullptr;
HINSTANCE _hdllInstance = nullptr;
CKdExtensionModule TvxTable;

ResourceScope::ResourceScope() : ResourceScope(hLibModule != nullptr ? hLibModule : TvxTable.m_resourceInstance) {}

ResourceScope::ResourceScope(HINSTANCE handle) : m_kept(AfxGetResourceHandle()) {
    AfxSetResourceHandle(handle);
}

ResourceScope::~ResourceScope() {
    AfxSetResourceHandle(m_kept);
}

CStdStr<wchar_t> loadText(unsigned number) {
    std::array<wchar_t, 1024> buffer{};
    LoadStringW(AfxGetResourceHandle(), number, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}
