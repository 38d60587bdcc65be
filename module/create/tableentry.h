// The TABLE command: the user tells in a dialog how a new table is to be, and places it in the drawing.
#pragma once

void tableEntry();
