// Row heights, the sorted adding and the choices of combo boxes.

#include "module/controls/comboboxes.h"

#include <QSignalBlocker>

#include "kd/ui/comboboxes.h"
#include "kd/ui/hostdialogs.h"
#include "kd/ui/widgets.h"
#include "module/controls/sortorder.h"
#include "module/core/resources.h"

namespace {

constexpr double kEditHeight = 15.0;
constexpr double kRowHeight = 16.0;

/// The nine alignments in their order.
constexpr unsigned kFirstAlignmentText = 2023;
constexpr unsigned kLastAlignmentText = 2031;

/// The states of an open list and of a choice that isn't made yet.
constexpr unsigned kDropFlags = 0x20 | 0x40;

}  // namespace

void showRow(CComboBox& box, int row) {
    const QSignalBlocker quiet(box.widget());
    box.SetCurSel(row);
    box.Invalidate();
}

CStdStr<wchar_t> selectedText(const CComboBox& box) {
    CStdStr<wchar_t> text;
    box.GetLBText(box.GetCurSel(), text);
    return text;
}

bool finishColorChoice(CKdUiMRUComboBox& box) {
    box.clearDropFlags(kDropFlags);
    const int row = box.GetCurSel();
    const bool asks = row >= 0 && row == box.FindOtherItem(box.GetOtherName());
    const bool isChosen = !asks || box.SelectOther(1);
    box.OnSelEndOk();
    box.OnCloseUp();
    return isChosen;
}

void showSamples(const CComboBox& box, BoxSamples samples) {
    if (auto* widget = box.widgetAs<KdUiComboBox>()) widget->setComboBoxStyle(samples);
}

void addAlignments(CComboBox& box) {
    for (unsigned text = kFirstAlignmentText; text <= kLastAlignmentText; ++text) box.AddString(loadText(text));
}

void CVqCustomComboBox::UseNormalHeight() {
    UseHeightsAtScale(kdadGetDPIScale());
}

void CVqCustomComboBox::UseHeightsAtScale(double scale) {
    SetItemHeight(-1, static_cast<unsigned>(kEditHeight * scale));
    SetItemHeight(0, static_cast<unsigned>(kRowHeight * scale));
}

int CVqSpecialComboBox::SetCompartIndex(int index) {
    m_nCompartIndex = index;
    return 1;
}

int CVqSpecialComboBox::AddString(const wchar_t* text, bool sorted) {
    const int row = sorted ? GetSortIndex(text) : GetCount();
    return row < GetCount() ? InsertString(row, text) : AddString(text);
}

int CVqSpecialComboBox::GetSortIndex(const wchar_t* text) const {
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        CStdStr<wchar_t> present;
        GetLBText(row, present);
        if (strcmpSort(present.Trim(), text) >= 0) return row;
    }
    return count;
}
