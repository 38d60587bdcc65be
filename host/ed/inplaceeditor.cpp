// Editing in place: the call into the editor, and what surrounds it.

#include "kd/ed/inplaceeditor.h"

#include "host/ed/display.h"
#include "host/ed/names.h"
#include "host/ed/texteditor.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {
TextEditor* textEditor = nullptr;
}

void setTextEditor(TextEditor* editor) {
    textEditor = editor;
}

}  // namespace kdhost

int invokeMTextEditorForTable(KdDbMText*& text, int& key, int mode) {
    if (text == nullptr) return RTERROR;
    if (kdhost::textEditor == nullptr) {
        key = kMTextEditorEscape;
        return RTCAN;
    }
    return kdhost::textEditor->edit(*text, key, mode);
}

void kddbBeginInPlaceEdit(KdDbTable*, const KdCell&, int) {
    // The table looks the same while a cell is edited: the editor covers it.
}

void kddbEndInPlaceEdit(KdDbTable* table, bool redraw) {
    if (table != nullptr && redraw) kdhost::queueForRedraw(table->objectId());
}

int kddbEntUpd(const kded_name name) {
    const KdDbObjectId id = kdhost::entityOfName(name);
    if (id.isNull()) return RTERROR;
    kdhost::queueForRedraw(id);
    kdhost::updateDisplay();
    return RTNORM;
}
