// What the manager of cell styles does to them: create, rename, delete, each through the transaction that its caller
// has opened. A style that can't be had for write ends the edit without a word; what the list shows has changed by
// then.

#include "kd/db/tablestyle.h"
#include "module/controls/stylelist.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/preview/tablecellfromtablestyle.h"
#include "module/style/createcellstyledlg.h"
#include "module/style/managercellstyledlg.h"

namespace {

constexpr unsigned kInvalidText = 2017;
constexpr unsigned kExistsText = 2136;
constexpr unsigned kDeleteText = 2143;

}  // namespace

// New.

void CVqTableManagerCellStyleDlg::CreateNewCellStyle() {
    CVqTableCreateCellStyleDlg dialog(this);
    for (int row = 0; row < m_ctrlList.GetItemCount(); ++row) dialog.AddCellStyleNameToArray(rowText(row));
    dialog.SetStartWithName(rowText(m_ctrlList.GetSelectionMark()));
    if (dialog.DoModal() != IDOK) return;

    CStdStr<wchar_t> name;
    CStdStr<wchar_t> start;
    dialog.GetCellStyleName(name);
    dialog.GetFromCellStyleName(start);
    // The new row comes before the last one, and the selection stays where it was; the preview shows the new style.
    m_ctrlList.InsertItem(m_ctrlList.GetItemCount() - 1, name);
    CreateCellStyle(name, start);
    ShowPreviewPicture(name);
}

void CVqTableManagerCellStyleDlg::CreateCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& start) {
    KdDbTableStyle* open = style(KdDb::kForWrite);
    if (open == nullptr) return;
    CStdStr<wchar_t> internalStart = start;
    CVqTableCommon::DefaultCellStyleConvert(internalStart);
    open->createCellStyle(name, internalStart);
    AddCellStyleName(name);
}

// Rename. Unlike the names of table styles, a name that is refused here is told why. Its length is not tested: the
// limit is one of new styles.

void CVqTableManagerCellStyleDlg::RenameCellStyle() {
    editMarkedLabel(m_ctrlList);
}

void CVqTableManagerCellStyleDlg::OnLvnBeginlabeleditCellstyleList(NMHDR* header, LRESULT* result) {
    m_strOldName = rowText(noticeOf<NMLVDISPINFO>(header).iItem);
    *result = IsDefaultCellStyle(m_strOldName) ? 1 : 0;
}

void CVqTableManagerCellStyleDlg::OnLvnEndlabeleditCellstyleList(NMHDR* header, LRESULT* result) {
    const auto& notice = noticeOf<NMLVDISPINFO>(header);
    *result = 0;
    m_strRenamed = notice.pszText == nullptr ? L"" : notice.pszText;
    m_strOldName = rowText(notice.iItem);
    if (m_strRenamed.empty()) return;
    if (!CVqTableCommon::CheckStyleNameValid(m_strRenamed)) {
        refuse(kInvalidText);
        return;
    }
    // The style's own name exists as well, so that its case alone can't be changed.
    if (IsExistCellStyle(m_strRenamed)) {
        refuse(kExistsText);
        return;
    }
    RenameCellStyle(m_strOldName, m_strRenamed);
    ShowPreviewPicture(m_strRenamed);
    m_ctrlList.SetSelectionMark(notice.iItem);
    *result = 1;
}

void CVqTableManagerCellStyleDlg::refuse(unsigned textNumber) {
    MessageBoxW(loadText(textNumber), GetOemProductName(), MB_OK | MB_ICONWARNING);
    // The message has taken the label's edit away, and the focus with it.
    m_ctrlList.SetFocus();
}

void CVqTableManagerCellStyleDlg::RenameCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& renamed) {
    KdDbTableStyle* open = style(KdDb::kForWrite);
    if (open == nullptr) return;
    open->renameCellStyle(name, renamed);
    DelCellStyleName(name);
    AddCellStyleName(renamed);
}

// Delete.

void CVqTableManagerCellStyleDlg::DeleteCellStyle() {
    const int row = m_ctrlList.GetSelectionMark();
    const UINT state = m_ctrlList.GetItemState(row, LVIS_SELECTED | LVIS_FOCUSED);
    const int answer = MessageBoxW(loadText(kDeleteText), GetOemProductName(), MB_OKCANCEL | MB_ICONWARNING);
    m_ctrlList.SetFocus();
    if (answer != IDOK) return;

    const CStdStr<wchar_t> name = rowText(row);
    // The row number stays, with the style behind; behind the last style no row takes the place.
    if (m_ctrlList.DeleteItem(row)) m_ctrlList.SetItemState(row, state, LVIS_SELECTED | LVIS_FOCUSED);
    DeleteCellStyle(name);
    SetButtonState(rowText(m_ctrlList.GetSelectionMark()));
}

void CVqTableManagerCellStyleDlg::DeleteCellStyle(const CStdStr<wchar_t>& name) {
    KdDbTableStyle* open = style(KdDb::kForWrite);
    if (open == nullptr) return;
    open->deleteCellStyle(name);
    DelCellStyleName(name);
}

/// The name as it is written, once.
void CVqTableManagerCellStyleDlg::DelCellStyleName(const CStdStr<wchar_t>& name) {
    for (int index = 0; index < m_names.GetSize(); ++index) {
        if (m_names[index] != name) continue;
        m_names.RemoveAt(index);
        return;
    }
}
