// What the drawing is painted from. Each entity turns itself into primitives once; the view, previews and
// files are painters of the same primitives.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/text/layout.h"
#include "kd/ge/extents.h"
#include "kd/ge/point3d.h"

class KdDbDatabase;
class KdDbEntity;

namespace kdhost::draw {

/// Red, green, blue, 0 to 255 each; `foreground` means black on white paper and white on a black screen, `paper` the
/// colour of what is painted on.
struct Color {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool foreground = false;
    bool paper = false;

    friend auto operator<=>(const Color&, const Color&) = default;  // NOLINT: it takes the result for a pointer
};

struct Polyline {
    std::vector<KdGePoint3d> points;
    Color color;
    int lineWeight = 0;          ///< hundredths of a millimetre; 0 is the thinnest line
    std::vector<double> dashes;  ///< drawing units; empty for a continuous line
    double dashStart = 0.0;      ///< how far into the pattern the line begins, drawing units
};

struct Polygon {
    std::vector<KdGePoint3d> points;
    Color color;
};

struct Text {
    std::wstring text;
    KdGePoint3d origin;      ///< left end of the baseline
    KdGeVector3d direction;  ///< of the baseline, length 1
    KdGeVector3d up;         ///< of a capital, length 1: what lies in a plane at a slant is seen foreshortened
    double height = 0.0;     ///< of a capital letter
    double width = 0.0;      ///< of the run as measured
    double tracking = 1.0;   ///< factor on the characters' advances, in the width already
    text::Font font;
    Color color;
    bool underline = false;
    bool overline = false;
    bool strike = false;
};

using Primitive = std::variant<Polyline, Polygon, Text>;
using Primitives = std::vector<Primitive>;

/// The part of the drawing that is looked at, in world coordinates.
struct Visible {
    double left = 0.0;
    double bottom = 0.0;
    double right = 0.0;
    double top = 0.0;
    double unitsPerPixel = 1.0;
};

/// What an entity's looks depend on beside itself.
struct Options {
    bool lineWeights = false;  ///< the variable "LWDISPLAY"
    bool selections = false;   ///< selected cells show their frame, grips and indicators
    /// Where it is given, tables leave out what lies outside, and what is too small to be told apart. Primitives
    /// beyond it may still be there.
    std::optional<Visible> visible{};
    bool plotted = false;  ///< what lies on a layer that isn't plotted is left out

    /// The same, for what is drawn in other coordinates than the world's.
    Options everywhere() const {
        Options options = *this;
        options.visible.reset();
        return options;
    }
};

/// Primitives of one entity, in the order of painting. An invisible entity has none.
Primitives primitivesOf(const KdDbEntity& entity, const Options& options);

/// All entities of the model space, in drawing order.
Primitives primitivesOf(const KdDbDatabase& database, const Options& options);

KdDbExtents extentsOf(const Primitives& primitives);

}  // namespace kdhost::draw
