// A text as measured glyphs, paragraph by paragraph: what wrapping works on.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/text/format.h"

namespace kdhost::text {

/// What stands for a stack where only characters can stand. Texts may hold the same character, for itself.
inline constexpr wchar_t kStackCharacter = 0xFFFC;

/// A character or a stack.
struct Glyph {
    static constexpr std::uint32_t kNoStack = 0xFFFF'FFFF;

    wchar_t character;     ///< kStackCharacter for a stack
    std::uint32_t format;  ///< place among the formats
    double advance;        ///< of a tab, none: it depends on its place
    std::uint32_t stack = kNoStack;

    bool isStack() const { return stack != kNoStack; }
};

/// The parts of a stack side by side or above each other, from the stack's left edge.
struct StackLayout {
    std::vector<Run> runs;
    std::vector<Stroke> strokes;
    double width = 0.0;
    double above = 0.0;  ///< top over the baseline
    double below = 0.0;  ///< what hangs under it
};

struct GlyphText {
    std::vector<Format> formats;
    std::vector<StackLayout> stacks;
    std::vector<std::vector<Glyph>> paragraphs;
    /// Of each paragraph; that of its first glyph's format counts, of an empty one that of the break behind it.
    std::vector<std::uint32_t> paragraphFormats;
};

GlyphText glyphsOf(const std::wstring& contents, const Format& base);

/// A run of that format, of no text yet.
Run emptyRun(const Format& format);

StackLayout layoutStack(const Piece& stack);

}  // namespace kdhost::text
