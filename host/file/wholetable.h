// What a table overrides as a whole: the looks of its title, header and data, and of their edges.
//
// The host's tables know overrides of cells alone, so the cells take over what is said of their kind of row. What a
// cell overrides itself goes before it.
#pragma once

#include "host/file/cellread.h"

namespace kdhost::file {

class WholeTable {
public:
    explicit WholeTable(LoadContext& context) : m_context(context) {}

    /// Of the table's head the masks, which tell what follows behind the cells; other tags are passed over.
    void takeHead(const Tag& tag);
    /// What stands behind the cells.
    void takeTail(const Tag& tag);

    bool tellsFlow() const { return (m_overrides & 0x04) != 0; }
    bool tellsSuppression() const { return (m_overrides & 0x01) != 0; }

    /// The cells take it over. The rows have their usual styles.
    void giveTo(std::vector<TableRow>& rows);

private:
    /// Title, header, data; the places of their cell styles.
    static constexpr int kRowKinds = 3;
    static constexpr int kRowCodes = 6;
    static constexpr int kEdgeMasks = 3;
    static constexpr int kOuterEdges = 4;

    void takeForEdges(const Tag& tag, int mask);
    void giveLooks(TableRow& row);
    void giveEdges(std::vector<TableRow>& rows, std::size_t row);
    /// Of a cell in that kind of row; bits tell which of its edges are outer ones.
    const CopyOnWrite<FormatOverrides>& edgesOf(std::uint16_t kind, unsigned outer);
    void setMargin(const FormatProperty<double>& which, double margin);
    static void give(CellLook& cell, const CopyOnWrite<FormatOverrides>& overrides);

    LoadContext& m_context;
    std::int64_t m_overrides = 0;
    int m_rowPlaces[kRowCodes] = {};
    ReadOverrides m_looks[kRowKinds];
    CopyOnWrite<FormatOverrides> m_sharedLooks[kRowKinds];
    std::int64_t m_edgeMasks[kEdgeMasks] = {};
    int m_edgePlaces[kEdgeMasks] = {};
    FormatOverrides m_edges[kRowKinds];
    CopyOnWrite<FormatOverrides> m_sharedEdges[kRowKinds][1U << kOuterEdges];
};

}  // namespace kdhost::file
