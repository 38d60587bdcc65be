// The list of table styles: what it holds, which of them are in use, and what mouse and keys do in it.

#include <QListWidget>
#include <algorithm>
#include <memory>
#include <set>

#include "kd/db/dictionary.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/controls/stylelist.h"
#include "module/controls/wiring.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"
#include "module/style/tablestyledlg.h"

namespace {

/// The one reserved name; it is the same in every language.
constexpr const wchar_t* kStandard = L"Standard";
constexpr unsigned kAllStylesText = 2013;
constexpr unsigned kStylesInUseText = 2014;
constexpr int kNameColumnWidth = 176;

bool isStandardStyleName(const CStdStr<wchar_t>& name) {
    return ssicmp(name, kStandard) == 0;
}

/// Compares a row with itself, whichever two are given: the rows keep the order in which they stand, which is that of
/// the drawing, with a new style where it was put.
int listCompare(std::int64_t, std::int64_t, std::int64_t extra) {
    const auto& list = *reinterpret_cast<const CListCtrl*>(extra);
    return ssicmp(list.GetItemText(0, 0), list.GetItemText(0, 0));
}

bool isAmong(const std::vector<CStdStr<wchar_t>>& names, const CStdStr<wchar_t>& name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const CStdStr<wchar_t>& each) { return ssicmp(each, name) == 0; });
}

}  // namespace

// What the list holds.

void CVqTableStyleDlg::fillFilterCombo() {
    m_ctrlFilterCombo.AddString(loadText(kAllStylesText));
    m_ctrlFilterCombo.AddString(loadText(kStylesInUseText));
    m_ctrlFilterCombo.SetCurSel(m_nListFilter ? 1 : 0);
}

void CVqTableStyleDlg::FillTableStyleNameList(bool inUseAlone) {
    m_ctrlList.InsertColumn(0, L"", 0, kNameColumnWidth);
    m_ctrlList.InsertColumn(1, L"", 0, 0);
    fillList(inUseAlone);
}

void CVqTableStyleDlg::OnSelchangeListComboBox() {
    CStdStr<wchar_t> chosen;
    m_ctrlFilterCombo.GetLBText(m_ctrlFilterCombo.GetCurSel(), chosen);
    fillList(ssicmp(chosen, loadText(kAllStylesText)) != 0);
    ListSort();
}

/// The list stays empty when the drawing's styles can't be read.
void CVqTableStyleDlg::fillList(bool inUseAlone) {
    m_ctrlList.DeleteAllItems();
    const OpenObject<KdDbDictionary> styles(m_idDictionary, KdDb::kForRead);
    if (!styles) return;
    const Names used = inUseAlone ? namesUsedByTables() : Names();
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (int index = 0; !entry->done(); entry->next(), ++index) {
        if (inUseAlone && !isAlwaysUsed(entry->name()) && !isAmong(used, entry->name())) continue;
        m_ctrlList.InsertItem(index, entry->name());
        m_ctrlList.SetItemData(index, index);
    }
    const int row = FindTableStyleNameItem(m_strCurrentStyle);
    m_ctrlList.SetSelectionMark(row);
    selectRow(m_ctrlList, row);
}

/// A name that is in no row, as it is written, gives the first row.
int CVqTableStyleDlg::FindTableStyleNameItem(const CStdStr<wchar_t>& name) const {
    const int count = m_ctrlList.GetItemCount();
    for (int row = 0; row < count; ++row) {
        if (m_ctrlList.GetItemText(row, 0) == name) return row;
    }
    return 0;
}

void CVqTableStyleDlg::ListSort() {
    for (int row = 0; row < m_ctrlList.GetItemCount(); ++row) m_ctrlList.SetItemData(row, row);
    m_ctrlList.SortItems(listCompare, reinterpret_cast<std::int64_t>(&m_ctrlList));
}

CStdStr<wchar_t> CVqTableStyleDlg::markedName() const {
    return m_ctrlList.GetItemText(m_ctrlList.GetSelectionMark(), 0);
}

// Which styles are in use.

/// The standard style and the current one count as used without a table, too.
bool CVqTableStyleDlg::IsUseTableStyle(const CStdStr<wchar_t>& name) const {
    return isAlwaysUsed(name) || (m_bHasTables && isAmong(namesUsedByTables(), name));
}

bool CVqTableStyleDlg::isAlwaysUsed(const CStdStr<wchar_t>& name) const {
    return isStandardStyleName(name) || ssicmp(name, m_strCurrentStyle) == 0;
}

