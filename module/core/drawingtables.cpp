// The tables of a drawing, and what they use.

#include <algorithm>

#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/drawingwalk.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"

bool CVqTableCommon::GetTablesFormDatabase(KdDbDatabase* database, KdArray<KdDbObjectId>& tables) {
    return visitEntities(database, [&](const KdDbEntity& entity) {
        if (entity.isA() == KdDbTable::desc()) tables.append(entity.objectId());
    });
}

bool CVqTableCommon::FindTableStyleFromTable(const KdArray<KdDbObjectId>& tables, KdDbObjectId style) {
    return std::any_of(tables.begin(), tables.end(), [&](KdDbObjectId id) {
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        return table && table->tableStyle() == style;
    });
}

namespace {

bool hasCellOfStyle(const KdDbTable& table, const CStdStr<wchar_t>& cellStyle) {
    for (int row = 0; row < table.numRows(); ++row) {
        for (int column = 0; column < table.numColumns(); ++column) {
            if (cellStyle.CompareNoCase(table.cellStyle(row, column)) == 0) return true;
        }
    }
    return false;
}

}  // namespace

int CVqTableCommon::FindCellStyleFromTable(const KdArray<KdDbObjectId>& tables, const CStdStr<wchar_t>& tableStyle,
                                           const CStdStr<wchar_t>& cellStyle) {
    for (const KdDbObjectId id : tables) {
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        if (!table) continue;
        const OpenObject<KdDbTableStyle> style(table->tableStyle(), KdDb::kForRead);
        // A table whose style can't be had ends the search, whatever the tables behind it use.
        if (!style) return 0;
        if (tableStyle.CompareNoCase(nameOfTableStyle(*style)) != 0) continue;
        if (hasCellOfStyle(*table, cellStyle)) return 1;
    }
    return 0;
}
