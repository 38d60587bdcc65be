// The preview of the selected table style: a sample table in no drawing.

#include "kd/db/table.h"
#include "module/core/resources.h"
#include "module/style/lineweightsshown.h"
#include "module/style/styletablepreview.h"
#include "module/style/tablestyledlg.h"

namespace {

constexpr unsigned kPreviewText = 2047;

}  // namespace

int CVqTableStyleDlg::ShowPreviewPicture(const CStdStr<wchar_t>& name) {
    if (CWnd* nameOnly = GetDlgItem("IDC_TABLESTYLE_PREVIEWNAME_STATIC")) nameOnly->ShowWindow(SW_HIDE);
    CWnd* caption = GetDlgItem("IDC_TABLESTYLE_PREVIEW_STATIC");
    if (caption == nullptr) return 0;
    CStdStr<wchar_t> text;
    text.Format(loadText(kPreviewText), name.c_str());
    caption->SetWindowTextW(text);
    m_ctrlPreview.SetWindowTextW(name);
    if (FindTableStyleFromDictionary(name).isNull()) return 0;

    const LineWeightsShown scope;
    // A preview that couldn't be made when the dialog opened isn't made later.
    if (m_ctrlPreview.isNeedInitialize()) return 1;
    m_ctrlPreview.uninitPreviewer();
    m_pPreviewTable.reset();
    initializeTablePreviewer(name);
    m_ctrlPreview.invalidate(true);
    m_ctrlPreview.update();
    return 1;
}

int CVqTableStyleDlg::initializeTablePreviewer(const CStdStr<wchar_t>& name) {
    if (!m_ctrlPreview.isNeedInitialize()) return 0;
    m_pPreviewTable = makeStyleTablePreview(m_pDatabase, FindTableStyleFromDictionary(name));
    if (m_pPreviewTable == nullptr) return 0;
    m_ctrlPreview.initialPreviewer(m_ctrlPreview.GetSafeHwnd(), m_pDatabase, {m_pPreviewTable.get()});
    return 1;
}
