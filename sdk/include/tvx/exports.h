// The functions that the table module exports, beside the two that every module has.
#pragma once

#include <cstdint>

class KdDbObjectId;
class CVqTableIOHandle;
struct struTableIoInfo;

#define TVX_EXPORT __attribute__((visibility("default")))

extern "C" {

/// A reader of the kind: 1 comma-separated text; null for any other. To be given back by Release().
TVX_EXPORT CVqTableIOHandle* CreateTableIOHandle(int kind);
/// Reads the record's file through its handle; status tells the result.
TVX_EXPORT void tvxtableImportTableFromExlSE(struTableIoInfo* info);
/// The same, safe against what readers throw. Always 0.
TVX_EXPORT int ImportTableFromCSV(struTableIoInfo* info);
/// Puts the names of the file's tables into the record's list. Always 0. A status of 1 with a reader of
/// comma-separated text is no failure: such a file has no names.
TVX_EXPORT int GetSheetsNameFromCSV(void* info);
TVX_EXPORT int GetSheetsNameFromExl(void* info);
/// Shows or hides the table toolbar for a table. The host calls it when a cell selection starts or ends.
TVX_EXPORT bool showTableToolBar(KdDbObjectId table, bool show);

TVX_EXPORT std::intptr_t kdrxEntryPoint(std::uint32_t message, void* argument);
TVX_EXPORT std::uint32_t kdrxGetApiVersion();
}
