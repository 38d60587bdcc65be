// A database object that is open for the time of a scope.
#pragma once

#include <utility>

#include "kd/db/object.h"

namespace kdhost {

template <class T>
class Opened {
public:
    /// Empty when the object can't be opened, or is of another class.
    explicit Opened(KdDbObjectId id, KdDb::OpenMode mode = KdDb::kForRead) {
        KdDbObject* object = nullptr;
        if (kddbOpenObject(object, id, mode, false, T::desc()) == Kdad::eOk) m_object = static_cast<T*>(object);
    }
    /// Takes over an object that is open already.
    explicit Opened(T* object) : m_object(object) {}
    ~Opened() {
        if (m_object != nullptr) m_object->close();
    }
    Opened(Opened&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    Opened& operator=(Opened&&) = delete;

    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }

private:
    T* m_object = nullptr;
};

}  // namespace kdhost
