// The names of the controls on the pages of a cell style.
#pragma once

namespace kdtest {

// The general page.
inline constexpr const char* kFillBox = "IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX";
inline constexpr const char* kAlignmentBox = "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX";
inline constexpr const char* kCellTypeBox = "IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX";
inline constexpr const char* kFormat = "IDC_CELLSTYLEGENERAL_FORMATSHOW_STATIC";
inline constexpr const char* kFormatButton = "IDC_CELLSTYLEGENERAL_FORMAT_BUTTON";
inline constexpr const char* kHorizontal = "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT";
inline constexpr const char* kVertical = "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT";
inline constexpr const char* kMerge = "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON";

// The text page.
inline constexpr const char* kHeight = "IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT";
inline constexpr const char* kAngle = "IDC_CELLSTYLETEXT_TEXTANGLE_EDIT";
inline constexpr const char* kTextColorBox = "IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX";
inline constexpr const char* kTextStyleBox = "IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX";
inline constexpr const char* kTextStyleButton = "IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON";

}  // namespace kdtest
