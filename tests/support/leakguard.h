// The leak guard: after every test nothing is open, no breach of the open discipline happened and the
// resource handle is what it was, unless the test lists what a told failure path leaves.
#pragma once

#include <string>

namespace kdtest {

/// Watches every test of the program.
void installLeakGuard();

/// Lets the running test end with that many objects open.
void allowOpenObjects(int count);

/// Lets the running test end with a breach whose text contains `part`, which must happen.
void expectDisciplineBreach(const std::string& part);

}  // namespace kdtest
