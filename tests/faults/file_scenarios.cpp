// Drawings and tables in files.

#include "tests/faults/scenario.h"

namespace kdtest {

std::vector<Scenario> fileScenarios() {
    const std::string saved = std::string(kTables) + "SAVEAS\n@file plan.dxf\n";
    std::vector<Scenario> all = {
        {"file_save_as", kTables, "", "SAVEAS\n@file plan.dxf\n"},
        {"file_save_over", saved + "LINE 5,5 6,6\n\n", "", "SAVE\n"},
        {"file_save_as_over", saved + "LINE 5,5 6,6\n\n", "", "SAVEAS\n@file plan.dxf\n@answer YES\n"},
        {"file_open", saved + "NEW\nCLOSE\n1\n", "", "OPEN\n@file plan.dxf\n"},
        {"file_import", "", "", "TABLEIMPORT\nschedule.csv\n0,200\n"},
        {"file_import_of_a_sheet", "", "", "IMPORTSHEET\n"},
        {"file_names_of_sheets", "", "", "SHEETNAMES\n"},
    };
    for (Scenario& scenario : all) scenario.tells = true;
    all.push_back({"file_export", kTables, "@cells #0 A1\n@cells none\n", "TABLEEXPORT\n@pick 5,195\n@file new.csv\n"});
    all.push_back({"file_export_over", kTables, "@cells #0 A1\n@cells none\n",
                   "TABLEEXPORT\n@pick 5,195\n@file old.csv\n@answer YES\n"});
    return all;
}

}  // namespace kdtest
