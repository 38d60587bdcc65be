// Cut, copy and paste as the toolbar, the menus and the cell editor call them.

#include "kd/ed/variables.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/exchange/clipdatamgr.h"

namespace {

constexpr EditMark kCut{L"CutTableCell", 2105};
constexpr EditMark kCopy{L"CopyTableCell", 2106};
constexpr EditMark kPaste{L"PasteTable", 2107};

/// Tells whoever asks that a clipboard operation is under way: what is cloned and copied meanwhile is no edit of the
/// user's.
void setUnderWay(bool underWay) {
    resbuf value;
    value.restype = RTSHORT;
    value.resval.rint = underWay ? 1 : 0;
    kdedSetVar(L"_VQ_COPYTABLECELLS", &value);
}

/// Carries out `work(manager, table)` within the mark, and gives its result; 0 when it can't begin.
template <class Work>
int clipboardOperation(KdDbObjectId id, const EditMark& mark, KdDb::OpenMode mode, Work work) {
    int result = 0;
    {
        const CommandMark scope(mark);
        if (!scope) return 0;
        setUnderWay(true);
        const OpenObject<KdDbTable> table(id, mode);
        CVqTableClipDataMgr manager;
        if (table) result = work(manager, *table);
    }
    setUnderWay(false);
    return result;
}

}  // namespace

int CVqTableCommon::CutTableCells(KdDbObjectId table) {
    return clipboardOperation(table, kCut, KdDb::kForWrite, [](CVqTableClipDataMgr& manager, KdDbTable& open) {
        const int copied = manager.CopyTableCells(&open);
        if (copied != 0) open.deleteContent(open.getSubSelection());
        return copied;
    });
}

int CVqTableCommon::CopyTableCells(KdDbObjectId table) {
    return clipboardOperation(table, kCopy, KdDb::kForRead, [](CVqTableClipDataMgr& manager, KdDbTable& open) {
        return manager.CopyTableCells(&open);
    });
}

int CVqTableCommon::PasteTableCells(KdDbObjectId table) {
    return clipboardOperation(table, kPaste, KdDb::kForWrite, [](CVqTableClipDataMgr& manager, KdDbTable& open) {
        bool formula = false;
        const int pasted = manager.PastTableCells(&open, formula);
        // New formulas are worked out as the table closes, as an edit of the user's.
        if (formula) setUnderWay(false);
        return pasted;
    });
}
