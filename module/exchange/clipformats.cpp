// The clipboard's formats, and what is read in them.

#include <algorithm>
#include <memory>

#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipmemory.h"
#include "win32/types.h"

CLIPFORMAT CVqTableClipDataMgr::m_cfAcTable = 0;
CLIPFORMAT CVqTableClipDataMgr::m_cfAcMText = 0;
CLIPFORMAT CVqTableClipDataMgr::m_cfAutoCAD = 0;

namespace {

constexpr int kDrawingFormatVersion = 19;

CLIPFORMAT formatOf(const wchar_t* name) {
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name));
}

/// Line ends of two characters become carriage returns.
std::wstring withSingleLineEnds(const wchar_t* text) {
    std::wstring single;
    for (; *text != L'\0'; ++text) {
        single += *text;
        if (text[0] == L'\r' && text[1] == L'\n') ++text;
    }
    return single;
}

/// UTF-8 as wide text; empty when it isn't UTF-8.
std::wstring decoded(const char* bytes) {
    const int length = MultiByteToWideChar(CP_UTF8, 0, bytes, -1, nullptr, 0);
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes, -1, text.data(), length);
    return withSingleLineEnds(text.c_str());
}

/// Frees a block of global memory with its scope.
struct BlockDeleter {
    void operator()(void* block) const { GlobalFree(block); }
};

/// Plain text comes as a block of global memory that is the reader's. 0 without text.
int readPlainText(const COleDataObject& object, CLIPFORMAT format, KdString& text) {
    const std::unique_ptr<void, BlockDeleter> block(object.GetGlobalData(format));
    const auto* bytes = static_cast<const char*>(GlobalLock(block.get()));
    if (bytes == nullptr) return 0;
    text = decoded(bytes);
    GlobalUnlock(block.get());
    return text.isEmpty() ? 0 : 1;
}

}  // namespace

CLIPFORMAT CVqTableClipDataMgr::GetAutoCADClipFormat() {
    if (m_cfAutoCAD == 0) {
        KdString name;
        name.format(L"AutoCAD.r%d", kDrawingFormatVersion);
        m_cfAutoCAD = formatOf(name.kwszPtr());
    }
    return m_cfAutoCAD;
}

CLIPFORMAT CVqTableClipDataMgr::GetAcTableClipFormat() {
    return m_cfAcTable = formatOf(L"CF_ACTABLE_CELLS");
}

CLIPFORMAT CVqTableClipDataMgr::GetAutoCADUnicodeMTextClipFormat() {
    return m_cfAcMText = formatOf(L"AutoCAD Unicode MText Clipboard Data");
}

int CVqTableClipDataMgr::GetAcTableClipboardData(const COleDataObject& object, tagVqTableClipboardInfo& info) {
    const CLIPFORMAT format = GetAcTableClipFormat();
    if (!object.IsDataAvailable(format)) return 0;
    readFromClipboard(object, format, &info, sizeof info);
    return 1;
}

int CVqTableClipDataMgr::GetAutoCADMTextClipboardData(const COleDataObject& object, KdString& text) {
    std::wstring found;
    if (!readFromClipboard(object, GetAutoCADUnicodeMTextClipFormat(), found) || found.empty()) return 0;
    text = found;
    return 1;
}

int CVqTableClipDataMgr::GetTextClipboardData(const COleDataObject& object, KdString& text) {
    text = KdString();
    if (GetAutoCADMTextClipboardData(object, text) != 0) return 1;
    const CLIPFORMAT internalText = formatOf(L"VQCAD Internal text Clipboard Data");
    if (object.IsDataAvailable(internalText)) {
        std::wstring found;
        if (!readFromClipboard(object, internalText, found)) return 0;
        text = found;
        return 1;
    }
    const CLIPFORMAT plainText = formatOf(L"text/plain");
    return object.IsDataAvailable(plainText) ? readPlainText(object, plainText, text) : 0;
}
