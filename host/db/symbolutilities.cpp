// Layers and other records that the host itself asks a drawing for.

#include "kd/db/symbolutilities.h"

#include <memory>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"

KdDbSymbolUtilityServices::~KdDbSymbolUtilityServices() = default;

namespace {

constexpr const wchar_t* kScreenOnly = L"Screen only";

/// Null when another record of the name came first, or the table takes none.
KdDbObjectId addScreenOnlyLayer(KdDbLayerTable& layers) {
    auto layer = std::make_unique<KdDbLayerTableRecord>();
    layer->setName(kScreenOnly);
    layer->setIsPlottable(false);
    KdDbObjectId id;
    if (layers.add(id, layer.get()) != Kdad::eOk) return KdDbObjectId::kNull;
    layer.release()->close();
    return id;
}

class Services final : public KdDbSymbolUtilityServices {
public:
    KdDbObjectId screenOnlyLayerId(KdDbDatabase* database) const override {
        KdDbLayerTable* layers = nullptr;
        if (database == nullptr || database->getLayerTable(layers, KdDb::kForRead) != Kdad::eOk) {
            return KdDbObjectId::kNull;
        }
        KdDbObjectId id;
        if (layers->getAt(kScreenOnly, id) != Kdad::eOk && layers->upgradeOpen() == Kdad::eOk) {
            id = addScreenOnlyLayer(*layers);
        }
        layers->close();
        return id;
    }
};

}  // namespace

const KdDbSymbolUtilityServices* KdDbSymbolUtilities::servicesPtr106() {
    static const Services services;
    return &services;
}
