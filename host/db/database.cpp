// The database: it owns its objects, gives them their ids and handles, and knows its roots and settings.

#include "kd/db/database.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/objectstate.h"
#include "host/db/opening.h"
#include "host/db/openrecord.h"
#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"

using kdhost::DatabaseContents;

struct KdDbDatabase::Impl : DatabaseContents {};

namespace {

/// Ids are counted through the whole process and never given twice.
KdDbObjectId nextId() {
    static std::uint64_t last = 0;
    return KdDbObjectId(++last);
}

/// A current setting takes only what the drawing has.
template <class T>
bool isOwn(const KdDbDatabase& database, KdDbObjectId id) {
    const T* object = kdhost::peek<T>(id);
    return object != nullptr && object->database() == &database;
}

}  // namespace

DatabaseContents& KdDbDatabaseAccess::contents(KdDbDatabase& database) {
    return *database.m_impl;
}

const DatabaseContents& KdDbDatabaseAccess::contents(const KdDbDatabase& database) {
    return *database.m_impl;
}

KdDbObjectId KdDbDatabaseAccess::insert(KdDbDatabase& database, std::unique_ptr<KdDbObject> object, KdDbObjectId owner,
                                        std::uint64_t handle) {
    DatabaseContents& held = contents(database);
    if (handle == 0) handle = held.nextHandle;
    const auto [place, isFree] = held.objects.try_emplace(handle);
    if (!isFree) return KdDbObjectId::kNull;
    KdDbObject& inserted = *(place->second = std::move(object));
    held.nextHandle = std::max(held.nextHandle, handle + 1);

    KdDbObjectState& state = *KdDbObjectAccess::stateForWrite(inserted);
    state.owner = owner;
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(inserted);
    record.database = &database;
    record.id = nextId();
    record.handle = handle;
    kdhost::rememberObject(inserted);
    if (held.undo != nullptr) held.undo->keepMade(inserted);
    state.enterDatabase(inserted);
    return record.id;
}

const KdDbObject* KdDbDatabaseAccess::find(const KdDbDatabase& database, std::uint64_t handle) {
    const auto& objects = contents(database).objects;
    const auto found = objects.find(handle);
    return found == objects.end() ? nullptr : found->second.get();
}

KdDbDatabase::KdDbDatabase(bool buildDefaults, bool noDocument) : m_impl(std::make_unique<Impl>()) {
    m_impl->noDocument = noDocument;
    if (buildDefaults) kdhost::buildDefaults(*this);
    if (!noDocument) m_impl->undo = std::make_shared<kdhost::UndoHistory>(*this);
}

KdDbDatabase::~KdDbDatabase() {
    m_impl->undo.reset();
    for (const auto& [handle, object] : m_impl->objects) {
        const KdDbObject* leaving = object.get();
        const KdDbOpenRecord& record = KdDbObjectAccess::openRecord(*leaving);
        kdhost::tellEach(record.reactors, [&](KdDbObjectReactor& reactor) { reactor.goodbye(leaving); });
    }
    for (const auto& [handle, object] : m_impl->objects) {
        if (KdDbObjectAccess::openRecord(*object).isOpen()) {
            kdhost::noteBreach(*object, L"left open when its database was deleted");
        }
        kdhost::forgetObject(*object);
    }
}

Kdad::ErrorStatus KdDbDatabase::getBlockTable(KdDbBlockTable*& table, KdDb::OpenMode mode) {
    return kdhost::openAs(table, m_impl->roots.blockTable, mode);
}

Kdad::ErrorStatus KdDbDatabase::getLayerTable(KdDbLayerTable*& table, KdDb::OpenMode mode) {
    return kdhost::openAs(table, m_impl->roots.layerTable, mode);
}

Kdad::ErrorStatus KdDbDatabase::getLinetypeTable(KdDbLinetypeTable*& table, KdDb::OpenMode mode) {
    return kdhost::openAs(table, m_impl->roots.linetypeTable, mode);
}

Kdad::ErrorStatus KdDbDatabase::getTextStyleTable(KdDbTextStyleTable*& table, KdDb::OpenMode mode) {
    return kdhost::openAs(table, m_impl->roots.textStyleTable, mode);
}

