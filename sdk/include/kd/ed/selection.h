// Selection sets, and what is selected before a command starts.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ed/resbuf.h"
#include "kd/ge/point3d.h"
#include "kd/rx/array.h"

/// Makes a selection set. Mode "_I" takes what was selected before the command; a null mode asks the user.
/// RTNORM; RTERROR when nothing is selected, RTCAN on Esc. A set is to be freed with kdedSSFree.
int kdedSSGet(const wchar_t* mode, const void* point1, const void* point2, const resbuf* filter, kded_name set);
/// RTERROR for a name that is no set.
int kdedSSFree(kded_name set);
int kdedSSLength(const kded_name set, int* length);
/// Name of entity `index` of the set. RTERROR outside it.
int kdedSSName(const kded_name set, int index, kded_name entity);
/// With a null set makes one that holds the entity; with both null an empty one.
int kdedSSAdd(const kded_name entity, const kded_name set, kded_name result);
/// Makes `set` the selection with grips, or clears it when null.
int kdedSSSetFirst(const kded_name set, const kded_name unused);

/// The objects that a pick found.
class KdadSelectSet {
public:
    int count() const { return m_ids.length(); }
    /// The null id outside the set.
    KdDbObjectId at(int index) const {
        return index >= 0 && index < m_ids.length() ? m_ids[index] : KdDbObjectId::kNull;
    }
    void append(const KdDbObjectId& id) { m_ids.append(id); }
    void clear() { m_ids.setLogicalLength(0); }

private:
    KdArray<KdDbObjectId> m_ids;
};

/// Fills the set with what lies under the world point; a table is hit anywhere inside its outline.
/// False when nothing is hit.
bool kdadPickSelect(const KdGePoint3d& worldPoint, KdadSelectSet& set);
/// Simulates a click at a point in screen coordinates: selects a table there and the cell under the point.
bool kdadPickSelSetWithoutInteraction(const KdGePoint3d& screenPoint);

/// What is selected before a command: grips and selected cells.
class KdadPickfirstProc {
public:
    virtual ~KdadPickfirstProc();
    /// Action 9 drops grips and selection. False for an action that the host doesn't have.
    virtual bool doAction(int action) = 0;
};

/// Null when no drawing is open.
KdadPickfirstProc* kdadGetPickfirstProc();

/// Lets the user pick one cell, or a rectangle of cells by two points, in any table of the drawing. Cells that
/// are selected while it asks answer it too. False, with the outputs as they were, when the user cancels or
/// picks no cell.
bool kdadSelectTableUnits(bool singleCell, KdDbObjectId& table, KdCellRange& range);
