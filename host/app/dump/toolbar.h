// The table toolbar in the dump.
#pragma once

#include "host/app/dump/values.h"

namespace kdhost::dump {

/// Whether it shows, the handle of the table it stands for, and the names of the controls that can be used, from
/// left to right. Without a toolbar that shows: false, null and no names.
Json toolbar();

}  // namespace kdhost::dump
