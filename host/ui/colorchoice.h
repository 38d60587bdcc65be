// What the colour dialog can answer: colours by their texts and names, and which of them are offered.
#pragma once

#include <QString>
#include <optional>

#include "kd/db/color.h"

namespace kdhost {

/// The colour that a text names: "none", "bylayer", "byblock" in any case, an index from 1 to 255, or "R,G,B"
/// with each part from 0 to 255. Nothing for any other text.
std::optional<KdCmColor> colorOfText(const QString& text);

/// The name of a colour in lists.
QString colorName(const KdCmColor& color);

/// True when a dialog offers the colour: by layer, by block and none only where these are asked for.
bool offersColor(const KdCmColor& color, bool allowMeta);

}  // namespace kdhost
