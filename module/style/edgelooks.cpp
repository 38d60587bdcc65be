// Whether edges agree, and what the boxes show of them.

#include "module/style/edgelooks.h"

#include <algorithm>
#include <cmath>

#include "module/controls/comboboxes.h"

namespace {

constexpr double kSameSpacing = 1e-10;
/// What a box shows when the edges don't agree: by block.
constexpr int kMixedRow = 1;

/// Whether some entry differs from the next one.
template <class T, class Argument>
bool IsRepeatFromArray(const CArray<T, Argument>& array) {
    return std::adjacent_find(array.begin(), array.end(), [](const T& a, const T& b) { return a != b; }) != array.end();
}

template <class T, class Argument>
bool holdsAllEdges(const CArray<T, Argument>& array) {
    return array.GetSize() == static_cast<int>(kGridEdges.size());
}

template <class T, class Argument>
bool allEdgesAgree(const CArray<T, Argument>& array) {
    return holdsAllEdges(array) && !IsRepeatFromArray(array);
}

int rowOrMixed(int row) {
    return row >= 0 ? row : kMixedRow;
}

}  // namespace

void EdgeLooks::emptyLines() {
    lineWeights.RemoveAll();
    linetypes.RemoveAll();
    colors.RemoveAll();
}

bool EdgeLooks::IsLineWeightUnification() const {
    return allEdgesAgree(lineWeights);
}

bool EdgeLooks::IsLineTypeUnification() const {
    return allEdgesAgree(linetypes);
}

bool EdgeLooks::IsCmColorUnification() const {
    return allEdgesAgree(colors);
}

bool EdgeLooks::IsGridLineStyleUnification() const {
    return allEdgesAgree(lineStyles);
}

bool EdgeLooks::IsSpacingUnification() const {
    const auto differ = [](double a, double b) { return std::abs(a - b) > kSameSpacing; };
    return holdsAllEdges(spacings) && std::adjacent_find(spacings.begin(), spacings.end(), differ) == spacings.end();
}

void LineBoxes::showSamples() const {
    ::showSamples(weight, kWeightSamples);
    ::showSamples(type, kLinetypeSamples);
    ::showSamples(color, kColorSamples);
}

void LineBoxes::show(const EdgeLooks& looks) {
    weight.SetCurSel(
        rowOrMixed(looks.IsLineWeightUnification() ? weight.FindItemByLineWeight(looks.lineWeights[0]) : -1));
    // The null id is no row's.
    type.SetCurSel(rowOrMixed(looks.IsLineTypeUnification() ? type.FindItemByLinetype(looks.linetypes[0]) : -1));
    color.SetCurSel(rowOrMixed(looks.IsCmColorUnification() ? color.FindItemByColor(looks.colors[0]) : -1));
}

KdDbObjectId LineBoxes::chosenLinetype() {
    if (selectedText(type) == type.GetOtherName()) type.SelectOther(1);
    return type.GetItemLinetype(type.GetCurSel());
}
