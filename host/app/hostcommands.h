// The host's own commands.
#pragma once

namespace kdhost {

/// Registers them with the command stack, so that they are found like those of modules; once however often
/// it is asked.
void registerHostCommands();
void unregisterHostCommands();

}  // namespace kdhost
