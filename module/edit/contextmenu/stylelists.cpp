// The lists of styles in the context menus: the cell styles of the table's style, and the table styles of the drawing.
//
// An item of a list has a name of its own, which no row of TableResArr has: choosing it from the menu does nothing. A
// table style is changed by the host's number of its place alone.

#include <algorithm>
#include <iterator>
#include <vector>

#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"
#include "module/edit/contextmenu/tableuicontext.h"

namespace {

constexpr unsigned kCellStylesText = 2156;
constexpr unsigned kSaveAsText = 2202;
constexpr unsigned kCellFollowsText = 2224;
constexpr unsigned kColumnFollowsText = 2226;
constexpr int kPlaceInIndicatorMenu = 16;
constexpr int kPlaceInCellMenu = 19;

QString loadedText(unsigned number) {
    return QString::fromWCharArray(loadText(number).c_str());
}

/// A style's name as the text of an item, in which an ampersand would mark a letter.
QString itemText(const KdString& name) {
    return QString::fromStdWString(name.str()).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// The object name of item `number`: the literal without its first letters, one more for each item, so that items have
/// different names. Behind the last letter the number follows the literal.
QString steppedName(QLatin1String literal, int number) {
    if (number < literal.size()) return literal.mid(number);
    return QString(literal) + QString::number(number);
}

/// The style that a list of cell styles marks: none, whatever is selected.
struct MarkedStyle {
    KdString name;
    bool inherited = false;
};
MarkedStyle getCellStyle(const KdDbTable&, KdDb::TableHitItem) {
    return {};
}

/// The cell styles of the style in its order; reserved names are translated with `translate`.
int getCellStyles(const KdDbTableStyle& style, KdArray<KdString>& names, bool translate) {
    constexpr KdDb::reservedStringEnumType reserved[] = {KdDb::kReservedCellStyleTitle, KdDb::kReservedCellStyleHeader,
                                                         KdDb::kReservedCellStyleData};
    KdArray<KdString> stored;
    style.getCellStyles(stored);
    names.setLogicalLength(0);
    for (const KdString& name : stored) {
        if (name.isEmpty()) continue;
        const bool isReserved = std::any_of(std::begin(reserved), std::end(reserved),
                                            [&](auto kind) { return kddbIsReservedString(name.kwszPtr(), kind); });
        names.append(translate && isReserved ? kddbXlateReservedString(name.kwszPtr(), true) : name);
    }
    return names.length();
}

/// The table styles of the working drawing, in the order of its dictionary.
std::vector<KdString> getTableStyles() {
    std::vector<KdString> names;
    KdDbDatabase* database = kddbHostApplicationServices()->workingDatabase();
    KdDbDictionary* styles = nullptr;
    if (database == nullptr || database->getTableStyleDictionary(styles, KdDb::kForRead) != Kdad::eOk) return names;
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (; !entry->done(); entry->next()) names.emplace_back(entry->name());
    styles->close();
    return names;
}

bool isStandard(const KdString& name) {
    return kddbIsReservedString(name.kwszPtr(), KdDb::kReservedStandard);
}

/// The name of the table's style; empty when the style can't be opened.
KdString styleNameOf(const KdDbTable& table) {
    const OpenObject<KdDbTableStyle> style(table.tableStyle(), KdDb::kForRead);
    return style ? KdString(nameOfTableStyle(*style).c_str()) : KdString();
}

}  // namespace

bool CVqTableUIContext::addCellStyleMenu(TableMenu& parent, const KdDbTable& table, KdDb::TableHitItem hit,
                                         bool forIndicator) {
    const QLatin1String kFollows("IDR_TABLEDIT_CELLSTYLE_TITLE");
    const QLatin1String kSaveAs("IDR_TABLEDIT_CELLSTYLE_SAVEAS");
    const QLatin1String kStyles("IDR_TABLEDIT_CELLSTYLE_BASE");
    m_cellStyleMenu.CreatePopupMenu();
    const MarkedStyle marked = getCellStyle(table, hit);
    const OpenObject<KdDbTableStyle> style(table.tableStyle(), KdDb::kForRead);
    if (!style) return false;
    const int count = getCellStyles(*style, m_cellStyleNames, true);

    const bool ofCell = hit == KdDb::kTableHitCell;
    if (ofCell || hit == KdDb::kTableHitColumnIndicator) {
        m_cellStyleMenu.AppendMenuW(kTableMenuEnabled, kFollows,
                                    loadedText(ofCell ? kCellFollowsText : kColumnFollowsText));
        if (!marked.name.isEmpty() && !marked.inherited) m_cellStyleMenu.CheckMenuItem(kFollows, kTableMenuChecked);
    }
    for (int k = 0; k < count; ++k) {
        const KdString& name = m_cellStyleNames[k];
        m_cellStyleMenu.AppendMenuW(kTableMenuEnabled, steppedName(kStyles, k), itemText(name));
        if (name == marked.name)
            m_cellStyleMenu.CheckMenuItem(m_cellStyleMenu.GetMenuItemCount() - 1, kTableMenuChecked);
    }
    if (ofCell) {
        m_cellStyleMenu.AppendMenuW(kTableMenuSeparator, {}, {});
        m_cellStyleMenu.AppendMenuW(CVqTableCommon::IsSingleCell(&table) ? kTableMenuEnabled : kTableMenuDisabled,
                                    kSaveAs, loadedText(kSaveAsText));
    }
    parent.InsertMenuW(QLatin1String("IDR_TABLECELL_CELLSTYLE"),
                       forIndicator ? kPlaceInIndicatorMenu : kPlaceInCellMenu, m_cellStyleMenu,
                       loadedText(kCellStylesText));
    return true;
}

/// The standard style comes first, under its local name; the others follow as the dictionary has them.
void CVqTableUIContext::setTableStyleMenuItemState(TableMenu& menu, const KdDbTable& table) {
    const KdString used = styleNameOf(table);
    m_tableStyleNames.setLogicalLength(0);
    std::vector<KdString> names = getTableStyles();
    const auto standard = std::find_if(names.begin(), names.end(), isStandard);
    if (standard != names.end()) {
        names.erase(standard);
        m_tableStyleNames.append(kddbGetReservedString(KdDb::kReservedStandard, false));
    }
    for (const KdString& name : names) m_tableStyleNames.append(name);

    m_tableStyleList = menu.GetSubMenu(0);
    if (m_tableStyleList == nullptr) return;
    for (int k = 0; k < m_tableStyleNames.length(); ++k) {
        const KdString& name = m_tableStyleNames[k];
        const KdString shown = isStandard(name) ? kddbGetReservedString(KdDb::kReservedStandard, true) : name;
        const bool isUsed = isStandard(used) ? isStandard(name) : ssicmp(used.kwszPtr(), name.kwszPtr()) == 0;
        m_tableStyleList->AppendMenuW(kTableMenuEnabled, steppedName(QLatin1String("TABLESTYLE_BEGININDEX"), k),
                                      itemText(shown));
        if (isUsed) m_tableStyleList->CheckMenuItem(k, kTableMenuChecked);
    }
}
