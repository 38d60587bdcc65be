// The toolbar's drop-down menus, and what their commands do.

#include <algorithm>
#include <array>

#include "kd/ad/appinterface.h"
#include "kd/db/table.h"
#include "module/controls/wiring.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/tableditmenu.h"
#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

/// A menu, and what marks its items before it shows; null for a menu without marks.
struct MenuRow {
    unsigned number;
    const char* name;
    bool (*setState)(const KdDbTable* table, KdUiMenu* menu);
};

constexpr std::array<MenuRow, kToolbarMenus> kMenus = {{
    {kDataFormatMenu, "IDR_DATAFORMAT_MENU", CVqTableCommon::SetFormatMenuState},
    {kLockingMenu, "IDR_LOCKING_MENU", CVqTableCommon::SetLockingMenuState},
    {kMergeMenu, "IDR_MERGE_MENU", nullptr},
    {kFormulaMenu, "IDR_FORMULA_MENU", nullptr},
    {kAlignmentMenu, "IDR_ALIGNMENT_MENU", CVqTableCommon::SetAlignmentMenuState},
}};

/// Runs the command-line editor on the toolbar's table, for one formula.
template <const wchar_t* const& macro>
void runMacro(KdDbObjectId, unsigned) {
    VqExecuteCommand(macro, -1, 1);
}

template <int (*edit)(KdDbObjectId)>
void onTable(KdDbObjectId table, unsigned) {
    edit(table);
}

template <int (*edit)(unsigned, KdDbObjectId)>
void byNumber(KdDbObjectId table, unsigned number) {
    edit(number, table);
}

void align(KdDbObjectId table, unsigned number) {
    CVqTableCommon::SetSelectionAlignment(table, CVqTableCommon::GetMenuIDToAlignment(number));
}

constexpr const wchar_t* kSum = L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula _Sum";
constexpr const wchar_t* kAverage = L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula _Average";
constexpr const wchar_t* kCount = L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula _Count";
constexpr const wchar_t* kCell = L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula _Cell";
constexpr const wchar_t* kEquation = L"^C^C_EDITTABLECELL _ExecuteOneAction _Op _Formula _Equation";

/// What a range of command numbers does.
struct CommandRow {
    unsigned first;
    unsigned last;
    void (*act)(KdDbObjectId table, unsigned number);
};

constexpr CommandRow kCommands[] = {
    {1802, 1810, align},
    {1811, 1811, runMacro<kSum>},
    {1812, 1812, runMacro<kAverage>},
    {1813, 1813, runMacro<kCount>},
    {1814, 1814, runMacro<kCell>},
    {1815, 1815, runMacro<kEquation>},
    {1816, 1816, onTable<CVqTableCommon::MergeAll>},
    {1817, 1817, onTable<CVqTableCommon::MergeByRow>},
    {1818, 1818, onTable<CVqTableCommon::MergeByColumn>},
    {1819, 1822, byNumber<CVqTableCommon::SettingLocked>},
    {1823, 1831, byNumber<CVqTableCommon::SetDataFormatMenu>},
    {1832, 1832, onTable<CVqTableCommon::SetDataFormat>},
};

}  // namespace

bool CVqTableditMiniFrameWnd::OnCommandId(unsigned number) {
    if (!m_tableId.isValid() || CVqTableCommon::IsTableLocking(m_tableId)) return true;
    const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands), [&](const CommandRow& row) {
        return row.first <= number && number <= row.last;
    });
    if (command == std::end(kCommands)) return false;
    command->act(m_tableId, number);
    return true;
}

void CVqTableditMiniFrameWnd::CreatePopupMenu(const char* name) {
    const ToolbarRow* row = toolbarRow(name);
    if (row != nullptr && row->menu != 0) TrackPopupMenu(row->menu);
}

VqTableditMenu& CVqTableditMiniFrameWnd::menuOf(std::size_t place) {
    std::unique_ptr<VqTableditMenu>& menu = m_menus.at(place);
    if (menu == nullptr) {
        menu = std::make_unique<VqTableditMenu>(this);
        menu->LoadMenuItem(QString::fromLatin1(kModuleResources), QString::fromLatin1(kMenus.at(place).name),
                           [this](unsigned number) { OnCommandId(number); });
    }
    return *menu;
}

void CVqTableditMiniFrameWnd::TrackPopupMenu(unsigned number) {
    const ResourceScope resources;
    const auto* row = std::find_if(kMenus.begin(), kMenus.end(), [&](const MenuRow& r) { return r.number == number; });
    if (row == kMenus.end()) return;
    VqTableditMenu& menu = menuOf(static_cast<std::size_t>(row - kMenus.begin()));
    if (row->setState != nullptr) {
        const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
        if (table) row->setState(table.get(), &menu);
    }
    menu.ShowMenuItem();
}
