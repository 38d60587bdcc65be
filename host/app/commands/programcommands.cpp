// LANGUAGE and HELP.

#include "host/app/commands/programcommands.h"

#include <cwchar>

#include "host/app/usersettings.h"
#include "host/ed/commandline.h"
#include "kd/ed/prompts.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {

// What is on the screen keeps its language: a module has read its texts, and a half of a command in each
// language would be a riddle.
void chooseLanguage() {
    wchar_t word[132];
    kdedInitGet(0, L"English Chinese");
    if (kdedGetKword(L"\nLanguage of the next start [English/Chinese]: ", word) != RTNORM) return;
    const bool chinese = std::wcscmp(word, L"Chinese") == 0;
    if (!chinese && std::wcscmp(word, L"English") != 0) {
        return commandLine().fail(std::wstring(L"\"") + word + L"\" is none of English, Chinese.");
    }
    if (!storeLanguage(chinese ? Language::Chinese : Language::English)) {
        return commandLine().fail(L"The language can't be stored.");
    }
    kdedPrompt(chinese ? L"\n下次启动时使用中文。" : L"\nThe next start will be in English.");
}

void showHelp() {
    kdedHelp(nullptr, L"index", 0);
}

}  // namespace kdhost
