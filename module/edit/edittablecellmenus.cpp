// The menus of EDITTABLECELL.
//
// A menu is a table of keywords, each with a gate that may refuse it and with what it does. Replies are compared
// with the global words, so that macros and translated lists come to the same action. One loop serves all menus:
// it asks, surveys the table where the gates need it, carries out the reply and asks again, until a reply ends the
// menu. In the one-action mode every reply ends the menus below the main one, and with them the command.

#include <algorithm>
#include <cwchar>
#include <optional>
#include <span>

#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "module/core/cellrange.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/edit/edittablecell.h"
#include "module/edit/menutexts.h"

namespace {

/// What a survey of the selected cells allows, as bits.
enum Allowed : unsigned {
    insertAbove = 1,
    insertBelow = 2,
    deleteRow = 4,
    insertLeft = 8,
    insertRight = 16,
    deleteColumn = 32,
    mergeCells = 64
};

/// What gates and actions know of a reply.
struct Reply {
    EditTableCellGUI& gui;
    KdDbObjectId table;
    unsigned allowed;
};

/// The status that the menu ends with; nothing when it goes on.
using Outcome = std::optional<int>;
constexpr Outcome goOn = std::nullopt;

struct MenuItem {
    const wchar_t* keyword;
    bool (*gate)(const Reply&);  ///< null: never refused
    Outcome (*action)(const Reply&);
};

}  // namespace

struct EditTableCellMenu {
    const MenuTexts& texts;
    std::span<const MenuItem> items;
    unsigned (*survey)(const KdDbTable&) = nullptr;  ///< null: its gates need none
    bool surveysCancels = false;                     ///< surveys when the prompt was cancelled, too
    bool endsAfterOneAction = true;                  ///< in the one-action mode a reply ends the command
};