Kdad::ErrorStatus KdDbDatabase::getNamedObjectsDictionary(KdDbDictionary*& dictionary, KdDb::OpenMode mode) {
    return kdhost::openAs(dictionary, m_impl->roots.namedObjects, mode);
}

Kdad::ErrorStatus KdDbDatabase::getTableStyleDictionary(KdDbDictionary*& dictionary, KdDb::OpenMode mode) {
    dictionary = nullptr;
    if (kdhost::faults().noTableStyleDictionary) return Kdad::eKeyNotFound;
    return kdhost::openAs(dictionary, m_impl->roots.tableStyles, mode);
}

KdDbObjectId KdDbDatabase::blockTableId() const {
    return m_impl->roots.blockTable;
}
KdDbObjectId KdDbDatabase::layerTableId() const {
    return m_impl->roots.layerTable;
}
KdDbObjectId KdDbDatabase::linetypeTableId() const {
    return m_impl->roots.linetypeTable;
}
KdDbObjectId KdDbDatabase::textStyleTableId() const {
    return m_impl->roots.textStyleTable;
}
KdDbObjectId KdDbDatabase::namedObjectsDictionaryId() const {
    return m_impl->roots.namedObjects;
}
KdDbObjectId KdDbDatabase::tableStyleDictionaryId() const {
    return m_impl->roots.tableStyles;
}

KdDbObjectId KdDbDatabase::clayer() const {
    return m_impl->current.layer;
}
void KdDbDatabase::setClayer(KdDbObjectId layer) {
    if (isOwn<KdDbLayerTableRecord>(*this, layer)) kdhost::currentForWrite(*this).layer = layer;
}
KdDbObjectId KdDbDatabase::celtype() const {
    return m_impl->current.linetype;
}
KdDbObjectId KdDbDatabase::textstyle() const {
    return m_impl->current.textStyle;
}
void KdDbDatabase::setTextstyle(KdDbObjectId style) {
    if (isOwn<KdDbTextStyleTableRecord>(*this, style)) kdhost::currentForWrite(*this).textStyle = style;
}
KdDbObjectId KdDbDatabase::tablestyle() const {
    return m_impl->current.tableStyle;
}
void KdDbDatabase::setTablestyle(KdDbObjectId style) {
    if (isOwn<KdDbTableStyle>(*this, style)) kdhost::currentForWrite(*this).tableStyle = style;
}
KdDbObjectId KdDbDatabase::byLayerLinetype() const {
    return m_impl->roots.byLayer;
}
KdDbObjectId KdDbDatabase::byBlockLinetype() const {
    return m_impl->roots.byBlock;
}
KdDbObjectId KdDbDatabase::continuousLinetype() const {
    return m_impl->roots.continuous;
}
KdDbObjectId KdDbDatabase::layerZero() const {
    return m_impl->roots.layerZero;
}

bool KdDbDatabase::tilemode() const {
    return m_impl->current.modelSpace;
}
KdDbObjectId KdDbDatabase::currentSpaceId() const {
    return m_impl->current.modelSpace ? m_impl->roots.modelSpace : m_impl->roots.paperSpace;
}
KdDbObjectId KdDbDatabase::modelSpaceId() const {
    return m_impl->roots.modelSpace;
}
KdDbObjectId KdDbDatabase::paperSpaceId() const {
    return m_impl->roots.paperSpace;
}
Kdad::ErrorStatus KdDbDatabase::addKdDbObject(KdDbObject* object, KdDbObjectId& id, KdDbObjectId owner) {
    id.setNull();
    if (object == nullptr) return Kdad::eNullObjectPointer;
    if (object->database() != nullptr) return Kdad::eAlreadyInDatabase;
    id = KdDbDatabaseAccess::insert(*this, std::unique_ptr<KdDbObject>(object), owner);
    kdhost::beginOpen(*object, KdDb::kForWrite);  // NOLINT(clang-analyzer-cplusplus.NewDelete): the database has it
    KdDbObjectAccess::openRecord(*object).changed = true;
    return Kdad::eOk;
}
