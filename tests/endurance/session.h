// One run of the program, as kdhost makes it without a display, in an empty folder of its own.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace endurance {

struct Outcome {
    std::string failure;  ///< empty when all held
    std::string journal;  ///< a script for kdhost
    std::string dump;     ///< at the end
    int actions = 0;
    std::map<std::string, int> counts;  ///< by action
};

/// The language of a run follows from its seed.
Outcome runSession(std::uint64_t seed, int actions);

/// Plays a journal, or what is left of one that somebody has shortened, with the same checks.
Outcome replay(const std::string& journal);

/// What kdhost itself dumps after the journal, started as a program of its own; empty when it fails.
std::string dumpOfProgram(const std::string& journal);

}  // namespace endurance
