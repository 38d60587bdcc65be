// The records of layers, line types and text styles.

#include <cmath>
#include <numeric>

#include "host/db/symbolstate.h"
#include "kd/db/symboltable.h"

KDRX_DEFINE_MEMBERS(KdDbLayerTableRecord, KdDbSymbolTableRecord)
KDRX_DEFINE_MEMBERS(KdDbLinetypeTableRecord, KdDbSymbolTableRecord)
KDRX_DEFINE_MEMBERS(KdDbTextStyleTableRecord, KdDbSymbolTableRecord)

namespace {

using Layer = KdDbLayerTableRecordState;
using Linetype = KdDbLinetypeTableRecordState;
using TextStyle = KdDbTextStyleTableRecordState;

}  // namespace

void KdDbLayerTableRecordState::mapIds(const kdhost::IdMapper& map) {
    KdDbObjectState::mapIds(map);
    linetype = map(linetype, kdhost::IdRole::pointer);
}

KdDbLayerTableRecord::KdDbLayerTableRecord() : KdDbSymbolTableRecord(std::make_unique<Layer>()) {}

KdCmColor KdDbLayerTableRecord::color() const {
    return stateOf<Layer>(*this).color;
}
void KdDbLayerTableRecord::setColor(const KdCmColor& color) {
    changeState<Layer>(*this, [&](Layer& state) { state.color = color; });
}
KdDbObjectId KdDbLayerTableRecord::linetypeObjectId() const {
    return stateOf<Layer>(*this).linetype;
}
void KdDbLayerTableRecord::setLinetypeObjectId(KdDbObjectId linetype) {
    changeState<Layer>(*this, [&](Layer& state) { state.linetype = linetype; });
}
KdDb::LineWeight KdDbLayerTableRecord::lineWeight() const {
    return stateOf<Layer>(*this).lineWeight;
}
Kdad::ErrorStatus KdDbLayerTableRecord::setLineWeight(KdDb::LineWeight weight) {
    return changeState<Layer>(*this, [&](Layer& state) { state.lineWeight = weight; });
}
bool KdDbLayerTableRecord::isLocked() const {
    return stateOf<Layer>(*this).locked;
}
void KdDbLayerTableRecord::setIsLocked(bool locked) {
    changeState<Layer>(*this, [&](Layer& state) { state.locked = locked; });
}
bool KdDbLayerTableRecord::isPlottable() const {
    return stateOf<Layer>(*this).plottable;
}
void KdDbLayerTableRecord::setIsPlottable(bool plottable) {
    changeState<Layer>(*this, [&](Layer& state) { state.plottable = plottable; });
}

KdDbLinetypeTableRecord::KdDbLinetypeTableRecord() : KdDbSymbolTableRecord(std::make_unique<Linetype>()) {}

std::wstring KdDbLinetypeTableRecord::comments() const {
    return stateOf<Linetype>(*this).comments;
}
void KdDbLinetypeTableRecord::setComments(const wchar_t* text) {
    changeState<Linetype>(*this, [&](Linetype& state) { state.comments = text == nullptr ? L"" : text; });
}
std::vector<double> KdDbLinetypeTableRecord::dashes() const {
    return stateOf<Linetype>(*this).dashes;
}
void KdDbLinetypeTableRecord::setDashes(std::vector<double> dashes) {
    changeState<Linetype>(*this, [&](Linetype& state) { state.dashes = std::move(dashes); });
}
double KdDbLinetypeTableRecord::patternLength() const {
    const std::vector<double>& dashes = stateOf<Linetype>(*this).dashes;
    return std::accumulate(dashes.begin(), dashes.end(), 0.0,
                           [](double sum, double dash) { return sum + std::abs(dash); });
}

KdDbTextStyleTableRecord::KdDbTextStyleTableRecord() : KdDbSymbolTableRecord(std::make_unique<TextStyle>()) {}

std::wstring KdDbTextStyleTableRecord::font() const {
    return stateOf<TextStyle>(*this).font;
}
void KdDbTextStyleTableRecord::setFont(const wchar_t* family) {
    changeState<TextStyle>(*this, [&](TextStyle& state) { state.font = family == nullptr ? L"" : family; });
}
bool KdDbTextStyleTableRecord::isBold() const {
    return stateOf<TextStyle>(*this).bold;
}
bool KdDbTextStyleTableRecord::isItalic() const {
    return stateOf<TextStyle>(*this).italic;
}
void KdDbTextStyleTableRecord::setFontStyle(bool bold, bool italic) {
    changeState<TextStyle>(*this, [&](TextStyle& state) {
        state.bold = bold;
        state.italic = italic;
    });
}
double KdDbTextStyleTableRecord::textSize() const {
    return stateOf<TextStyle>(*this).textSize;
}
void KdDbTextStyleTableRecord::setTextSize(double height) {
    changeState<TextStyle>(*this, [&](TextStyle& state) { state.textSize = height; });
}
double KdDbTextStyleTableRecord::xScale() const {
    return stateOf<TextStyle>(*this).xScale;
}
Kdad::ErrorStatus KdDbTextStyleTableRecord::setXScale(double factor) {
    if (!(factor > 0.0)) return Kdad::eInvalidInput;
    return changeState<TextStyle>(*this, [&](TextStyle& state) { state.xScale = factor; });
}
double KdDbTextStyleTableRecord::obliquingAngle() const {
    return stateOf<TextStyle>(*this).obliquingAngle;
}
void KdDbTextStyleTableRecord::setObliquingAngle(double angle) {
    changeState<TextStyle>(*this, [&](TextStyle& state) { state.obliquingAngle = angle; });
}
