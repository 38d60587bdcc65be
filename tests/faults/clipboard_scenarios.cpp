// Cells and texts by the clipboard.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

Scenario cells(const std::string& name, const std::string& ready, const std::string& act) {
    return {"clipboard_" + name, kTables, ready, act};
}

}  // namespace

std::vector<Scenario> clipboardScenarios() {
    const std::string fields = std::string(kTables) +
                               "@cells #0 B2\nTABLEDIT\n\n@edit CTRLENTER =A3+B5\n@cells #0 A1:D1\n@context A1\n"
                               "@menu IDR_MERGE_ALL\n@answer YES\n@cells none\n";
    const std::string blocks = std::string(kTables) + "LINE 900,0 905,5\n\nBLOCK\npart\n900,0\nLast\n\nCELLBLOCK\n";
    std::vector<Scenario> all = {
        cells("copy", "@cells #0 A2:B3\n", "@key CTRL+C\n"),
        cells("cut", "@cells #0 A2:B3\n", "@key CTRL+X\n"),
        cells("paste", "@cells #0 A2:B3\n@key CTRL+C\n@cells #1 C2\n", "@key CTRL+V\n"),
        cells("paste_of_one_cell", "@cells #0 B3\n@key CTRL+C\n@cells #1 C2:D4\n", "@key CTRL+V\n"),
        cells("paste_of_text", "@clipboard two words\n@cells #0 C2:D3\n", "@key CTRL+V\n"),
        cells("paste_of_a_formula", "@clipboard =A3+B5\n@cells #0 C2\n", "@key CTRL+V\n"),
        cells("paste_of_formulas", "@clipboard =A3+B5\n@cells #0 C2:D3\n", "@key CTRL+V\n"),
        cells("copy_and_paste", "@cells #0 A2:B3\n", "@key CTRL+C\n@cells #1 C2\n@key CTRL+V\n"),
    };
    for (Scenario& scenario : all) {
        if (scenario.name != "clipboard_paste_of_formulas") continue;
        scenario.partials = {{"", "a cell whose field can't be made is passed over, and keeps what it held",
                              "\"field\":\"\\\\AcExpr (A3+B5)\""}};
    }
    all.push_back({"clipboard_paste_of_what_was_cut", std::string(kTables) + "@cells #0 A2:B3\n@key CTRL+X\n",
                   "@cells #1 C2\n", "@key CTRL+V\n"});
    all.push_back({"clipboard_cut_of_formulas_and_merges", fields, "@cells #0 A1:D3\n", "@key CTRL+X\n"});
    all.push_back({"clipboard_paste_of_formulas_and_merges", fields, "@cells #0 A1:D3\n@key CTRL+C\n@cells #1 A1\n",
                   "@key CTRL+V\n"});
    all.push_back({"clipboard_cut_of_blocks", blocks, "@cells #0 A2:B3\n", "@key CTRL+X\n"});
    all.push_back(
        {"clipboard_paste_of_blocks", blocks, "@cells #0 A2:B3\n@key CTRL+C\n@cells #1 A1\n", "@key CTRL+V\n"});
    all.push_back(
        {"clipboard_into_a_new_drawing",
         std::string(kTables) + "@cells #0 A2:B3\n@key CTRL+C\n@cells none\nNEW\nTABLEIMPORT\nschedule.csv\n0,200\n",
         "@cells #0 C2\n", "@key CTRL+V\n"});
    all.back().share = 3;
    return all;
}

}  // namespace kdtest
