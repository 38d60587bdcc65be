// What is run with faults: an act of a user, as the lines of a script, and what may be left of it when something in it
// fails.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kdtest {

/// A result that is neither nothing nor the whole, and is as it should be.
struct Partial {
    const char* act;     ///< lines whose whole result it is
    const char* reason;  ///< the rule
};

struct Scenario {
    std::string name;
    std::string setUp;  ///< what the drawing is before; nothing of it fails
    std::string ready;  ///< what the user does right before the act, which is no part of it
    std::string act;
    std::vector<Partial> partials = {};
    bool tells = false;  ///< a command of the host, which says so when it can't do its work
    int share = 1;       ///< of what other scenarios fail too, every so many openings only
};

inline void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

/// The scenarios by subject.
std::vector<Scenario> toolbarScenarios();
std::vector<Scenario> contextMenuScenarios();
std::vector<Scenario> keywordScenarios();
std::vector<Scenario> dialogScenarios();
std::vector<Scenario> clipboardScenarios();
std::vector<Scenario> editingScenarios();
std::vector<Scenario> fileScenarios();

/// Two tables of 5 rows and 4 columns in the drawing, the first from (0, 200) on, the second from (400, 200) on.
extern const char* const kTables;

}  // namespace kdtest
