// The texts of EDITTABLECELL: keyword lists and prompts of its menus, and its other prompts.
//
// Each text has a literal, which serves where the resource module doesn't have it. In a keyword list stand the
// words of the user's language and then the global ones, in the same order; replies are told apart by the latter.
#pragma once

#include <array>

#include "mfc/stdstr.h"

/// What an answer is read into; the host gives up to 1024 characters.
using ReplyBuffer = std::array<wchar_t, 1024>;

/// A text of the resource module; `literal` is null where there is none besides.
struct TextSource {
    unsigned resourceText = 0;
    const wchar_t* literal = nullptr;
};

/// The text in the user's language, else the literal.
CStdStr<wchar_t> loadText(const TextSource& source);

struct MenuTexts {
    TextSource keywords;
    TextSource prompt;
};

namespace menutexts {

extern const MenuTexts mainMenu;
extern const MenuTexts operation;
extern const MenuTexts merge;
extern const MenuTexts formula;
extern const MenuTexts content;
extern const MenuTexts format;
extern const MenuTexts alignment;
extern const MenuTexts style;

extern const TextSource pickTable;
extern const TextSource enterCells;
extern const TextSource invalidCells;

}  // namespace menutexts
