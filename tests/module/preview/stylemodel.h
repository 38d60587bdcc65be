// A plain model of the sample of a cell style: the rules written down as formulas, one after the other, to be held
// against the sample itself. All lengths are drawing units.
#pragma once

#include <optional>

#include "tests/module/preview/celllook.h"
#include "tests/module/preview/samplepicture.h"

namespace kdtest::preview {

/// Rows of a style's sample.
inline constexpr int kRowCount = 2;
/// The flow of a text's characters.
inline constexpr int kByStyle = 5;

struct CellSize {
    double width = 0.0;
    double height = 0.0;
};

/// The size that cells have before any text is measured.
CellSize startSize(const CellLook& look);

struct ModelSample {
    CellSize cell;  ///< grown
    Picture picture;
};

/// `start` are sizes set by hand before the sample is made.
ModelSample modelSample(const CellLook& look, int columns, const std::optional<CellSize>& start = std::nullopt);

// The parts of the model, for tests that want to see them alone.

/// What one text needs and where it goes, measured for a cell of that size.
struct ModelText {
    CellSize need;
    double x = 0.0;
    double y = 0.0;
    double wrapWidth = 0.0;
};
ModelText modelText(const CellLook& look, const CellSize& cell);

/// How text turned by that angle is placed: along one of the four axes, or at a slant.
struct Turn {
    bool slant = false;
    int quarter = 0;     ///< 0 to 3: 0, 90, 180, 270 degrees, or the quadrant of a slant
    double angle = 0.0;  ///< within 0 to two pi
};
Turn turnOf(double rotation);

/// The grid lines of all cells, in their order.
std::vector<Line> modelLines(const CellLook& look, int columns, const CellSize& cell);

}  // namespace kdtest::preview
