// What a dictionary holds.
#pragma once

#include <map>
#include <string>
#include <unordered_map>

#include "host/db/objectstate.h"

struct KdDbDictionaryState : KdDbObjectState {
    struct Entry {
        std::wstring name;  ///< in the case it was given
        KdDbObjectId id;
    };

    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbDictionaryState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;

    /// Takes the place of what stands there.
    void put(const wchar_t* name, KdDbObjectId id);
    void take(std::map<std::wstring, Entry>::iterator entry);

    bool hardOwner = false;                               ///< as its file says: entries live and die with it
    std::map<std::wstring, Entry> entries;                ///< by folded name
    std::unordered_map<KdDbObjectId, std::wstring> keys;  ///< the folded names of objects
};
