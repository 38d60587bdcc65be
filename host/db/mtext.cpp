// Texts of several lines.

#include "kd/db/mtext.h"

#include <cmath>

#include "host/db/access.h"
#include "host/db/fieldstate.h"
#include "host/db/similarity.h"
#include "host/db/textstate.h"
#include "host/db/textstyle.h"

KDRX_DEFINE_MEMBERS(KdDbMText, KdDbEntity)

namespace {

using State = KdDbMTextState;

/// What the text shows: its own contents, or those of the field that is attached to it.
const std::wstring& shownContents(const KdDbMText& text) {
    const State& state = stateOf<State>(text);
    const KdDbField* field = kdhost::textFieldOf(text);
    if (field == nullptr) return state.contents;
    return state.fieldContents = kdhost::evaluatedText(*field);
}

kdhost::text::Layout layoutOf(const KdDbMText& text) {
    const State& state = stateOf<State>(text);
    return kdhost::text::layout(shownContents(text), kdhost::fontOf(state.textStyle), state.textHeight, state.width);
}

}  // namespace

void KdDbMTextState::mapIds(const kdhost::IdMapper& map) {
    KdDbEntityState::mapIds(map);
    textStyle = map(textStyle, kdhost::IdRole::pointer);
}

kdhost::text::Font kdhost::fontOf(KdDbObjectId textStyle) {
    const auto* style = peek<KdDbTextStyleTableRecord>(textStyle);
    if (style == nullptr) return {L"DejaVu Sans"};
    return {style->font(), style->isBold(), style->isItalic(), style->xScale(), style->obliquingAngle()};
}

KdDbMText::KdDbMText() : KdDbEntity(std::make_unique<State>()) {}

KdGePoint3d KdDbMText::location() const {
    return stateOf<State>(*this).location;
}
Kdad::ErrorStatus KdDbMText::setLocation(const KdGePoint3d& point) {
    return changeState<State>(*this, [&](State& state) { state.location = point; });
}
KdGeVector3d KdDbMText::normal() const {
    return stateOf<State>(*this).normal;
}
Kdad::ErrorStatus KdDbMText::setNormal(const KdGeVector3d& normal) {
    return changeState<State>(*this, [&](State& state) { state.normal = normal; });
}
double KdDbMText::rotation() const {
    return stateOf<State>(*this).rotation;
}
Kdad::ErrorStatus KdDbMText::setRotation(double angle) {
    return changeState<State>(*this, [&](State& state) { state.rotation = angle; });
}
double KdDbMText::width() const {
    return stateOf<State>(*this).width;
}
Kdad::ErrorStatus KdDbMText::setWidth(double width) {
    if (!(width >= 0.0)) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.width = width; });
}
double KdDbMText::height() const {
    return stateOf<State>(*this).height;
}
Kdad::ErrorStatus KdDbMText::setHeight(double height) {
    if (!(height >= 0.0)) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.height = height; });
}
KdGeVector3d KdDbMText::direction() const {
    const State& state = stateOf<State>(*this);
    return KdGeMatrix3d::planeToWorld(state.normal) *
           KdGeVector3d(std::cos(state.rotation), std::sin(state.rotation), 0.0);
}
Kdad::ErrorStatus KdDbMText::setDirection(const KdGeVector3d& direction) {
    const KdGeVector3d inPlane = KdGeMatrix3d::worldToPlane(stateOf<State>(*this).normal) * direction;
    if (std::hypot(inPlane.x, inPlane.y) == 0.0) return Kdad::eInvalidInput;
    return setRotation(std::atan2(inPlane.y, inPlane.x));
}
KdDbObjectId KdDbMText::textStyle() const {
    return stateOf<State>(*this).textStyle;
}
Kdad::ErrorStatus KdDbMText::setTextStyle(KdDbObjectId style) {
    return changeState<State>(*this, [&](State& state) { state.textStyle = style; });
}
double KdDbMText::textHeight() const {
    return stateOf<State>(*this).textHeight;
}
Kdad::ErrorStatus KdDbMText::setTextHeight(double height) {
    if (!(height > 0.0)) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.textHeight = height; });
}
KdDbMText::AttachmentPoint KdDbMText::attachment() const {
    return stateOf<State>(*this).attachment;
}
Kdad::ErrorStatus KdDbMText::setAttachment(AttachmentPoint attachment) {
    if (attachment < kTopLeft || attachment > kBottomRight) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.attachment = attachment; });
}
KdDbMText::FlowDirection KdDbMText::flowDirection() const {
    return stateOf<State>(*this).flow;
}
Kdad::ErrorStatus KdDbMText::setFlowDirection(FlowDirection flow) {
    if (flow != kLtoR && flow != kTtoB && flow != kByStyle) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.flow = flow; });
}
const wchar_t* KdDbMText::contents() const {
    return shownContents(*this).c_str();
}
Kdad::ErrorStatus KdDbMText::setContents(const wchar_t* text) {
    const Kdad::ErrorStatus status = kdhost::textFieldOf(*this) == nullptr ? Kdad::eOk : removeField(L"TEXT");
    if (status != Kdad::eOk) return status;
    return changeState<State>(*this, [&](State& state) { state.contents = text == nullptr ? L"" : text; });
}

