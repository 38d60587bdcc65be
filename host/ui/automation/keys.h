// The keys that scripts press, by their names: ENTER, CTRL+C, SHIFT+TAB, or a single character.
#pragma once

#include <QString>
#include <Qt>
#include <optional>
#include <string>

namespace kdhost::automation {

struct Stroke {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    QString text;  ///< what the key types
};

/// None for a name that no key has.
std::optional<Stroke> strokeOf(std::wstring name);

}  // namespace kdhost::automation
