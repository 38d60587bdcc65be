// The literals and the resource numbers of the texts of EDITTABLECELL.

#include "module/edit/menutexts.h"

#include "module/core/resources.h"

CStdStr<wchar_t> loadText(const TextSource& source) {
    CStdStr<wchar_t> text = loadText(source.resourceText);
    return text.IsEmpty() ? CStdStr<wchar_t>(source.literal) : text;
}

namespace menutexts {

const MenuTexts mainMenu = {
    {.resourceText = 6209,
     .literal = L"Operation Content Format Style Quit ExecuteOneAction "
                L"_Operation Content Format Style Quit ExecuteOneAction"},
    {.resourceText = 6210, .literal = L"[Operation/Content/Format/Style/Quit/ExecuteOneAction]:"},
};

const MenuTexts operation = {
    {.resourceText = 6217,
     .literal = L"BAck insertABove insertBElow deleteROw insertLEft insertRIght deleteCOlumn "
                L"Merge Unmerge insertFOrmula BOrder Quit "
                L"_BAck insertABove insertBElow deleteROw insertLEft insertRIght deleteCOlumn "
                L"Merge Unmerge insertFOrmula BOrder Quit"},
    {.resourceText = 6218,
     .literal = L"[BAck/insert ABove/insert BElow/delete ROw/insert LEft/insert RIght/delete COlumn/"
                L"Merge/Unmerge/insert FOrmula/BOrder/Quit]:"},
};

const MenuTexts merge = {
    {.resourceText = 6211,
     .literal = L"BAck mergeAll mergeHorizontal mergeVertical Quit "
                L"_BAck mergeAll mergeHorizontal mergeVertical Quit"},
    {.resourceText = 6212, .literal = L"[BAck/merge All/merge Horizontal/merge Vertical/Quit]:"},
};

const MenuTexts formula = {
    {.resourceText = 6213},
    {.resourceText = 6214},
};

const MenuTexts content = {
    {.resourceText = 6219, .literal = L"BAck Lock Unlock Quit _BAck Lock Unlock Quit"},
    {.resourceText = 6220, .literal = L"[BAck/Lock/Unlock/Quit]:"},
};

const MenuTexts format = {
    {.resourceText = 6221,
     .literal = L"BAck ALignment BGcolor Lock Unlock Quit _BAck ALignment BGcolor Lock Unlock Quit"},
    {.resourceText = 6222, .literal = L"[BAck/ALignment/BG color/Lock/Unlock/Quit]:"},
};

const MenuTexts alignment = {
    {.resourceText = 6215, .literal = L"BAck TL TC TR ML MC MR BL BC BR Quit _BAck TL TC TR ML MC MR BL BC BR Quit"},
    {.resourceText = 6216, .literal = L"[BAck/TL/TC/TR/ML/MC/MR/BL/BC/BR/Quit]:"},
};

const MenuTexts style = {
    {.resourceText = 6223,
     .literal = L"BAck Edittablestyle Newtablestyle editcellStyle Quit "
                L"_BAck Edittablestyle Newtablestyle editcellStyle Quit"},
    {.resourceText = 6224, .literal = L"[BAck/Edit table style/New table style/edit cell Style/Quit]:"},
};

const TextSource pickTable = {.resourceText = 6227, .literal = L"选择表格："};
const TextSource enterCells = {.resourceText = 6225, .literal = L"Cell or range in An:Bn format:"};
const TextSource invalidCells = {.resourceText = 6226, .literal = L"Invalid cell range. Examples: A, 1, A1, A1:C4"};

}  // namespace menutexts
