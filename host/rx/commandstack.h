// The commands that the host and its modules have registered, as the command line looks them up.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kd/rx/commandstack.h"

namespace kdhost {

/// One registered command.
struct CommandRecord {
    std::wstring group;
    std::wstring globalName;
    std::wstring localName;  ///< empty when its text was missing
    int flags = 0;
    KdEdCommandFunction function = nullptr;
    void* context = nullptr;
    int fcode = -1;
    HINSTANCE resource = nullptr;
};

/// The process's one command stack; it is never destroyed.
KdEdCommandStack& commandStack();

/// The command that a typed word asks for, without regard to case: a leading underscore asks for the
/// global name; another word is looked for among the local names and then among the global ones. Of several
/// commands of one name the one registered first answers, so that no module hides a command of the host.
/// The record is a copy: a command may unregister itself while it runs.
std::optional<CommandRecord> findCommand(const std::wstring& word);

/// Every command, in the order of registering.
std::vector<CommandRecord> registeredCommands();

/// The names that continue what has been typed, sorted, each once. After a leading underscore these are
/// global names, which keep the underscore; otherwise local ones, or the global name of a command that has
/// no local name.
std::vector<std::wstring> commandCompletions(const std::wstring& typed);

}  // namespace kdhost
