// Commands about documents, the program and its variables.
#pragma once

namespace kdhost {

/// NEW: opens a new drawing.
void newDocument();
/// DOCUMENT: makes the drawing of a number, from 1 in the order of opening, the active one.
void switchDocument();
/// CLOSE: closes the drawing of a number, the active one for Enter, once the command is done. The last one gives way
/// to a new drawing.
void closeDocument();
/// QUIT: ends the program once the command is done; what was typed ahead is dropped.
void quit();
/// SETVAR: shows a host variable and takes a new value; "?" lists all of them.
void setVariable();

}  // namespace kdhost
