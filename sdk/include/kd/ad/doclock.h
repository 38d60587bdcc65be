// The document lock, taken before writing from outside a command.
#pragma once

#include "kd/db/objectid.h"

/// Locks the document that an object belongs to, for the lock's lifetime.
class KdAxDocLock {
public:
    enum DocLockType : int { kNormal = 0 };

    /// The lock is granted unless another document's command runs, or the object has no document.
    explicit KdAxDocLock(const KdDbObjectId& object, DocLockType type = kNormal);
    ~KdAxDocLock();
    KdAxDocLock(const KdAxDocLock&) = delete;
    KdAxDocLock& operator=(const KdAxDocLock&) = delete;

    /// 0 when the document is locked for the caller.
    int lockStatus() const { return m_status; }

private:
    int m_status;
    void* m_document = nullptr;
};
