// The loop over cells: what the command's first input asks for, then one cell after another.

#include <array>
#include <cwchar>

#include "kd/ad/display.h"
#include "kd/db/table.h"
#include "kd/ed/inplaceeditor.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/celledit.h"
#include "module/edit/celleditwalk.h"
#include "win32/input.h"

namespace {

constexpr unsigned notEditableText = 2220;
/// The longest answer that the host writes, the ending zero included.
constexpr std::size_t replySize = 1024;

/// What the host sends in place of typed text when a key means the selected cells as a whole.
struct SelectionWord {
    const wchar_t* word;
    void (*act)(KdDbObjectId table);
};

template <auto operation>
void act(KdDbObjectId table) {
    operation(table);
}

constexpr std::array selectionWords = {
    SelectionWord{L"*DELETE", act<CVqTableCommon::DeleteContent>},
    SelectionWord{L"*CTRLC", act<CVqTableCommon::CopyTableCells>},
    SelectionWord{L"*CTRLV", act<CVqTableCommon::PasteTableCells>},
    SelectionWord{L"*CTRLX", act<CVqTableCommon::CutTableCells>},
    SelectionWord{L"*TAB", act<CVqTableCommon::SelectNextCell>},
    SelectionWord{L"*RIGHT", act<CVqTableCommon::SelectNextCell>},
    SelectionWord{L"*UP", act<CVqTableCommon::SelectUpperCell>},
    SelectionWord{L"*LEFT", act<CVqTableCommon::SelectPrevCell>},
    SelectionWord{L"*SHIFTTAB", act<CVqTableCommon::SelectPrevCell>},
    SelectionWord{L"*DOWN", act<CVqTableCommon::SelectLowerCell>},
    SelectionWord{L"*PGUP", act<CVqTableCommon::SelectTopCell>},
    SelectionWord{L"*PGDN", act<CVqTableCommon::SelectBottomCell>},
};

const SelectionWord* findSelectionWord(const CStdStr<wchar_t>& reply) {
    for (const SelectionWord& row : selectionWords) {
        if (::wcscasecmp(row.word, reply.c_str()) == 0) return &row;
    }
    return nullptr;
}

bool readFirstInput(CStdStr<wchar_t>& reply) {
    std::array<wchar_t, replySize> buffer{};
    if (kdedGetString(0, nullptr, buffer.data()) != RTNORM) return false;
    reply = buffer.data();
    return true;
}

/// Plain text or a field, in a cell of one content.
bool holdsText(const KdDbTable& table, int row, int col) {
    const int content = table.contentType(row, col);
    const bool isText = content == KdDb::kCellContentTypeValue || content == KdDb::kCellContentTypeField;
    return isText && table.cellType(row, col) != KdDb::kMultipleContentCell;
}

/// One run of the editor over the cells of a table.
class CellEditLoop {
public:
    CellEditLoop(KdDbObjectId table, int rows, int columns) : m_id(table), m_rows(rows), m_columns(columns) {}

    void run(int row, int col, const CStdStr<wchar_t>& typedText, KdString prefill) {
        CellEditStep step{row, col, true};
        for (bool first = true; step.goesOn; first = false) {
            OpenObject<KdDbTable> table(m_id, KdDb::kForWrite);
            if (!table) break;
            const int status =
                editTableCell(table.get(), step.row, step.column, m_key, typedText, first, std::exchange(prefill, {}));
            step = stepFrom(*table, step, status);
            table.close();
            kddbQueueForRegen(&m_id, 1);
            kdedUpdateDisplay();
        }
        leave();
    }

private:
    CellEditStep stepFrom(KdDbTable& table, const CellEditStep& cell, int status) {
        const CellEditStep end{cell.row, cell.column, false};
        if (m_key == kMTextEditorEscape && status == RTCAN) {
            selectAgain(table, cell);
            return end;
        }
        if (m_key == kMTextEditorEnter && GetKeyState(VK_CONTROL) < 0) return end;
        return nextEditedCell(&table, m_rows, m_columns, cell.row, cell.column, m_key);
    }

    /// After Esc the cell is selected as if the user had clicked on it.
    void selectAgain(KdDbTable& table, const CellEditStep& cell) {
        table.clearSubSelection();
        table.downgradeOpen();
        PickSelCell(&table, cell.row, cell.column);
        m_restoresToolbar = true;
    }

    void leave() {
        if (m_restoresToolbar) {
            CVqTableCommon::ShowTableToolbar(m_id, true);
        } else {
            kdedSSSetFirst(nullptr, nullptr);
        }
    }

    KdDbObjectId m_id;
    int m_rows;
    int m_columns;
    int m_key = 0;
    bool m_restoresToolbar = false;
};

}  // namespace

bool editTable(KdDbObjectId id, int row, int col, bool selectedBefore, KdString prefill) {
    if (id.isNull() || row < 0 || col < 0) return false;
    OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return false;
    const int rows = table->numRows();
    const int columns = table->numColumns();
    if (row >= rows || col >= columns) return false;

    CStdStr<wchar_t> typedText;
    if (selectedBefore) {
        if (!readFirstInput(typedText)) return false;
        if (const SelectionWord* word = findSelectionWord(typedText)) {
            table.close();
            word->act(id);
            return true;
        }
    }
    if (!table->isContentEditable(row, col)) {
        table.close();
        kdedPrompt(loadText(notEditableText));
        return false;
    }
    if (!holdsText(*table, row, col)) return false;
    table.close();

    CVqTableCommon::ShowTableToolbar(id, false);
    CellEditLoop(id, rows, columns).run(row, col, typedText, std::move(prefill));
    return true;
}
