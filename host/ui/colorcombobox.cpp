// The colour box.

#include <QComboBox>
#include <QListWidget>
#include <algorithm>
#include <vector>

#include "host/db/access.h"
#include "host/ui/colorchoice.h"
#include "host/ui/hosttexts.h"
#include "host/ui/recentcolors.h"
#include "host/ui/rowsamples.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/ui/comboboxes.h"
#include "kd/ui/hostdialogs.h"

namespace {

enum Kind : int { kSpecial = -102, kNone = -1, kIndex = 1, kTrueColor = -3 };

constexpr std::size_t kRecentColors = 8;
constexpr int kStandardColors = 7;

std::vector<KdCmColor>& recent() {
    static std::vector<KdCmColor> colors;
    return colors;
}

ColorItemData dataOf(const KdCmColor& color) {
    if (color.isNone()) return {kNone, color};
    if (color.isByACI()) return {kIndex, color};
    return {color.isByColor() ? kTrueColor : kSpecial, color};
}

/// The colour of the drawing's current layer; white or black without one.
KdCmColor layerColor() {
    constexpr int kForeground = 7;
    const KdCmColor color = KdCmColor::fromIndex(kForeground);
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    KdDbDatabase* database = services == nullptr ? nullptr : services->workingDatabase();
    if (database == nullptr) return color;
    const auto* layer = kdhost::peek<KdDbLayerTableRecord>(database->clayer());
    return layer == nullptr ? color : layer->color();
}

}  // namespace

namespace kdhost {

const std::vector<KdCmColor>& recentColors() {
    return recent();
}

void addRecentColor(const KdCmColor& color) {
    std::vector<KdCmColor>& colors = recent();
    if (std::find(colors.begin(), colors.end(), color) != colors.end()) return;
    if (colors.size() == kRecentColors) colors.erase(colors.begin());
    colors.push_back(color);
}

void forgetRecentColors() {
    recent().clear();
}

}  // namespace kdhost

void CKdUiTrueColorComboBox::OnAddItems() {
    addColorRow(-1, KdCmColor());
    addColorRow(-1, KdCmColor::byBlock());
    for (int index = 1; index <= kStandardColors; ++index) addColorRow(-1, KdCmColor::fromIndex(index));
    for (const KdCmColor& color : kdhost::recentColors()) addColorRow(-1, color);
    const int other = AddString(GetOtherName());
    kdhost::setRowData(*this, other, QVariant::fromValue(ColorItemData{kSpecial, KdCmColor()}), kColorItemRole);
}

int CKdUiTrueColorComboBox::addColorRow(int row, const KdCmColor& color) {
    const int added = InsertString(row, kdhost::colorName(color).toStdWString().c_str());
    kdhost::setRowData(*this, added, QVariant::fromValue(dataOf(color)), kColorItemRole);
    return added;
}

int CKdUiTrueColorComboBox::FindItemByColor(const KdCmColor& color) const {
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        const QVariant data = kdhost::rowData(*this, row, kColorItemRole);
        if (!isOther(row) && data.isValid() && data.value<ColorItemData>().color == color) return row;
    }
    return -1;
}

int CKdUiTrueColorComboBox::AddColorToMRU(const KdCmColor& color) {
    const int present = FindItemByColor(color);
    if (present >= 0) return present;
    kdhost::addRecentColor(color);
    if (widget() == nullptr) return -1;
    const int added = addColorRow(FindOtherItem(GetOtherName()), color);
    if (m_lastSelection >= added) ++m_lastSelection;
    DrawItemImage(added);
    return added;
}

bool CKdUiTrueColorComboBox::GetCurrentItemColor(KdCmColor& color) const {
    const int row = GetCurSel();
    const QVariant data = kdhost::rowData(*this, row, kColorItemRole);
    if (row < 0 || isOther(row) || !data.isValid()) return false;
    color = data.value<ColorItemData>().color;
    return true;
}

CStdStr<wchar_t> CKdUiTrueColorComboBox::GetOtherName() const {
    return otherNameOr(kdhost::hostText(kdhost::HostText::OtherColor).toStdWString());
}

bool CKdUiTrueColorComboBox::OnSelectOther(bool, int item, int& out) {
    const QVariant data = kdhost::rowData(*this, item, kColorItemRole);
    KdCmColor color = data.isValid() ? data.value<ColorItemData>().color : KdCmColor();
    if (!GetOtherColor(color)) return false;
    out = AddColorToMRU(color);
    return true;
}

bool CKdUiTrueColorComboBox::GetOtherColor(KdCmColor& current) {
    return kdedSetColorDialogTrueColor(current, true, layerColor());
}

void CKdUiTrueColorComboBox::DrawItemImage(int row) {
    const QVariant data = kdhost::rowData(*this, row, kColorItemRole);
    if (!data.isValid()) return;
    const ColorItemData item = data.value<ColorItemData>();
    std::optional<KdCmColor> shown;
    if (item.kind != kSpecial) shown = item.color;
    kdhost::setRowData(*this, row, kdhost::colorSample(widget(), shown), Qt::DecorationRole);
    if (auto* combo = widgetAs<QComboBox>()) {
        combo->setIconSize(kdhost::sampleSize(*combo, kdhost::SampleStyle::Color));
    }
}
