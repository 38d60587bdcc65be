// Keeping states and putting them back.

#include "host/db/changerecord.h"

#include <utility>

#include "host/db/opening.h"
#include "host/db/openrecord.h"

namespace kdhost {
namespace {

std::uint64_t newNumber() {
    static std::uint64_t last = 0;
    return ++last;
}

}  // namespace

ChangeRecord::ChangeRecord() : m_number(newNumber()) {}

void ChangeRecord::keep(KdDbObject& object) {
    KdDbObjectAccess::openRecord(object).keptIn = m_number;
    const KdDbObjectId id = object.objectId();
    if (m_known.insert(id).second) m_objects.push_back({id, KdDbObjectAccess::state(object).clone()});
}

void ChangeRecord::keepMade(KdDbObject& object) {
    KdDbObjectAccess::openRecord(object).keptIn = m_number;
    const KdDbObjectId id = object.objectId();
    if (m_known.insert(id).second) m_objects.push_back({id, nullptr});
}

void ChangeRecord::keepSettings(const DatabaseContents& contents) {
    if (!m_settings) m_settings = {contents.current, contents.header};
}

void ChangeRecord::join(ChangeRecord&& later) {
    for (Kept& kept : later.m_objects) {
        if (m_known.insert(kept.id).second) m_objects.push_back(std::move(kept));
    }
    if (!m_settings) m_settings = later.m_settings;
}

void ChangeRecord::dropUnchangedSettings(const DatabaseContents& contents) {
    if (m_settings == Settings{contents.current, contents.header}) m_settings.reset();
}

std::vector<KdDbObject*> ChangeRecord::objects() const {
    std::vector<KdDbObject*> found;
    found.reserve(m_objects.size());
    for (const Kept& kept : m_objects) {
        if (KdDbObject* object = findObject(kept.id)) found.push_back(object);
    }
    return found;
}

void ChangeRecord::exchange(Kept& kept) {
    KdDbObject* object = findObject(kept.id);
    if (object == nullptr) return;
    const bool wasErased = object->isErased();
    if (kept.state != nullptr) {
        KdDbObjectAccess::exchangeState(*object, kept.state);
    } else {
        std::swap(KdDbObjectAccess::stateForMaker(*object).erased, kept.erased);
    }
    KdDbObjectAccess::stateForMaker(*object).wasPutBack(*object);
    // Erasing alone is told as erasing; it makes no change to what the object holds.
    KdDbOpenRecord& record = KdDbObjectAccess::openRecord(*object);
    if (wasErased != object->isErased()) {
        record.erasureChanged = !record.erasureChanged;
    } else {
        record.changed = true;
    }
}

void ChangeRecord::exchange(DatabaseContents& contents) {
    for (Kept& kept : m_objects) exchange(kept);
    if (!m_settings) return;
    std::swap(m_settings->current, contents.current);
    std::swap(m_settings->header, contents.header);
}

void tellChanges(const std::vector<KdDbObject*>& objects) {
    for (KdDbObject* object : objects) {
        if (!KdDbObjectAccess::openRecord(*object).isOpen()) endOpen(*object);
    }
}

}  // namespace kdhost
