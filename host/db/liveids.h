// Walking of ids that leaves erased objects out: what the iterators of the contract share.
#pragma once

#include <vector>

#include "host/db/access.h"
#include "host/db/opening.h"

namespace kdhost {

/// `Interface` is an iterator of the contract. Who derives gives the ids, begins with start(), and stays no longer than
/// they do.
template <class Interface>
class LiveIdIterator : public Interface {
public:
    void start() override {
        m_at = 0;
        passErased();
    }
    bool done() const override { return m_at >= ids().size(); }
    void step() override {
        if (!done()) ++m_at;
        passErased();
    }

protected:
    virtual const std::vector<KdDbObjectId>& ids() const = 0;

    Kdad::ErrorStatus currentId(KdDbObjectId& id) const {
        id = done() ? KdDbObjectId::kNull : ids()[m_at];
        return done() ? Kdad::eInvalidIndex : Kdad::eOk;
    }
    template <class T>
    Kdad::ErrorStatus openCurrent(T*& object, KdDb::OpenMode mode) const {
        object = nullptr;
        return done() ? Kdad::eInvalidIndex : openAs(object, ids()[m_at], mode);
    }

private:
    void passErased() {
        while (!done() && peekObject(ids()[m_at]) == nullptr) ++m_at;
    }

    std::size_t m_at = 0;
};

}  // namespace kdhost
