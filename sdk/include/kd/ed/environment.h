// The environment that the program was started in.
#pragma once

/// Reads an entry into a buffer of `size` wide characters. RTNORM; RTERROR, with `value` as it was, when there is no
/// such entry or it doesn't fit with its ending zero.
int kdedGetEnv(const wchar_t* name, wchar_t* value, int size);
