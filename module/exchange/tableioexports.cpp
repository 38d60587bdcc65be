// The exported functions that read tables from files. Their names speak of spreadsheets and sheets; the one kind
// of file there is, is comma-separated text, which is a sheet itself.

#include <cstddef>
#include <cstring>

#include "module/core/resources.h"
#include "module/exchange/tableiocsv.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace {

constexpr int kindOfCsv = 1;

/// Runs a reader's operation and keeps its result as the record's status. Nothing that it throws gets out: the
/// status is 1 then, and a thrown wide string is the text for the user.
template <class Operation>
void runReader(struTableIoInfo& info, Operation operation) {
    const ResourceScope resources;
    try {
        info.status = operation();
    } catch (const std::wstring& text) {
        info.status = 1;
        info.error = text;
    } catch (const wchar_t* text) {
        info.status = 1;
        info.error = text;
    } catch (...) {
        info.status = 1;
    }
}

/// What stands in an object's table of virtual functions for GetSubNameList.
const void* namesSlot(const CVqTableIOHandle& reader) {
    // Two destructors, OutHandle and InHandle stand before it.
    constexpr std::size_t slot = 4;
    const void* const* functions = nullptr;
    std::memcpy(&functions, static_cast<const void*>(&reader), sizeof functions);
    return functions[slot];
}

/// A reader without names of its own.
class NamelessReader : public CVqTableIOHandle {
    int OutHandle(const KdDbTable*, const wchar_t*, const wchar_t*, const wchar_t*) override { return 1; }
    int InHandle(CStdStr<wchar_t>&, const wchar_t*, KdDbTable*&, const wchar_t*, const wchar_t*) override { return 1; }
};

/// Whether the reader has its own GetSubNameList. A reader that hasn't is not asked, so that the record's status
/// stays what it was.
bool tellsNames(const CVqTableIOHandle& reader) {
    static const NamelessReader nameless;
    return namesSlot(reader) != namesSlot(nameless);
}

}  // namespace

CVqTableIOHandle* CreateTableIOHandle(int kind) {
    return kind == kindOfCsv ? new CVqTableIOCSV : nullptr;
}

void tvxtableImportTableFromExlSE(struTableIoInfo* info) {
    if (info == nullptr) return;
    runReader(*info, [info] {
        if (info->handle == nullptr) return 1;
        return info->handle->InHandle(info->error, info->file, info->table, info->sheet, info->range);
    });
}

int ImportTableFromCSV(struTableIoInfo* info) {
    if (info == nullptr || info->handle == nullptr) return 0;
    tvxtableImportTableFromExlSE(info);
    return 0;
}

int GetSheetsNameFromCSV(void* info) {
    auto* const record = static_cast<struTableIoInfo*>(info);
    if (record == nullptr || record->handle == nullptr || !tellsNames(*record->handle)) return 0;
    runReader(*record, [record] {
        std::vector<CStdStr<wchar_t>> unwanted;
        return record->handle->GetSubNameList(record->file,
                                              record->sheetNames != nullptr ? *record->sheetNames : unwanted);
    });
    return 0;
}

int GetSheetsNameFromExl(void* info) {
    return GetSheetsNameFromCSV(info);
}
