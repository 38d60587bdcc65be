// What the program remembers from one start to the next, in the user's part of the registry.
#pragma once

#include <QByteArray>
#include <optional>

#include "host/win32/modules.h"

namespace kdhost {

/// The language chosen last; none when none was, or it can't be read.
std::optional<Language> storedLanguage();
/// False when it can't be stored.
bool storeLanguage(Language language);

/// Size and place of the main window, as it gave them itself; empty when there are none.
QByteArray storedWindowPlace();
bool storeWindowPlace(const QByteArray& place);

}  // namespace kdhost
