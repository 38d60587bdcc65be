// The host's way to open an object: for the time of a scope.
#pragma once

#include <utility>

#include "kd/db/object.h"

namespace kdhost {

template <class T>
class Opened {
public:
    /// Empty when the object can't be opened, or is of another class; `status` tells why.
    explicit Opened(KdDbObjectId id, KdDb::OpenMode mode = KdDb::kForRead) {
        KdDbObject* object = nullptr;
        m_status = kddbOpenObject(object, id, mode, false, T::desc());
        if (m_status == Kdad::eOk) m_object = static_cast<T*>(object);
    }
    /// Takes over an object that is open already; null for none.
    explicit Opened(T* object) : m_object(object) {}
    ~Opened() {
        if (m_object != nullptr) m_object->close();
    }
    Opened(Opened&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)), m_status(other.m_status) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    Opened& operator=(Opened&&) = delete;

    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    /// What the open answered.
    Kdad::ErrorStatus status() const { return m_status; }

private:
    T* m_object = nullptr;
    Kdad::ErrorStatus m_status = Kdad::eOk;
};

}  // namespace kdhost
