// The lines of a script that begin with "@".
#pragma once

#include <string>

namespace kdhost {

class ScriptRunner;

/// Carries out a line given without its "@"; a line that can't be carried out fails the run.
void performAction(ScriptRunner& runner, const std::wstring& line);

}  // namespace kdhost
