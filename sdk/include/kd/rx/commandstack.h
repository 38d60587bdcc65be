// The stack of commands that modules register.
#pragma once

#include "kd/rx/errorstatus.h"
#include "kd/rx/object.h"
#include "win32/module.h"

/// A command's handler.
using KdEdCommandFunction = void (*)();

/// Bits of a command's flags.
namespace KdEdCommandFlag {
enum : int {
    kModal = 0x0,
    kTransparent = 0x1,
    /// The command sees, and keeps, what is selected when it starts.
    kUsePickSet = 0x2,
    /// The command leaves that selection standing, with its grips, while it runs.
    kRedraw = 0x4,
};
}  // namespace KdEdCommandFlag

/// Commands by group. Names are compared without regard to case.
class KdEdCommandStack : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdEdCommandStack)

    /// Registers a command under its global and its local name.
    /// `uiContext` is handed back unchanged by the host; `fcode` is the number of a LISP-side function or
    /// -1; `resource` is the module whose texts belong to the command; `command`, when not null, receives
    /// an opaque pointer to the new entry.
    /// eDuplicateKey when the group already has a command of that global name, eInvalidInput for a missing
    /// group, global name or function. Without a local name the command answers to its global name alone, so
    /// that a module without its texts still works.
    virtual Kdad::ErrorStatus addCommand(const wchar_t* group, const wchar_t* globalName, const wchar_t* localName,
                                         int flags, KdEdCommandFunction function, void* uiContext, int fcode,
                                         HINSTANCE resource, void** command) = 0;
    /// eKeyNotFound when there is no such command.
    virtual Kdad::ErrorStatus removeCmd(const wchar_t* group, const wchar_t* globalName) = 0;
    /// Removes every command of the group. eKeyNotFound when there is no such group.
    virtual Kdad::ErrorStatus removeGroup(const wchar_t* group) = 0;
};
