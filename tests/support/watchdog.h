// The watchdog: a test that doesn't come to its end, say because no act came for a dialog, ends the run by name
// instead of leaving it to the limit of the whole program.
#pragma once

namespace kdtest {

/// Watches every test of the program; each may take two minutes.
void installWatchdog();

}  // namespace kdtest
