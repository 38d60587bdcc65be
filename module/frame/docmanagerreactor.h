// The toolbar follows the active document.
#pragma once

#include "kd/ad/document.h"

/// Registered with the document manager for its lifetime.
class VqTableDocManagerReactor : public KdApDocManagerReactor {
public:
    VqTableDocManagerReactor();
    ~VqTableDocManagerReactor() override;

    /// Shows the toolbar for the table that the document's record holds, or hides it when it holds none.
    void documentToBeActivated(KdApDocument* document) override;
    /// Hides the toolbar when the last document goes.
    void documentToBeDestroyed(KdApDocument* document) override;
};