bool KdDbMText::backgroundFillOn() const {
    return stateOf<State>(*this).backgroundFill;
}
Kdad::ErrorStatus KdDbMText::setBackgroundFill(bool on) {
    return changeState<State>(*this, [&](State& state) { state.backgroundFill = on; });
}
KdCmColor KdDbMText::backgroundFillColor() const {
    return stateOf<State>(*this).backgroundColor;
}
Kdad::ErrorStatus KdDbMText::setBackgroundFillColor(const KdCmColor& color) {
    return changeState<State>(*this, [&](State& state) { state.backgroundColor = color; });
}
double KdDbMText::backgroundScaleFactor() const {
    return stateOf<State>(*this).backgroundScale;
}
Kdad::ErrorStatus KdDbMText::setBackgroundScaleFactor(double factor) {
    if (!(factor >= 1.0 && factor <= 5.0)) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) { state.backgroundScale = factor; });
}
bool KdDbMText::useBackgroundColorOn() const {
    return stateOf<State>(*this).usesViewBackground;
}
Kdad::ErrorStatus KdDbMText::setUseBackgroundColor(bool on) {
    return changeState<State>(*this, [&](State& state) { state.usesViewBackground = on; });
}

double KdDbMText::actualWidth() const {
    return layoutOf(*this).width;
}

double KdDbMText::actualHeight() const {
    return layoutOf(*this).height;
}

Kdad::ErrorStatus KdDbMText::transformBy(const KdGeMatrix3d& matrix) {
    const std::optional<double> scale = kdhost::evenScale(matrix);
    if (!scale) return Kdad::eInvalidInput;
    return changeState<State>(*this, [&](State& state) {
        const auto [normal, angle] = kdhost::transformed({state.normal, state.rotation}, matrix);
        state.normal = normal;
        state.rotation = angle;
        state.location.transformBy(matrix);
        state.textHeight *= *scale;
        state.width *= *scale;
        state.height *= *scale;
    });
}

KdDbExtents KdDbMText::getGeomExtents() const {
    const State& state = stateOf<State>(*this);
    KdDbExtents extents;
    const kdhost::text::Layout layout = layoutOf(*this);
    if (layout.lines.empty()) return extents;
    // The location is at the left, middle or right of the box, and at its top, middle or bottom.
    const int place = state.attachment - kTopLeft;
    const int column = place % 3;
    const int rowsBelow = 2 - place / 3;
    const double left = -0.5 * column * layout.width;
    const double bottom = -0.5 * rowsBelow * layout.height;
    const KdGeMatrix3d toWorld = kdhost::placeInPlane(state.location, {state.normal, state.rotation});
    for (int corner = 0; corner < 4; ++corner) {
        extents.addPoint(toWorld * KdGePoint3d((corner & 1) != 0 ? left + layout.width : left,
                                               (corner & 2) != 0 ? bottom + layout.height : bottom, 0.0));
    }
    return extents;
}

void kddbSetMtextRotation(KdDbMText* text, double angle) {
    if (text != nullptr) text->setRotation(angle);
}

KdString stripMtextFormatting(const KdString& text, KdDbDatabase*, const KdDbObjectId&) {
    return kdhost::text::strip(text.str());
}

int plainMtextLength(const wchar_t* text) {
    return text == nullptr ? 0 : kdhost::text::plainLength(text);
}
