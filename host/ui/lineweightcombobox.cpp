// The line weight box.

#include <QComboBox>
#include <array>

#include "host/ui/hosttexts.h"
#include "host/ui/rowsamples.h"
#include "kd/ui/comboboxes.h"

namespace {

using kdhost::HostText;
using kdhost::hostText;

constexpr std::array kWeights = {
    KdDb::kLnWtByLayer, KdDb::kLnWtByBlock, KdDb::kLnWtByLwDefault, KdDb::kLnWt000, KdDb::kLnWt005, KdDb::kLnWt009,
    KdDb::kLnWt013,     KdDb::kLnWt015,     KdDb::kLnWt018,         KdDb::kLnWt020, KdDb::kLnWt025, KdDb::kLnWt030,
    KdDb::kLnWt035,     KdDb::kLnWt040,     KdDb::kLnWt050,         KdDb::kLnWt053, KdDb::kLnWt060, KdDb::kLnWt070,
    KdDb::kLnWt080,     KdDb::kLnWt090,     KdDb::kLnWt100,         KdDb::kLnWt106, KdDb::kLnWt120, KdDb::kLnWt140,
    KdDb::kLnWt158,     KdDb::kLnWt200,     KdDb::kLnWt211,
};

/// Drawn for the weights that name none of their own.
constexpr int kDefaultWeight = 25;

QString nameOf(KdDb::LineWeight weight) {
    switch (weight) {
        case KdDb::kLnWtByLayer:
            return hostText(HostText::ByLayer);
        case KdDb::kLnWtByBlock:
            return hostText(HostText::ByBlock);
        case KdDb::kLnWtByLwDefault:
            return hostText(HostText::ByDefault);
        default:
            return hostText(HostText::MillimetreWeight).arg(static_cast<int>(weight) / 100.0, 0, 'f', 2);
    }
}

}  // namespace

void CKdUiLineWeightComboBox::OnAddItems() {
    for (const KdDb::LineWeight weight : kWeights) {
        SetItemData(AddString(nameOf(weight).toStdWString().c_str()), weight);
    }
}

int CKdUiLineWeightComboBox::FindItemByLineWeight(KdDb::LineWeight weight) const {
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        if (GetItemData(row) == weight) return row;
    }
    return -1;
}

KdDb::LineWeight CKdUiLineWeightComboBox::GetCurrentItemLineWeight() const {
    const int row = GetCurSel();
    return row < 0 ? KdDb::kLnWtByLayer : static_cast<KdDb::LineWeight>(GetItemData(row));
}

void CKdUiLineWeightComboBox::SetCurrentItemLineWeight(KdDb::LineWeight weight) {
    SetCurSel(FindItemByLineWeight(weight));
}

void CKdUiLineWeightComboBox::DrawItemImage(int row) {
    const int weight = static_cast<int>(GetItemData(row));
    const int shown = weight < 0 ? kDefaultWeight : weight;
    kdhost::setRowData(*this, row, kdhost::lineWeightSample(widget(), shown), Qt::DecorationRole);
    if (auto* combo = widgetAs<QComboBox>()) {
        combo->setIconSize(kdhost::sampleSize(*combo, kdhost::SampleStyle::LineWeight));
    }
}
