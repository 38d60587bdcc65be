// Running of commands: a word from the input is looked up among the registered commands and run.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/db/access.h"

namespace kdhost {

class Editor;
struct CommandRecord;

/// Reads words and runs the commands they name, until the input source has nothing more.
void runCommands();
/// The same with what stands in the queue of the active document; the source is not asked for a command's
/// name, though a command may ask it for answers.
void runQueuedCommands();
/// Runs one command now, as if its name had been typed.
void runCommand(const CommandRecord& command);

/// Carries out `action` as soon as no command runs any more.
void afterCommands(std::function<void()> action);

/// Names of the running commands, the outermost first, joined by "'"; empty outside of commands.
std::wstring runningCommandNames();
/// Whose command runs now; null when none does.
const Editor* editorOfRunningCommand();

/// Objects that a command left open, with the command's name; gathered until taken.
struct LeftOpen {
    std::wstring command;
    std::vector<OpenObject> objects;
};
std::vector<LeftOpen> takeLeftOpen();

}  // namespace kdhost
