// Host variables.
#pragma once

#include "kd/ed/resbuf.h"

/// Reads a variable into `result` (one buffer, not a chain; a text in it is to be freed with
/// kdutDelBuffer). Names are taken without regard to case. RTNORM, or RTERROR for an unknown name.
int kdedGetVar(const wchar_t* name, resbuf* result);
/// RTERROR for an unknown or read-only name, a value of another type or outside its range.
int kdedSetVar(const wchar_t* name, const resbuf* value);
