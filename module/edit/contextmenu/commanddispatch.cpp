// What the commands of the context menus do.

#include <algorithm>
#include <iterator>
#include <optional>

#include "kd/ad/doclock.h"
#include "kd/ad/document.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"
#include "module/edit/contextmenu/tableuicontext.h"

namespace {

using Common = CVqTableCommon;

constexpr unsigned kFirstTableStyle = 51000;

struct ChosenCommand {
    unsigned number;
    KdDbObjectId table;
    bool growsUpwards;
};

struct CommandRow {
    unsigned first;
    unsigned last;
    void (*run)(const ChosenCommand& chosen);
    bool changesTable = true;
};

template <auto operation>
void onTable(const ChosenCommand& chosen) {
    operation(chosen.table);
}

void align(const ChosenCommand& chosen) {
    Common::SetSelectionAlignment(chosen.table, Common::GetMenuIDToAlignment(chosen.number));
}

void lock(const ChosenCommand& chosen) {
    Common::SettingLocked(chosen.number, chosen.table);
}

/// Above and below are meant on the screen: in a table that grows upwards the next row stands above.
void insertAbove(const ChosenCommand& chosen) {
    (chosen.growsUpwards ? Common::InsertRowByBelow : Common::InsertRowByAbove)(chosen.table);
}

void insertBelow(const ChosenCommand& chosen) {
    (chosen.growsUpwards ? Common::InsertRowByAbove : Common::InsertRowByBelow)(chosen.table);
}

void send(const wchar_t* text) {
    KdApDocManager* manager = kdDocManagerPtr();
    manager->sendStringToExecute(manager->curDocument(), text, true, false);
}

void matchCell(const ChosenCommand&) {
    send(L"_matchcell\n");
}

void exportTable(const ChosenCommand&) {
    send(L"TABLEEXPORT\n");
}

constexpr CommandRow kCommands[] = {
    {1802, 1810, align},
    {1816, 1816, onTable<Common::MergeAll>},
    {1817, 1817, onTable<Common::MergeByRow>},
    {1818, 1818, onTable<Common::MergeByColumn>},
    {1819, 1822, lock},
    {1835, 1835, onTable<Common::InsertColumnByLeft>},
    {1836, 1836, onTable<Common::InsertColumnByRight>},
    {1837, 1837, onTable<Common::DeleteColumns>},
    {1838, 1838, onTable<Common::SizeColumnsEvenly>},
    {1840, 1840, insertAbove},
    {1841, 1841, insertBelow},
    {1842, 1842, onTable<Common::DeleteRows>},
    {1843, 1843, onTable<Common::SizeRowsEvenly>},
    {1847, 1847, onTable<Common::CutTableCells>},
    {1848, 1848, onTable<Common::CopyTableCells>, false},
    {1849, 1849, onTable<Common::PasteTableCells>},
    {1851, 1851, onTable<Common::SetBackgroundColorFormMenu>},
    {1852, 1852, onTable<Common::SetBorders>},
    {1853, 1853, onTable<Common::SetDataFormat>},
    {1854, 1854, matchCell, false},
    {1855, 1855, onTable<Common::ClearCellOverrides>},
    {1857, 1857, onTable<Common::InsertBlock>},
    {1858, 1858, onTable<Common::InsertField>},
    {1859, 1859, onTable<Common::TableEdit>},
    {1860, 1860, onTable<Common::ManageCellContent>},
    {1863, 1863, onTable<Common::DeleteContent>},
    {1864, 1864, onTable<Common::UnmergeCells>},
    {1882, 1882, onTable<Common::SaveAsNewTableStyle>, false},
    {1883, 1883, onTable<Common::SetCurrentTableStyleAsTable>, false},
    {1884, 1884, onTable<Common::ClearTableStyleOverrides>},
    {1885, 1885, exportTable, false},
    {1886, 1886, onTable<Common::SetTableIndicator>, false},
    {40026, 40026, onTable<Common::SaveAsNewCellStyle>, false},
};

/// Null for a number that is none of these.
const CommandRow* commandOf(unsigned number) {
    const auto* row = std::find_if(std::begin(kCommands), std::end(kCommands), [&](const CommandRow& candidate) {
        return number >= candidate.first && number <= candidate.last;
    });
    return row == std::end(kCommands) ? nullptr : row;
}

/// Nothing when the table can't be opened; a style that can't be opened grows downwards.
std::optional<bool> growsUpwards(KdDbObjectId id) {
    OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return std::nullopt;
    const KdDbObjectId styleId = table->tableStyle();
    table.close();
    const OpenObject<KdDbTableStyle> style(styleId, KdDb::kForRead);
    return style && style->flowDirection() != 0;
}

}  // namespace

void CVqTableUIContext::onCommand(unsigned int command) {
    const ResourceScope resources;
    if (const std::optional<bool> upwards = growsUpwards(m_tableId)) {
        const CommandRow* row = commandOf(command);
        const bool changesTable = row == nullptr || row->changesTable;
        if (changesTable && CVqTableCommon::IsTableLocking(m_tableId)) return;
        if (row != nullptr) {
            row->run({command, m_tableId, *upwards});
        } else if (command >= kFirstTableStyle &&
                   command - kFirstTableStyle < static_cast<unsigned>(m_tableStyleNames.length())) {
            setTableStyle(static_cast<int>(command - kFirstTableStyle));
        }
    }
    m_tableId = KdDbObjectId::kNull;
}

void CVqTableUIContext::setTableStyle(int place) const {
    KdDbDatabase* database = kddbHostApplicationServices()->workingDatabase();
    const std::optional<KdDbObjectId> style = tableStyleNamed(database, m_tableStyleNames[place].kwszPtr());
    if (!style || style->isNull()) return;
    const KdAxDocLock documentLock(m_tableId, KdAxDocLock::kNormal);
    if (documentLock.lockStatus() != 0) return;
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForWrite);
    if (table) table->setTableStyle(*style);
}
