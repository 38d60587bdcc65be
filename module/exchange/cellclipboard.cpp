// Cells and the clipboard. The cells stay where they are: nothing goes to the clipboard or comes from it yet.

#include "module/core/tablecommon.h"

int CVqTableCommon::CutTableCells(KdDbObjectId) {
    return 0;
}

int CVqTableCommon::CopyTableCells(KdDbObjectId) {
    return 0;
}

int CVqTableCommon::PasteTableCells(KdDbObjectId) {
    return 0;
}
