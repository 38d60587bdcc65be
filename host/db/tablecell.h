// A cell and a row of a table.
//
// A cell is in two places of its row: what it looks like, and what it holds. Formats are edited and asked for many
// cells at a time, so that looks are small and lie side by side, and rows that look alike mostly share them; contents
// are shared between states of a row until one of them is written. What a cell rarely has (overrides of its format, a
// block, a field) lies apart, and cells formatted alike share one record of overrides. Places in merges stand beside
// the contents, in rows that have merges.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/db/cellformat.h"
#include "host/db/copyonwrite.h"
#include "host/db/sharedarray.h"
#include "host/db/sharedtext.h"
#include "kd/db/cellrange.h"

namespace kdhost {

/// A cell's place in its merge, relative to the cell, so that rows inserted elsewhere leave it alone. All
/// zero for a cell in no merge.
struct MergeLink {
    int up = 0;    ///< rows from the merge's top row
    int left = 0;  ///< columns from its left column
    int rows = 0;
    int columns = 0;

    bool merged() const { return rows != 0; }
    bool covered() const { return up != 0 || left != 0; }
    /// The rectangle of the merge that the cell of that place is in.
    KdCellRange rangeAt(int row, int column) const {
        const int top = row - up;
        const int first = column - left;
        return {top, first, top + rows - 1, first + columns - 1};
    }
    friend bool operator==(const MergeLink&, const MergeLink&) = default;
};

/// The properties that a cell overrides. Values of properties that are not in `own` mean nothing.
struct FormatOverrides {
    FormatBits own = 0;
    CellFormat format;
};

/// What one attribute of a cell's block says there.
struct BlockAttribute {
    KdDbObjectId definition;  ///< in the block
    std::wstring text;

    friend bool operator==(const BlockAttribute&, const BlockAttribute&) = default;
};

/// What a cell of text alone doesn't have.
struct CellObjects {
    std::uint8_t type = KdDb::kTextCell;
    KdDbObjectId field;
    KdDbObjectId block;
    double blockScale = 1.0;
    double blockRotation = 0.0;  ///< radians
    bool autoFit = false;
    std::vector<BlockAttribute> attributes;  ///< of the block; only files give them

    friend bool operator==(const CellObjects&, const CellObjects&) = default;
};

struct CellLook {
    CopyOnWrite<FormatOverrides> overrides;
    std::uint16_t style = 0;  ///< place in the table's pool of cell styles
    std::uint8_t state = KdDb::kCellStateNone;
    bool isMerged = false;   ///< is in a merge: the row's link tells its place there
    bool isCovered = false;  ///< by the merge's owner

    FormatBits own() const { return overrides ? overrides->own : 0; }
    /// The cell's own value of a property; null where it overrides none.
    template <class T>
    const T* ownValue(const FormatProperty<T>& which) const {
        const FormatOverrides* held = overrides.get();
        return held != nullptr && (held->own & which.bit) != 0 ? &which.in(held->format) : nullptr;
    }
    /// Everything of the other cell but its place in a merge.
    void takeOver(const CellLook& other) {
        const bool merged = isMerged;
        const bool covered = isCovered;
        *this = other;
        isMerged = merged;
        isCovered = covered;
    }
    /// Overrides are compared by the record that holds them.
    friend bool operator==(const CellLook& a, const CellLook& b) {
        return a.overrides.shares(b.overrides) && a.style == b.style && a.state == b.state &&
               a.isMerged == b.isMerged && a.isCovered == b.isCovered;
    }
};

struct CellContent {
    SharedText text;
    CopyOnWrite<CellObjects> objects;  ///< without a value for a cell of text alone

    KdDb::CellType type() const { return objects ? static_cast<KdDb::CellType>(objects->type) : KdDb::kTextCell; }
    CellObjects ownObjects() const { return objects ? *objects : CellObjects(); }
    void setObjects(const CellObjects& made) {
        objects = made == CellObjects() ? CopyOnWrite<CellObjects>() : CopyOnWrite<CellObjects>(made);
    }
    bool hasField() const { return objects && !objects->field.isNull(); }
    KdDbObjectId field() const { return objects ? objects->field : KdDbObjectId::kNull; }
    KdDbObjectId block() const { return objects ? objects->block : KdDbObjectId::kNull; }
    bool empty() const { return text.empty() && field().isNull() && block().isNull(); }
    /// Back to an empty text cell.
    void clear() { *this = {}; }
};

/// The looks of a row's cells; rows that look alike mostly share them.
using RowLooks = SharedArray<CellLook>;

/// What a row has beside the looks of its cells.
struct RowBody {
    double height = 0.0;
    std::uint16_t style = 0;            ///< of the row itself; new columns begin with it
    SharedArray<CellContent> contents;  ///< as many as looks
    SharedArray<MergeLink> links;       ///< of the cells; none while no cell of the row was merged

    const CellContent& content(std::size_t column) const { return contents[column]; }
    CellContent& writeContent(std::size_t column) { return contents.write()[column]; }

    /// Empty ones, in no merge.
    void insertContents(std::size_t at, std::size_t count) {
        contents.insert(at, count, {});
        if (!links.empty()) links.insert(at, count, {});
    }
    void eraseContents(std::size_t first, std::size_t behind) {
        contents.erase(first, behind);
        if (!links.empty()) links.erase(first, behind);
    }
};

/// What was last worked out of a row's own cells, and for which layout of the table. It follows from them, so that it
/// may be worked out under const, and of a row that several states share.
struct RowMeasures {
    static constexpr double kNotMeasured = -1.0;

    mutable double minimumHeight = kNotMeasured;  ///< that the cells allow
    mutable std::uint64_t layout : 63 = 0;        ///< 0 for none
    mutable std::uint64_t fits : 1 = 0;           ///< the cells are known to fit into the columns

    void forget() const { layout = 0; }
    /// As measured for that layout, which isn't 0; what is known of another one is forgotten.
    const RowMeasures& of(std::uint64_t wanted) const {
        if (layout == wanted) return *this;
        constexpr std::uint64_t kLargestLayout = ~std::uint64_t{0} >> 1;
        minimumHeight = kNotMeasured;
        layout = wanted & kLargestLayout;
        fits = 0;
        return *this;
    }
};

/// A whole row.
struct TableRow : RowBody {
    RowLooks looks;

    std::size_t size() const { return looks.size(); }
    CellLook& writeLook(std::size_t column) { return looks.write()[column]; }

    void setLink(int column, const MergeLink& link) {
        const auto place = static_cast<std::size_t>(column);
        CellLook& look = writeLook(place);
        look.isMerged = link.merged();
        look.isCovered = link.covered();
        if (links.empty() && !link.merged()) return;
        if (links.empty()) links = SharedArray<MergeLink>(size(), {});
        links.write()[place] = link;
    }
};

}  // namespace kdhost
