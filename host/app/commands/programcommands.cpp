// LANGUAGE and HELP.

#include "host/app/commands/programcommands.h"

#include "host/app/commands/keywordmenu.h"
#include "host/app/usersettings.h"
#include "kd/ui/hostdialogs.h"

namespace kdhost {
namespace {

constexpr KeywordPrompt kLanguages{
    {L"\nLanguage of the next start [English/Chinese]: ", L"\n下次启动的语言 [英文(E)/中文(C)]: "},
    {L"English Chinese _English Chinese", L"英文(E) 中文(C) _English Chinese"}};
constexpr Words kNotStored{L"The language can't be stored.", L"无法保存语言设置。"};

struct Choice {
    std::wstring_view word;
    Language language;
    const wchar_t* told;  ///< in the language chosen
};

constexpr Choice kChoices[] = {
    {L"English", Language::English, L"\nThe next start will be in English."},
    {L"Chinese", Language::Chinese, L"\n下次启动时使用中文。"},
};

}  // namespace

// What is on the screen keeps its language: a module has read its texts, and a half of a command in each
// language would be a riddle.
void chooseLanguage() {
    const Choice* choice = askForAction(kLanguages, kChoices);
    if (choice == nullptr) return;
    if (!storeLanguage(choice->language)) return commandLine().fail(kNotStored.text());
    kdedPrompt(choice->told);
}

void showHelp() {
    kdedHelp(nullptr, L"index", 0);
}

}  // namespace kdhost
