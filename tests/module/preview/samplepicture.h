// What a sample shows, in plain records that can be compared: the entities of its block in their order, where the
// block reference puts them.
#pragma once

#include <array>
#include <string>
#include <variant>
#include <vector>

#include "host/db/access.h"
#include "host/db/walk.h"
#include "kd/db/blockreference.h"
#include "kd/db/color.h"
#include "kd/db/database.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

namespace kdtest::preview {

struct Solid {
    std::array<KdGePoint3d, 4> corners;
    KdCmColor color;
};

struct Text {
    std::wstring contents;
    KdGePoint3d place;
    KdGeVector3d direction;
    double height = 0.0;
    double wrapWidth = 0.0;
    int attachment = 0;
    int flow = 0;
    KdDbObjectId style;
    KdCmColor color;
};

struct Line {
    KdGePoint3d from;
    KdGePoint3d to;
    KdDbObjectId linetype;  ///< null for that which the sample's drawing gives to what has none
    KdDb::LineWeight weight = KdDb::kLnWtByLayer;
    KdCmColor color;
    bool screenOnly = false;  ///< on the layer that is shown and not plotted
};

using Part = std::variant<Solid, Text, Line>;
using Picture = std::vector<Part>;

/// The parts of one kind, in their order.
template <class Kind>
std::vector<Kind> only(const Picture& picture) {
    std::vector<Kind> result;
    for (const Part& part : picture) {
        if (const Kind* kind = std::get_if<Kind>(&part)) result.push_back(*kind);
    }
    return result;
}

/// In world coordinates. `screenOnly` is that layer of the reference's database.
Picture pictureOf(const KdDbBlockReference& reference, KdDbObjectId screenOnly);

/// The same of a sample, from what it offers in public. Empty for a sample without a reference or block.
template <class Sample>
Picture pictureOf(const Sample& sample);

/// The number of parts that differ; the pictures must have as many.
int differingParts(const Picture& expected, const Picture& seen);

/// Where two pictures differ first, in words; empty when they are alike, lengths within 1e-9.
std::string difference(const Picture& expected, const Picture& seen);

/// All parts in one text, a line each.
std::string shown(const Picture& picture);

/// The layer of invisible edges in that database.
KdDbObjectId screenOnlyLayer(KdDbDatabase* database);

template <class Sample>
Picture pictureOf(const Sample& sample) {
    if (sample.GetTableCell() == nullptr) return {};
    return pictureOf(*sample.GetTableCell(), screenOnlyLayer(sample.GetDatabase()));
}

}  // namespace kdtest::preview
