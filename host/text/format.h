// A text as formatted pieces: its codes carried out, and written again. Whoever lays out or edits a text works on
// these.
#pragma once

#include <string>
#include <vector>

#include "host/text/layout.h"

namespace kdhost::text {

/// How the lines of a paragraph stand. Lengths are in heights of the text as a whole.
struct Paragraph {
    double firstIndent = 0.0;  ///< of the first line, against the others
    double left = 0.0;
    double right = 0.0;
    wchar_t align = 0;  ///< l, c, r, j (justified), d (justified to the last line); 0 as the text as a whole
    std::vector<double> tabs;
    std::wstring rest;  ///< parts of the code that nothing here uses, kept as they stand

    friend bool operator==(const Paragraph&, const Paragraph&) = default;
};

/// How a typeface was asked for. Codes say more of it than is used here: while the font is still that one, it is
/// written with the same code again.
struct Typeface {
    Font font;          ///< that came of it: family, bold and italic
    std::wstring code;  ///< letter and parameter; empty for none

    friend bool operator==(const Typeface&, const Typeface&) = default;
};

/// What the characters of a piece look like.
struct Format {
    Font font;
    Typeface typeface;
    double height = 1.0;    ///< drawing units
    double tracking = 1.0;  ///< factor on each character's advance
    Ink ink;
    bool underline = false;
    bool overline = false;
    bool strike = false;
    int alignment = 0;  ///< where smaller text stands in its line: 0 bottom, 1 centre, 2 top
    Paragraph paragraph;

    friend bool operator==(const Format&, const Format&) = default;
};

struct Piece {
    enum class Kind { Characters, LineBreak, Stack };
    Kind kind = Kind::Characters;
    Format format;
    std::wstring text;   ///< characters as read, a hard blank as U+00A0; of a stack the upper part
    std::wstring lower;  ///< of a stack
    wchar_t separator = 0;

    friend bool operator==(const Piece&, const Piece&) = default;
};

/// Carries the codes out, beginning with `base`. Neighbours of one format are one piece. A parameter that can't be
/// read leaves its property as it is.
std::vector<Piece> pieces(const std::wstring& contents, const Format& base);

/// A blank that no line is broken at.
constexpr wchar_t kHardBlank = 0x00A0;

/// The text with codes that gives these pieces again. Codes for what differs from `base` stand in groups, so that
/// pieces without formatting of their own are written plainly.
std::wstring write(const std::vector<Piece>& pieces, const Format& base);

/// Letter and parameter of the code for a font's family, bold and italic.
std::wstring typefaceCode(const Font& font);

/// Characters as they must be written to be read as themselves.
std::wstring escaped(const std::wstring& characters);

}  // namespace kdhost::text
