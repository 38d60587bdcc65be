// Tables in and out of a file: the standard codes that other programs know, and beside them what only this one holds.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"
#include "kd/db/table.h"

namespace kdhost::file {

inline constexpr std::string_view kTableName = "ACAD_TABLE";

void writeTable(SaveContext& context, const KdDbTable& table);
void readTable(LoadContext& context, KdDbTable& table, const FileObject& object);

/// The record of the block that shows the table; 0 when it names none.
std::uint64_t blockOfTable(const FileObject& object);

}  // namespace kdhost::file
