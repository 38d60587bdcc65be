// Profiles: the named sets of settings that a user works with.
#pragma once

#include "kd/rx/errorstatus.h"

class KdadProfileManager {
public:
    virtual ~KdadProfileManager();
    /// The registry path of a profile, below the current user's branch. On success `path` is to be freed with
    /// kdutDelBuffer; on failure it is null. The key of the profile "Default" is made when it is missing and
    /// the registry can be written; another profile's path is told whether its key exists or not.
    /// eInvalidInput for a null or empty name, or one with a backslash.
    virtual Kdad::ErrorStatus ProfileRegistryPath(const wchar_t* name, wchar_t*& path) = 0;
};

/// The host's one profile manager. Never null.
KdadProfileManager* kdProfileManagerPtr();
