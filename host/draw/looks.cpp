// Colours, line weights and line types as they are drawn.

#include "host/draw/looks.h"

#include <cmath>

#include "host/db/access.h"
#include "kd/db/database.h"
#include "kd/db/entity.h"
#include "kd/db/symboltable.h"

namespace kdhost::draw {
namespace {

constexpr Color kForeground{0, 0, 0, true};
constexpr int kForegroundIndex = 7;

/// A default weight, in hundredths of a millimetre.
constexpr int kDefaultWeight = 25;

Color fixedColor(const KdCmColor& color) {
    if (color.isByACI() && color.colorIndex() == kForegroundIndex) return kForeground;
    return {color.red(), color.green(), color.blue(), false};
}

/// From dashes and gaps told by their signs to lengths that alternate, beginning with a dash; empty without a gap.
std::vector<double> alternating(const std::vector<double>& pattern) {
    std::vector<double> lengths;
    double leadingGap = 0.0;
    for (const double length : pattern) {
        const bool gap = std::signbit(length);
        const bool expectsGap = lengths.size() % 2 == 1;
        if (gap && lengths.empty()) {
            leadingGap += -length;
        } else if (gap == expectsGap) {
            lengths.push_back(std::abs(length));
        } else {
            lengths.back() += std::abs(length);
        }
    }
    if (lengths.empty()) return {};
    if (lengths.size() % 2 == 1) lengths.push_back(0.0);
    lengths.back() += leadingGap;
    for (std::size_t gap = 1; gap < lengths.size(); gap += 2) {
        if (lengths[gap] > 0.0) return lengths;
    }
    return {};
}

/// Of a record that an entity names: entities in no database name records of one all the same.
const KdDbDatabase* databaseOf(KdDbObjectId record) {
    const KdDbObject* object = peekObject(record);
    return object == nullptr ? nullptr : object->database();
}

std::vector<double> dashesOf(KdDbObjectId linetype) {
    const auto* record = peek<KdDbLinetypeTableRecord>(linetype);
    return record == nullptr ? std::vector<double>{} : alternating(record->dashes());
}

}  // namespace

KdCmColor colorOf(const text::Ink& ink) {
    if (ink.kind == text::Ink::Kind::index) return KdCmColor::fromIndex(ink.value);
    return KdCmColor::fromRgb(ink.value & 0xFF, ink.value >> 8 & 0xFF, ink.value >> 16 & 0xFF);
}

Looks::Looks(const KdDbEntity& entity, BlockLooks block, const Options& options)
    : m_entity(entity), m_block(std::move(block)), m_lineWeights(options.lineWeights), m_layer(entity.layerId()) {
    const KdDbDatabase* database = databaseOf(m_layer);
    const bool onLayerZero = database == nullptr || m_layer == database->layerZero();
    if (onLayerZero && m_block.layer.isValid()) m_layer = m_block.layer;
}

std::optional<Color> Looks::color(const KdCmColor& color) const {
    if (color.isNone()) return std::nullopt;
    if (color.isByBlock()) return m_block.color;
    if (!color.isByLayer()) return fixedColor(color);
    const auto* layer = peek<KdDbLayerTableRecord>(m_layer);
    if (layer == nullptr || layer->color().isByLayer() || layer->color().isByBlock()) return kForeground;
    return fixedColor(layer->color());
}

int Looks::lineWeight(KdDb::LineWeight weight) const {
    if (!m_lineWeights) return 0;
    if (weight == KdDb::kLnWtByBlock) return m_block.lineWeight;
    if (weight == KdDb::kLnWtByLayer) {
        const auto* layer = peek<KdDbLayerTableRecord>(m_layer);
        weight = layer == nullptr ? KdDb::kLnWtByLwDefault : layer->lineWeight();
    }
    return weight < 0 ? kDefaultWeight : static_cast<int>(weight);
}

std::vector<double> Looks::dashes(KdDbObjectId linetype) const {
    const KdDbDatabase* database = databaseOf(linetype);
    if (linetype.isNull() || (database != nullptr && linetype == database->byBlockLinetype())) return m_block.dashes;
    if (database == nullptr || linetype != database->byLayerLinetype()) return dashesOf(linetype);
    const auto* layer = peek<KdDbLayerTableRecord>(m_layer);
    return layer == nullptr ? std::vector<double>{} : dashesOf(layer->linetypeObjectId());
}

bool Looks::isPlotted() const {
    const auto* layer = peek<KdDbLayerTableRecord>(m_layer);
    return layer == nullptr || layer->isPlottable();
}

Color Looks::color() const {
    return color(m_entity.color()).value_or(kForeground);
}

int Looks::lineWeight() const {
    return lineWeight(m_entity.lineWeight());
}

std::vector<double> Looks::dashes() const {
    return dashes(m_entity.linetypeId());
}

BlockLooks Looks::forParts() const {
    return {color(), lineWeight(), dashes(), m_layer};
}

}  // namespace kdhost::draw
