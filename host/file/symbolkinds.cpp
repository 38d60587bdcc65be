// Layers, line types, text styles and block records.

#include "host/file/symbolkinds.h"

#include <algorithm>

#include "host/db/symbolstate.h"

namespace kdhost::file {
namespace {

constexpr int kFrozenOrLocked = 4;

constexpr auto describeLayer = [](auto& archive, auto& layer) {
    archive.subclass("AcDbLayerTableRecord");
    archive.value(2, layer.name);
    int flags = layer.otherFlags | (layer.locked ? kFrozenOrLocked : 0);
    archive.value(70, flags);
    KdCmColor color = layer.color;
    // A layer that is off has its colour below zero.
    if constexpr (std::decay_t<decltype(archive)>::kReads) {
        int index = 0;
        archive.value(62, index);
        archive.check(index >= -257 && index <= 257);
        layer.off = index < 0;
        layer.color = KdCmColor::fromIndex(std::abs(index));
        if (archive.has(420)) archive.color(62, layer.color, 7);
        layer.locked = (flags & kFrozenOrLocked) != 0;
        layer.otherFlags = flags & ~kFrozenOrLocked;
    } else if (layer.off) {
        archive.value(62, -color.colorIndex());
        if (color.isByColor()) archive.value(420, color.red() << 16 | color.green() << 8 | color.blue());
    } else {
        archive.color(62, color);
    }
    archive.linetype(6, layer.linetype, KdDbObjectId::kNull);
    archive.value(290, layer.plottable, true);
    archive.value(370, layer.lineWeight, KdDb::kLnWtByLwDefault);
};

constexpr auto describeLinetype = [](auto& archive, auto& linetype) {
    archive.subclass("AcDbLinetypeTableRecord");
    archive.value(2, linetype.name);
    archive.fixed(70, "0");
    archive.value(3, linetype.comments, std::wstring());
    archive.fixed(72, "65");
    if constexpr (std::decay_t<decltype(archive)>::kReads) {
        int count = 0;
        double length = 0.0;
        archive.value(73, count, 0);
        archive.value(40, length, 0.0);
        linetype.dashes.clear();
        for (const Tag& tag : archive.tags()) {
            if (tag.is(74, "0")) archive.consume(&tag);
            if (tag.code != 49) continue;
            const std::optional<double> dash = realOf(tag);
            archive.check(dash.has_value());
            linetype.dashes.push_back(*dash);
            archive.consume(&tag);
        }
        archive.check(count >= 0 && linetype.dashes.size() == static_cast<std::size_t>(count));
    } else {
        double length = 0.0;
        for (const double dash : linetype.dashes) length += std::abs(dash);
        archive.value(73, linetype.dashes.size());
        archive.value(40, length);
        for (const double dash : linetype.dashes) {
            archive.value(49, dash);
            archive.value(74, 0);
        }
    }
};

/// A font of the system is named beside the file that stands for it elsewhere, with its looks as bits.
constexpr auto describeTextStyle = [](auto& archive, auto& style) {
    constexpr std::int64_t kItalic = 0x1000000;
    constexpr std::int64_t kBold = 0x2000000;
    archive.subclass("AcDbTextStyleTableRecord");
    archive.value(2, style.name);
    archive.fixed(70, "0");
    archive.value(40, style.textSize);
    archive.value(41, style.xScale);
    archive.angle(50, style.obliquingAngle);
    archive.fixed(71, "0");
    archive.fixed(42, "2.5");
    archive.value(3, style.font);
    archive.fixed(4, "");
    archive.check(style.xScale > 0.0);
    if constexpr (std::decay_t<decltype(archive)>::kReads) {
        for (const Tag& tag : archive.takeExtended("ACAD")) {
            if (tag.code == 1000) style.font = textOf(tag.value());
            if (tag.code != 1071) continue;
            const std::int64_t looks = integerOf(tag).value_or(0);
            style.bold = (looks & kBold) != 0;
            style.italic = (looks & kItalic) != 0;
        }
    } else {
        archive.end();
        archive.value(1001, std::wstring(L"ACAD"));
        archive.value(1000, style.font);
        archive.value(1071, (style.bold ? kBold : 0) | (style.italic ? kItalic : 0));
    }
};

constexpr auto describeBlock = [](auto& archive, auto& block) {
    archive.subclass("AcDbBlockTableRecord");
    archive.value(2, block.name);
    archive.fixed(340, "0");
    archive.fixed(70, "0");
    archive.fixed(280, "1");
    archive.fixed(281, "0");
};

template <class Table, class Record, class State, auto describe>
constexpr SymbolKind kindOf(const char* name, KdDbObjectId DatabaseRoots::*root) {
    return {name,
            root,
            []() -> std::unique_ptr<KdDbSymbolTable> { return std::make_unique<Table>(); },
            []() -> std::unique_ptr<KdDbSymbolTableRecord> { return std::make_unique<Record>(); },
            [](RecordWriter& writer, const KdDbObject& record) { describe(writer, stateOf<State>(record)); },
            [](RecordReader& reader, KdDbObject& record) {
                describe(reader, static_cast<State&>(KdDbObjectAccess::stateForMaker(record)));
            }};
}

constexpr SymbolKind kKinds[] = {
    kindOf<KdDbLinetypeTable, KdDbLinetypeTableRecord, KdDbLinetypeTableRecordState, describeLinetype>(
        "LTYPE", &DatabaseRoots::linetypeTable),
    kindOf<KdDbLayerTable, KdDbLayerTableRecord, KdDbLayerTableRecordState, describeLayer>("LAYER",
                                                                                           &DatabaseRoots::layerTable),
    kindOf<KdDbTextStyleTable, KdDbTextStyleTableRecord, KdDbTextStyleTableRecordState, describeTextStyle>(
        "STYLE", &DatabaseRoots::textStyleTable),
    kindOf<KdDbBlockTable, KdDbBlockTableRecord, KdDbBlockTableRecordState, describeBlock>("BLOCK_RECORD",
                                                                                           &DatabaseRoots::blockTable),
};

}  // namespace

std::span<const SymbolKind> symbolKinds() {
    return kKinds;
}

const SymbolKind* symbolKind(std::string_view name) {
    const auto* kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const SymbolKind& each) { return each.name == name; });
    return kind == std::end(kKinds) ? nullptr : kind;
}

}  // namespace kdhost::file
