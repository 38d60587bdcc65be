// Asking for a text or a number.
#pragma once

#include <optional>
#include <string>

#include "host/ed/words.h"

namespace kdhost {

/// What the user types, blanks included where the prompt takes them; empty for Enter, none when the user cancels.
std::optional<std::wstring> askForText(const Words& prompt, bool takesBlanks = false);

/// `standard` for Enter. None when the user cancels and, with the user told, for what is no number.
std::optional<double> askForNumber(const Words& prompt, double standard);

}  // namespace kdhost
