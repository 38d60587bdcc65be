// Text of a drawing: parsed once into runs, wrapped into lines, measured. All lengths are drawing units; the
// height of a text is the height of a capital letter. Measuring needs a running Qt GUI application and
// belongs to its thread.
#pragma once

#include <string>
#include <vector>

namespace kdhost::text {

/// A text style's font. An unknown or empty family falls back on the fonts that the host is shipped with.
struct Font {
    std::wstring family;
    bool bold = false;
    bool italic = false;
    double widthFactor = 1.0;
    double obliqueAngle = 0.0;  ///< radians, clockwise from upright; no part of the measured width

    friend bool operator==(const Font&, const Font&) = default;
};

/// The colour of characters: that of the text as a whole, unless a code says otherwise.
struct Ink {
    enum class Kind { ofText, index, bgr };
    Kind kind = Kind::ofText;
    int value = 0;  ///< an index (0 by block, 256 by layer), or blue, green and red as one number

    friend bool operator==(const Ink&, const Ink&) = default;
};

/// Characters of one line that share their looks.
struct Run {
    std::wstring text;
    Font font;
    double height = 0.0;  ///< of a capital
    double x = 0.0;       ///< left edge, from the line's left edge
    double y = 0.0;       ///< its baseline above the line's
    double width = 0.0;
    double tracking = 1.0;  ///< factor on the characters' advances, in the width already
    Ink ink;
    bool underline = false;
    bool overline = false;
    bool strike = false;
};

/// A stroke of a stacked fraction, from and to places as those of runs.
struct Stroke {
    double fromX = 0.0;
    double fromY = 0.0;
    double toX = 0.0;
    double toY = 0.0;
    Ink ink;
};

struct Line {
    std::vector<Run> runs;
    std::vector<Stroke> strokes;
    double width = 0.0;
    double baseline = 0.0;  ///< below the top of the layout
    double indent = 0.0;    ///< kept free at the left of the layout
    double outdent = 0.0;   ///< kept free at its right
    int align = kAsText;    ///< 0 left, 1 centre, 2 right

    static constexpr int kAsText = -1;  ///< as the text as a whole
};

/// Height of the lines' pitch, baseline to baseline, in text heights.
inline constexpr double kLinePitch = 5.0 / 3.0;

struct Layout {
    std::vector<Line> lines;
    double width = 0.0;   ///< of the widest line, with what is kept free beside it
    double height = 0.0;  ///< from the top of the first line's capitals to the last baseline
    double room = 0.0;    ///< that lines are aligned in: the wrap width, or the width where there is none

    /// Left edge of a line, from the left edge of the text's box. `align` is that of the text as a whole.
    double leftOf(const Line& line, int align) const {
        const int own = line.align == Line::kAsText ? align : line.align;
        const double free = room - line.indent - line.outdent - line.width;
        return line.indent + 0.5 * own * free;
    }
};

/// `contents` may hold formatting codes; a line end as its last character opens no line of its own.
/// `wrapWidth` 0 wraps nowhere. A word wider than the wrap width stays whole in a line of its own, except
/// that CJK text breaks between any two characters. Blanks that a wrapped line ends with don't count. An
/// empty text has no lines.
Layout layout(const std::wstring& contents, const Font& font, double textHeight, double wrapWidth);

/// Width of the widest word, which no wrapping gets below.
double widestWord(const std::wstring& contents, const Font& font, double textHeight);

/// The text as it is read, without formatting codes: a paragraph or line feed as '\n', a stack as "a/b", a
/// hard blank as a blank.
std::wstring strip(const std::wstring& contents);

/// Length of a text, up to its ending zero, that reads as it stands, since nothing in it can begin a code; -1 for any
/// other. Most texts of a large table are such, and taking them apart would cost more than all else that is done
/// with them.
int plainLength(const wchar_t* contents);
inline bool isPlain(const std::wstring& contents) {
    return plainLength(contents.c_str()) == static_cast<int>(contents.size());
}

}  // namespace kdhost::text
