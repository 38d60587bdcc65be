// Context menus of objects in the drawing.
#pragma once

#include "kd/db/objectid.h"
#include "kd/rx/array.h"
#include "kd/rx/class.h"

class QMenu;

/// Gives the context menu for objects of a class.
class KdEdUIContext {
public:
    virtual ~KdEdUIContext();
    /// The menu for the selected objects, or null for none. It stays the context's own; the host shows it.
    virtual QMenu* getMenuContext(const KdRxClass* cls, const KdArray<KdDbObjectId>& ids) = 0;
    /// The menu where nothing of a class is selected; null here.
    virtual QMenu* getMenuContext();
    /// The user chose a command of the menu.
    virtual void onCommand(unsigned int command) = 0;
    virtual void OnUpdateMenu();
};

/// The context stays its maker's. False when it is registered for the class already, or an argument is null.
bool kdedAddObjectContextMenu(KdRxClass* cls, KdEdUIContext* context, const void* applicationId);
/// False when it isn't registered.
bool kdedRemoveObjectContextMenu(KdRxClass* cls, KdEdUIContext* context);
