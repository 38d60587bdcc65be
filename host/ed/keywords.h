// Keywords of a prompt: which word of a list an answer selects.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kdhost {

/// The words of a prompt, announced as "local words _GLOBAL words". A list without global words is its own
/// global list.
class KeywordList {
public:
    KeywordList() = default;
    explicit KeywordList(const std::wstring& announced);

    bool isEmpty() const { return m_words.empty(); }

    /// The global word that an answer selects. Written out, a word is found whatever its case. Shortened, its
    /// first run of capitals must be there; the letters before it may be left out and more of the letters
    /// behind it may follow. A leading underscore asks for the global words.
    std::optional<std::wstring> match(const std::wstring& answer) const;
    /// The same, and the global words need no underscore: what the host asks itself is answered by a script in
    /// either language.
    std::optional<std::wstring> matchEither(const std::wstring& answer) const;

private:
    struct Word {
        std::wstring local;
        std::wstring global;
    };
    std::vector<Word> m_words;
};

/// Whether the answer is the keyword, shortened or not.
bool isKeyword(const std::wstring& answer, const std::wstring& keyword);

}  // namespace kdhost
