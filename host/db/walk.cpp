// What stands in a block or in a symbol table.

#include "host/db/walk.h"

#include <memory>

#include "host/db/access.h"
#include "kd/db/entity.h"
#include "kd/db/symboltable.h"

namespace kdhost {
namespace {

/// All ids that an iterator of the container gives by `idOf`.
template <class Container, class Iterator>
std::vector<KdDbObjectId> idsOf(KdDbObjectId container, Kdad::ErrorStatus (Iterator::*idOf)(KdDbObjectId&) const) {
    std::vector<KdDbObjectId> ids;
    const auto* walked = peek<Container>(container);
    Iterator* made = nullptr;
    if (walked == nullptr || walked->newIterator(made) != Kdad::eOk) return ids;
    const std::unique_ptr<Iterator> iterator(made);
    for (iterator->start(); !iterator->done(); iterator->step()) {
        KdDbObjectId id;
        if (((*iterator).*idOf)(id) == Kdad::eOk) ids.push_back(id);
    }
    return ids;
}

}  // namespace

std::vector<KdDbObjectId> entitiesOf(KdDbObjectId block) {
    return idsOf<KdDbBlockTableRecord>(block, &KdDbBlockTableRecordIterator::getEntityId);
}

KdDbExtents extentsOfEntities(KdDbObjectId block) {
    KdDbExtents box;
    for (const KdDbObjectId id : entitiesOf(block)) {
        if (const auto* entity = peek<KdDbEntity>(id)) box.addExt(entity->getGeomExtents());
    }
    return box;
}

std::vector<KdDbObjectId> recordsOf(KdDbObjectId symbolTable) {
    return idsOf<KdDbSymbolTable>(symbolTable, &KdDbSymbolTableIterator::getRecordId);
}

}  // namespace kdhost
