// Looks and values of cells.

#include "host/file/cellread.h"

#include "host/file/cellcodes.h"
#include "host/file/checked.h"

namespace kdhost::file {

namespace prop = kdhost::property;

void ReadOverrides::take(LoadContext& context, const Tag& tag, std::int64_t mask) {
    const auto is = [&](int code, std::int64_t bit) { return tag.code == code && (mask & bit) != 0; };
    if (is(170, kAlignmentBit)) set(prop::alignment, file::alignment(tag));
    if (is(283, kFillBit)) fills = whole(tag, 0, 1) != 0;
    if (is(63, kFillColorBit)) set(prop::background, indexedColor(tag));
    if (is(64, kColorBit)) set(prop::color, indexedColor(tag));
    if (is(7, kTextStyleBit)) {
        set(prop::textStyle, context.record(context.contents.roots.textStyleTable, tag.value()));
    }
    if (is(140, kTextHeightBit)) set(prop::textHeight, file::size(tag));
    for (const EdgeCode& each : kEdgeColors) {
        if (is(each.code, each.bit)) set(prop::lineColor.at(each.edge), indexedColor(tag));
    }
    for (const EdgeCode& each : kEdgeWeights) {
        if (is(each.code, each.bit)) set(prop::weight.at(each.edge), lineWeight(tag));
    }
    for (const EdgeCode& each : kEdgeVisibilities) {
        if (is(each.code, each.bit)) set(prop::visibility.at(each.edge), file::visibility(tag));
    }
}

void ReadOverrides::finish() {
    if (!fills) set(prop::background, KdCmColor::none());
}

void addOverrides(CellLook& cell, const FormatOverrides& others) {
    FormatOverrides& own = cell.overrides.write();
    forEachProperty([&](const auto& property) {
        if ((others.own & ~own.own & property.bit) != 0) property.in(own.format) = property.in(others.format);
    });
    own.own |= others.own;
}

void ReadValue::take(const Tag& tag) {
    switch (tag.code) {
        case 90:
            type = whole(tag, 0, INT32_MAX);
            break;
        case 91:
            number = asked(integerOf(tag));
            break;
        case 140:
            real = asked(realOf(tag));
            break;
        case 1:
        case 2:
        case 3:
            text += textOf(tag.value());
            break;
        case 94:
            unit = whole(tag, 0, INT16_MAX);
            break;
        case 300:
            format = textOf(tag.value());
            break;
        case 302:
            display = textOf(tag.value());
            break;
        default:
            break;
    }
}

std::wstring ReadValue::asText() const {
    // What is long is cut off where a value is only shown.
    if (type == KdValue::kString && !text.empty()) return text;
    if (!display.empty()) return display;
    if (type == KdValue::kLong) return std::to_wstring(number);
    return type == KdValue::kDouble ? std::to_wstring(real) : std::wstring();
}

void ReadValue::giveType(CellLook& cell) const {
    const bool isNumber =
        type == KdValue::kLong || type == KdValue::kDouble || type == KdValue::kDate || type == KdValue::kPoint;
    if (!isNumber && unit == 0 && format.empty()) return;
    FormatOverrides& overrides = cell.overrides.write();
    const auto set = [&](const auto& which, auto own) {
        overrides.own |= which.bit;
        which.in(overrides.format) = std::move(own);
    };
    if (isNumber) set(prop::dataType, static_cast<KdValue::DataType>(type));
    if (unit != 0) set(prop::unitType, static_cast<KdValue::UnitType>(unit));
    if (!format.empty()) set(prop::format, format);
}

}  // namespace kdhost::file
