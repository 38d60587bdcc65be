// Every button of the toolbar, and every item of its lists and menus.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

constexpr const char* kBlock = "@cells #0 B3:C4\n";

Scenario onBlock(const std::string& name, const std::string& act, int share = 1) {
    Scenario scenario{"toolbar_" + name, kTables, kBlock, act};
    scenario.share = share;
    return scenario;
}

std::string dropped(const std::string& button, const std::string& item) {
    return "@drop IDC_TABLEDIT_" + button + "\n@menu " + item + "\n";
}

}  // namespace

std::vector<Scenario> toolbarScenarios() {
    std::vector<Scenario> all;
    for (const char* button :
         {"TOPINSERT", "BOTTOMINSERT", "ROWDELETE", "LEFTINSERT", "RIGHTINSERT", "COLUMNDELETE", "ALIGNMENT"}) {
        all.push_back(onBlock(button, std::string("@click IDC_TABLEDIT_") + button + "\n"));
    }
    for (const char* place : {"TOPLEFT", "TOPCENTER", "TOPRIGHT", "MIDDLELEFT", "MIDDLECENTER", "MIDDLERIGHT",
                              "BOTTOMLEFT", "BOTTOMCENTER", "BOTTOMRIGHT"}) {
        const std::string item = std::string("IDR_ALIGNMENT_") + place;
        all.push_back(onBlock(std::string("ALIGNMENT_") + place, dropped("ALIGNMENT", item), 11));
    }
    for (const char* format :
         {"ANGLE", "CURRENCY", "DATE", "DECIMAL", "GENERAL", "PERCENTAGE", "POINT", "TEXT", "WHOLE"}) {
        const std::string item = std::string("IDR_FORMAT_") + format;
        all.push_back(onBlock(std::string("DATAFORMAT_") + format, dropped("DATAFORMAT", item),
                              std::string(format) == "CURRENCY" ? 1 : 11));
    }
    all.push_back(onBlock("DATAFORMAT_CUSTOM", dropped("DATAFORMAT", "IDR_FORMAT_CUSTOMFORMAT") +
                                                   "@select IDC_DATAFORMAT_TYPE_COMBOBOX #3\n"
                                                   "@select IDC_DATAFORMAT_UNIT_COMBOBOX #2\n@click IDOK\n"));
    for (const char* lock : {"CONTENTLOCKED", "FORMATLOCKED", "CONTENTFORMATLOCKED", "UNLOCKED"}) {
        const std::string item = std::string("IDR_LOCKING_") + lock;
        all.push_back(onBlock(std::string("LOCKING_") + lock, dropped("LOCKING", item),
                              std::string(lock) == "CONTENTLOCKED" ? 1 : 7));
    }
    for (const char* merge : {"ALL", "BYROW", "BYCOLUMN"}) {
        const std::string item = std::string("IDR_MERGE_") + merge;
        all.push_back(onBlock(std::string("MERGE_") + merge, dropped("MERGECELL", item) + "@answer YES\n"));
    }
    return all;
}

}  // namespace kdtest
