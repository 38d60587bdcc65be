// Who has an object open, and where the object stands. None of it is undone or kept by files.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kd/db/headervar.h"
#include "kd/db/object.h"

namespace kdhost {

/// How a transaction has an object open.
enum class TransactionHold { None, Read, Write };

}  // namespace kdhost

struct KdDbHeldField;

struct KdDbOpenRecord : KdDbImpObject {
    bool kdDbObjectIdsInFlux() const override { return idsInFlux; }
    void setKdDbObjectIdsInFlux(bool inFlux) override { idsInFlux = inFlux; }

    KdDbDatabase* database = nullptr;
    KdDbObjectId id;
    std::uint64_t handle = 0;

    int readers = 0;
    bool writing = false;
    kdhost::TransactionHold hold = kdhost::TransactionHold::None;  ///< beside readers, or instead of a writer
    bool changed = false;                                          ///< since the open began, transient parts included
    bool erasureChanged = false;                                   ///< since the open began
    bool idsInFlux = false;                                        ///< as deepClone gave it out
    std::wstring command;                                          ///< that opened the object first

    std::vector<KdDbObjectReactor*> reactors;

    /// In memory only: what has taken the object over, a field that hangs on another object.
    std::weak_ptr<KdDbHeldField> holder;

    /// The record that has kept the object's state last, by its number.
    std::uint64_t keptIn = 0;

    bool isOpen() const { return writing || readers > 0 || hold != kdhost::TransactionHold::None; }
    bool mayWrite() const { return writing || hold == kdhost::TransactionHold::Write; }
};
