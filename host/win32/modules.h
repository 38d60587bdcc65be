// The host's side of resource modules: where they lie and which language their texts are wanted in.
#pragma once

#include <string>

namespace kdhost {

/// Folder that LoadResourceDll and the dynamic linker look in for a name without a folder.
void setPluginFolder(const std::string& folder);
const std::string& pluginFolder();

enum class Language { English, Chinese };
void setLanguage(Language language);
Language language();

}  // namespace kdhost
