// The model of a whole sample: measure, grow, measure again, then fills, texts and lines.

#include "tests/module/preview/stylemodel.h"

#include <algorithm>
#include <cmath>

namespace kdtest::preview {
namespace {

/// The cell that one text is measured for: with merge all the whole row.
CellSize room(const CellLook& look, int columns, const CellSize& cell) {
    return {look.mergeAll ? columns * cell.width : cell.width, cell.height};
}

/// A size that reaches what is needed and isn't negative.
double reached(double size, double need) {
    return std::max({size, need, 0.0});
}

Text textAt(const CellLook& look, const ModelText& text, double x, double y) {
    Text result;
    result.contents = look.shownName;
    result.place = {x + text.x, y + text.y, 0.0};
    result.direction = {std::cos(look.rotation), std::sin(look.rotation), 0.0};
    result.height = look.textHeight;
    result.wrapWidth = text.wrapWidth;
    result.attachment = look.alignment;
    result.flow = kByStyle;
    result.style = look.textStyle;
    result.color = look.color;
    return result;
}

}  // namespace

CellSize startSize(const CellLook& look) {
    const double height = 2.0 * look.marginVert + (look.textHeight / 3.0 + look.textHeight);
    return {5.0 * height, height};
}

ModelSample modelSample(const CellLook& look, int columns, const std::optional<CellSize>& start) {
    ModelSample sample;
    CellSize& cell = sample.cell;
    cell = start.value_or(startSize(look));

    ModelText text = modelText(look, room(look, columns, cell));
    const CellSize grown{reached(cell.width, text.need.width), reached(cell.height, text.need.height)};
    if (grown.width != cell.width || grown.height != cell.height) {
        cell = grown;
        text = modelText(look, room(look, columns, cell));
    }

    const double down = look.flow == 0 ? -cell.height : cell.height;
    for (int row = 0; row < kRowCount; ++row) {
        for (int column = 0; column < (look.mergeAll ? 1 : columns); ++column) {
            const double x = column * cell.width;
            const double y = row * down;
            const double right = x + (look.mergeAll ? 2.0 : 1.0) * cell.width;
            if (!look.background.isNone()) {
                sample.picture.push_back(Solid{
                    {{{x, y, 0.0}, {right, y, 0.0}, {x, y + down, 0.0}, {right, y + down, 0.0}}}, look.background});
            }
            sample.picture.push_back(textAt(look, text, x, y));
        }
    }
    for (const Line& line : modelLines(look, columns, cell)) sample.picture.push_back(line);
    return sample;
}

}  // namespace kdtest::preview
