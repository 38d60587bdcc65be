// Objects that a command works on.

#include "host/app/commands/chosenobjects.h"

#include <algorithm>

#include "host/db/opened.h"
#include "kd/db/entity.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"

namespace kdhost {

std::vector<KdDbObjectId> chosenObjects() {
    kded_name set;
    std::vector<KdDbObjectId> ids;
    if (kdedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM &&
        kdedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) {
        return ids;
    }
    int length = 0;
    kdedSSLength(set, &length);
    for (int i = 0; i < length; ++i) {
        kded_name name;
        KdDbObjectId id;
        if (kdedSSName(set, i, name) == RTNORM && kddbGetObjectId(id, name) == Kdad::eOk) ids.push_back(id);
    }
    kdedSSFree(set);
    return ids;
}

// An entity on a locked layer doesn't open for write.
int eraseWhatMayGo(const std::vector<KdDbObjectId>& ids) {
    return static_cast<int>(std::count_if(ids.begin(), ids.end(), [](KdDbObjectId id) {
        const Opened<KdDbEntity> entity(id, KdDb::kForWrite);
        return !entity || entity->erase() != Kdad::eOk;
    }));
}

}  // namespace kdhost
