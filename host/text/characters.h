// Characters that texts name by number.
#pragma once

#include <optional>
#include <string>

namespace kdhost::text {

/// A character of a double-byte encoding, as \M+ codes name it: `encoding` 1 Japanese (932), 2 Traditional
/// Chinese (950), 3 Korean (949), 4 Korean Johab (1361), 5 Simplified Chinese (936). Nothing when there is
/// no such encoding or character.
std::optional<wchar_t> characterOf(int encoding, unsigned bytes);

/// Whether lines may break before and after the character.
bool isCjk(wchar_t character);

}  // namespace kdhost::text
