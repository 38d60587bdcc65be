// Table styles and tables in the dump.
#pragma once

#include <ostream>

#include "host/app/dump/values.h"

class KdDbDatabase;
class KdDbTable;

namespace kdhost::dump {

Json tableStyles(const KdDbDatabase& database);

/// Writes a table, a row of cells on a line. Rows are made one after the other, so that a table of any size
/// takes little room.
void writeTable(std::ostream& out, const KdDbTable& table);

}  // namespace kdhost::dump
