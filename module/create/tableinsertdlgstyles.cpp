// The styles that the insert dialog offers, its preview, and the dialogs that it opens: of table styles, and of files.

#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "module/controls/comboboxes.h"
#include "module/core/cellstylewalk.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tableinsertdlgcontrols.h"
#include "module/exchange/exlimportdlg.h"
#include "module/style/lineweightsshown.h"
#include "module/style/styletablepreview.h"
#include "module/style/tablestyledlg.h"

using namespace insertdlg;

namespace {

std::vector<CStdStr<wchar_t>> entriesOf(KdDbObjectId dictionary) {
    std::vector<CStdStr<wchar_t>> names;
    const OpenObject<KdDbDictionary> open(dictionary, KdDb::kForRead);
    if (!open) return names;
    const std::unique_ptr<KdDbDictionaryIterator> entry(open->newIterator());
    for (; !entry->done(); entry->next()) names.emplace_back(entry->name());
    return names;
}

/// The box lists the names and shows the one of a default cell style, without a signal.
void fillCellBox(CComboBox& box, const std::vector<CStdStr<wchar_t>>& names, const wchar_t* chosen) {
    box.ResetContent();
    for (const CStdStr<wchar_t>& name : names) box.AddString(name);
    CStdStr<wchar_t> shown = chosen;
    CVqTableCommon::DefaultCellStyleReverseConvert(shown);
    showRow(box, box.FindStringExact(-1, shown));
}

CStdStr<wchar_t> trimmedText(const CComboBox& box) {
    CStdStr<wchar_t> text = selectedText(box);
    return text.Trim();
}

}  // namespace

// ---- table styles

KdDbObjectId CVqTableInsertDlg::FindTableStyleFromDictionary(const CStdStr<wchar_t>& name) const {
    return tableStyleNamed(m_pDatabase, name).value_or(KdDbObjectId::kNull);
}

/// The drawing's current style is chosen, whatever was before. A name that can't be told chooses none.
void CVqTableInsertDlg::FillTableStyleComboBox() {
    m_ctrlStyleName.ResetContent();
    for (const CStdStr<wchar_t>& name : entriesOf(m_idDictionary)) m_ctrlStyleName.AddString(name);
    const CStdStr<wchar_t> current = currentTableStyleName();
    if (current.empty()) return;
    m_idStyle = FindTableStyleFromDictionary(current);
    m_ctrlStyleName.SetCurSel(m_ctrlStyleName.FindStringExact(-1, current));
}

/// Each time it drops, the list shows the dictionary as it is now and has the current style chosen.
void CVqTableInsertDlg::OnDropDownTablestyleCombo() {
    FillTableStyleComboBox();
}

/// The boxes of cell styles first, silently, so that the preview is made once and shows what they show.
void CVqTableInsertDlg::OnSelStyleNameComboBox() {
    m_idStyle = FindTableStyleFromDictionary(selectedText(m_ctrlStyleName));
    FillCellComboBox();
    ShowPreviewPicture(1, 1);
}

/// A current style that was renamed there by F2 comes back by its old name, as that dialog keeps it. No style has this
/// name any more, so that the table falls to "Standard" unless another style, or the list's next drop, brings one.
void CVqTableInsertDlg::OnTableStyleManButton() {
    CVqTableStyleDlg dialog(this);
    dialog.SetDatabase(m_pDatabase);
    if (dialog.DoModal() != IDOK) return;
    const CStdStr<wchar_t> name = dialog.GetCurrentTableStyleName();
    const int listed = m_ctrlStyleName.FindStringExact(-1, name);
    showRow(m_ctrlStyleName, listed >= 0 ? listed : m_ctrlStyleName.AddString(name));
    LoadDatabaseData();
    m_idStyle = FindTableStyleFromDictionary(name);
    FillCellComboBox();
    ShowPreviewPicture(1, 1);
}

// ---- cell styles

void CVqTableInsertDlg::FillCellComboBox() {
    const OpenObject<KdDbTableStyle> style(m_idStyle, KdDb::kForRead);
    if (!style) return;
    const std::vector<CStdStr<wchar_t>> names = cellStyleDisplayNames(*style);
    fillCellBox(m_ctrlFirstRow, names, L"_TITLE");
    fillCellBox(m_ctrlSecondRow, names, L"_HEADER");
    fillCellBox(m_ctrlOtherRow, names, L"_DATA");
}

