// What the formats of the clipboard are called on the system.
#pragma once

#include <QString>

#include "win32/clipboard.h"

namespace kdhost {

/// The format's MIME type; empty for a number that isn't registered. A name with a slash is a MIME type
/// already; any other becomes a parameter of the host's own type.
QString clipboardMimeType(UINT format);

/// True for the format whose MIME type is "text/plain": its data is UTF-8 text from any program.
bool isPlainTextFormat(UINT format);

/// True for the one use of the clipboard that a test wants to fail.
bool clipboardFaultStrikes();

}  // namespace kdhost
