// Tables by a pick and by the selection before a command.

#include "module/core/tablepick.h"

#include "kd/db/table.h"
#include "kd/ed/coordinates.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "module/core/cellwalk.h"
#include "module/core/resources.h"

namespace {

constexpr unsigned pickTablePrompt = 2103;

/// The object open for read, if it is a table; an object of another class is closed again. The null id is
/// not even tried.
KdDbTable* openTable(KdDbObjectId id) {
    if (id.isNull()) return nullptr;
    KdDbObject* object = nullptr;
    if (kddbOpenObject(object, id, KdDb::kForRead) != Kdad::eOk) return nullptr;
    if (object->isA() == KdDbTable::desc()) return static_cast<KdDbTable*>(object);
    object->close();
    return nullptr;
}

/// The one object that was selected before the command; the null id for none, for several, or for one that
/// has no id.
KdDbObjectId objectSelectedBefore() {
    kded_name set = {};
    if (kdedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM) return KdDbObjectId::kNull;
    int length = 0;
    kded_name entity = {};
    KdDbObjectId id;
    const bool single = kdedSSLength(set, &length) == RTNORM && length < 2;
    const bool named = single && kdedSSName(set, 0, entity) == RTNORM;
    if (named && kddbGetObjectId(id, entity) != Kdad::eOk) id.setNull();
    kdedSSFree(set);
    return id;
}

}  // namespace

KdDbObjectId pickOneObject(const wchar_t* prompt, KdGePoint3d& point) {
    kdedInitGet(0, nullptr);
    KdGePoint3d picked;
    const int status = kdedGetPoint(nullptr, prompt, picked);
    kddbUcs2Wcs(picked, point, 1);
    if (status == RTCAN || status == RTERROR) return KdDbObjectId::kNull;

    KdadSelectSet set;
    kdadPickSelect(point, set);
    return set.count() == 1 ? set.at(0) : KdDbObjectId::kNull;
}

KdDbTable* getTableAtPt(KdGePoint3d& point) {
    return openTable(pickOneObject(loadText(pickTablePrompt), point));
}

bool isDoubleClickEdit(KdDbObjectId& id, int& row, int& col) {
    id.setNull();
    row = -1;
    col = -1;
    const KdDbObjectId selected = objectSelectedBefore();
    KdDbTable* table = openTable(selected);
    if (table == nullptr) return false;
    const bool hasCells = table->hasSubSelection();
    if (hasCells) {
        const KdCellRange cells = table->getSubSelection();
        id = selected;
        row = cells.m_topRow;
        col = cells.m_leftColumn;
    }
    table->close();
    return hasCells;
}

bool getSelectSingleTable(KdDbObjectId& id) {
    const KdDbObjectId selected = objectSelectedBefore();
    KdDbTable* table = openTable(selected);
    if (table == nullptr) return false;
    const bool hasCells = table->hasSubSelection();
    table->close();
    if (!hasCells) id = selected;
    return !hasCells;
}

bool isInvalidRowColByMerge(KdDbTable* table, int row, int col, bool& mergedAcross) {
    CVqTableCellRange block;
    if (table == nullptr || !cellwalk::mergeOfCell(*table, row, col, block)) return false;
    if (block.m_topRow != block.m_bottomRow && row != block.m_topRow) return true;
    if (block.m_leftColumn == block.m_rightColumn) return false;
    mergedAcross = true;
    return col != block.m_leftColumn;
}
