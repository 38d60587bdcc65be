// What a table style holds: its cell styles, by index and name.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/db/cellformat.h"
#include "host/db/objectstate.h"

namespace kdhost {

inline constexpr const wchar_t* kTitleStyle = L"_TITLE";
inline constexpr const wchar_t* kHeaderStyle = L"_HEADER";
inline constexpr const wchar_t* kDataStyle = L"_DATA";

/// Never changed once made, so that states and tables share it.
struct CellStyleRecord {
    int index = 0;
    std::wstring name;
    CellFormat format;
};
using CellStylePtr = std::shared_ptr<const CellStyleRecord>;

struct TableStyleState : KdDbObjectState {
    /// The three standard styles.
    TableStyleState();
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<TableStyleState>(*this); }
    void mapIds(const IdMapper& map) override;

    /// Null when there is no such style.
    CellStylePtr find(const std::wstring& name) const;
    CellStylePtr find(int index) const;
    /// The style of that name, else "_DATA".
    const CellStyleRecord& styleOrData(const std::wstring& name) const;

    void replace(int index, CellStyleRecord record);
    void changed();

    std::vector<CellStylePtr> records;     ///< in the order of their indices
    std::map<int, std::wstring> lastName;  ///< of deleted styles, whose cells keep the name
    int nextIndex = 101;
    int flow = 0;
    bool titleSuppressed = false;
    bool headerSuppressed = false;
    /// Unique in the process for what the state holds: equal revisions mean equal cell styles, through undo
    /// and copying too.
    std::uint64_t revision = 0;
};

/// The values of a style nobody has touched, for tables whose style can't be found.
const TableStyleState& standardTableStyle();

}  // namespace kdhost
