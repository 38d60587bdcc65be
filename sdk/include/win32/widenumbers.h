// Numbers at the start of wide texts, under their Win32 names.
#pragma once

/// The value of the longest start of `text`, behind blanks, that reads as a floating-point number; 0 when there
/// is none.
double _wtof(const wchar_t* text);
/// The same for a decimal integer with an optional sign. A value outside 32 bits gives the nearest limit.
int _wtoi(const wchar_t* text);
