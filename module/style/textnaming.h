// Texts of the resource module that name something.
#pragma once

#include "module/core/resources.h"

/// Text `number`, with the name in the place that it has for one.
inline CStdStr<wchar_t> textNaming(unsigned number, const CStdStr<wchar_t>& name) {
    CStdStr<wchar_t> text;
    text.Format(loadText(number), name.c_str());
    return text;
}
