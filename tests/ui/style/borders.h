// The border page for tests: its controls, its buttons with their edges, and the edges of "_DATA".
#pragma once

#include <array>

#include "tests/ui/styleedit/fixture.h"

namespace kdtest {

inline constexpr const char* kWeightBox = "IDC_CELLSTYLEBORDER_LWEIGHT_COMBOBOX";
inline constexpr const char* kTypeBox = "IDC_CELLSTYLEBORDER_LTYPE_COMBOBOX";
inline constexpr const char* kColorBox = "IDC_CELLSTYLEBORDER_COLOR_COMBOBOX";
inline constexpr const char* kSpacing = "IDC_CELLSTYLEBORDER_SPACING_EDIT";
inline constexpr const char* kDouble = "IDC_CELLSTYLEBORDER_DOUBLELINE_BUTTON";
inline constexpr const char* kAll = "IDC_CELLSTYLEBORDER_ALLBORDER_BUTTON";
inline constexpr const char* kOuter = "IDC_CELLSTYLEBORDER_OUTERBORDER_BUTTON";
inline constexpr const char* kInner = "IDC_CELLSTYLEBORDER_INNERBORDER_BUTTON";
inline constexpr const char* kBottom = "IDC_CELLSTYLEBORDER_BOTTOMBORDER_BUTTON";
inline constexpr const char* kLeft = "IDC_CELLSTYLEBORDER_LEFTBORDER_BUTTON";
inline constexpr const char* kTop = "IDC_CELLSTYLEBORDER_TOPBORDER_BUTTON";
inline constexpr const char* kRight = "IDC_CELLSTYLEBORDER_RIGHTBORDER_BUTTON";
inline constexpr const char* kNone = "IDC_CELLSTYLEBORDER_NOBORDER_BUTTON";

inline constexpr std::array kEdges = {KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                                      KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};

struct BorderButtonEdges {
    const char* name;
    int edges;           ///< that it shows
    const char* bitmap;  ///< its picture
    unsigned toolTip;    ///< number of its text
};
inline constexpr std::array kButtons = {
    BorderButtonEdges{kAll, 1 | 2 | 4 | 8 | 16 | 32, "IDB_CELLSTYLE_ALLBORDER_BMP", 2088},
    BorderButtonEdges{kOuter, 1 | 4 | 8 | 32, "IDB_CELLSTYLE_OUTERBORDER_BMP", 2089},
    BorderButtonEdges{kInner, 2 | 16, "IDB_CELLSTYLE_INNERBORDER_BMP", 2090},
    BorderButtonEdges{kBottom, 2 | 4, "IDB_CELLSTYLE_BOTTOMBORDER_BMP", 2092},
    BorderButtonEdges{kLeft, 8 | 16, "IDB_CELLSTYLE_LEFTBORDER_BMP", 2126},
    BorderButtonEdges{kTop, 1 | 2, "IDB_CELLSTYLE_TOPBORDER_BMP", 2130},
    BorderButtonEdges{kRight, 16 | 32, "IDB_CELLSTYLE_RIGHTBORDER_BMP", 2131},
    BorderButtonEdges{kNone, 0, "IDB_CELLSTYLE_NOBORDER_BMP", 2091},
};

class StylePageBorder : public StyleEditing {
protected:
    /// The dialog on its border page; whatever `act` leaves open is cancelled.
    int editBorders(const Edit& act) {
        return edit([&](CVqTableStyleEditDlg& dialog) {
            showPage(dialog, BorderPage);
            act(dialog);
            if (dialog.isVisible()) cancel(dialog);
        });
    }
    void hideAllEdges() {
        change([](KdDbTableStyle& open) {
            for (const KdDb::GridLineType edge : kEdges) open.setGridVisibility(KdDb::kInvisible, edge, L"_DATA");
        });
    }
    int visibleEdges(const wchar_t* cellStyle = L"_DATA") {
        int edges = 0;
        for (const KdDb::GridLineType edge : kEdges) {
            if (style().gridVisibility(edge, cellStyle) == KdDb::kVisible) edges |= edge;
        }
        return edges;
    }
};

}  // namespace kdtest
