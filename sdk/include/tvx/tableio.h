// Reading of tables from files: the record and the interface that the table module's reading functions use.
#pragma once

#include <cstdint>
#include <vector>

#include "mfc/stdstr.h"

class KdDbDatabase;
class KdDbTable;

/// A reader of tables. Reference-counted: one reference at construction, gone with the last Release().
class CVqTableIOHandle {
public:
    CVqTableIOHandle() = default;
    CVqTableIOHandle(const CVqTableIOHandle&) = delete;
    CVqTableIOHandle& operator=(const CVqTableIOHandle&) = delete;
    virtual ~CVqTableIOHandle() = default;

    /// Reserved for writing. Non-zero: nothing done.
    virtual int OutHandle(const KdDbTable* table, const wchar_t* file, const wchar_t* sheet, const wchar_t* range) = 0;
    /// Reads a file into a new table, which is the caller's. 0 on success; `error` may then stay empty.
    virtual int InHandle(CStdStr<wchar_t>& error, const wchar_t* file, KdDbTable*& table, const wchar_t* sheet,
                         const wchar_t* range) = 0;
    /// Names of the tables in a file.
    virtual int GetSubNameList(const wchar_t* file, std::vector<CStdStr<wchar_t>>& names);
    virtual std::int64_t AddRef();
    virtual std::int64_t Release();

protected:
    std::int64_t m_referenceCount = 1;
    KdDbDatabase* m_database = nullptr;
};

/// What the reading functions take and give.
struct struTableIoInfo {
    CVqTableIOHandle* handle = nullptr;                   ///< in: the reader
    KdDbTable* table = nullptr;                           ///< out: the table made; the caller's
    const wchar_t* file = nullptr;                        ///< in: path
    const wchar_t* sheet = nullptr;                       ///< in: a sheet's name, may be null
    const wchar_t* range = nullptr;                       ///< in: not used by the readers there are
    std::int32_t status = 0;                              ///< out: 0 good; non-zero failed
    std::vector<CStdStr<wchar_t>>* sheetNames = nullptr;  ///< in: where names are put
    CStdStr<wchar_t> error;                               ///< out: a text for the user, may stay empty
};
