// Commands that undo and redo.
#pragma once

namespace kdhost {

/// U: undoes the last step.
void undoStep();
/// UNDO: asks for a number of steps, one when none is given, and undoes them as far as there are as many.
void undoSteps();
/// REDO: does again what was undone last.
void redoStep();

}  // namespace kdhost
