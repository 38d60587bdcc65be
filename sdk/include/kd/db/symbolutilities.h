// Records of the symbol tables that the host keeps for purposes of its own.
#pragma once

#include "kd/db/objectid.h"

class KdDbDatabase;

class KdDbSymbolUtilityServices {
public:
    virtual ~KdDbSymbolUtilityServices();
    /// The layer for what is shown on the screen and left out when the drawing is plotted; made when the drawing
    /// has none yet. Null without a database, or when the layer can't be made.
    virtual KdDbObjectId screenOnlyLayerId(KdDbDatabase* database) const = 0;
};

namespace KdDbSymbolUtilities {

/// The host's one service of symbol utilities. Never null.
const KdDbSymbolUtilityServices* servicesPtr106();

}  // namespace KdDbSymbolUtilities
