// The sample table that shows a table style in a dialog.
#pragma once

#include <memory>

#include "kd/db/table.h"

class KdDbDatabase;

/// A table of that style, in no database: a row of titles, one of headers, the rest data, each cell showing the
/// display name of its cell style. How many rows and columns it has is told by texts of the resource module. Null for
/// the null id.
std::unique_ptr<KdDbTable> makeStyleTablePreview(KdDbDatabase* database, KdDbObjectId style);
