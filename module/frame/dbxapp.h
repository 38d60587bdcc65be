// The lowest application class: it registers runtime classes and gives every message a default.
#pragma once

#include "module/frame/apptables.h"
#include "win32/module.h"

/// Receives the host's messages. Each handler takes the message's argument and returns the message's
/// result; the defaults here do nothing and return 0.
class KdRxDbxApp {
public:
    KdRxDbxApp() = default;
    KdRxDbxApp(const KdRxDbxApp&) = delete;
    KdRxDbxApp& operator=(const KdRxDbxApp&) = delete;

    // In the order of the slots.
    virtual int On_kInitAppMsg(void* argument);
    virtual int On_kUnloadAppMsg(void* argument);
    virtual int On_kLoadDwgMsg(void* argument);
    virtual int On_kUnloadDwgMsg(void* argument);
    virtual int On_kInvkSubrMsg(void* argument);
    virtual int On_kCfgMsg(void* argument);
    virtual int On_kEndMsg(void* argument);
    virtual int On_kQuitMsg(void* argument);
    virtual int On_kSaveMsg(void* argument);
    virtual int On_kDependencyMsg(void* argument);
    virtual int On_kNoDependencyMsg(void* argument);
    virtual int On_kOleUnloadAppMsg(void* argument);
    virtual int On_kPreQuitMsg(void* argument);
    virtual int On_kInitDialogMsg(void* argument);
    virtual int On_kEndDialogMsg(void* argument);
    virtual int On_kNullMsg(void* argument);
    virtual void RegisterServerComponents() = 0;

protected:
    /// The application object lives as long as the library and is never deleted through this class.
    ~KdRxDbxApp() = default;

    /// Takes the row's class out of the system, those of its descendants that have rows first.
    void DeleteClassAndDescendant(_DBX_REGISTER_OBJECT_ENTRY* row);

    HINSTANCE m_resourceInstance = nullptr;
    bool m_allowsUnload = true;   ///< first linker flag
    bool m_documentAware = true;  ///< second linker flag
};