CStdStr<wchar_t> CVqTableInsertDlg::GetFirstCellText() const {
    return trimmedText(m_ctrlFirstRow);
}

CStdStr<wchar_t> CVqTableInsertDlg::GetSecondCellText() const {
    return trimmedText(m_ctrlSecondRow);
}

CStdStr<wchar_t> CVqTableInsertDlg::GetOtherCellText() const {
    return trimmedText(m_ctrlOtherRow);
}

void CVqTableInsertDlg::OnSelFirstRowComboBox() {
    ShowPreviewPicture(1, 1);
}

void CVqTableInsertDlg::OnSelSecondRowComboBox() {
    ShowPreviewPicture(1, 1);
}

void CVqTableInsertDlg::OnSelOtherRowComboBox() {
    ShowPreviewPicture(1, 1);
}

// ---- the table from a file

void CVqTableInsertDlg::OnDataLinkManButton() {
    CExlImportDlg dialog(this);
    if (dialog.DoModal() == IDOK) {
        // What the preview still shows is about to go.
        if (m_pTable != nullptr) m_ctrlPreview.uninitPreviewer();
        m_pTable = std::move(dialog.m_pTable);
        // Without a style of the user's choice it keeps the one that it was read with.
        if (m_pTable != nullptr && !m_idStyle.isNull()) m_pTable->setTableStyle(m_idStyle);
        ShowPreviewPicture(1, 0);
        m_ctrlDataLink.ResetContent();
        showRow(m_ctrlDataLink, m_ctrlDataLink.AddString(dialog.m_strPath));
        // Paths are longer than the box.
        m_toolTips.AddTool(&m_ctrlDataLink, dialog.m_strPath);
        enableControl("IDOK", true);
    }
    enableFigures(false);
}

// ---- the preview

int CVqTableInsertDlg::ShowPreviewPicture(int show, int rebuild) {
    showControl("IDC_TABLEINSERT_NOTPREVIEW_STATIC", false);
    m_ctrlPreview.ShowWindow(show != 0 ? SW_SHOW : SW_HIDE);
    showControl("IDC_TABLEINSERT_NOTPREVIEWTIP_STATIC", show == 0);
    if (show == 0) return 1;

    const LineWeightsShown weights;
    if (m_fromEmpty.GetCheck() != 0 && !showSample(rebuild != 0)) return 1;
    if (m_fromFile.GetCheck() != 0 && !showImported()) return 1;
    m_ctrlPreview.invalidate(true);
    m_ctrlPreview.update();
    return 1;
}

/// False when there is nothing to show: a preview that couldn't be made when the dialog opened isn't made later.
bool CVqTableInsertDlg::showSample(bool rebuild) {
    if (m_ctrlPreview.isNeedInitialize()) return false;
    // Without a sample the control shows a table from a file.
    if (rebuild || m_pPreviewTable == nullptr) {
        m_ctrlPreview.uninitPreviewer();
        m_pPreviewTable.reset();
        initializeTablePreviewer();
    }
    if (m_pPreviewTable == nullptr) return false;
    m_pPreviewTable->setTableStyle(m_idStyle);
    m_pPreviewTable->recomputeTableBlock(true);
    return true;
}

bool CVqTableInsertDlg::showImported() {
    if (m_pTable == nullptr) return false;
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewTable.reset();
    initializeTablePreviewer(m_pTable.get());
    return true;
}

void CVqTableInsertDlg::initializeTablePreviewer() {
    if (!m_ctrlPreview.isNeedInitialize()) return;
    if (CreatePreviewTable(m_idStyle, GetFirstCellText(), GetSecondCellText(), GetOtherCellText()) == 0) return;
    initializeTablePreviewer(m_pPreviewTable.get());
    m_ctrlPreview.OnPaint();
}

void CVqTableInsertDlg::initializeTablePreviewer(KdDbTable* table) {
    m_ctrlPreview.initialPreviewer(m_ctrlPreview.GetSafeHwnd(), m_pDatabase, {table});
}

int CVqTableInsertDlg::CreatePreviewTable(const KdDbObjectId& style, const CStdStr<wchar_t>& first,
                                          const CStdStr<wchar_t>& second, const CStdStr<wchar_t>& other) {
    m_pPreviewTable = makeTablePreview(m_pDatabase, style, first, second, other);
    return m_pPreviewTable != nullptr ? 1 : 0;
}
