// Commands about blocks.
#pragma once

namespace kdhost {

/// BLOCK: makes a block of a name, with a base point, of what is selected or picked; the objects go from the drawing
/// into the block. Its coordinates are the user's at that time. What lies on locked layers stays.
void makeBlock();
/// INSERT: inserts a block of a name at a point of the current space, with a scale and a turn in degrees.
void insertBlock();

}  // namespace kdhost
