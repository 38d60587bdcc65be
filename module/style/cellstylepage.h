// The base of the pages that edit one cell style of a table style: which style and which cell style a page shows, the
// road to the style, the previews, and the rules of the edits that hold numbers.
//
// A page has no values of its own. It reads the style in UpdateFormDatabaseData, and each handler gets the style for
// write through the transaction that stands open around the dialog, sets one property, and asks for the previews. A
// style that can't be had ends a handler without a word.
//
// Controls that a page tests for the focus are its direct children.
#pragma once

#include "kd/db/objectid.h"
#include "kd/ui/basedialog.h"
#include "mfc/controls.h"
#include "module/controls/lengthedit.h"

class CVqTableStyleEditDlg;
class KdDbDatabase;
class KdDbTableStyle;
class KdDbTransaction;

class CVqTableCellStylePage : public KdUiBaseDialog {
public:
    /// What the page shows from its next UpdateFormDatabaseData on.
    void SetTableStyleId(const KdDbObjectId& id) { m_idStyle = id; }
    /// The internal name of the cell style ("_DATA" and its like).
    void SetCellStyleName(const CStdStr<wchar_t>& name) { m_strCellStyle = name; }

    /// Fills the controls from the style. 1 on success, 0 on failure, with the controls behind the failure as they
    /// were. What it shows is no choice of the user's: it writes nothing.
    virtual int UpdateFormDatabaseData() = 0;

    /// Enter and Esc are left to the dialog around the page.
    bool PreTranslateMessage(MSG* message) override;

protected:
    explicit CVqTableCellStylePage(CWnd* parent) : KdUiBaseDialog(parent) {}

    /// The dialog around the page; null without one.
    CVqTableStyleEditDlg* editDialog() const;
    /// The drawing that numbers are read and written for; null without a dialog around the page.
    KdDbDatabase* database() const;

    /// Enter and Esc, on a page that stands in a dialog.
    bool isLeftToDialog(const MSG& message) const;

    /// The style through the top transaction, which the page keeps. Null on failure.
    const KdDbTableStyle* styleForRead();
    /// The style through the transaction of the last read. Null on failure.
    KdDbTableStyle* styleForWrite() const;
    /// The cell style that is shown, as the style's operations take it.
    const wchar_t* cellStyle() const { return m_strCellStyle; }

    /// Shows the style anew in both previews; with `rebuild` the table is made again. 0 without a dialog around.
    int UpdatePreview(int rebuild) const;

    /// See takeFocusBack of dialogs.
    void takeFocusBack(CEdit& edit) const { ::takeFocusBack(*this, edit); }
    /// Shows a length as the drawing writes it; without a drawing the edit is left alone.
    void showLength(CEdit& edit, double value) const { ::showLength(database(), edit, value); }
    /// Reads the edit's text as a length. False when it is none.
    bool readLength(const CEdit& edit, double& value) const { return ::readLength(database(), edit, value); }
    /// What leaving an edit of a length does: a text that reads as a length which `accepts` takes is written as the
    /// drawing writes it, and then stored by `store(style, value)`. Any other text keeps the style as it is, and the
    /// focus comes back. No message tells so.
    template <class Accepts, class Store>
    void commitLength(CEdit& edit, Accepts accepts, Store store);

    /// The last touch of every page's opening.
    void initPageWindow();

private:
    KdDbObjectId m_idStyle;
    KdDbTransaction* m_pTransaction = nullptr;
    CStdStr<wchar_t> m_strCellStyle;
};

template <class Accepts, class Store>
void CVqTableCellStylePage::commitLength(CEdit& edit, Accepts accepts, Store store) {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    double value = 0.0;
    CStdStr<wchar_t> text;
    if (!readLength(edit, value) || !accepts(value) || !lengthText(database(), value, text)) {
        takeFocusBack(edit);
        return;
    }
    edit.SetWindowTextW(text);
    store(*style, value);
    UpdatePreview(0);
}
