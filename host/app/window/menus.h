// The menus of the main window, as a table: each entry types a command.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/ed/words.h"

class QMenuBar;

namespace kdhost {

struct MenuEntry {
    const char* name;  ///< the action's object name; null for a separator
    Words text;
    const wchar_t* typed;  ///< what choosing it types, behind the cancelling of what runs
    const char* shortcut = nullptr;
};

struct MenuRecord {
    const char* name;
    Words title;
    std::vector<MenuEntry> entries;
};

const std::vector<MenuRecord>& menuRecords();

/// Fills the bar. An entry is enabled while its command is there, which is looked up whenever its menu opens.
void buildMenus(QMenuBar& bar, const std::function<void(const std::wstring&)>& type);

}  // namespace kdhost
