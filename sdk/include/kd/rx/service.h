// Named services: a module tells by an entry in the "ServiceDictionary" that it offers something.
#pragma once

#include "kd/rx/object.h"

/// An entry of the service dictionary. Whoever takes it out of the dictionary deletes it.
class KdRxService : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdRxService)
};

bool kdrxServiceIsRegistered(const wchar_t* name);

/// Makes a service entry. False, and nothing done, when the name is empty or already registered.
bool kdrxRegisterService(const wchar_t* name);
