// The TABLE command, with the figures of a table that nobody has asked otherwise for.

#include "module/create/tableentry.h"

#include "kd/db/database.h"
#include "kd/ed/variables.h"
#include "module/core/tablestyles.h"
#include "module/create/tablejig.h"

namespace {

constexpr int kColumns = 3;
constexpr int kDataRows = 3;
constexpr int kRowHeightLines = 1;
constexpr double kMetricColumnWidth = 63.5;
constexpr double kColumnWidth = 2.5;

/// The style that new tables take; the null id when it can't be told.
KdDbObjectId currentTableStyle(KdDbDatabase* database) {
    resbuf name;
    if (kdedGetVar(L"CTABLESTYLE", &name) != RTNORM || name.restype != RTSTR) return KdDbObjectId::kNull;
    const std::optional<KdDbObjectId> style = tableStyleNamed(database, name.resval.rstring);
    kdutDelBuffer(name.resval.rstring);
    return style.value_or(KdDbObjectId::kNull);
}

}  // namespace

void tableEntry() {
    KdDbDatabase* database = kddbHostApplicationServices()->workingDatabase();
    if (database == nullptr) return;
    CVqTableJig jig(database);
    jig.setTableStyleId(currentTableStyle(database));
    jig.setTableColumns(kColumns);
    jig.setTableDataRows(kDataRows);
    jig.setTableRowHeight(kRowHeightLines);
    jig.setTableColumnWidth(database->measurement() == 1 ? kMetricColumnWidth : kColumnWidth);
    jig.setFirstCellText(L"_TITLE");
    jig.setSecondCellText(L"_HEADER");
    jig.setOtherCellText(L"_DATA");
    jig.setPointMode(true);
    jig.doJig(nullptr);
}
