// Reading of the program's arguments.

#include "host/app/options.h"

#include <algorithm>
#include <array>

namespace kdhost {
namespace {

/// Empty when the value suits the option, else what is wrong with it.
using Take = std::string (*)(Options& options, const std::string& value);

struct OptionRecord {
    const char* name;
    bool takesValue;
    Take take;
};

template <std::string Options::*member>
std::string takeText(Options& options, const std::string& value) {
    options.*member = value;
    return {};
}

template <bool Options::*member>
std::string takeFlag(Options& options, const std::string&) {
    options.*member = true;
    return {};
}

std::string takeModule(Options& options, const std::string& value) {
    options.modules.push_back(value);
    return {};
}

std::string takeLanguage(Options& options, const std::string& value) {
    if (value != "en" && value != "zh_CN") return "\"" + value + "\" is neither en nor zh_CN";
    options.language = value == "en" ? Language::English : Language::Chinese;
    return {};
}

constexpr std::array kOptions = {
    OptionRecord{"--help", false, takeFlag<&Options::help>},
    OptionRecord{"--headless", false, takeFlag<&Options::headless>},
    OptionRecord{"--load", true, takeModule},
    OptionRecord{"--open", true, takeText<&Options::open>},
    OptionRecord{"--script", true, takeText<&Options::script>},
    OptionRecord{"--lang", true, takeLanguage},
    OptionRecord{"--dump", true, takeText<&Options::dump>},
    OptionRecord{"--render", true, takeText<&Options::render>},
    OptionRecord{"--save", true, takeText<&Options::save>},
    OptionRecord{"--insert-tables", false, takeFlag<&Options::insertTables>},
};

std::string refuse(const std::string& option, const std::string& what) {
    return what.empty() ? what : option + ": " + what;
}

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const std::string& name = *argument;
        const auto option =
            std::find_if(kOptions.begin(), kOptions.end(), [&](const OptionRecord& o) { return o.name == name; });
        if (option == kOptions.end()) {
            parsed.error = refuse(name, "there is no such option");
        } else if (option->takesValue && (argument + 1 == arguments.end() || (argument + 1)->empty())) {
            parsed.error = refuse(name, "a value is missing");
        } else {
            parsed.error = refuse(name, option->take(parsed.options, option->takesValue ? *++argument : name));
        }
        if (!parsed.error.empty()) return parsed;
    }
    return parsed;
}

std::string usage() {
    return "kdhost [--headless] [--load MODULE.tvx ...] [--open DRAWING] [--script FILE] [--lang en|zh_CN]\n"
           "       [--dump FILE.json] [--render FILE.png|.svg|.pdf] [--save DRAWING] [--insert-tables]\n"
           "\n"
           "Without --load the table module beside the program is loaded.\n"
           "With --insert-tables each table is saved as a block, too, for programs that show no tables.\n"
           "With a window, the program stays open after the script and the outputs until QUIT. Without a display it\n"
           "runs as with --headless, if there is a script or an output to make.\n"
           "Exit status: 0 done; 1 the script, an output or an object left open failed; 2 wrong arguments.\n";
}

}  // namespace kdhost
