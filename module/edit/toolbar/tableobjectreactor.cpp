// Changes of the table that the toolbar stands for.

#include "module/edit/toolbar/tableobjectreactor.h"

#include "module/edit/toolbar/tableditminiframewnd.h"

void VqTableObjectReactor::modified(const KdDbObject*) {
    if (CVqTableditMiniFrameWnd* window = GetTableditMiniFrameWnd()) window->UpdateToolBar();
}
