// The context menu of tables.
#pragma once

#include "kd/ed/uicontext.h"

/// Registered with the host for the class KdDbTable. It offers no menu of its own.
class CVqTableUIContext : public KdEdUIContext {
public:
    QMenu* getMenuContext(const KdRxClass* cls, const KdArray<KdDbObjectId>& ids) override;
    using KdEdUIContext::getMenuContext;
    void onCommand(unsigned int command) override;
};
