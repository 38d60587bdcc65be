// The dialog of cell styles, opened on a table style from outside the dialogs of styles.
#pragma once

#include "kd/db/objectid.h"

/// Runs the dialog in a transaction of its own, which its Cancel takes back. Nothing is shown when the style can't be
/// opened for write.
void manageCellStylesOf(KdDbObjectId style);
