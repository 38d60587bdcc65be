// The keys that were down when something was ended by a key.
#pragma once

#include <Qt>

namespace kdhost {

/// From now on GetKeyState answers from these, however the keys stand: the editor that a key ended keeps them
/// until whoever walks on has asked.
void keepKeyState(Qt::KeyboardModifiers modifiers);
/// GetKeyState answers from the keyboard again.
void releaseKeyState();

}  // namespace kdhost
