// Which object became which when objects were cloned.
#pragma once

#include <unordered_map>

#include "kd/db/objectid.h"

class KdDbDatabase;
class KdDbObject;

class KdDbIdMapping {
public:
    explicit KdDbIdMapping(KdDbDatabase* destination = nullptr) : m_destination(destination) {}
    KdDbDatabase* destDb() const { return m_destination; }
    void setDestDb(KdDbDatabase* destination) { m_destination = destination; }
    void assign(KdDbObjectId from, KdDbObjectId to) { m_pairs[from] = to; }
    /// The null id when `from` was not cloned.
    KdDbObjectId map(KdDbObjectId from) const {
        auto found = m_pairs.find(from);
        return found == m_pairs.end() ? KdDbObjectId::kNull : found->second;
    }

private:
    KdDbDatabase* m_destination;
    std::unordered_map<KdDbObjectId, KdDbObjectId> m_pairs;
};
