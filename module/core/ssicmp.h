// The comparison of names without regard to case.
#pragma once

#include "mfc/stdstr.h"

/// Negative, 0 or positive, as `a` stands before `b`, is equal to it or stands behind it. Both are folded by the
/// character facet of the classic locale, so that the letters A to Z alone have a case, whatever the user's locale.
inline int ssicmp(const CStdStr<wchar_t>& a, const CStdStr<wchar_t>& b) {
    return a.CompareNoCase(b);
}
