// LISP-side functions: a module offers them by name and number.
#pragma once

/// Enters the name of function `index` for the module whose message is being handled. RTNORM or RTERROR.
int kdedDefun(const wchar_t* name, int index);
int kdedUndef(const wchar_t* name, int index);
/// Lets the host call the function directly.
int kdedRegFunc(int (*function)(), int index);
/// Number of the function that kInvkSubrMsg asks for, -1 outside that message.
int kdedGetFunCode();
