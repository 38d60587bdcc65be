// The three tables that the application classes walk: runtime classes, commands and LISP-side functions.
//
// Each is an array of pointers to rows that is made on first use, so that static initialisers in any order
// can add to it. In this module only the command table has rows.
#pragma once

#include "kd/rx/array.h"
#include "kd/rx/class.h"

/// A runtime class of the module.
struct _DBX_REGISTER_OBJECT_ENTRY {
    KdRxClass* (*description)();
    void (*initialise)();
    bool registered;
};

/// A command of the module.
struct _TVXCOMMAND_ENTRY {
    const wchar_t* group;
    const wchar_t* name;
    const wchar_t* localName;  ///< null: the text `localNameResource` is the local name
    int flags;
    void (*function)();
    void* context;
    int localNameResource;
};

/// A LISP-side function of the module.
struct _KFSSYMBOL_ENTRY {
    const wchar_t* name;  ///< null: the text `localNameResource` is the name
    int (*function)();
    int registerFunction;
    int localNameResource;
};

KdArray<_DBX_REGISTER_OBJECT_ENTRY*>& classTable();
KdArray<_TVXCOMMAND_ENTRY*>& commandTable();
KdArray<_KFSSYMBOL_ENTRY*>& lispFunctionTable();
