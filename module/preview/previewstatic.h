// The control that shows a drawable in a dialog: the sample of a cell style or of a range, or a table.
//
// It is attached to a QLabel of the dialog and fills it with the host's off-screen picture. A label grows by its own
// pixmap, and the picture follows the label's size: in the .ui files the label's size policy is Ignored both ways, with
// a smallest size, and it has neither frame nor margin. A dialog shows something new by
//
//     m_preview.uninitPreviewer();
//     m_preview.initialPreviewer(m_preview.GetSafeHwnd(), database, {drawable});
//     m_preview.update();
//
// The drawables, and the database that they live in, stay the dialog's own and outlive the previewer: a dialog that
// drops its sample calls uninitPreviewer() first.
#pragma once

#include <memory>

#include "kd/rx/vector.h"
#include "mfc/controls.h"

class KdDbDatabase;
class KdGiDrawable;
class KdadGiDrawablePreviewer;

class CVqPreviewStatic : public CStatic {
public:
    CVqPreviewStatic();
    ~CVqPreviewStatic() override;

    /// Does nothing while there is a previewer. `window` is the control that the picture is for, `database` may be null
    /// for drawables that are in none.
    void initialPreviewer(HWND window, KdDbDatabase* database, const VqVector<KdGiDrawable*>& drawables);
    void uninitPreviewer();
    bool isNeedInitialize() const { return m_previewer == nullptr; }

    /// The drawables have changed: the next paint asks them for their looks again, whatever the argument.
    void invalidate(bool regenerate);
    /// Brings the picture to the label now.
    void update();

    void OnSize(UINT type, int cx, int cy) override;
    /// Brings the picture to the label where it is a new one; nothing within itself.
    void OnPaint() override;
    void OnDestroy() override;

private:
    void bringPicture();

    std::unique_ptr<KdadGiDrawablePreviewer> m_previewer;
    bool m_painting = false;
};
