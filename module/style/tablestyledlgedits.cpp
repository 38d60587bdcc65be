// What the dialog of table styles does to them: make current, create, change, rename, delete.

#include <memory>

#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/variables.h"
#include "module/controls/stylelist.h"
#include "module/core/openobject.h"
#include "module/core/tablestyles.h"
#include "module/core/transactions.h"
#include "module/style/createtablestyledlg.h"
#include "module/style/tablestyledlg.h"
#include "module/style/tablestyleeditdlg.h"
#include "module/style/textnaming.h"

namespace {

constexpr unsigned kDeleteText = 2019;
constexpr int kForNewStyle = 0;
constexpr int kForChangedStyle = 1;

}  // namespace

KdDbObjectId CVqTableStyleDlg::FindTableStyleFromDictionary(const CStdStr<wchar_t>& name) const {
    return tableStyleNamed(m_pDatabase, name).value_or(KdDbObjectId::kNull);
}

// The current style.

KdDbObjectId CVqTableStyleDlg::getCurrentTableStyleId() const {
    return FindTableStyleFromDictionary(m_strCurrentStyle);
}

void CVqTableStyleDlg::OnCurrentStyleButton() {
    CurrentTableStyle();
}

void CVqTableStyleDlg::CurrentTableStyle() {
    SetCurrentTableStyleName(markedName());
    SetButtonState(m_strCurrentStyle);
    SetCurrentTableStyleTip();
    SetCurrentTableStyle(m_strCurrentStyle);
}

int CVqTableStyleDlg::SetCurrentTableStyle(const CStdStr<wchar_t>& name) {
    const bool isThere = !FindTableStyleFromDictionary(name).isNull();
    resbuf value;
    value.restype = RTSTR;
    value.resval.rstring = kdutNewString(isThere ? name.c_str() : L"Standard");
    kdedSetVar(L"CTABLESTYLE", &value);
    kdutDelBuffer(value.resval.rstring);
    return 1;
}

// A new style. It is a copy in memory until its transaction has begun; from then on it lives and dies with that.

void CVqTableStyleDlg::OnNewStyleButton() {
    CVqTableCreateTableStyleDlg naming(this);
    if (!listNames(naming)) return;
    naming.SetStartWithName(markedName());
    const int count = m_ctrlList.GetItemCount();
    if (naming.DoModal() != IDOK) return;

    CStdStr<wchar_t> name;
    naming.GetTableStyleName(name);
    if (!editNewStyle(name, naming.StartWithName(), count)) return;
    // What becomes current is the row that was marked before, and not the new style.
    CurrentTableStyle();
    OnSelchangeListComboBox();
    ShowPreviewPicture(name);
    SetButtonState(name);
}

bool CVqTableStyleDlg::listNames(CVqTableCreateTableStyleDlg& naming) const {
    const OpenObject<KdDbDictionary> styles(m_idDictionary, KdDb::kForRead);
    if (!styles) return false;
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (; !entry->done(); entry->next()) naming.AddTableStyleNameToArray(entry->name());
    return true;
}

namespace {

/// Null when the start style can't be read.
std::unique_ptr<KdDbTableStyle> copyOf(KdDbObjectId start) {
    const OpenObject<KdDbTableStyle> open(start, KdDb::kForRead);
    if (!open) return nullptr;
    auto copy = std::make_unique<KdDbTableStyle>();
    copy->copyFrom(open.get());
    return copy;
}

/// Hands the style over to the drawing and to its innermost transaction. The null id, and the style gone, when the
/// drawing doesn't take it.
KdDbObjectId post(std::unique_ptr<KdDbTableStyle> style, KdDbDatabase* database, const CStdStr<wchar_t>& name) {
    KdDbObjectId id;
    if (style->postTableStyleToDb(database, name, id) != Kdad::eOk) return KdDbObjectId::kNull;
    currentTransactions()->addNewlyCreatedDBRObject(style.release(), true);
    return id;
}

}  // namespace

