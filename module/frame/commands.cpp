// The commands: the rows of the command table, and their handlers.

#include "kd/db/database.h"
#include "module/core/resources.h"
#include "module/create/tableentry.h"
#include "module/edit/celledit.h"
#include "module/edit/edittablecell.h"
#include "module/exchange/tableexport.h"
#include "module/frame/tvxtableapp.h"
#include "module/style/tablestyledlg.h"

namespace {

struct CommandRow {
    _TVXCOMMAND_ENTRY entry;
    bool added;
};

constexpr const wchar_t* kGroup = kTableCommandGroup;

CommandRow rows[] = {
    // group, name, local name, flags, function, context, text of the local name
    {{kGroup, L"TABLESTYLE", nullptr, 0, TvxTableApp::TVX_TABLE_COMMANDSTABLESTYLE, nullptr, 2002}, false},
    {{kGroup, L"TABLE", nullptr, 0, TvxTableApp::TVX_TABLE_COMMANDSTABLE, nullptr, 2005}, false},
    {{kGroup, L"TABLEDIT", nullptr, 6, TvxTableApp::TVX_TABLE_COMMANDSTABLEDIT, nullptr, 2101}, false},
    {{kGroup, L"TABLEEXPORT", nullptr, 2, TvxTableApp::TVX_TABLE_COMMANDSTABLEEXPORT, nullptr, 2052}, false},
    {{kGroup, L"EDITTABLECELL", nullptr, 6, TvxTableApp::TVX_TABLE_COMMANDSEDITTABLECELL, nullptr, 6206}, false},
};

/// Each row is added once, however often this runs.
const bool commandsAdded = [] {
    for (CommandRow& row : rows) {
        if (row.added) continue;
        row.added = true;
        commandTable().append(&row.entry);
    }
    return true;
}();

}  // namespace

/// The command exists, and does nothing, on purpose.
void TvxTableApp::TVX_TABLE_COMMANDSTABLE_CMDLINE() {
    ResourceScope resources;
}

void TvxTableApp::TVX_TABLE_COMMANDSTABLE() {
    ResourceScope resources;
    tableEntry();
}

void TvxTableApp::TVX_TABLE_COMMANDSTABLESTYLE() {
    ResourceScope resources;
    CVqTableStyleDlg dialog;
    dialog.SetDatabase(kddbHostApplicationServices()->workingDatabase());
    dialog.DoModal();
}

void TvxTableApp::TVX_TABLE_COMMANDSTABLEDIT() {
    ResourceScope resources;
    tableEditEntry();
}

void TvxTableApp::TVX_TABLE_COMMANDSTABLEEXPORT() {
    ResourceScope resources;
    tableExportEntry();
}

void TvxTableApp::TVX_TABLE_COMMANDSEDITTABLECELL() {
    ResourceScope resources;
    EditTableCellGUI().entry();
}
