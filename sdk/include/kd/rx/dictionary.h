// A dictionary of runtime objects by name; the system registry is one.
#pragma once

#include "kd/rx/object.h"

/// Objects by name. Names are compared exactly. The dictionary does not own its objects.
class KdRxDictionary : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdRxDictionary)

    /// The object of that name, or null.
    virtual KdRxObject* at(const wchar_t* name) const = 0;
    /// Puts `object` under `name` and returns what stood there before, or null.
    virtual KdRxObject* atPut(const wchar_t* name, KdRxObject* object) = 0;
    /// Takes the entry out and returns its object, which is then the caller's; null when there is none.
    virtual KdRxObject* remove(const wchar_t* name) = 0;
    virtual bool has(const wchar_t* name) const = 0;
    virtual int numEntries() const = 0;
};
