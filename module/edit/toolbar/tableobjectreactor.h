// What the toolbar learns of the table it stands for.
#pragma once

#include "kd/db/object.h"

class VqTableObjectReactor : public KdDbObjectReactor {
public:
    /// Tells the toolbar window, if there is one, to show how the table stands now. Selections live on the table, so
    /// that a change of them comes here, too.
    void modified(const KdDbObject* object) override;
};
