// The cell styles that a table's cells name.
//
// A cell holds a small number, the place of its style in this pool; the pool remembers the style's record and
// looks it up again only when the table style has changed. A place is bound to the style's index, which a
// rename keeps, so that a renamed cell style carries its cells along.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/db/copyonwrite.h"
#include "host/db/opening.h"
#include "host/db/tablestylestate.h"

namespace kdhost {

class CellStylePool {
public:
    static constexpr std::uint16_t kTitle = 0;
    static constexpr std::uint16_t kHeader = 1;
    static constexpr std::uint16_t kData = 2;

    CellStylePool();

    const KdDbObjectId& tableStyle() const { return m_tableStyle; }
    /// Cells keep the names of their styles, whatever the new table style makes of them.
    void setTableStyle(KdDbObjectId style);

    /// The table goes to another database: its style is the one that stands there in the old one's place.
    void mapTableStyle(const IdMapper& map);

    /// The place of that name, made when there is none.
    std::uint16_t place(const wchar_t* name) {
        refresh();
        // Cell after cell is given one style, by a name too short to call anything for.
        const wchar_t* last = (*m_entries)[m_lastPlace].name.c_str();
        for (std::size_t i = 0; last[i] == name[i]; ++i) {
            if (name[i] == L'\0') return m_lastPlace;
        }
        return placeOfOther(name);
    }
    /// The style as it is now; "_DATA" for a name that the table style doesn't know.
    const CellStyleRecord& record(std::uint16_t place) const {
        refresh();
        return *m_records[place];
    }
    /// Whether another look at the table style would find nothing new.
    bool isFresh() const { return m_boundAt == stateEpoch; }
    void refresh() const {
        if (!isFresh()) [[unlikely]]
            bindAll(style());
    }
    /// As the last look at the table style found it: for long walks that look once.
    const CellStyleRecord& lastRecord(std::uint16_t place) const { return *m_records[place]; }
    const std::wstring& lastName(std::uint16_t place) const { return (*m_entries)[place].name; }
    const std::wstring& name(std::uint16_t place) const {
        refresh();
        return (*m_entries)[place].name;
    }

    /// The flow direction of the table style.
    int flow() const { return style().flow; }

    /// Changes whenever the values of the styles do.
    std::uint64_t revision() const {
        refresh();
        return m_revision;
    }

private:
    struct Entry {
        std::wstring name;  ///< as last known
        int index = 0;      ///< in the table style; 0 while it knows no such name
        CellStylePtr record;
    };

    // Getters of cell properties come by here for every cell of large tables: as long as the style is in
    // memory and no style has changed, all that it costs is one comparison.
    static constexpr std::uint64_t kNever = ~std::uint64_t{0};

    static const TableStyleState& stateOf(const KdDbObject& styleObject) {
        return static_cast<const TableStyleState&>(KdDbObjectAccess::state(styleObject));
    }
    /// The same for a name that wasn't asked for last.
    std::uint16_t placeOfOther(std::wstring_view name);
    /// The table style as it is now; a look at the database when it isn't known to be in memory.
    const TableStyleState& style() const;
    void bindAll(const TableStyleState& current) const;
    static void bind(Entry& entry, const TableStyleState& style);

    KdDbObjectId m_tableStyle;
    std::uint16_t m_lastPlace = 0;  ///< that was asked for by name: cell after cell is given one style
    // What the entries say of the style is remembered, not held: it follows the style under const too.
    mutable CopyOnWrite<std::vector<Entry>> m_entries;
    mutable std::vector<const CellStyleRecord*> m_records;  ///< of the entries
    mutable const KdDbObject* m_styleObject = nullptr;      ///< of the table style, good at `m_foundAt`
    mutable std::uint64_t m_foundAt = kNever;               ///< also while the style isn't in memory
    mutable std::uint64_t m_boundAt = kNever;               ///< when the entries were last seen to be of that style
    mutable std::uint64_t m_revision = 0;                   ///< that the entries are bound to, of the style `m_boundTo`
    mutable KdDbObjectId m_boundTo;
};

}  // namespace kdhost