bool CVqTableStyleDlg::editNewStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& start, int rowCount) {
    std::unique_ptr<KdDbTableStyle> style = copyOf(FindTableStyleFromDictionary(start));
    if (style == nullptr) return false;
    KdDbTransaction* transaction = startTransaction();
    if (transaction == nullptr) return false;

    const KdDbObjectId id = post(std::move(style), m_pDatabase, name);
    if (getObject<KdDbTableStyle>(transaction, id, KdDb::kForRead) == nullptr || !editStyle(name, id, kForNewStyle)) {
        currentTransactions()->abortTransaction();
        return false;
    }
    m_ctrlList.InsertItem(rowCount - 1, name);
    ListSort();
    currentTransactions()->endTransaction();
    return true;
}

bool CVqTableStyleDlg::editStyle(const CStdStr<wchar_t>& name, KdDbObjectId id, int modify) {
    CVqTableStyleEditDlg dialog(nullptr, modify);
    dialog.SetTableStyleName(name);
    dialog.SetTableStyleId(id);
    return dialog.DoModal() == IDOK;
}

// A changed style. There is no copy: the style in the drawing is edited, and the transaction is the way back.

void CVqTableStyleDlg::OnModifyStyleButton() {
    const CStdStr<wchar_t> name = markedName();
    const KdDbObjectId id = FindTableStyleFromDictionary(name);
    if (id.isNull()) return;
    KdDbTransaction* transaction = startTransaction();
    if (transaction == nullptr) return;
    // A style that can't be got leaves the transaction open: standing behaviour.
    if (getObject<KdDbTableStyle>(transaction, id, KdDb::kForRead) == nullptr) return;

    if (editStyle(name, id, kForChangedStyle)) {
        ShowPreviewPicture(name);
        currentTransactions()->endTransaction();
    } else {
        currentTransactions()->abortTransaction();
    }
}

// Rename. The drawing changes at once, outside of any transaction. The name of the current style that the dialog
// knows doesn't change along: once the current style has another name, the captions show the old one.

void CVqTableStyleDlg::RenameTableStyle() {
    editMarkedLabel(m_ctrlList);
}

void CVqTableStyleDlg::RenameTableStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& renamed) {
    const OpenObject<KdDbDictionary> styles(m_idDictionary, KdDb::kForWrite);
    if (styles) styles->setName(name, renamed);
}

// Delete. At once too, and without a look at what the style is used for: whoever offers the deletion has asked.

/// The button is enabled for a style that has just been made, while the current one, which stays, is the marked row.
void CVqTableStyleDlg::OnDeleteStyleButton() {
    if (IsUseTableStyle(markedName()) == 0) DeleteTableStyle();
}

int CVqTableStyleDlg::DeleteTableStyle() {
    const int row = m_ctrlList.GetSelectionMark();
    if (row < 0 || !m_bItemHit) return 0;
    const CStdStr<wchar_t> name = markedName();
    if (MessageBoxW(textNaming(kDeleteText, name), GetOemProductName(), MB_OKCANCEL | MB_ICONINFORMATION) != IDOK)
        return 1;

    if (!m_ctrlList.DeleteItem(row)) return 1;
    const int selected = row == m_ctrlList.GetItemCount() ? row - 1 : row;
    m_ctrlList.SetSelectionMark(selected);
    selectRow(m_ctrlList, selected);
    return eraseStyle(FindTableStyleFromDictionary(name)) ? 1 : 0;
}

/// A style that can't be opened stays in the drawing, though its row is gone. False when the dictionary can't be told.
bool CVqTableStyleDlg::eraseStyle(KdDbObjectId id) const {
    const OpenObject<KdDbTableStyle> style(id, KdDb::kForWrite);
    if (!style) return true;
    style->erase(true);
    const OpenObject<KdDbDictionary> styles(m_idDictionary, KdDb::kForWrite);
    if (!styles) return false;
    styles->erased(style.get(), true);
    return true;
}
