// Key codes in the numbering that messages and notifications use.
#pragma once

#include "mfc/notify.h"

class QKeyEvent;

namespace kdhost {

/// 0 for a key that has no number there.
WORD virtualKey(const QKeyEvent& event);

}  // namespace kdhost
