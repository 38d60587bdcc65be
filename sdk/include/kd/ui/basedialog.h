// KdUiBaseDialog: the base of every dialog and page. It is itself the dialog; its content is a widget tree
// that the resource module gives by name.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "mfc/dataexchange.h"
#include "mfc/messagebox.h"
#include "mfc/wnd.h"

class QPushButton;

class KdUiBaseDialog : public QDialog, public CWnd {
    Q_OBJECT
public:
    explicit KdUiBaseDialog(CWnd* parent = nullptr);
    ~KdUiBaseDialog() override;

    /// Runs the dialog modally. 1 for OK, 2 for Cancel; a dialog whose tree could not be built gives -1 at
    /// once. OnInitDialog runs before it shows, once in the dialog's life; when it ends the dialog, the dialog
    /// doesn't show.
    virtual int DoModal();

    /// Builds the widget tree `name` from the `.ui` file of that name in the resource path
    /// ("TvxTableRes/TvxTableRes"). False, with an empty dialog, when it is missing or can't be read. The
    /// other arguments are the host's. A dialog takes one tree only: once it has one, further calls change
    /// nothing and give false.
    bool generateUICtrls(const char* resourcePath, const char* name, int kind = 1, int reserved1 = 0,
                         int reserved2 = 0);
    /// The control of that resource name; null when there is none.
    QWidget* getWidgetsFromOrignal(const char* name, int index = 0) const;
    /// The wrapper of that control, kept by the dialog; null when there is no such control.
    CWnd* GetDlgItem(const char* name) const;

    /// The dialog's own controls and its texts are exchanged by DoDataExchange; false when that fails, with the
    /// focus in the control that was exchanged last.
    bool UpdateData(bool saveAndValidate = true);

    /// The dialog that a page stands in, or the parent given at construction.
    CWnd* GetParent() const;
    /// Makes the dialog a page of `parent`: no frame, OnInitDialog once, now.
    void becomePage(CWnd* parent, QWidget* host);

    int MessageBoxW(const wchar_t* text, const wchar_t* caption, UINT type);

    /// The focus goes there; the text of an edit is selected.
    void GotoDlgCtrl(CWnd* control);
    void NextDlgCtrl();

    /// A list's notification; see KdUiListWidget. `result` set to 1 refuses where the notification asks.
    virtual void OnListNotify(const char* control, NMHDR* header, LRESULT* result);

    // The operations that dialogs replace, in the order of their slots.

    /// Sees each key that goes down in a control within the dialog, pages included, before the control does;
    /// true keeps it from the control.
    virtual bool PreTranslateMessage(MSG* message);
    virtual void OnDestroy();
    virtual void OnOK();
    virtual void OnCancel();
    /// The focus stays where it is set here; without that the first control of the tab order gets it. The
    /// base's own fills the controls by UpdateData and returns 1.
    virtual int OnInitDialog();
    virtual void DoDataExchange(CDataExchange* exchange);
    /// The base's own connects "IDOK" and "IDCANCEL", where the class has not connected them, to OnOK and
    /// OnCancel.
    virtual void bindSingals();
    /// F1.
    virtual void OnHelp();
    /// The mouse wheel over the dialog or over a control that has no use for it. 0 leaves it to Qt.
    virtual int OnMouseWheel(int delta);

    /// Gives the dialog the product's icon.
    void setWindowIcon();
    using QDialog::setWindowIcon;

    /// Calls `handler` on a signal (as "clicked()") of the control of that name. False when there is no such
    /// control or signal; nothing is connected then.
    bool connectControl(const char* name, const char* signal, std::function<void()> handler);
    using NotifyHandler = std::function<void(NMHDR*, LRESULT*)>;
    bool connectNotification(const char* name, const char* signal, NotifyHandler handler,
                             Qt::ConnectionType type = Qt::AutoConnection);

    void done(int result) override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    /// Esc and the frame's close do what the Cancel button does.
    void cancelByUser();
    QPushButton* defaultButton() const;
    void pressDefaultButton();

    struct Private;
    std::unique_ptr<Private> m_private;
};
