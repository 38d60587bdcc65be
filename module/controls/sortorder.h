// The order of names in sorted boxes.
#pragma once

/// -1, 0 or 1. Character by character: the case of Latin letters doesn't count, and in ASCII signs come before
/// digits, digits before letters; the shorter of two otherwise equal texts comes first. The order is the
/// box's own and follows no locale.
int strcmpSort(const wchar_t* a, const wchar_t* b);
