// A cell and a row of a table.
//
// A cell is in two places of its row: what it looks like, and what it holds. Formats are edited and asked for many
// cells at a time, so that looks are small and lie side by side; contents are shared between states of a row until one
// of them is written. What a cell rarely has (overrides of its format, a block, a field) lies apart, and cells
// formatted alike share one record of overrides. Places in merges stand beside the looks, in rows that have merges.
#pragma once

#include <absl/container/inlined_vector.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/db/cellformat.h"
#include "host/db/sharedtext.h"
#include "host/db/tablecow.h"
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

/// Content that is not text.
struct CellObjects {
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
};

/// What a row has of each cell. That of a narrow row lies in place: a walk by rows finds it where it is.
template <class T>
class CellList : public absl::InlinedVector<T, 8> {
public:
    // Places are checked before, so that the library needn't for each look.
    const T& operator[](std::size_t place) const { return this->data()[place]; }
    T& operator[](std::size_t place) { return this->data()[place]; }
};
using LookList = CellList<CellLook>;
using LinkList = CellList<MergeLink>;

struct CellContent {
    SharedText text;
    CopyOnWrite<CellObjects> objects;
    std::uint8_t type = KdDb::kTextCell;

    bool hasField() const { return objects && !objects->field.isNull(); }
    KdDbObjectId field() const { return objects ? objects->field : KdDbObjectId::kNull; }
    KdDbObjectId block() const { return objects ? objects->block : KdDbObjectId::kNull; }
    bool empty() const { return text.empty() && field().isNull() && block().isNull(); }
    /// Back to an empty text cell.
    void clear() { *this = {}; }
};

struct TableRow {
    static constexpr double kNotMeasured = -1.0;

    double height = 0.0;
    // What was last worked out of the row's own cells, and for which layout of the table; 0 for none.
    mutable std::uint64_t measuredLayout = 0;
    mutable double minimumHeight = kNotMeasured;  ///< that the cells allow
    mutable bool fits = false;                    ///< they are known to fit into the columns
    std::uint16_t style = 0;                      ///< of the row itself; new columns begin with it
    LookList looks;
    CopyOnWrite<std::vector<CellContent>> contents;  ///< as many as looks; never without a value while there are any
    CopyOnWrite<LinkList> links;                     ///< of the cells; none while no cell of the row was merged

    /// The row as measured for that layout; what is known of another one is forgotten.
    const TableRow& measuredFor(std::uint64_t layout) const {
        if (measuredLayout != layout) forgetMeasures();
        measuredLayout = layout;
        return *this;
    }
    void forgetMeasures() const {
        measuredLayout = 0;
        minimumHeight = kNotMeasured;
        fits = false;
    }

    std::size_t size() const { return looks.size(); }
    void resize(std::size_t count) {
        looks.resize(count);
        contents.write().resize(count);
    }
    const CellContent& content(std::size_t column) const { return (*contents)[column]; }
    CellContent& writeContent(std::size_t column) { return contents.write()[column]; }

    void setLink(int column, const MergeLink& link) {
        const auto place = static_cast<std::size_t>(column);
        looks[place].isMerged = link.merged();
        looks[place].isCovered = link.covered();
        if (!links && !link.merged()) return;
        LinkList& own = links.write();
        own.resize(looks.size());
        own[place] = link;
    }
    /// New cells hold nothing.
    void insertCells(int at, int count, const CellLook& look) {
        const auto added = static_cast<std::size_t>(count);
        looks.insert(looks.begin() + at, added, look);
        putContents(at, added, at);
        if (links) links.write().insert(links->begin() + at, added, MergeLink{});
    }
    void eraseCells(int first, int behind) {
        looks.erase(looks.begin() + first, looks.begin() + behind);
        putContents(first, 0, behind);
        if (links) links.write().erase(links->begin() + first, links->begin() + behind);
    }

private:
    /// Those before `first`, `added` empty ones, and those from `rest` on: made at once, since they are mostly shared.
    void putContents(int first, std::size_t added, int rest) {
        const std::vector<CellContent>& held = *contents;
        std::vector<CellContent> made;
        made.reserve(looks.size());
        made.insert(made.end(), held.begin(), held.begin() + first);
        made.resize(made.size() + added);
        made.insert(made.end(), held.begin() + rest, held.end());
        contents = CopyOnWrite<std::vector<CellContent>>(std::move(made));
    }
};

}  // namespace kdhost
