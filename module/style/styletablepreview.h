// The samples that show a table style, or one of its cell styles, in dialogs. How many rows and columns sample tables
// have is told by texts of the resource module, and each cell shows the display name of its cell style.
#pragma once

#include <memory>

#include "kd/db/table.h"
#include "mfc/stdstr.h"
#include "module/preview/tablecellfromtablestyle.h"

class KdDbDatabase;
class KdDbTableStyle;

/// A table of that style, in no database: a row of titles, one of headers, the rest data. Null for the null id.
std::unique_ptr<KdDbTable> makeStyleTablePreview(KdDbDatabase* database, KdDbObjectId style);

/// The same with chosen cell styles of the first row, the second and all others, each by its display name.
std::unique_ptr<KdDbTable> makeTablePreview(KdDbDatabase* database, KdDbObjectId style, const CStdStr<wchar_t>& first,
                                            const CStdStr<wchar_t>& second, const CStdStr<wchar_t>& other);

/// The sample of a cell style, by its internal name; the style stays open while it is in use. Null when it can't be
/// made, and for no style.
std::unique_ptr<CVqTableCellFromTableStyle> makeCellStylePreview(KdDbTableStyle* style,
                                                                 const CStdStr<wchar_t>& cellStyle);
