// The road of the TABLE command, from the dialog to the drawing.

#include "module/create/tableentry.h"

#include "kd/db/database.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tablejig.h"

void tableEntry() {
    KdDbDatabase* database = kddbHostApplicationServices()->workingDatabase();
    if (database == nullptr) return;
    CVqTableInsertDlg dialog;
    dialog.SetDatabase(database);
    dialog.SetFromTablStyleFlag(0);
    const std::unique_ptr<CVqTableJig> jig(dialog.GetTableJig());
    if (dialog.DoModal() != IDOK) return;

    // A table that was read from a file and then given up for the empty one goes here.
    std::unique_ptr<KdDbTable> table = std::move(dialog.m_pTable);
    if (!dialog.m_bDataLink) table.reset();
    // The drawing owns a table that was placed.
    if (jig->doJig(table.get()) == 1) (void)table.release();
}
