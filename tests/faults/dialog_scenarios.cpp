// What the dialogs do by OK, each control that changes something in an act of its own.

#include "tests/faults/scenario.h"

namespace kdtest {
namespace {

constexpr const char* kOneStyle =
    "TABLESTYLE\n@click IDC_TABLESTYLE_NEWSTYLE_BUTTON\n@set IDC_CREATETABLESTYLE_NEWNAME_EDIT Doors\n@click IDOK\n"
    "@click IDOK\n@click IDOK\n";

std::string withTables(const char* more) {
    return std::string(kTables) + more;
}

/// TABLESTYLE's style dialog, with that done in it.
Scenario inStyleEdit(const std::string& name, const std::string& lines, int share = 3) {
    Scenario scenario{"style_edit_" + name, kTables, "",
                      "TABLESTYLE\n@click IDC_TABLESTYLE_MODSTYLE_BUTTON\n" + lines + "@click IDOK\n@click IDOK\n"};
    scenario.share = share;
    return scenario;
}

void addInsertions(std::vector<Scenario>& all) {
    const std::string ok = "@click IDOK\n";
    const Partial notEdited{"TABLE\n@click IDOK\n0,0\n@edit ESC\n",
                            "the table stands; without its first cell to be had nothing is opened in the editor"};
    const Partial notWhole{"", "without the dictionary of styles the dialog opens without the user's figures",
                           "\"class\":\"KdDbTable\""};
    all.push_back({"insert_at_a_point", "", "", "TABLE\n" + ok + "0,0\n@edit ESC\n"});
    all.push_back({"insert_and_type", "", "", "TABLE\n" + ok + "0,0\n@edit CTRLENTER Parts\n", {notEdited}});
    all.push_back({"insert_into_a_window",
                   "",
                   "",
                   "TABLE\n@click IDC_TABLEINSERT_WINDOW_BUTTON\n" + ok + "0,0\n300,-200\n@edit ESC\n",
                   {notWhole}});
    all.push_back({"insert_from_a_file", "", "",
                   "TABLE\n@click IDC_TABLEINSERT_DATALINK_BUTTON\n@click IDC_TABLEINSERT_DATALINKMAN_BUTTON\n"
                   "@click IDC_BTN_SELPATH\n@file schedule.csv\n@click IDOK\n@click IDOK\n0,0\n"});
    all.push_back({"insert_given_up", "", "", "TABLE\n@click IDCANCEL\n"});
    for (Scenario& scenario : all) scenario.share = scenario.name == "insert_given_up" ? 3 : 1;
}

void addTableStyles(std::vector<Scenario>& all) {
    all.push_back({"table_style_new", kTables, "", kOneStyle});
    all.push_back({"table_style_new_given_up", kTables, "",
                   "TABLESTYLE\n@click IDC_TABLESTYLE_NEWSTYLE_BUTTON\n@set IDC_CREATETABLESTYLE_NEWNAME_EDIT Lost\n"
                   "@click IDOK\n@click IDCANCEL\n@click IDCANCEL\n"});
    all.push_back({"table_style_rename", withTables(kOneStyle), "",
                   "TABLESTYLE\n@context IDC_TABLESTYLE_STYLE_LIST #0\n@menu IDR_MANAGETABLE_RENAME\n@label Windows\n"
                   "@click IDOK\n"});
    all.push_back({"table_style_delete",
                   withTables(kOneStyle) + "TABLESTYLE\n@click IDC_TABLESTYLE_STYLE_LIST Standard\n"
                                           "@click IDC_TABLESTYLE_CURSTYLE_BUTTON\n@click IDOK\n",
                   "",
                   "TABLESTYLE\n@click IDC_TABLESTYLE_STYLE_LIST Doors\n@click IDC_TABLESTYLE_DELSTYLE_BUTTON\n"
                   "@answer OK\n@click IDOK\n"});
    all.push_back({"table_style_current", withTables(kOneStyle), "",
                   "TABLESTYLE\n@click IDC_TABLESTYLE_STYLE_LIST Standard\n@click IDC_TABLESTYLE_CURSTYLE_BUTTON\n"
                   "@click IDOK\n"});
}

void addStyleEdits(std::vector<Scenario>& all) {
    const std::string text = "@select IDC_TABLESTYLEEDIT_STYLE_TABLE #1\n";
    const std::string borders = "@select IDC_TABLESTYLEEDIT_STYLE_TABLE #2\n";
    all.push_back(inStyleEdit("direction", "@select IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX #0\n", 1));
    all.push_back(inStyleEdit("fill", "@select IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX Yellow\n"));
    all.push_back(inStyleEdit("alignment", "@select IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX Middle Left\n", 7));
    all.push_back(inStyleEdit("type", "@select IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX Label\n", 7));
    all.push_back(inStyleEdit("format",
                              "@click IDC_CELLSTYLEGENERAL_FORMAT_BUTTON\n@select IDC_DATAFORMAT_TYPE_COMBOBOX #3\n"
                              "@select IDC_DATAFORMAT_UNIT_COMBOBOX #2\n@click IDOK\n"));
    all.push_back(inStyleEdit("horizontal_margin", "@set IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT 4\n", 7));
    all.push_back(inStyleEdit("vertical_margin", "@set IDC_CELLSTYLEGENERAL_VERTICAL_EDIT 4\n", 7));
    all.push_back(inStyleEdit("merge", "@set IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON on\n", 7));
    all.push_back(inStyleEdit("text_height", text + "@set IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT 3\n"));
    all.push_back(inStyleEdit("text_color", text + "@select IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX Red\n", 7));
    all.push_back(inStyleEdit("text_angle", text + "@set IDC_CELLSTYLETEXT_TEXTANGLE_EDIT 30\n", 7));
    all.push_back(
        inStyleEdit("text_style", text + "@click IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON\n@click IDC_TEXTSTYLE_NEW_BUTTON\n"
                                         "@set IDC_TEXTSTYLE_NAME_EDIT Fine\n@click IDOK\n"
                                         "@click IDC_TEXTSTYLE_SETCURRENT_BUTTON\n@click IDCANCEL\n"));
    all.back().partials = {{"",
                            "the host's dialog has made the text style, and current; the cell style stays as it was",
                            "\"TEXTSTYLE\":\"Fine\""}};
    all.push_back(inStyleEdit("borders", borders + "@select IDC_CELLSTYLEBORDER_COLOR_COMBOBOX Red\n"
                                                   "@click IDC_CELLSTYLEBORDER_TOPBORDER_BUTTON\n"));
    all.back().partials = {{"", "a page whose boxes couldn't be filled paints what the boxes show",
                            "\"weight\":-1,\"linetype\":\"ByLayer\",\"color\":\"aci:1\""}};
    all.push_back(inStyleEdit("no_borders", borders + "@click IDC_CELLSTYLEBORDER_NOBORDER_BUTTON\n", 7));
    all.push_back(inStyleEdit("new_cell_style",
                              "@click IDC_TABLESTYLEEDIT_CREATE_BUTTON\n"
                              "@set IDC_CREATECELLSTYLE_NEWNAME_EDIT Amounts\n@click IDOK\n"));
    all.push_back(inStyleEdit("other_cell_style",
                              "@select IDC_TABLESTYLEEDIT_CELLSTYLE_COMBOBOX Header\n"
                              "@set IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT 4\n"));
    all.push_back({"style_edit_given_up", kTables, "",
                   "TABLESTYLE\n@click IDC_TABLESTYLE_MODSTYLE_BUTTON\n"
                   "@select IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX #0\n@click IDCANCEL\n@click IDCANCEL\n"});
}

void addCellStyles(std::vector<Scenario>& all) {
    const std::string manage =
        "TABLESTYLE\n@click IDC_TABLESTYLE_MODSTYLE_BUTTON\n@click IDC_TABLESTYLEEDIT_MANAGE_BUTTON\n";
    const std::string made =
        "@click IDC_MANAGERCELLSTYLE_NEW_BUTTON\n@set IDC_CREATECELLSTYLE_NEWNAME_EDIT Notes\n"
        "@click IDOK\n";
    const std::string closed = "@click IDOK\n@click IDOK\n@click IDOK\n";
    const std::string withNotes = std::string(kTables) + manage + made + closed;
    all.push_back({"cell_style_new", kTables, "", manage + made + closed});
    all.push_back({"cell_style_rename", withNotes, "",
                   manage +
                       "@click IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST Notes\n"
                       "@click IDC_MANAGERCELLSTYLE_RENAME_BUTTON\n@label Doors\n" +
                       closed});
    all.push_back({"cell_style_delete", withNotes, "",
                   manage +
                       "@click IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST Notes\n"
                       "@click IDC_MANAGERCELLSTYLE_DELETE_BUTTON\n@answer OK\n" +
                       closed});
    all.push_back(
        {"cell_style_given_up", kTables, "", manage + made + "@click IDCANCEL\n@click IDCANCEL\n@click IDCANCEL\n"});
    all.push_back({"cell_style_of_the_toolbar", kTables, "@cells #0 B3:C4\n",
                   "@select IDC_TABLEDIT_CELLSTYLECOMBO #4\n@set IDC_CREATECELLSTYLE_NEWNAME_EDIT Own\n@click IDOK\n"});
}

void addCellDialogs(std::vector<Scenario>& all) {
    const std::string open = "@click IDC_TABLEDIT_CELLBORDER\n";
    for (const char* edge : {"ALLBORDER", "OUTERBORDER", "INNERBORDER", "NOBORDER", "ONLYTOPBORDER"}) {
        Scenario scenario{std::string("borders_") + edge, kTables, "@cells #0 B3:C4\n",
                          open + "@select IDC_CELLBORDERPROP_COLOR_COMBOBOX Red\n@click IDC_CELLBORDERPROP_" + edge +
                              "_BUTTON\n@click IDOK\n"};
        scenario.share = std::string(edge) == "ALLBORDER" ? 1 : 7;
        scenario.partials = {{open + "@click IDC_CELLBORDERPROP_" + edge + "_BUTTON\n@click IDOK\n",
                              "a button shows its lines and then paints them: each is an opening of its own"}};
        all.push_back(std::move(scenario));
    }
    all.push_back({"block_in_a_cell",
                   std::string(kTables) + "LINE 900,0 905,5\n\nBLOCK\npart\n900,0\nLast\n\nCELLBLOCK\n", "",
                   "BLOCKINCELL\n60,175\n@select IDC_CELLINSERTBLOCK_ALIGNMENT_COMBOBOX #8\n@click IDOK\n"});
}

}  // namespace

std::vector<Scenario> dialogScenarios() {
    std::vector<Scenario> all;
    addInsertions(all);
    addTableStyles(all);
    addStyleEdits(all);
    addCellStyles(all);
    addCellDialogs(all);
    // What these do in the first of the dialogs has failed in the edits of styles.
    for (Scenario& scenario : all) {
        const bool isLong = scenario.name.rfind("table_style_", 0) == 0 || scenario.name.rfind("cell_style_", 0) == 0;
        if (isLong) scenario.share = 3;
    }
    return all;
}

}  // namespace kdtest
