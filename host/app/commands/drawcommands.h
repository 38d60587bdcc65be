// Commands that make, remove and list entities.
#pragma once

namespace kdhost {

/// LINE: points, each joined to the one before, until Enter. "Undo" takes the last line back, "Close" joins the last
/// point to the first one and ends.
void drawLines();
/// ERASE: what is selected, or else what the user picks. Entities on locked layers stay.
void eraseObjects();
/// LIST: class, handle, layer and size of what is selected or picked, and what its class has to tell.
void listObjects();

}  // namespace kdhost
