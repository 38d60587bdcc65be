// The program kdhost as a function: it reads the arguments, starts the application, runs the script or the window, and
// writes what was asked for. Commands, the window, cells under the mouse, scripts and the dump are its parts, each in
// files of its own.
#pragma once

namespace kdhost {

/// Returns the exit status: 0 done, 1 failed, 2 wrong arguments.
int runProgram(int argc, char** argv);

}  // namespace kdhost
