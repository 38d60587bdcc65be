// A button with a picture. The wrapped push button paints it; what is left here are the calls of the framework's
// owner drawing, most of which have nothing to do.
#pragma once

#include <QString>

#include "mfc/controls.h"

/// The name of a bitmap in the size that the screen's scale asks for: with "_2X" or "_3X" behind it, or as it is.
QString scaledBitmap(const char* name);

class CVqBitmapButton : public CButton {
public:
    /// Shows the bitmap of that name; `colour` (0x00BBGGRR) is the one that becomes transparent.
    void setBitmapId(const QString& id, unsigned int colour);

    /// Stores the state and repaints.
    void setFocusState(int state);
    int focusState() const { return m_focusState; }

    // These repaint.
    void OnSetFocus();
    void OnKillFocus();
    void OnMouseLeave();

    /// Always 1: no background is painted.
    int OnEraseBkgnd();

    // These leave all to the wrapped push button.
    void DrawItem() {}
    void OnMouseMove() {}
    void drawFrame() {}
    void drawBitmap() {}
    void drawFocus() {}
    void TransparentBlt() {}
    void DisabledBlt() {}

private:
    void repaint();

    int m_focusState = 0;
};
