// TABLEIMPORT: a file of comma-separated text becomes a table of the drawing.
#pragma once

namespace kdhost {

/// Asks for a file name, which may hold blanks, and for the table's insertion point. The file is read by the
/// functions that the table module exports.
void importTable();

}  // namespace kdhost
