// Texts and formulas typed into cells, and the commands of the host that change drawings.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

Scenario inCell(const std::string& name, const std::string& act) {
    return {"editing_" + name, kTables, "@cells #0 B2\n", "TABLEDIT\n\n" + act};
}

constexpr const char* kFormula = "@cells #0 B2\nTABLEDIT\n\n@edit CTRLENTER =A3+B5\n";

}  // namespace

std::vector<Scenario> editingScenarios() {
    std::vector<Scenario> all = {
        inCell("text", "@edit CTRLENTER typed\n"),
        inCell("text_by_a_click", "@edit OUTSIDE typed\n"),
        inCell("nothing", "@edit ESC\n"),
        inCell("text_and_on", "@edit TAB typed\n@edit ESC\n"),
        inCell("text_and_down", "@edit ENTER typed\n@edit ESC\n"),
        inCell("formula", "@edit CTRLENTER =A3*B5\n"),
        inCell("lines", "@edit CTRLENTER one\\ntwo\n"),
        {"editing_no_selection", kTables, "@cells #0 A1\n@cells none\n", "TABLEDIT\n40,195\n@edit CTRLENTER typed\n"},
        {"editing_typed_character", kTables, "@cells #0 B2\n", "@key x\n@edit CTRLENTER\n"},
        {"editing_emptied", kTables, "@cells #0 B2\n", "TABLEDIT *DELETE\n"},
        {"editing_formula_again", std::string(kTables) + kFormula + "@cells none\n", "@cells #0 B2\n",
         "TABLEDIT\n\n@edit CTRLENTER =A3*B5\n"},
        {"editing_formula_becomes_text", std::string(kTables) + kFormula + "@cells none\n", "@cells #0 B2\n",
         "TABLEDIT\n\n@edit CTRLENTER plain\n"},
        {"editing_what_a_formula_reads", std::string(kTables) + kFormula + "@cells none\n", "@cells #0 A3\n",
         "TABLEDIT\n\n@edit CTRLENTER 70\n"},
        {"editing_rows_under_a_formula", std::string(kTables) + kFormula + "@cells none\n", "@cells #0 A2\n",
         "@click IDC_TABLEDIT_BOTTOMINSERT\n"},
    };
    for (const char* kind : {"SUM", "AVERAGE", "COUNT", "EQUATION"}) {
        const bool picks = std::string(kind) != "EQUATION";
        Scenario scenario{std::string("editing_toolbar_") + kind, kTables, "@cells #0 B2\n",
                          std::string("@drop IDC_TABLEDIT_FORMULA\n@menu IDR_FORMULA_") + kind + "\n" +
                              (picks ? "@cells #0 A2:A5\n@edit CTRLENTER\n" : "@edit CTRLENTER =A3+B5\n")};
        scenario.share = std::string(kind) == "SUM" || !picks ? 1 : 5;
        all.push_back(std::move(scenario));
    }
    all.push_back({"editing_toolbar_CELL", kTables, "@cells #0 B2\n",
                   "@drop IDC_TABLEDIT_FORMULA\n@menu IDR_FORMULA_CELL\n@cells #0 A3\n@edit CTRLENTER\n"});
    all.push_back({"commands_erase", kTables, "@cells #0 A1\n@cells none\n", "ERASE\n410,195\n\n"});
    all.push_back({"commands_line", kTables, "", "LINE 0,0 10,10\n\n"});
    all.push_back({"commands_layer_made", kTables, "", "LAYER\nMake\nnotes\n\n"});
    all.push_back({"commands_layer_locked", kTables, "", "LAYER\nLOCK\n0\n\n"});
    all.push_back({"commands_block",
                   std::string(kTables) + "LINE 900,0 905,5\n\n",
                   "",
                   "BLOCK\npart\n900,0\nLast\n\n",
                   {{"BLOCK\npart\n900,0\nLast\n\nLINE 900,0 905,5\n\n",
                     "what can't be erased stays beside the block, and the user reads how many"}}});
    all.push_back({"commands_insert", std::string(kTables) + "LINE 900,0 905,5\n\nBLOCK\npart\n900,0\nLast\n\n", "",
                   "INSERT\npart\n5,0\n2\n0\n"});
    for (auto scenario = all.end() - 6; scenario != all.end(); ++scenario) scenario->tells = true;
    return all;
}

}  // namespace kdtest