namespace {

// Gates.

template <Allowed what>
bool allows(const Reply& reply) {
    return (reply.allowed & what) != 0;
}

bool contentIsEditable(const Reply& reply) {
    return reply.gui.canContentEdit(reply.table);
}

bool formatIsEditable(const Reply& reply) {
    return reply.gui.canFormatEdit(reply.table);
}

bool mayUnmerge(const Reply& reply) {
    OpenObject<KdDbTable> table(reply.table, KdDb::kForRead);
    if (!table || !CVqTableCommon::CanUnMergeCells(table.get())) return false;
    table.close();
    return !CVqTableCommon::IsTableLocking(reply.table);
}

// Actions.

template <int status>
Outcome end(const Reply&) {
    return status;
}

Outcome nothing(const Reply&) {
    return goOn;
}

template <int (*operation)(KdDbObjectId)>
Outcome run(const Reply& reply) {
    operation(reply.table);
    return goOn;
}

template <bool (*operation)(KdDbObjectId)>
Outcome run(const Reply& reply) {
    operation(reply.table);
    return goOn;
}

/// A menu that ends the command ends its parents, too.
template <int (EditTableCellGUI::*menu)(KdDbObjectId)>
Outcome open(const Reply& reply) {
    return (reply.gui.*menu)(reply.table) == RTNORM ? goOn : Outcome(RTCAN);
}

template <unsigned menuCommand>
Outcome setLock(const Reply& reply) {
    CVqTableCommon::SettingLocked(menuCommand, reply.table);
    return goOn;
}

template <KdDb::CellAlignment alignment>
Outcome align(const Reply& reply) {
    CVqTableCommon::SetSelectionAlignment(reply.table, alignment);
    return goOn;
}

/// A line of its own, without a prompt; nothing when the user cancels.
std::optional<CStdStr<wchar_t>> readLine() {
    ReplyBuffer line{};
    if (kdedGetString(1, nullptr, line.data()) != RTNORM) return std::nullopt;
    return CStdStr<wchar_t>(line.data());
}

/// Takes a value and leaves the cells as they are: the colour is set from the toolbar and the context menu. The
/// question about the format is asked all the same, and its answer holds for the run.
Outcome readBackground(const Reply& reply) {
    if (readLine()) reply.gui.canFormatEdit(reply.table);
    return goOn;
}

Outcome setCellStyle(const Reply& reply) {
    if (auto name = readLine()) CVqTableCommon::SetCellStyleByName(reply.table, *name);
    return goOn;
}

// Surveys.

unsigned surveyOperations(const KdDbTable& table) {
    const KdCellRange cells = table.getSubSelection();
    const int rows = CKdTableCellRange(cells).numRows();
    const int columns = CKdTableCellRange(cells).numColumns();
    return (table.canInsert(cells.m_topRow, true) ? insertAbove : 0U) |
           (table.canInsert(cells.m_bottomRow, true) ? insertBelow : 0U) |
           (table.canDelete(cells.m_topRow, rows, true) ? deleteRow : 0U) |
           (table.canInsert(cells.m_leftColumn, false) ? insertLeft : 0U) |
           (table.canInsert(cells.m_rightColumn, false) ? insertRight : 0U) |
           (table.canDelete(cells.m_leftColumn, columns, false) ? deleteColumn : 0U);
}

unsigned surveyMerge(const KdDbTable& table) {
    return CVqTableCommon::CanMergeCells(&table) ? mergeCells : 0U;
}

/// Nothing is allowed on a table that can't be opened.
unsigned survey(const EditTableCellMenu& menu, KdDbObjectId id, int status) {
    if (menu.survey == nullptr || (status != RTNORM && !menu.surveysCancels)) return 0;
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    return table ? menu.survey(*table) : 0;
}

// The menus.

using Gui = EditTableCellGUI;
using Common = CVqTableCommon;

constexpr MenuItem back = {L"BAck", nullptr, end<RTNORM>};
constexpr MenuItem quit = {L"Quit", nullptr, end<RTCAN>};

// "Datalink" is offered by no list of ours, and does nothing.
constexpr MenuItem mainItems[] = {
    {L"Operation", nullptr, open<&Gui::editCell_Operation>},
    {L"Content", nullptr, open<&Gui::editCell_Content>},
    {L"Format", nullptr, open<&Gui::editCell_Format>},
    {L"Style", nullptr, open<&Gui::editCell_Style>},
    {L"Datalink", nullptr, open<&Gui::editCell_Datalink>},
    {L"ExecuteOneAction", nullptr, open<&Gui::editCell_ExecuteOneAction>},
    quit,
};

// "insertBLock" and "insertFIeld" are for a list of the resource module that names them; ours don't.
constexpr MenuItem operationItems[] = {
    back,
    {L"insertABove", allows<insertAbove>, run<Common::InsertRowByAbove>},
    {L"insertBElow", allows<insertBelow>, run<Common::InsertRowByBelow>},
    {L"deleteROw", allows<deleteRow>, run<Common::DeleteRows>},
    {L"insertLEft", allows<insertLeft>, run<Common::InsertColumnByLeft>},
    {L"insertRIght", allows<insertRight>, run<Common::InsertColumnByRight>},
    {L"deleteCOlumn", allows<deleteColumn>, run<Common::DeleteColumns>},
    {L"Merge", nullptr, open<&Gui::editCell_Merge>},
    {L"Unmerge", mayUnmerge, run<Common::UnmergeCells>},
    {L"insertFOrmula", nullptr, open<&Gui::editCell_Formula>},
    {L"insertBLock", contentIsEditable, run<Common::InsertBlock>},
    {L"insertFIeld", contentIsEditable, run<Common::InsertField>},
    {L"BOrder", formatIsEditable, run<Common::SetBorders>},
    quit,
};

constexpr MenuItem mergeItems[] = {
    back,
    {L"mergeAll", allows<mergeCells>, run<Common::MergeAll>},
    {L"mergeHorizontal", allows<mergeCells>, run<Common::MergeByRow>},
    {L"mergeVertical", allows<mergeCells>, run<Common::MergeByColumn>},
    quit,
};

constexpr MenuItem formulaItems[] = {
    back,
    {L"Sum", contentIsEditable, run<Common::InsertSumFormula>},
    {L"Average", contentIsEditable, run<Common::InsertAverageFormula>},
    {L"Count", contentIsEditable, run<Common::InsertCountFormula>},
    {L"Cell", contentIsEditable, run<Common::InsertCellFormula>},
    {L"Equation", contentIsEditable, run<Common::InsertEquation>},
    quit,
};

// Locks are set and taken away by the numbers that stand for them in the context menu. They ask no gate: locked
// cells must be open to being unlocked.
constexpr unsigned unlock = 1819;
constexpr unsigned lockContent = 1820;
constexpr unsigned lockFormat = 1821;

// "Datatype" and "Manage" are understood, and do nothing.
constexpr MenuItem contentItems[] = {
    back,
    {L"Lock", nullptr, setLock<lockContent>},
    {L"Unlock", nullptr, setLock<unlock>},
    {L"Datatype", nullptr, nothing},
    {L"Manage", nullptr, nothing},
    quit,
};

constexpr MenuItem formatItems[] = {
    back,
    {L"ALignment", nullptr, open<&Gui::editCell_Alignment>},
    {L"BGcolor", nullptr, readBackground},
    {L"Lock", nullptr, setLock<lockFormat>},
    {L"Unlock", nullptr, setLock<unlock>},
    quit,
};

constexpr MenuItem alignmentItems[] = {
    back,
    {L"TL", formatIsEditable, align<KdDb::kTopLeft>},
    {L"TC", formatIsEditable, align<KdDb::kTopCenter>},
    {L"TR", formatIsEditable, align<KdDb::kTopRight>},
    {L"ML", formatIsEditable, align<KdDb::kMiddleLeft>},
    {L"MC", formatIsEditable, align<KdDb::kMiddleCenter>},
    {L"MR", formatIsEditable, align<KdDb::kMiddleRight>},
    {L"BL", formatIsEditable, align<KdDb::kBottomLeft>},
    {L"BC", formatIsEditable, align<KdDb::kBottomCenter>},
    {L"BR", formatIsEditable, align<KdDb::kBottomRight>},
    quit,
};

// In spite of their words the first two are the dialogs of cell styles.
constexpr MenuItem styleItems[] = {
    back,
    {L"Edittablestyle", nullptr, run<Common::ManageCellStyles>},
    {L"Newtablestyle", nullptr, run<Common::CreateNewCellStyle>},
    {L"editcellStyle", nullptr, setCellStyle},
    quit,
};

/// The item of a reply; null when the menu has none.
const MenuItem* findItem(const EditTableCellMenu& menu, const wchar_t* reply) {
    const auto takes = [reply](const MenuItem& item) { return wcscasecmp(item.keyword, reply) == 0; };
    const auto item = std::find_if(menu.items.begin(), menu.items.end(), takes);
    return item == menu.items.end() ? nullptr : &*item;
}

/// A reply that no item takes, or whose gate refuses it, does nothing.
Outcome carryOut(const MenuItem* item, const Reply& reply) {
    if (item == nullptr || (item->gate != nullptr && !item->gate(reply))) return goOn;
    return item->action(reply);
}

}  // namespace

