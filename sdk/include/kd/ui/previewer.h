// The off-screen renderer behind the previews in dialogs.
#pragma once

#include <memory>

#include "kd/ge/point3d.h"
#include "kd/rx/vector.h"
#include "mfc/notify.h"

class KdDbDatabase;
class KdGiDrawable;

/// Draws drawables into a picture of any size: zoomed to their extents, with a margin, on the background of the
/// drawing view. Entities are seen, in a database or in none; a KdGsDrawable is seen as its drawable(); other drawables
/// show nothing. Line weights show while the variable "LWDISPLAY" of the session is 1. Nothing is opened.
///
/// A picture is made when it is asked for, and once: looks that were drawn and a picture that was painted are kept
/// until something makes them out of date. The drawables don't tell of their changes: invalidate() does.
class KdadGiDrawablePreviewer {
public:
    /// `window` is the control that the picture is for; its size is the picture's at first. The drawables belong to
    /// `database`, or to none; neither they nor the database are owned, and they must outlive the previewer.
    /// `lowerLeft` and `upperRight` are the part of the picture that is drawn into: fractions of its width and height,
    /// counted from the lower left corner.
    KdadGiDrawablePreviewer(HWND window, KdDbDatabase* database, const VqVector<KdGiDrawable*>& drawables,
                            const KdGePoint2d& lowerLeft, const KdGePoint2d& upperRight);
    virtual ~KdadGiDrawablePreviewer();
    KdadGiDrawablePreviewer(const KdadGiDrawablePreviewer&) = delete;
    KdadGiDrawablePreviewer& operator=(const KdadGiDrawablePreviewer&) = delete;

    /// Draws the picture, unless it is up to date.
    virtual void update();
    /// The picture is out of date. With `regenerate` so is what it is drawn from: the drawables are asked for
    /// their looks again, as after a change of theirs or of "LWDISPLAY". Without, only those KdGsDrawables are asked
    /// whose isRegenNeeded() says so; what the others last looked like is painted anew.
    virtual void invalidate(bool regenerate);
    /// The picture's size in pixels; a change makes it out of date. A size below one pixel counts as one.
    virtual void onSize(int width, int height);
    /// Copies the picture, drawn up to date at this size, into `buffer`: rows from the top, pixels of four bytes, blue,
    /// green, red and 255, `width` pixels a row. The size becomes the picture's.
    ///
    /// False, with the buffer as it was, when there is nothing new: this picture was given by the call before. A
    /// control asks when it is painted, and asks to be painted again when it gets a picture; this is what ends the
    /// circle. False as well for a null buffer, for a width or height of 0 and for a size beyond what memory holds.
    virtual bool getRenderBuffer(char* buffer, unsigned width, unsigned height);

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
