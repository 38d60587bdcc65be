// The toolbar under the framework's name.
#pragma once

#include "mfc/controls.h"

/// A shell without a state of its own: the toolbar's buttons follow the table, and need no updating when idle.
class CVqTableditToolBar : public CToolBar {
public:
    void OnUpdateToolBar() override {}
};
