// What the commands call, from the module's code that is linked to the tests.

#include "tests/faults/commands.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/db/symbols.h"
#include "host/ed/commandline.h"
#include "host/rx/commandstack.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "mfc/resource.h"
#include "module/core/resources.h"
#include "module/edit/celledit.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace kdtest {
namespace {

constexpr const wchar_t* kGroup = L"FAULTTESTS";

KdDbDatabase& drawing() {
    return *kddbHostApplicationServices()->workingDatabase();
}

void putCellBlock() {
    for (const KdDbObjectId id : kdhost::entitiesOfCurrentSpace(drawing())) {
        if (kdhost::peek<KdDbTable>(id) == nullptr) continue;
        const kdhost::Opened<KdDbTable> table(id, KdDb::kForWrite);
        if (table) table->setBlockTableRecordId(1, 1, 0, kdhost::recordNamed(drawing().blockTableId(), L"part"), false);
        return;
    }
}

void editCellBlock() {
    const ResourceScope resources;
    tableInsertBlockEntry();
}

struct Release {
    void operator()(CVqTableIOHandle* handle) const { handle->Release(); }
};

/// Reads with the reader in place, and tells the status.
template <class Read>
void reading(Read read) {
    const std::unique_ptr<CVqTableIOHandle, Release> handle(CreateTableIOHandle(1));
    struTableIoInfo info;
    info.handle = handle.get();
    info.file = L"schedule.csv";
    read(info);
    kdhost::commandLine().write(L"status " + std::to_wstring(info.status) + L" " + info.error);
}

void importSheet() {
    reading([](struTableIoInfo& info) {
        tvxtableImportTableFromExlSE(&info);
        std::unique_ptr<KdDbTable> table(info.table);
        EXPECT_EQ(table != nullptr, info.status == 0);
        if (table && !kdhost::appendToCurrentSpace(drawing(), std::move(table))) info.error = L"not written";
    });
}

void askForSheetNames() {
    reading([](struTableIoInfo& info) {
        std::vector<CStdStr<wchar_t>> names;
        info.sheetNames = &names;
        EXPECT_EQ(GetSheetsNameFromCSV(&info), 0);
        EXPECT_EQ(GetSheetsNameFromExl(&info), 0);
    });
}

}  // namespace

OwnCommands::OwnCommands() {
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    const std::pair<const wchar_t*, KdEdCommandFunction> commands[] = {{L"CELLBLOCK", putCellBlock},
                                                                       {L"BLOCKINCELL", editCellBlock},
                                                                       {L"IMPORTSHEET", importSheet},
                                                                       {L"SHEETNAMES", askForSheetNames}};
    for (const auto& [name, function] : commands) {
        kdhost::commandStack().addCommand(kGroup, name, name, 0, function, nullptr, -1, nullptr, nullptr);
    }
}

OwnCommands::~OwnCommands() {
    kdhost::commandStack().removeGroup(kGroup);
    FreeLibrary(std::exchange(hLibModule, nullptr));
}

}  // namespace kdtest
