// The reader of comma-separated text.
#pragma once

#include <QStringList>
#include <QVector>

#include "tvx/tableio.h"

/// Reads a file of comma-separated text into a new table of style "Standard". What a row and a field is, is told
/// in csvlines.h.
class CVqTableIOCSV : public CVqTableIOHandle {
public:
    /// Tables are made for the working database of the host.
    CVqTableIOCSV();
    ~CVqTableIOCSV() override;

    /// Writing is done elsewhere: 1, and nothing done.
    int OutHandle(const KdDbTable* table, const wchar_t* file, const wchar_t* sheet, const wchar_t* range) override;
    /// 0, or 1 with `table` null: a file that can't be read or isn't UTF-8 tells nothing in `error`, a drawing
    /// without table styles does. Sheet and range don't matter.
    int InHandle(CStdStr<wchar_t>& error, const wchar_t* file, KdDbTable*& table, const wchar_t* sheet,
                 const wchar_t* range) override;
    /// The file is its only table and has no name: 1, and the list as it was. That is no failure.
    int GetSubNameList(const wchar_t* file, std::vector<CStdStr<wchar_t>>& names) override;

    /// Makes a table in memory, which is the caller's, and fills it with the first `rows` lines of `data`, none
    /// of them wider than `columns`. 1, with `table` null, when the drawing has no table styles.
    int CreateATable(int rows, int columns, KdDbTable*& table, const QVector<QStringList>& data) const;
};
