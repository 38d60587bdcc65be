// What a right click on a table offers.

#include "module/edit/tableuicontext.h"

QMenu* CVqTableUIContext::getMenuContext(const KdRxClass*, const KdArray<KdDbObjectId>&) {
    return nullptr;
}

void CVqTableUIContext::onCommand(unsigned int) {}
