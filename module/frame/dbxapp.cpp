// Registration of runtime classes, and the default handlers.

#include "module/frame/dbxapp.h"

#include "kd/rx/dynamiclinker.h"
#include "module/core/resources.h"
#include "module/frame/registryentry.h"

int KdRxDbxApp::On_kInitAppMsg(void* applicationId) {
    m_resourceInstance = _hdllInstance;
    if (m_allowsUnload) requiredRegistryEntry<KdRxDynamicLinker>(L"DynamicLinker").allowUnload(applicationId);
    if (m_documentAware) {
        requiredRegistryEntry<KdRxDynamicLinker>(L"DynamicLinker").declareDocumentAware(applicationId);
    }
    RegisterServerComponents();
    for (_DBX_REGISTER_OBJECT_ENTRY* row : classTable()) {
        if (row == nullptr) continue;
        row->initialise();
        row->registered = true;
    }
    if (!classTable().isEmpty()) kdrxBuildClassHierarchy();
    return 0;
}

int KdRxDbxApp::On_kUnloadAppMsg(void*) {
    for (_DBX_REGISTER_OBJECT_ENTRY* row : classTable()) {
        if (row != nullptr && row->registered) DeleteClassAndDescendant(row);
    }
    classTable().setLogicalLength(0);
    return 0;
}

void KdRxDbxApp::DeleteClassAndDescendant(_DBX_REGISTER_OBJECT_ENTRY* row) {
    KdRxClass* cls = row->description();
    for (_DBX_REGISTER_OBJECT_ENTRY* other : classTable()) {
        if (other == nullptr || other == row || !other->registered) continue;
        if (other->description()->myParent() == cls) DeleteClassAndDescendant(other);
    }
    deleteKdRxClass(cls);
    row->registered = false;
}

int KdRxDbxApp::On_kLoadDwgMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kUnloadDwgMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kInvkSubrMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kCfgMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kEndMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kQuitMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kSaveMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kDependencyMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kNoDependencyMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kOleUnloadAppMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kPreQuitMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kInitDialogMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kEndDialogMsg(void*) {
    return 0;
}
int KdRxDbxApp::On_kNullMsg(void*) {
    return 0;
}
