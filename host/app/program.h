// The program as a function, so that its start is more than main().
#pragma once

namespace kdhost {

/// Returns the exit status: 0 done, 1 failed, 2 wrong arguments.
int runProgram(int argc, char** argv);

}  // namespace kdhost
