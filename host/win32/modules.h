// The host's side of resource modules: where they lie, which language their texts are wanted in, and the
// texts themselves.
#pragma once

#include <string>

#include "win32/module.h"

namespace kdhost {

/// Folder that LoadResourceDll and the dynamic linker look in for a name without a folder.
void setPluginFolder(const std::string& folder);
const std::string& pluginFolder();

/// Where a module of that name lies: a name without a folder is looked for in the folder of plug-ins and
/// nowhere else.
std::string pluginPath(const std::string& name);
/// The name without its folder.
std::wstring fileNameOf(const std::wstring& path);

enum class Language { English, Chinese };
void setLanguage(Language language);
Language language();

/// Text `number` of a loaded module in the host's language, in English where that language lacks it, null
/// where there is none. Valid until the module is freed.
const std::wstring* moduleText(HINSTANCE module, unsigned number);

/// The name of a loaded module under which its resources lie, ":/NAME/...": its file name without ".dll".
/// Empty for null or a handle that isn't loaded.
std::wstring moduleResourceName(HINSTANCE module);

}  // namespace kdhost
