// Combo boxes of the module: one with the module's row heights, one that can keep its rows sorted; and what its dialogs
// do with every box.
#pragma once

#include "mfc/combobox.h"

class CKdUiMRUComboBox;

/// Shows a row, or none for -1, without a signal: what a dialog shows is no choice of the user's.
void showRow(CComboBox& box, int row);
/// Empty when no row is selected.
CStdStr<wchar_t> selectedText(const CComboBox& box);
/// What a dialog does first when a row of a colour box was chosen: the list closes and the choice is final, that of
/// the entry for other colours after the host has asked for one. False when the user cancelled that; the row before is
/// selected again.
bool finishColorChoice(CKdUiMRUComboBox& box);

/// The samples that a box paints before the texts of its rows; see KdUiComboBox::setComboBoxStyle.
enum BoxSamples : int { kLinetypeSamples = 1, kWeightSamples = 2, kColorSamples = 3 };
void showSamples(const CComboBox& box, BoxSamples samples);

/// Adds a row for each alignment of cells, in the order of KdDb::CellAlignment.
void addAlignments(CComboBox& box);

class CVqCustomComboBox : public CComboBox {
public:
    /// The heights of the edit part and of the rows at the screen's scale.
    void UseNormalHeight();
    /// The same at a given scale; heights are cut to whole pixels.
    void UseHeightsAtScale(double scale);
};

class CVqSpecialComboBox : public CVqCustomComboBox {
public:
    /// Keeps the row behind which the box's other part begins. Always 1.
    int SetCompartIndex(int index);
    int compartIndex() const { return m_nCompartIndex; }

    using CComboBox::AddString;
    /// Adds at the end or, sorted, at GetSortIndex. Returns the new row's index.
    int AddString(const wchar_t* text, bool sorted);
    /// The row before which the text belongs by strcmpSort, so that it comes before its equals; the number of
    /// rows when it comes last. Blanks around the rows' texts don't count.
    int GetSortIndex(const wchar_t* text) const;

    // The box paints and drops as any other.
    void DrawItem() {}
    void OnLButtonUp() {}

private:
    int m_nCompartIndex = -1;
};
