// The borders of the selected cells.

#include "module/core/tablecommon.h"

int CVqTableCommon::SetBorders(KdDbObjectId) {
    // The dialog of borders isn't there yet: the table stays as it is.
    return true;
}
