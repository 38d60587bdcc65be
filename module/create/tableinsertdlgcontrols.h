// The controls of the insert dialog that more than one of its sources names.
#pragma once

#include <array>

namespace insertdlg {

/// A figure's edit, its radio button of window mode, and the label that stands in the radio button's place in point
/// mode. One text serves both.
struct FigureControls {
    const char* edit;
    const char* radio;
    const char* label;
    unsigned text;
};

/// In the order of the dialog's figures.
inline constexpr std::array kFigures = {
    FigureControls{"IDC_TABLEINSERT_COLUMN_EDIT", "IDC_TABLEINSERT_COLUMN_BUTTON", "IDC_TABLEINSERT_COLUMN_STATIC",
                   2162},
    FigureControls{"IDC_TABLEINSERT_COLUMNWIDTH_EDIT", "IDC_TABLEINSERT_COLUMNWIDTH_BUTTON",
                   "IDC_TABLEINSERT_COLUMNWIDTH_STATIC", 2157},
    FigureControls{"IDC_TABLEINSERT_DATAROW_EDIT", "IDC_TABLEINSERT_DATAROW_BUTTON", "IDC_TABLEINSERT_DATAROW_STATIC",
                   2159},
    FigureControls{"IDC_TABLEINSERT_ROWHEIGHT_EDIT", "IDC_TABLEINSERT_ROWHEIGHT_BUTTON",
                   "IDC_TABLEINSERT_ROWHEIGHT_STATIC", 2158},
};

inline constexpr const char* kFromEmpty = "IDC_TABLEINSERT_INSERT_BUTTON";
inline constexpr const char* kFromFile = "IDC_TABLEINSERT_DATALINK_BUTTON";
inline constexpr const char* kAtPoint = "IDC_TABLEINSERT_INSETPOINT_BUTTON";
inline constexpr const char* kInWindow = "IDC_TABLEINSERT_WINDOW_BUTTON";
inline constexpr const char* kStyleName = "IDC_TABLEINSERT_STYLENAME_COMBOBOX";
inline constexpr const char* kDataLink = "IDC_TABLEINSERT_DATALINK_COMBOBOX";
inline constexpr const char* kFirstRow = "IDC_TABLEINSERTROW_FIRSTROW_COMBOBOX";
inline constexpr const char* kSecondRow = "IDC_TABLEINSERTROW_SECONDROW_COMBOBOX";
inline constexpr const char* kOtherRow = "IDC_TABLEINSERTROW_OTHERROW_COMBOBOX";
inline constexpr const char* kColumnPicture = "IDB_TABLEINSERT_COLUMN_BMP";
inline constexpr const char* kRowPicture = "IDB_TABLEINSERT_ROW_BMP";

/// What is taken over from a table that a style comes from, in the order of the dialog's options.
inline constexpr std::array kOptionChecks = {
    "IDC_TABLEINSERT_LABEL_CHECK",      "IDC_TABLEINSERT_DATALINK_CHECK", "IDC_TABLEINSERT_DATA_CHECK",
    "IDC_TABLEINSERT_FIELDS_CHECK",     "IDC_TABLEINSERT_BLOCK_CHECK",    "IDC_TABLEINSERT_FORMULAS_CHECK",
    "IDC_TABLEINSERT_RETAINCELL_CHECK",
};
/// What stands around the options.
inline constexpr const char* kOptionFrame[] = {"IDC_TABLEINSERT_TABLEOPTION_GROUP",
                                               "IDC_TABLEINSERT_RETAINPROP_STATIC"};

/// The word that an automatic figure shows.
inline constexpr unsigned kAutomaticText = 2036;

}  // namespace insertdlg
