// Commands that ask for a keyword and do what it stands for.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

#include "host/ed/commandline.h"
#include "host/ed/keywords.h"
#include "host/ed/words.h"
#include "kd/ed/prompts.h"

namespace kdhost {

inline constexpr Words kNoSuchWord{L"\"%1\" is none of %2.", L"“%1”不是以下选项之一: %2。"};

struct KeywordPrompt {
    Words prompt;  ///< with the words between brackets
    Words words;   ///< as announced: local words _GLOBAL words
};

/// The words as the user knows them, for a message.
inline std::wstring listedWords(const KeywordPrompt& menu) {
    std::wstring list = menu.words.text();
    list.resize(std::min(list.find(L" _"), list.size()));
    for (std::size_t at = 0; (at = list.find(L' ', at)) != std::wstring::npos; at += 2) list.insert(at, 1, L',');
    return list;
}

/// The record whose `word`, a global one, the answer stands for; null for another text.
template <class Action, std::size_t Count>
const Action* actionOf(const KeywordPrompt& menu, const Action (&actions)[Count], const std::wstring& answer) {
    const std::wstring word = KeywordList(menu.words.text()).matchEither(answer).value_or(L"");
    for (const Action& action : actions) {
        if (action.word == word) return &action;
    }
    return nullptr;
}

/// Asks for one of the words. Null when the user cancels or
/// answers with Enter, and, with the user told, for another word.
template <class Action, std::size_t Count>
const Action* askForAction(const KeywordPrompt& menu, const Action (&actions)[Count]) {
    wchar_t answer[132];
    kdedInitGet(0, menu.words.text());
    if (kdedGetKword(menu.prompt.text(), answer) != RTNORM) return nullptr;
    const Action* chosen = actionOf(menu, actions, answer);
    if (chosen == nullptr) commandLine().fail(kNoSuchWord.with(std::wstring(answer), listedWords(menu)));
    return chosen;
}

}  // namespace kdhost
