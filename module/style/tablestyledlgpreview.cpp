// The captions of the dialog of table styles, and the preview of the selected one: a sample table in no drawing.

#include "kd/db/table.h"
#include "module/style/lineweightsshown.h"
#include "module/style/styletablepreview.h"
#include "module/style/tablestyledlg.h"
#include "module/style/textnaming.h"

namespace {

constexpr const char* kPreviewCaption = "IDC_TABLESTYLE_PREVIEW_STATIC";
constexpr unsigned kCurrentText = 2046;
constexpr unsigned kPreviewText = 2047;

}  // namespace

int CVqTableStyleDlg::SetCurrentTableStyleTip() {
    CWnd* current = GetDlgItem("IDC_TABLESTYLE_CURRENT_STATIC");
    if (current == nullptr) return 0;
    current->SetWindowTextW(textNaming(kCurrentText, m_strCurrentStyle));
    if (CWnd* preview = GetDlgItem(kPreviewCaption)) {
        preview->SetWindowTextW(textNaming(kPreviewText, m_strCurrentStyle));
    }
    return 1;
}

int CVqTableStyleDlg::ShowPreviewPicture(const CStdStr<wchar_t>& name) {
    if (CWnd* nameOnly = GetDlgItem("IDC_TABLESTYLE_PREVIEWNAME_STATIC")) nameOnly->ShowWindow(SW_HIDE);
    CWnd* caption = GetDlgItem(kPreviewCaption);
    if (caption == nullptr) return 0;
    caption->SetWindowTextW(textNaming(kPreviewText, name));
    m_ctrlPreview.SetWindowTextW(name);
    m_idPreviewStyle = FindTableStyleFromDictionary(name);
    if (m_idPreviewStyle.isNull()) return 0;

    const LineWeightsShown scope;
    // A preview that couldn't be made when the dialog opened isn't made later.
    if (m_ctrlPreview.isNeedInitialize()) return 1;
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewTable.reset();
    initializeTablePreviewer();
    m_ctrlPreview.invalidate(true);
    m_ctrlPreview.update();
    return 1;
}

void CVqTableStyleDlg::initializeTablePreviewer() {
    if (!m_ctrlPreview.isNeedInitialize()) return;
    m_pPreviewTable = makeStyleTablePreview(m_pDatabase, m_idPreviewStyle);
    if (m_pPreviewTable == nullptr) return;
    m_ctrlPreview.initialPreviewer(m_ctrlPreview.GetSafeHwnd(), m_pDatabase, {m_pPreviewTable.get()});
}

void CVqTableStyleDlg::OnDestroy() {
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewTable.reset();
    KdUiBaseDialog::OnDestroy();
}
