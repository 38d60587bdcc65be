// What a table holds beyond the standard codes: a record in its extension dictionary.
//
// The record is versioned and tells to which standard codes it belongs: a fingerprint of the whole table, and one for
// each cell that it speaks of. Where another program has changed a cell since, the standard codes count for it.
#pragma once

#include <vector>

#include "host/db/tablestate.h"
#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

inline constexpr const char* kExtrasKey = "KDHOST_EXTRAS";

/// The fingerprints of a table's standard codes.
struct TablePrints {
    std::int64_t whole = 0;
    std::vector<std::int64_t> cells;  ///< row by row
};

/// Of the tags of the subclass.
TablePrints fingerprintsOf(TagSpan tags);

/// Whether the table holds anything that the standard codes don't tell.
bool needsExtras(const TableState& table);
/// The tags of the record behind its head.
void writeTableExtras(SaveContext& context, const TableState& table, const TablePrints& prints);

/// A table as it is read, before its rows stand in it.
struct LoadedTable {
    std::vector<TableRow> rows;
    std::vector<std::wstring> styles;  ///< of rows and cells, whose places are indices here; the first three are the
                                       ///< standard ones
};
void readTableExtras(LoadContext& context, TagSpan tags, const TablePrints& prints, LoadedTable& table);

/// The cell style of a row of which nothing is said.
std::uint16_t usualRowStyle(int row, bool titleSuppressed, bool headerSuppressed);

}  // namespace kdhost::file