/// A cancelled prompt leads back to the parent, as "BAck" does.
int EditTableCellGUI::runMenu(const EditTableCellMenu& menu, KdDbObjectId table) {
    const CStdStr<wchar_t> keywords = loadText(menu.texts.keywords);
    const CStdStr<wchar_t> prompt = loadText(menu.texts.prompt);
    ReplyBuffer reply{};
    for (;;) {
        kdedInitGet(0, keywords);
        const int status = kdedGetKword(prompt, reply.data());
        const unsigned allowed = survey(menu, table, status);
        if (status != RTNORM) return RTNORM;
        const Outcome outcome = carryOut(findItem(menu, reply.data()), {*this, table, allowed});
        if (outcome) return *outcome;
        if (m_executeOneAction && menu.endsAfterOneAction) return RTCAN;
    }
}

/// The main menu stays after an action also in the one-action mode: it is the menus below that end the command.
int EditTableCellGUI::mainMenu(KdDbObjectId table) {
    return runMenu({.texts = menutexts::mainMenu, .items = mainItems, .endsAfterOneAction = false}, table);
}

int EditTableCellGUI::editCell_Operation(KdDbObjectId table) {
    return runMenu({.texts = menutexts::operation, .items = operationItems, .survey = surveyOperations}, table);
}

/// This one menu stays after a merge in the one-action mode, until the user goes back or quits; the mode then ends
/// the menu above.
int EditTableCellGUI::editCell_Merge(KdDbObjectId table) {
    return runMenu({.texts = menutexts::merge,
                    .items = mergeItems,
                    .survey = surveyMerge,
                    .surveysCancels = true,
                    .endsAfterOneAction = false},
                   table);
}

int EditTableCellGUI::editCell_Formula(KdDbObjectId table) {
    return runMenu({.texts = menutexts::formula, .items = formulaItems}, table);
}

int EditTableCellGUI::editCell_Content(KdDbObjectId table) {
    return runMenu({.texts = menutexts::content, .items = contentItems}, table);
}

int EditTableCellGUI::editCell_Format(KdDbObjectId table) {
    return runMenu({.texts = menutexts::format, .items = formatItems}, table);
}

int EditTableCellGUI::editCell_Alignment(KdDbObjectId table) {
    return runMenu({.texts = menutexts::alignment, .items = alignmentItems}, table);
}

int EditTableCellGUI::editCell_Style(KdDbObjectId table) {
    return runMenu({.texts = menutexts::style, .items = styleItems}, table);
}

int EditTableCellGUI::editCell_Datalink(KdDbObjectId) {
    return RTNORM;
}

int EditTableCellGUI::editCell_ExecuteOneAction(KdDbObjectId) {
    m_executeOneAction = true;
    return RTNORM;
}
