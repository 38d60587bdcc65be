// Every keyword of every menu of EDITTABLECELL.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

struct Word {
    const char* name;
    const char* words;  ///< from the main menu on, and what it asks for
    int share = 1;
};

constexpr Word kWords[] = {
    {"row_above", "Operation\ninsertABove\n"},
    {"row_below", "Operation\ninsertBElow\n", 3},
    {"row_gone", "Operation\ndeleteROw\n", 3},
    {"column_left", "Operation\ninsertLEft\n", 3},
    {"column_right", "Operation\ninsertRIght\n", 3},
    {"column_gone", "Operation\ndeleteCOlumn\n", 3},
    {"merge_all", "Operation\nMerge\nmergeAll\n@answer YES\n"},
    {"merge_rows", "Operation\nMerge\nmergeHorizontal\n@answer YES\n"},
    {"merge_columns", "Operation\nMerge\nmergeVertical\n@answer YES\n", 3},
    {"unmerge", "Operation\nUnmerge\n"},
    {"borders",
     "Operation\nBOrder\n@select IDC_CELLBORDERPROP_COLOR_COMBOBOX #2\n@click IDC_CELLBORDERPROP_ALLBORDER_BUTTON\n"
     "@click IDOK\n"},
    {"lock_content", "Content\nLock\n"},
    {"unlock_content", "Content\nUnlock\n", 3},
    {"lock_format", "Format\nLock\n", 3},
    {"unlock_format", "Format\nUnlock\n", 3},
    {"background", "Format\nBG\n255,0,0\n"},
    {"align_TL", "Format\nALignment\nTL\n"},
    {"align_TC", "Format\nALignment\nTC\n", 11},
    {"align_TR", "Format\nALignment\nTR\n", 11},
    {"align_ML", "Format\nALignment\nML\n", 11},
    {"align_MC", "Format\nALignment\nMC\n", 11},
    {"align_MR", "Format\nALignment\nMR\n", 11},
    {"align_BL", "Format\nALignment\nBL\n", 11},
    {"align_BC", "Format\nALignment\nBC\n", 11},
    {"align_BR", "Format\nALignment\nBR\n", 11},
    {"cell_style", "_Style\n_Style\n_TITLE\n"},
    {"style_manager",
     "_Style\nE\n@click IDC_MANAGERCELLSTYLE_NEW_BUTTON\n@set "
     "IDC_CREATECELLSTYLE_NEWNAME_EDIT Notes\n@click IDOK\n@click IDOK\n"},
    {"new_cell_style", "_Style\nN\n@set IDC_CREATECELLSTYLE_NEWNAME_EDIT Totals\n@click IDOK\n"},
    {"datalink", "Datalink\n"},
};

constexpr Word kFormulas[] = {
    {"sum", "Operation\ninsertFOrmula\nSum\n@cells #0 A2:A5\n@edit OUTSIDE\n"},
    {"average", "Operation\ninsertFOrmula\nAverage\n@cells #0 A2:A5\n@edit OUTSIDE\n", 3},
    {"count", "Operation\ninsertFOrmula\nCOunt\n@cells #0 A2:A5\n@edit OUTSIDE\n", 3},
    {"cell", "Operation\ninsertFOrmula\nCEll\n@cells #0 C5\n@edit OUTSIDE\n"},
    {"cell_of_another_table", "Operation\ninsertFOrmula\nCEll\n@cells #1 C5\n@edit OUTSIDE\n"},
    {"equation", "Operation\ninsertFOrmula\nEquation\n@edit OUTSIDE =A3*B5\n"},
};

Scenario asked(const Word& word, const std::string& cells) {
    Scenario scenario{std::string("keyword_") + word.name, kTables, "@cells #0 A1\n@cells none\n",
                      "EDITTABLECELL\n10,195\n" + cells + "\n" + word.words + "Quit\n"};
    scenario.share = word.share;
    return scenario;
}

}  // namespace

std::vector<Scenario> keywordScenarios() {
    std::vector<Scenario> all;
    for (const Word& word : kWords) all.push_back(asked(word, "B3:C4"));
    for (Scenario& scenario : all) {
        if (scenario.name != "keyword_borders") continue;
        scenario.partials = {
            {"EDITTABLECELL\n10,195\nB3:C4\nOperation\nBOrder\n@click IDC_CELLBORDERPROP_ALLBORDER_BUTTON\n@click "
             "IDOK\n"
             "Quit\n",
             "a button shows its lines and then paints them: each is an opening of its own"}};
    }
    for (const Word& word : kFormulas) all.push_back(asked(word, "B2"));
    all.push_back({"keyword_of_one_action", kTables, "@cells #0 A1\n@cells none\n",
                   "EDITTABLECELL\n10,195\nB3:C4\n_ExecuteOneAction\n_Op\n_Left\n"});
    all.push_back({"keyword_of_unmerging", std::string(kTables) + "@cells #0 B2:C2\n@context B2\n@menu IDR_MERGE_ALL\n",
                   "@cells #0 A1\n@cells none\n", "EDITTABLECELL\n10,195\nB2\nOperation\nUnmerge\nQuit\n"});
    return all;
}

}  // namespace kdtest
