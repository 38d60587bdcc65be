// Every item of the menus that the right button shows on a table, on its cells and on the indicators.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

/// How the menu is come by.
struct Place {
    const char* prefix;
    const char* ready;
    const char* context;
    const char* selected = nullptr;  ///< what the host selects by an indicator, and a menu on it
};
constexpr Place kCells{"cells_", "@cells #0 B3:C4\n", "@context B3\n"};
constexpr Place kTable{"table_", "@cells #0 A1\n@cells none\n", "@context 10,195\n"};
constexpr Place kRow{"row_", "@cells #0 A1\n", "@context row 3\n", "@cells #0 A3:D3\n@context A3\n"};
constexpr Place kColumn{"column_", "@cells #0 A1\n", "@context column B\n", "@cells #0 B1:B5\n@context B1\n"};

/// An item, what follows its choice, and of how many of its openings one fails.
struct Item {
    const char* name;
    const char* after = "";
    int share = 1;
};

constexpr Item kOfCells[] = {
    {"IDR_ALIGNMENT_TOPLEFT"},
    {"IDR_ALIGNMENT_TOPCENTER", "", 11},
    {"IDR_ALIGNMENT_TOPRIGHT", "", 11},
    {"IDR_ALIGNMENT_MIDDLELEFT", "", 11},
    {"IDR_ALIGNMENT_MIDDLECENTER", "", 11},
    {"IDR_ALIGNMENT_MIDDLERIGHT", "", 11},
    {"IDR_ALIGNMENT_BOTTOMLEFT", "", 11},
    {"IDR_ALIGNMENT_BOTTOMCENTER", "", 11},
    {"IDR_ALIGNMENT_BOTTOMRIGHT", "", 11},
    {"IDR_LOCKING_UNLOCKED", "", 11},
    {"IDR_LOCKING_CONTENTLOCKED"},
    {"IDR_LOCKING_FORMATLOCKED", "", 11},
    {"IDR_LOCKING_CONTENTFORMATLOCKED", "", 11},
    {"IDR_BYROW_ABOVEINSERT"},
    {"IDR_BYROW_BELOWINSERT"},
    {"IDR_BYROW_DELETE"},
    {"IDR_BYROW_SIZEEQUALLY"},
    {"IDR_BYCOLUMN_LEFTINSERT"},
    {"IDR_BYCOLUMN_RIGHTINSERT"},
    {"IDR_BYCOLUMN_DELETE"},
    {"IDR_BYCOLUMN_SIZEEQUALLY"},
    {"IDR_MERGE_ALL", "@answer YES\n"},
    {"IDR_MERGE_BYROW", "@answer YES\n"},
    {"IDR_MERGE_BYCOLUMN", "@answer YES\n"},
    {"IDR_TABLECELL_DELETEALLCONTENT"},
    {"IDR_TABLECELL_CUT"},
    {"IDR_TABLECELL_COPY"},
    {"IDR_TABLECELL_EDITTEXT", "@edit TAB typed\n@edit ESC\n"},
    {"IDR_TABLECELL_BACKGROUNDFILL", "@color 1,2,3\n"},
    {"IDR_TABLECELL_DATAFORMAT",
     "@select IDC_DATAFORMAT_TYPE_COMBOBOX #3\n@select IDC_DATAFORMAT_UNIT_COMBOBOX #2\n@click IDOK\n"},
    {"IDR_TABLECELL_BORDERS", "", 5},
    {"IDR_TABLECELL_MATCHCELL", "", 5},
};

constexpr Item kOfTable[] = {
    {"IDR_BYCOLUMN_SIZEEQUALLY"},
    {"IDR_BYROW_SIZEEQUALLY"},
    {"IDR_TABLESTYLE_SAVESTYLE"},
    {"IDR_TABLESTYLE_SETCURRENTSTYLE"},
    {"IDR_TABLESTYLE_REMOVEOVERRIDES"},
    {"IDR_TABLESTYLE_EXPORT", "@file new.csv\n"},
    {"IDR_TABLESTYLE_INDICATORCOLOR", "@color 11,22,33\n"},
    {"TABLESTYLE_BEGININDEX"},
};

constexpr Item kOfRow[] = {
    {"IDR_BYROW_ABOVEINSERT"},
    {"IDR_BYROW_BELOWINSERT", "", 3},
    {"IDR_BYROW_DELETE"},
    {"IDR_TABLECELL_DELETEALLCONTENT"},
    {"IDR_ALIGNMENT_MIDDLERIGHT", "", 3},
    {"IDR_LOCKING_FORMATLOCKED", "", 3},
    {"IDR_TABLEDIT_CELLSTYLE_BASE", "", 3},
};

constexpr Item kOfColumn[] = {
    {"IDR_BYCOLUMN_LEFTINSERT"},        {"IDR_BYCOLUMN_RIGHTINSERT", "", 3}, {"IDR_BYCOLUMN_DELETE"},
    {"IDR_TABLECELL_DELETEALLCONTENT"}, {"IDR_ALIGNMENT_BOTTOMLEFT", "", 3}, {"IDR_TABLEDIT_CELLSTYLE_TITLE", "", 3},
};

template <std::size_t count>
void add(std::vector<Scenario>& all, const Place& place, const Item (&items)[count]) {
    for (const Item& item : items) {
        Scenario scenario{std::string("menu_of_") + place.prefix + item.name, kTables, place.ready,
                          std::string(place.context) + "@menu " + item.name + "\n" + item.after};
        scenario.share = item.share;
        if (place.selected != nullptr && std::string(item.name).find("CELLSTYLE") == std::string::npos) {
            scenario.partials.push_back(
                {std::string(place.selected) + "@menu " + item.name + "\n",
                 "the menu acts on the cells that the host selected by the indicator, where no others can be"});
        }
        all.push_back(std::move(scenario));
    }
}

}  // namespace

std::vector<Scenario> contextMenuScenarios() {
    std::vector<Scenario> all;
    add(all, kCells, kOfCells);
    add(all, kTable, kOfTable);
    add(all, kRow, kOfRow);
    add(all, kColumn, kOfColumn);

    // A text of two lines of another size, aligned otherwise, is what overrides take back.
    Scenario overrides{"menu_of_table_overrides_taken_back",
                       std::string(kTables) + "@cells #0 B3:C4\n@context B3\n@menu IDR_ALIGNMENT_BOTTOMRIGHT\n",
                       kTable.ready, std::string(kTable.context) + "@menu IDR_TABLESTYLE_REMOVEOVERRIDES\n"};
    all.push_back(std::move(overrides));
    all.push_back({"menu_of_cells_unmerge",
                   std::string(kTables) + "@cells #0 B2:C2\n@context B2\n@menu IDR_MERGE_ALL\n", "@cells #0 B2\n",
                   "@context B2\n@menu IDR_TABLECELL_UNMERGE\n"});
    return all;
}

}  // namespace kdtest
