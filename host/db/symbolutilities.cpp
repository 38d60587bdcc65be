// Layers and other records that the host itself asks a drawing for.

#include "kd/db/symbolutilities.h"

#include <memory>

#include "host/db/symbols.h"
#include "kd/db/database.h"

KdDbSymbolUtilityServices::~KdDbSymbolUtilityServices() = default;

namespace {

constexpr const wchar_t* kScreenOnly = L"Screen only";

/// Null when the table takes none.
KdDbObjectId addScreenOnlyLayer(const KdDbDatabase& database) {
    auto layer = std::make_unique<KdDbLayerTableRecord>();
    layer->setName(kScreenOnly);
    layer->setIsPlottable(false);
    const auto added = kdhost::addRecord(database.layerTableId(), std::move(layer));
    return added ? added->objectId() : KdDbObjectId::kNull;
}

class Services final : public KdDbSymbolUtilityServices {
public:
    KdDbObjectId screenOnlyLayerId(KdDbDatabase* database) const override {
        if (database == nullptr) return KdDbObjectId::kNull;
        const KdDbObjectId known = kdhost::recordNamed(database->layerTableId(), kScreenOnly);
        return known.isNull() ? addScreenOnlyLayer(*database) : known;
    }
};

}  // namespace

const KdDbSymbolUtilityServices* KdDbSymbolUtilities::servicesPtr106() {
    static const Services services;
    return &services;
}
