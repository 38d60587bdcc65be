// The scope of one open: a successful open is closed exactly once, on every way out.
#pragma once

#include "kd/db/object.h"

/// Opens an object as class T; converts to false, and gives null, when that fails.
template <class T>
class OpenObject {
public:
    OpenObject(KdDbObjectId id, KdDb::OpenMode mode) {
        KdDbObject* object = nullptr;
        if (kddbOpenObject(object, id, mode, false, T::desc()) == Kdad::eOk) m_object = static_cast<T*>(object);
    }
    ~OpenObject() { close(); }
    OpenObject(const OpenObject&) = delete;
    OpenObject& operator=(const OpenObject&) = delete;

    explicit operator bool() const { return m_object != nullptr; }
    T* get() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }

    /// Ends the open now; the object is gone from here on.
    void close() {
        if (m_object != nullptr) m_object->close();
        m_object = nullptr;
    }

private:
    T* m_object = nullptr;
};
