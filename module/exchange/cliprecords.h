// What lies on the clipboard when cells were copied: two records, each of which names the temporary drawing that holds
// a table of just these cells. Other programs read them too, so every size and place is fixed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <string>

/// The record of the format "CF_ACTABLE_CELLS". Only the name, the rows and the columns are read back here.
struct tagVqTableClipboardInfo {
    wchar_t m_fileName[1024];    ///< full path of the temporary drawing
    std::int32_t m_rows;         ///< of the copied cells
    std::int32_t m_columns;      ///< of the copied cells
    std::int32_t m_version;      ///< 12
    std::int32_t m_reserved;     ///< 0
    std::int64_t m_sourceTable;  ///< id of the table copied from, in the copying program
    std::int32_t m_firstRow;     ///< of the copied cells in that table
    std::int32_t m_firstColumn;
};
static_assert(sizeof(wchar_t) == 4);
static_assert(offsetof(tagVqTableClipboardInfo, m_fileName) == 0);
static_assert(offsetof(tagVqTableClipboardInfo, m_rows) == 4096);
static_assert(offsetof(tagVqTableClipboardInfo, m_columns) == 4100);
static_assert(offsetof(tagVqTableClipboardInfo, m_version) == 4104);
static_assert(offsetof(tagVqTableClipboardInfo, m_reserved) == 4108);
static_assert(offsetof(tagVqTableClipboardInfo, m_sourceTable) == 4112);
static_assert(offsetof(tagVqTableClipboardInfo, m_firstRow) == 4120);
static_assert(offsetof(tagVqTableClipboardInfo, m_firstColumn) == 4124);
static_assert(sizeof(tagVqTableClipboardInfo) == 4128);

/// The record of the format "AutoCAD.r19", by which other programs insert the temporary drawing.
struct tagVqDrawingClipboardInfo {
    wchar_t m_fileName[260];      ///< full path of the temporary drawing
    wchar_t m_reservedName[260];  ///< 0
    wchar_t m_versionTag[4];      ///< "R15": a fixed label, whatever the version of the file
    std::int64_t m_reserved1;     ///< 0, as all that is reserved
    double m_basePoint[3];        ///< lower left corner of the table
    std::int64_t m_reserved2[2];
    std::int64_t m_reserved3;
    std::int32_t m_reserved4;
    std::int32_t m_reserved5;
    std::int64_t m_reserved6;
};
static_assert(offsetof(tagVqDrawingClipboardInfo, m_fileName) == 0);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reservedName) == 1040);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_versionTag) == 2080);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved1) == 2096);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_basePoint) == 2104);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved2) == 2128);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved3) == 2144);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved4) == 2152);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved5) == 2156);
static_assert(offsetof(tagVqDrawingClipboardInfo, m_reserved6) == 2160);
static_assert(sizeof(tagVqDrawingClipboardInfo) == 2168);

/// Puts a file name into its zeroed field. One that is longer ends the process: a name cut short would lead to another
/// file.
template <std::size_t size>
void putFileName(wchar_t (&field)[size], const std::wstring& name) {
    if (name.size() > size) std::abort();
    std::wmemcpy(field, name.data(), name.size());
}

/// The name in the field, which it may fill to the last character.
template <std::size_t size>
std::wstring fileNameIn(const wchar_t (&field)[size]) {
    return {field, wcsnlen(field, size)};
}