/// Each style is read once, however many tables have it. Tables and styles that can't be opened are passed over; a
/// table whose style is something else ends the search.
CVqTableStyleDlg::Names CVqTableStyleDlg::namesUsedByTables() const {
    Names names;
    std::set<KdDbObjectId> seen;
    for (const KdDbObjectId id : m_tableIds) {
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        if (!table || !seen.insert(table->tableStyle()).second) continue;
        const OpenObject<KdDbObject> style(table->tableStyle(), KdDb::kForRead);
        if (!style) continue;
        if (!style->isKindOf(KdDbTableStyle::desc())) break;
        names.push_back(nameOfTableStyle(static_cast<const KdDbTableStyle&>(*style)));
    }
    return names;
}

/// Only deletion depends on the style: every style can be changed and made current, the standard one too.
int CVqTableStyleDlg::SetButtonState(const CStdStr<wchar_t>& name) {
    CWnd* erase = GetDlgItem("IDC_TABLESTYLE_DELSTYLE_BUTTON");
    if (erase == nullptr) return 0;
    erase->EnableWindow(!IsUseTableStyle(name));
    return 1;
}

// Mouse and keys.

void CVqTableStyleDlg::OnItemchangedList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto& notice = noticeOf<NMLISTVIEW>(header);
    const bool isNewlySelected = (notice.uNewState & ~notice.uOldState & LVIS_SELECTED) != 0;
    if (!isNewlySelected) return;
    m_ctrlList.SetSelectionMark(notice.iItem);
    const CStdStr<wchar_t> name = markedName();
    SetButtonState(name);
    ShowPreviewPicture(name);
}

void CVqTableStyleDlg::OnNMClickTablestyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    m_bItemHit = noticeOf<NMLISTVIEW>(header).iItem >= 0;
}

void CVqTableStyleDlg::OnNMDblclkTablestyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int row = noticeOf<NMLISTVIEW>(header).iItem;
    if (row < 0) return;
    m_ctrlList.SetSelectionMark(row);
    CurrentTableStyle();
    SetButtonState(m_strCurrentStyle);
}

void CVqTableStyleDlg::OnNMRclickTablestyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int row = noticeOf<NMLISTVIEW>(header).iItem;
    if (row >= 0) {
        m_ctrlList.SetSelectionMark(row);
        SetButtonState(markedName());
        makeCurrentRow(m_ctrlList, row);
        ShowRButtonMenu(markedName());
    }
    // The hit counts from here on only: the menu's own deletion goes by the click before.
    m_bItemHit = row >= 0;
}

void CVqTableStyleDlg::ShowRButtonMenu(const CStdStr<wchar_t>& name) {
    const bool isFree = !IsUseTableStyle(name);
    showStyleMenu(*this, "IDR_MANAGETABLE_MENU",
                  {
                      {"IDR_MANAGETABLE_CURRENT", true, [this] { CurrentTableStyle(); }},
                      {"IDR_MANAGETABLE_RENAME", isFree, [this] { RenameTableStyle(); }},
                      {"IDR_MANAGETABLE_DELETE", isFree, [this] { DeleteTableStyle(); }},
                  });
}

void CVqTableStyleDlg::OnLvnKeydownTablestyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int row = selectedRow(m_ctrlList);
    if (row < 0) return;
    const CStdStr<wchar_t> name = m_ctrlList.GetItemText(row, 0);
    switch (noticeOf<NMLVKEYDOWN>(header).wVKey) {
        case VK_DELETE:
            if (!IsUseTableStyle(name)) DeleteTableStyle();
            break;
        case VK_F2:
            // Unlike the menu, the key doesn't ask whether the style is in use: it renames such a style too, and the
            // current one.
            if (!isStandardStyleName(name)) m_ctrlList.EditLabel(row);
            break;
        default:
            break;
    }
}

void CVqTableStyleDlg::OnLvnBeginlabeleditTablestyleList(NMHDR* header, LRESULT* result) {
    *result = isStandardStyleName(m_ctrlList.GetItemText(noticeOf<NMLVDISPINFO>(header).iItem, 0)) ? 1 : 0;
}

/// A name that is refused is refused without a word, and the row shows the old one again; the manager of cell styles
/// tells why instead. The difference is settled.
void CVqTableStyleDlg::OnLvnEndlabeleditTablestyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto& notice = noticeOf<NMLVDISPINFO>(header);
    if (notice.pszText == nullptr) return;
    const CStdStr<wchar_t> renamed = notice.pszText;
    if (renamed.empty() || !CVqTableCommon::CheckStyleNameValid(renamed)) return;
    // The style's own name is among those, so that its case alone can't be changed.
    if (!FindTableStyleFromDictionary(renamed).isNull()) return;

    RenameTableStyle(m_ctrlList.GetItemText(notice.iItem, 0), renamed);
    SetButtonState(renamed);
    SetCurrentTableStyleTip();
    m_ctrlList.SetItemText(notice.iItem, 0, renamed);
    m_ctrlList.SetSelectionMark(notice.iItem);
    ListSort();
}
