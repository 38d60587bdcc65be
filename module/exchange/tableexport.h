// The TABLEEXPORT command: a table as comma-separated text.
#pragma once

/// Asks for a table, unless one was selected before, and for a file name, and writes the table. The result has no
/// meaning.
long tableExportEntry();
