// The texts of the main window: each stands beside what it names, in both of the host's languages.
#pragma once

#include <QString>

#include "host/win32/modules.h"

namespace kdhost {

struct TwoLanguages {
    const char* english;
    const char* chinese;

    /// In the host's language.
    QString text() const { return QString::fromUtf8(language() == Language::Chinese ? chinese : english); }
};

}  // namespace kdhost
