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

/// Characters of one line that share their looks.
struct Run {
    std::wstring text;
    double x = 0.0;  ///< left edge, from the line's left edge
    double width = 0.0;
    bool underline = false;
    bool overline = false;
    bool strike = false;
};

struct Line {
    std::vector<Run> runs;
    double width = 0.0;
};

/// Height of the lines' pitch, baseline to baseline, in text heights.
inline constexpr double kLinePitch = 5.0 / 3.0;

struct Layout {
    std::vector<Line> lines;
    double width = 0.0;   ///< of the widest line
    double height = 0.0;  ///< from the top of the first line's capitals to the last baseline
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

/// Whether the text reads as it stands, since nothing in it can begin a code. Most texts of a large table are
/// such, and taking them apart would cost more than all else that is done with them.
bool isPlain(const std::wstring& contents);

}  // namespace kdhost::text
