// Matching of answers against keywords.

#include "host/ed/keywords.h"

#include <cwchar>
#include <cwctype>
#include <sstream>

namespace kdhost {
namespace {

bool startsWithoutCase(const std::wstring& text, const std::wstring& start) {
    return start.size() <= text.size() && wcsncasecmp(text.c_str(), start.c_str(), start.size()) == 0;
}

bool equalWithoutCase(const std::wstring& a, const std::wstring& b) {
    return a.size() == b.size() && startsWithoutCase(a, b);
}

/// Where the first run of capitals begins and how long it is.
struct Capitals {
    std::size_t begin = 0;
    std::size_t count = 0;
};

Capitals firstCapitals(const std::wstring& word) {
    Capitals capitals;
    const auto isCapital = [&](std::size_t at) { return at < word.size() && std::iswupper(std::wint_t(word[at])); };
    while (capitals.begin < word.size() && !isCapital(capitals.begin)) ++capitals.begin;
    while (isCapital(capitals.begin + capitals.count)) ++capitals.count;
    return capitals;
}

std::vector<std::wstring> splitWords(const std::wstring& text) {
    std::wistringstream stream(text);
    std::vector<std::wstring> words;
    for (std::wstring word; stream >> word;) words.push_back(word);
    return words;
}

}  // namespace

bool isKeyword(const std::wstring& answer, const std::wstring& keyword) {
    if (answer.empty()) return false;
    if (equalWithoutCase(answer, keyword)) return true;
    const Capitals capitals = firstCapitals(keyword);
    if (capitals.count == 0) return false;
    const std::wstring fromCapitals = keyword.substr(capitals.begin);
    if (answer.size() >= capitals.count && startsWithoutCase(fromCapitals, answer)) return true;
    return answer.size() >= capitals.begin + capitals.count && startsWithoutCase(keyword, answer);
}

KeywordList::KeywordList(const std::wstring& announced) {
    std::vector<std::wstring> locals;
    std::vector<std::wstring> globals;
    bool global = false;
    for (const std::wstring& word : splitWords(announced)) {
        const bool marked = !global && word.front() == L'_';
        global = global || marked;
        (global ? globals : locals).push_back(marked ? word.substr(1) : word);
    }
    // A list of global words alone is its own local list, as the other way round.
    if (locals.empty()) locals = globals;
    for (std::size_t i = 0; i < locals.size(); ++i) {
        m_words.push_back({locals[i], i < globals.size() ? globals[i] : locals[i]});
    }
}

std::optional<std::wstring> KeywordList::match(const std::wstring& answer) const {
    const bool wantsGlobal = !answer.empty() && answer.front() == L'_';
    const std::wstring typed = wantsGlobal ? answer.substr(1) : answer;
    const auto form = [&](const Word& word) -> const std::wstring& { return wantsGlobal ? word.global : word.local; };
    for (const Word& word : m_words) {
        if (equalWithoutCase(typed, form(word))) return word.global;
    }
    for (const Word& word : m_words) {
        if (isKeyword(typed, form(word))) return word.global;
    }
    return std::nullopt;
}

std::optional<std::wstring> KeywordList::matchEither(const std::wstring& answer) const {
    const std::optional<std::wstring> local = match(answer);
    return local ? local : match(L"_" + answer);
}

}  // namespace kdhost
