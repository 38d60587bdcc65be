// The list of background colours: the host's colours, and before them the entry for no background.
#pragma once

#include "kd/ui/comboboxes.h"

class CVqTableColorComboBox : public CKdUiTrueColorComboBox {
public:
    /// No colour for row 0.
    bool GetCurrentItemColor(KdCmColor& color) const override;

protected:
    void OnAddItems() override;
    /// From the entry for no background the dialog starts with by layer.
    bool OnSelectOther(bool flag, int item, int& out) override;
};
