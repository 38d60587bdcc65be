// What is run with faults: an act of a user, as the lines of a script, and what may be left of it when something in it
// fails.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kdtest {

/// A result that is neither nothing nor the whole, and is as it should be.
struct Partial {
    std::string act;         ///< lines whose whole result it is; empty where no act leads there
    std::string reason;      ///< the rule
    std::string holds = {};  ///< without an act: what the drawing holds, as its dump tells it
};

struct Scenario {
    std::string name;
    std::string setUp;  ///< what the drawing is before; nothing of it fails
    std::string ready;  ///< what the user does right before the act, which is no part of it
    std::string act;
    std::vector<Partial> partials = {};
    /// A command of the host, which says so when it can't do its work.
    bool tells = false;
    /// Of what fails alike in other scenarios, every so many only.
    int share = 1;
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
