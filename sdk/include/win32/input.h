// Keys and the mouse under their Win32 names.
#pragma once

struct CPoint;

/// Numbers of the keys whose state can be asked for.
enum ModifierKey : int { VK_SHIFT = 16, VK_CONTROL = 17, VK_MENU = 18 };

/// Negative while the key is held down; 0 when it isn't, and for a key that is no modifier.
short GetKeyState(int key);
/// The mouse on the screen, in pixels. Non-zero on success; 0, with the point as it was, for null and where
/// there is no screen.
int GetCursorPos(CPoint* point);
