// Asking for a number.
#pragma once

#include <optional>
#include <string>

#include "host/ed/words.h"

namespace kdhost {

/// A text that is a finite number, written with a decimal point whatever the locale.
std::optional<double> numberOf(const std::wstring& text);

/// `standard` for Enter. None when the user cancels and, with the user told, for what is no number.
std::optional<double> askForNumber(const Words& prompt, double standard);

}  // namespace kdhost
