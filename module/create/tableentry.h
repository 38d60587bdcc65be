// The TABLE command: a new table is placed in the drawing.
#pragma once

void tableEntry();
