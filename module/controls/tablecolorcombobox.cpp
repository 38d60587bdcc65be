// The rows of background colours.

#include "module/controls/tablecolorcombobox.h"

#include <QComboBox>

#include "module/core/resources.h"

namespace {

constexpr unsigned kNoBackgroundText = 2006;
constexpr int kNoBackgroundRow = 0;
constexpr int kNoColorKind = -1;  ///< see ColorItemData

}  // namespace

void CVqTableColorComboBox::OnAddItems() {
    CKdUiTrueColorComboBox::OnAddItems();
    InsertString(kNoBackgroundRow, loadText(kNoBackgroundText));
    if (auto* box = widgetAs<QComboBox>()) {
        const ColorItemData none{kNoColorKind, KdCmColor::none()};
        box->setItemData(kNoBackgroundRow, QVariant::fromValue(none), kColorItemRole);
    }
}

bool CVqTableColorComboBox::GetCurrentItemColor(KdCmColor& color) const {
    if (GetCurSel() != kNoBackgroundRow) return CKdUiTrueColorComboBox::GetCurrentItemColor(color);
    color.setColorMethod(KdCmEntityColor::kNone);
    return true;
}

bool CVqTableColorComboBox::OnSelectOther(bool flag, int item, int& out) {
    if (item != kNoBackgroundRow) return CKdUiTrueColorComboBox::OnSelectOther(flag, item, out);
    // No background is no colour that the dialog could start from.
    KdCmColor color;
    if (!GetOtherColor(color)) return false;
    out = AddColorToMRU(color);
    return true;
}
