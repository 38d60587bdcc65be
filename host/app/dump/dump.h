// The dump: what a drawing holds, as JSON for scripts and tests. It reads without opening.
#pragma once

#include <ostream>
#include <string>

namespace kdhost {

class Document;

/// UTF-8, keys in a fixed order, numbers with full precision.
void writeDump(std::ostream& out, Document& document);

/// Empty on success, else one line that says what is wrong. The file is written whole or not at all.
std::string writeDumpFile(const std::string& path, Document& document);

}  // namespace kdhost
