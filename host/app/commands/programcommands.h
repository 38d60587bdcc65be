// LANGUAGE and HELP: the program itself.
#pragma once

namespace kdhost {

/// Stores the language that the next start of the window takes.
void chooseLanguage();
void showHelp();

}  // namespace kdhost
