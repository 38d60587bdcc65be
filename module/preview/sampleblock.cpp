// Samples' drawings.

#include "module/preview/sampleblock.h"

#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/symbolutilities.h"
#include "module/core/openobject.h"
#include "module/preview/cellcalccache.h"

namespace {

KdGeMatrix3d userCoordinates(const KdDbDatabase& database) {
    const KdGeVector3d x = database.ucsxdir();
    const KdGeVector3d y = database.ucsydir();
    KdGeMatrix3d matrix;
    return matrix.setCoordSystem(database.ucsorg(), x, y, x.crossProduct(y));
}

void transformAll(KdDbBlockTableRecord& block, const KdGeMatrix3d& matrix) {
    KdDbBlockTableRecordIterator* walk = nullptr;
    if (block.newIterator(walk) != Kdad::eOk) return;
    const std::unique_ptr<KdDbBlockTableRecordIterator> owned(walk);
    for (; !walk->done(); walk->step()) {
        KdDbObjectId id;
        if (walk->getEntityId(id) != Kdad::eOk) continue;
        if (const OpenObject<KdDbEntity> entity(id, KdDb::kForWrite); entity) entity->transformBy(matrix);
    }
}

}  // namespace

std::unique_ptr<KdDbBlockReference> startSample(KdDbDatabase& database, int flowDirection, SampleGrid& grid) {
    auto reference = std::make_unique<KdDbBlockReference>();
    reference->setDatabaseDefaults(&database);
    grid.invisibleLayer = KdDbSymbolUtilities::servicesPtr106()->screenOnlyLayerId(&database);
    const KdGeVector3d& x = KdGeVector3d::kXAxis;
    const KdGeVector3d& z = KdGeVector3d::kZAxis;
    const KdGeVector3d right = KdGeMatrix3d::worldToPlane(reference->normal()) * x;
    const bool growsUpwards = flowDirection != 0;
    grid.down = (growsUpwards ? z.crossProduct(right) : right.crossProduct(z)).normal();
    grid.right = right.normal();
    const KdGeVector3d turnedAbout = grid.right.crossProduct(grid.down);
    grid.rotation = growsUpwards ? x.angleTo(grid.right, turnedAbout) : grid.right.angleTo(x, turnedAbout);
    return reference;
}

void CloseBlock::operator()(KdDbBlockTableRecord* block) const {
    block->close();
}

SampleBlock addSampleBlock(KdDbDatabase& database) {
    KdDbBlockTable* blocks = nullptr;
    if (database.getBlockTable(blocks, KdDb::kForWrite) != Kdad::eOk) return nullptr;
    auto block = std::make_unique<KdDbBlockTableRecord>();
    block->setName(L"*T");
    KdDbObjectId id;
    const bool added = blocks->add(id, block.get()) == Kdad::eOk;
    blocks->close();
    return SampleBlock(added ? block.release() : nullptr);
}

void appendToSample(KdDbBlockTableRecord& block, std::unique_ptr<KdDbEntity> entity) {
    if (block.appendKdDbEntity(entity.get()) == Kdad::eOk) entity.release()->close();
}

void appendCellText(KdDbBlockTableRecord& block, VqTableCellCalcCache& cell, const KdGePoint3d& cellOrigin,
                    double rotation) {
    if (cell.entity == nullptr) return;
    KdGeVector3d offset = cell.offset;
    cell.entity->setLocation(cellOrigin + offset.rotateBy(rotation, KdGeVector3d::kZAxis));
    cell.entity->setDirection(cell.entity->direction().rotateBy(rotation, KdGeVector3d::kZAxis));
    appendToSample(block, std::move(cell.entity));
}

void placeSample(KdDbBlockReference& reference, KdDbBlockTableRecord& block, const KdDbDatabase& database) {
    reference.setPosition(KdGePoint3d::kOrigin);
    reference.setBlockTableRecord(block.objectId());
    reference.transformBy(userCoordinates(database));
    transformAll(block, reference.blockTransform().inverse());
}
