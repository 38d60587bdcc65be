// What the mouse does in the view as far as prompts are concerned: picks, moves of what is dragged, Enter.
#pragma once

#include "host/app/window/viewinput.h"

namespace kdhost {

class PromptInput : public ViewInput {
public:
    /// A pick; with Shift it adds to what is selected.
    void press(const ViewPoint& point) override;
    /// Moves what is dragged.
    void move(const ViewPoint& point) override;
    /// Enter, where a command asks.
    void context(const ViewPoint& point) override;
};

}  // namespace kdhost
