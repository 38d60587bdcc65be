// Registration of context menus.

#include "host/ed/uicontext.h"

#include <algorithm>
#include <vector>

namespace {

struct Registration {
    KdRxClass* cls;
    KdEdUIContext* context;
    const void* application;
};

std::vector<Registration>& registrations() {
    static std::vector<Registration> list;
    return list;
}

std::vector<Registration>::iterator findRegistration(const KdRxClass* cls, const KdEdUIContext* context) {
    return std::find_if(registrations().begin(), registrations().end(),
                        [&](const Registration& r) { return r.cls == cls && r.context == context; });
}

}  // namespace

KdEdUIContext::~KdEdUIContext() = default;

QMenu* KdEdUIContext::getMenuContext() {
    return nullptr;
}

void KdEdUIContext::OnUpdateMenu() {}

bool kdedAddObjectContextMenu(KdRxClass* cls, KdEdUIContext* context, const void* applicationId) {
    if (cls == nullptr || context == nullptr || findRegistration(cls, context) != registrations().end()) return false;
    registrations().push_back({cls, context, applicationId});
    return true;
}

bool kdedRemoveObjectContextMenu(KdRxClass* cls, KdEdUIContext* context) {
    const auto found = findRegistration(cls, context);
    if (found == registrations().end()) return false;
    registrations().erase(found);
    return true;
}

namespace kdhost {

KdArray<KdEdUIContext*> contextsFor(const KdRxClass* cls) {
    KdArray<KdEdUIContext*> contexts;
    for (; cls != nullptr; cls = cls->myParent()) {
        for (const Registration& registration : registrations()) {
            if (registration.cls == cls) contexts.append(registration.context);
        }
    }
    return contexts;
}

}  // namespace kdhost
