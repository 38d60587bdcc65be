// LAYER: makes, sets, locks and unlocks layers.
#pragma once

namespace kdhost {

/// Asks for one action after the other until Enter.
void editLayers();

}  // namespace kdhost
