// Who has an object open, and where the object stands. None of it is undone or kept by files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kd/db/object.h"

struct KdDbOpenRecord {
    KdDbDatabase* database = nullptr;
    KdDbObjectId id;
    std::uint64_t handle = 0;

    int readers = 0;
    bool writing = false;
    bool changed = false;         ///< since the open began, transient parts included
    bool erasureChanged = false;  ///< since the open began
    std::wstring command;         ///< that opened the object first

    std::vector<KdDbObjectReactor*> reactors;

    /// In memory only: another object has taken the object over.
    bool held = false;

    bool isOpen() const { return writing || readers > 0; }
};
