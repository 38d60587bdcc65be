// The temporary drawing that carries cells: written, and read back.

#include <array>
#include <memory>

#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "kd/db/idmapping.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/environment.h"
#include "kd/ed/resbuf.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipobjects.h"
#include "win32/tempfile.h"

namespace {

constexpr int kKeepNamed = 1;  ///< what both drawings have under one name stays as it is
constexpr int kFileVersion = 33;
constexpr int kShareReading = 64;

constexpr int kNoDatabase = 124;
constexpr int kNoIterator = 506;
constexpr int kNotOneTable = 3;

/// The name with another ending; one without an ending gets it.
std::wstring asDrawing(std::wstring name) {
    return name.substr(0, name.rfind(L'.')) + L".DWG";
}

/// Tables of the block; objects of derived classes don't count. False when the block can't be read.
bool tablesIn(const KdDbBlockTableRecord& block, KdArray<KdDbObjectId>& tables) {
    KdDbBlockTableRecordIterator* made = nullptr;
    block.newIterator(made);
    const std::unique_ptr<KdDbBlockTableRecordIterator> iterator(made);
    if (iterator == nullptr) return false;
    for (iterator->start(); !iterator->done(); iterator->step()) {
        KdDbEntity* entity = nullptr;
        if (iterator->getEntity(entity, KdDb::kForRead) != Kdad::eOk) continue;
        if (entity->isA() == KdDbTable::desc()) tables.append(entity->objectId());
        entity->close();
    }
    return true;
}

int oneTableIn(KdDbObjectId block, KdDbObjectId& table) {
    const OpenObject<KdDbBlockTableRecord> open(block, KdDb::kForRead);
    KdArray<KdDbObjectId> tables;
    if (!open || !tablesIn(*open, tables)) return kNoIterator;
    if (tables.length() != 1) return kNotOneTable;
    table = tables[0];
    return Kdad::eOk;
}

}  // namespace

wchar_t* CVqTableClipDataMgr::GenerateTempFileName() {
    std::array<wchar_t, 22> prefix{};
    kdedGetEnv(L"TMPFILEXT", prefix.data(), static_cast<int>(prefix.size()));
    std::array<wchar_t, KD_MAX_PATH> name{};
    // A failure whose reason the host knows counts as a success there; then there is no name either.
    if (CVqTableCommon::GetVqcadTmpFileName(prefix.data(), nullptr, name.data()) != 0 || name[0] == L'\0') {
        return nullptr;
    }
    return kdutNewString(asDrawing(name.data()).c_str());
}

int CVqTableClipDataMgr::WriteTableToTempFile(KdDbDatabase* database, const KdDbObjectId& entity,
                                              const KdGePoint3d& basePoint, KdString& fileName) {
    const auto drawing = std::make_unique<KdDbDatabase>(true, true);
    KdDbIdMapping mapping;
    mapping.setDestDb(drawing.get());
    const KdDbObjectId space = KdDbSystemInternals::getImpDatabase(drawing.get())->modelSpace();
    KdDbObjectIdArray ids;
    ids.append(entity);
    Kdad::ErrorStatus status = database->wblockCloneObjects(ids, space, mapping, kKeepNamed, false);
    if (status != Kdad::eOk) return status;
    drawing->setInsbase(basePoint);
    wchar_t* name = GenerateTempFileName();
    if (name == nullptr) return Kdad::eOk;
    status = drawing->saveAs(name, false, kFileVersion, nullptr);
    fileName = name;
    kdutDelBuffer(name);
    return status;
}

int CVqTableClipDataMgr::ReadTableFromTempFile(KdDbDatabase*& database, const wchar_t* fileName, KdDbObjectId& table,
                                               KdDbObjectId& block) {
    table.setNull();
    if (database == nullptr) return kNoDatabase;
    Kdad::ErrorStatus status = database->readDwgFile(fileName, kShareReading, true, nullptr);
    if (status != Kdad::eOk) return status;
    KdDbDatabase* const working = workingDatabase();
    if (working == nullptr) return kNoDatabase;
    status = working->insert(block, fileName, database, true);
    return status == Kdad::eOk ? oneTableIn(block, table) : status;
}
