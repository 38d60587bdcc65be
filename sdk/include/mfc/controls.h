// The simple controls: buttons, edits, static texts, spin buttons, tool tips, tool bars.
#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "mfc/wnd.h"

class CButton : public CWnd {
public:
    /// 1 checked, 0 not.
    int GetCheck() const;
    void SetCheck(int check);
};

class CEdit : public CWnd {
public:
    /// Selects characters from `start` up to, not including, `end`; (0, -1) selects all, (-1, 0) none.
    void SetSel(int start, int end);
    /// Signals as typing does.
    void ReplaceSel(const wchar_t* text);
    void SetReadOnly(bool readOnly);
};

/// A text or a picture. What derives from it can draw the picture itself: it is told when the widget is
/// resized or painted, before the widget sees to it, and when the widget is gone.
class CStatic : public CWnd {
public:
    CStatic();
    ~CStatic() override;
    void Attach(QWidget* widget) override;

    /// `type` is 0; width and height are the widget's.
    virtual void OnSize(UINT type, int cx, int cy);
    virtual void OnPaint();
    virtual void OnDestroy();

private:
    class Relay;
    std::unique_ptr<Relay> m_relay;
};

/// The arrows beside an edit. They belong to the edit's own widget; the wrapper is kept for its place in
/// dialogs.
class CSpinButtonCtrl : public CWnd {};

/// Tool tips of a dialog's controls.
class CToolTipCtrl : public CWnd {
public:
    bool Create(CWnd* parent);
    /// False without a control. A control added again takes the new text.
    bool AddTool(CWnd* tool, const wchar_t* text);
    /// Tips show while active, as at first.
    void Activate(bool active);
    /// Tool tips come by the widgets' own events: nothing has to be relayed.
    void RelayEvent(MSG* message);

private:
    struct Tool {
        QPointer<QWidget> widget;
        QString text;
    };
    std::vector<Tool> m_tools;
    bool m_active = true;
};

class CToolBar : public CWnd {
public:
    virtual void OnUpdateToolBar();
};
