// The management of a table's cell styles.

#include "module/core/tablecommon.h"

int CVqTableCommon::ManageCellStyles(KdDbObjectId) {
    // The dialog of cell styles isn't there yet: everything stays as it is.
    return true;
}
