// The arguments of the program.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/win32/modules.h"

namespace kdhost {

struct Options {
    bool help = false;
    bool headless = false;
    std::vector<std::string> modules;
    std::string open;
    std::string script;
    std::string dump;
    std::string render;
    std::string save;
    bool insertTables = false;         ///< drawings are written for programs that know no tables, too
    std::optional<Language> language;  ///< none: as the user chose, or English
};

struct ParsedOptions {
    Options options;
    std::string error;  ///< one line; empty when the arguments are right
};

/// `arguments` without the program's own name.
ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/// What the program takes, for a person.
std::string usage();

}  // namespace kdhost
