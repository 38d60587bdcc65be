// Stacks: fractions with a level or a slanted stroke, and one text over another without any.

#include <algorithm>

#include "host/text/glyphs.h"
#include "host/text/metrics.h"

namespace kdhost::text {
namespace {

/// In heights of the parts: between a part and the stroke, or between the parts.
constexpr double kGap = 0.25;

Run runOf(const std::wstring& text, const Format& format) {
    Run run = emptyRun(format);
    run.text = text;
    Advances& advances = advancesOf(format.font);
    for (const wchar_t c : text)
        run.width += advances.of(c) * format.height * format.font.widthFactor * format.tracking;
    return run;
}

void add(StackLayout& stack, Run run, double x, double y) {
    run.x = x;
    run.y = y;
    stack.width = std::max(stack.width, x + run.width);
    stack.above = std::max(stack.above, y + run.height);
    stack.below = std::max(stack.below, -y);
    if (!run.text.empty()) stack.runs.push_back(std::move(run));
}

/// Moves the whole so that it stands on the baseline, on the middle of a capital, or hangs from a capital's top.
void align(StackLayout& stack, double height, int alignment) {
    const double total = stack.above + stack.below;
    const double bottom = alignment == 0 ? 0.0 : alignment == 1 ? 0.5 * (height - total) : height - total;
    const double by = bottom + stack.below;
    for (Run& run : stack.runs) run.y += by;
    for (Stroke& stroke : stack.strokes) {
        stroke.fromY += by;
        stroke.toY += by;
    }
    stack.above += by;
    stack.below = std::max(0.0, stack.below - by);
}

StackLayout slanted(const Run& upper, const Run& lower, const Format& format) {
    StackLayout stack;
    const double h = format.height;
    const double strokeWidth = 0.6 * h;
    add(stack, upper, 0.0, h);
    add(stack, lower, upper.width + strokeWidth, 0.0);
    stack.strokes.push_back({upper.width, 0.0, upper.width + strokeWidth, 2.0 * h, format.ink});
    return stack;
}

StackLayout aboveEachOther(const Run& upper, const Run& lower, const Format& format, bool stroke) {
    StackLayout stack;
    const double h = format.height;
    const double width = std::max(upper.width, lower.width);
    const double gap = (stroke ? 2.0 : 1.0) * kGap * h;
    // Fractions are centred on each other, tolerances stand flush.
    add(stack, lower, stroke ? 0.5 * (width - lower.width) : 0.0, 0.0);
    add(stack, upper, stroke ? 0.5 * (width - upper.width) : 0.0, h + gap);
    if (stroke) stack.strokes.push_back({0.0, h + 0.5 * gap, width, h + 0.5 * gap, format.ink});
    return stack;
}

}  // namespace

StackLayout layoutStack(const Piece& piece) {
    const Run upper = runOf(piece.text, piece.format);
    const Run lower = runOf(piece.lower, piece.format);
    if (piece.separator == 0) {
        StackLayout stack;
        add(stack, upper, 0.0, 0.0);
        return stack;
    }
    StackLayout stack = piece.separator == L'#' ? slanted(upper, lower, piece.format)
                                                : aboveEachOther(upper, lower, piece.format, piece.separator == L'/');
    align(stack, piece.format.height, piece.format.alignment);
    return stack;
}

}  // namespace kdhost::text
