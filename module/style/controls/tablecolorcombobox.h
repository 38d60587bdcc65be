// The list of background colours: the host's colours, and before them the entry for no background.
#pragma once

#include "kd/ui/comboboxes.h"

class CVqTableColorComboBox : public CKdUiTrueColorComboBox {
public:
    /// No colour for row 0.
    bool GetCurrentItemColor(KdCmColor& color) const override;
    /// The row with that very text; -1 when there is none.
    int FindOtherItem(const wchar_t* text) const override;

protected:
    void OnAddItems() override;
    /// From the row of no background the dialog starts with by layer.
    bool OnSelectOther(bool flag, int item, int& out) override;
    void DrawItemImage(int row) override;
};
