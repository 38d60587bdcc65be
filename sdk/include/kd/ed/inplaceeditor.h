// The in-place editor of texts, and what surrounds it when a table's cell is edited.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ed/resbuf.h"

class KdDbMText;
class KdDbTable;

/// How the editor starts.
enum KdMTextEditorMode : int {
    kMTextEditorSelectAll = 1,     ///< the whole text selected
    kMTextEditorCaretAtEnd = 2,    ///< the caret behind the text
    kMTextEditorFromNeighbour = 3  ///< as the first, coming from another cell
};

/// The key that ended the editor.
enum KdMTextEditorKey : int {
    kMTextEditorOutside = 0,  ///< a click outside the editor
    kMTextEditorTab = 9,
    kMTextEditorEnter = 13,
    kMTextEditorShiftTab = 25,
    kMTextEditorEscape = 27,
    kMTextEditorShiftEnter = 29,
    kMTextEditorLeft = 37,
    kMTextEditorUp = 38,
    kMTextEditorRight = 39,
    kMTextEditorDown = 40,
};

/// Opens the editor on the text, laid over the drawing at the text's place, size, direction and looks, and
/// returns when it ends. RTNORM with the text changed as the user left it: contents, attachment, height, style,
/// colour and attached field. RTCAN with `key` 27 and the text as it was on Esc, or when no input comes any
/// more. RTERROR for a null text. The text stays the caller's. The state of Ctrl at the ending key is what
/// GetKeyState tells until the next key.
int invokeMTextEditorForTable(KdDbMText*& text, int& key, int mode);

/// Tells the table that a cell is edited in place from now on; the null cell leaves open which. The last
/// argument names a content of the cell, -1 for none in particular.
void kddbBeginInPlaceEdit(KdDbTable* table, const KdCell& cell, int content);
/// The end of it; `redraw` asks for the table to be drawn again.
void kddbEndInPlaceEdit(KdDbTable* table, bool redraw);

/// Draws an entity again. RTERROR for a name that is no entity.
int kddbEntUpd(const kded_name name);
