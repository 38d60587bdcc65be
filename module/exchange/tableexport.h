// The TABLEEXPORT command: a table as comma-separated text.
#pragma once

#include <optional>
#include <string>

/// Asks for a table, unless one was selected before, and for a file name, and writes the table. The result has no
/// meaning.
long tableExportEntry();

/// Asks in the host's file dialog for the file to be written. Nothing when the user cancels.
std::optional<std::wstring> fileNameFromDialog();
