// Table styles in and out of a file: three row styles in standard codes, all cell styles in the extras.

#include "host/db/names.h"
#include "host/db/tablestylestate.h"
#include "host/file/checked.h"
#include "host/file/entities.h"
#include "host/file/extrasrecord.h"
#include "host/file/fingerprint.h"
#include "host/file/objects.h"
#include "host/file/record.h"
#include "host/file/tableextras.h"

namespace kdhost::file {
namespace {

namespace prop = kdhost::property;

/// The row styles stand in this order.
const std::wstring kRowStyles[] = {kDataStyle, kTitleStyle, kHeaderStyle};
constexpr FormatBits kAllProperties = ~FormatBits{0};
constexpr int kTextStyle = 7;

void writeRowStyle(SaveContext& context, const CellFormat& format) {
    TagWriter& out = context.out;
    const std::string& textStyle = context.nameOf(format.textStyle);
    out.raw(kTextStyle, textStyle.empty() ? context.nameOf(context.contents.current.textStyle) : textStyle);
    out.real(140, format.textHeight);
    out.integer(170, format.alignment);
    out.integer(62, format.color.colorIndex());
    out.integer(63, format.background.isNone() ? 7 : format.background.colorIndex());
    out.integer(283, format.background.isNone() ? 0 : 1);
    out.integer(90, format.dataType);
    out.integer(91, format.unitType);
    out.text(1, std::wstring_view(format.format).substr(0, kLongestPiece));
    for (int edge = 0; edge < kEdgeCount; ++edge) {
        const GridLook& look = format.grid[static_cast<std::size_t>(edge)];
        out.integer(274 + edge, look.weight);
        out.integer(284 + edge, look.visibility == KdDb::kVisible ? 1 : 0);
        out.integer(64 + edge, look.color.colorIndex());
    }
}

/// A row style as its standard codes tell it.
class RowStyleReader {
public:
    explicit RowStyleReader(LoadContext& context) : m_context(context) {}

    void take(const Tag& tag) {
        switch (tag.code) {
            case kTextStyle:
                set(prop::textStyle, m_context.record(m_context.contents.roots.textStyleTable, tag.value()));
                break;
            case 140:
                set(prop::textHeight, asked(realOf(tag)));
                break;
            case 170:
                set(prop::alignment, file::alignment(tag));
                break;
            case 62:
                set(prop::color, indexedColor(tag));
                break;
            case 63:
                m_fill = indexedColor(tag);
                break;
            case 283:
                set(prop::background, whole(tag, 0, 1) != 0 ? m_fill : KdCmColor::none());
                break;
            case 90:
                set(prop::dataType, static_cast<KdValue::DataType>(whole(tag, 0, 1023)));
                break;
            case 91:
                set(prop::unitType, static_cast<KdValue::UnitType>(whole(tag, 0, 1023)));
                break;
            case 1:
                set(prop::format, textOf(tag.value()));
                break;
            default:
                edge(tag);
        }
    }
    const FormatOverrides& read() const { return m_read; }

private:
    void edge(const Tag& tag) {
        const auto isOf = [&](int first) { return tag.code >= first && tag.code < first + kEdgeCount; };
        if (isOf(274)) set(prop::weight.at(tag.code - 274), lineWeight(tag));
        if (isOf(284)) {
            set(prop::visibility.at(tag.code - 284), file::visibility(tag));
        }
        if (isOf(64)) set(prop::lineColor.at(tag.code - 64), indexedColor(tag));
    }

    template <class T>
    void set(const FormatProperty<T>& which, const std::type_identity_t<T>& value) {
        m_read.own |= which.bit;
        which.in(m_read.format) = value;
    }

    LoadContext& m_context;
    FormatOverrides m_read;
    KdCmColor m_fill = KdCmColor::fromIndex(7);
};

std::int64_t fingerprintOf(TagSpan tags) {
    Fingerprint print;
    for (const Tag& tag : tags) print.add(tag);
    return print.value();
}

void writeStyleExtras(SaveContext& context, const TableStyleState& style, std::int64_t print) {
    TagWriter& out = context.out;
    out.integer(160, print);
    out.raw(300, "STYLES");
    out.integer(90, static_cast<std::int64_t>(style.records.size()));
    for (const CellStylePtr& record : style.records) {
        out.integer(90, record->index);
        out.longText(2, 1, record->name);
        writeFormat(context, record->format, kAllProperties);
    }
    out.raw(300, "FORMER");
    out.integer(90, style.nextIndex);
    out.integer(90, static_cast<std::int64_t>(style.lastName.size()));
    for (const auto& [index, name] : style.lastName) {
        out.integer(90, index);
        out.longText(2, 1, name);
    }
}

/// True when the standard codes are those that the extras were written with.
bool readStyleExtras(LoadContext& context, TagSpan tags, std::int64_t print, TableStyleState& style) {
    ExtrasReader reader(tags);
    const bool isWhole = reader.integer(160) == print;
    if (reader.toSection("STYLES")) {
        style.records.clear();
        for (int left = reader.count(90); left > 0; --left) {
            CellStyleRecord record;
            record.index = reader.index(90, INT32_MAX);
            record.name = reader.longText(2, 1);
            readFormat(context, reader, record.format, kAllProperties);
            require(style.find(record.index) == nullptr && style.find(record.name) == nullptr,
                    "two cell styles have one name");
            style.records.push_back(std::make_shared<CellStyleRecord>(std::move(record)));
        }
    }
    int standard = 0;
    for (const wchar_t* name : {kTitleStyle, kHeaderStyle, kDataStyle}) {
        const auto place = static_cast<std::size_t>(standard++);
        require(style.records.size() > place && style.records[place]->index == standard &&
                    sameName(style.records[place]->name, name),
                "a standard cell style is missing");
    }
    if (!reader.toSection("FORMER")) return isWhole;
    style.nextIndex = reader.index(90, INT32_MAX);
    for (int left = reader.count(90); left > 0; --left) {
        const int index = reader.index(90, INT32_MAX);
        style.lastName[index] = reader.longText(2, 1);
    }
    return isWhole;
}

}  // namespace

void writeTableStyle(SaveContext& context, const KdDbObject& object) {
    const auto& style = stateOf<TableStyleState>(object);
    const ExtrasPlace extras = placeExtras(context, object);
    writeIdentity(context, "TABLESTYLE", object, extras.dictionary);
    RecordWriter writer(context, object);
    writer.subclass("AcDbTableStyle");
    const std::size_t first = context.out.bytes().size();
    const CellFormat& data = style.records[2]->format;
    context.out.integer(280, 0);
    context.out.raw(3, "");
    context.out.integer(70, style.flow);
    context.out.integer(71, 0);
    context.out.real(40, data.marginHorz);
    context.out.real(41, data.marginVert);
    context.out.integer(280, style.titleSuppressed ? 1 : 0);
    context.out.integer(281, style.headerSuppressed ? 1 : 0);
    for (const std::wstring& name : kRowStyles) writeRowStyle(context, style.find(name)->format);
    std::vector<Tag> tags;
    appendTags(std::string_view(context.out.bytes()).substr(first), tags);
    const std::int64_t print = fingerprintOf({tags.data(), tags.data() + tags.size()});
    writer.end();
    writeExtras(context, extras, object, [&] { writeStyleExtras(context, style, print); });
}

void readTableStyle(LoadContext& context, KdDbObject& object, const FileObject& source) {
    auto& style = static_cast<TableStyleState&>(KdDbObjectAccess::stateForMaker(object));
    RecordReader reader(context, object, source);
    reader.subclass("AcDbTableStyle");
    std::vector<RowStyleReader> rows;
    double margins[2] = {1.5, 1.5};
    const TagSpan tags = reader.tags();
    const TagIterator first =
        std::find_if(tags.first, tags.last, [](const Tag& tag) { return tag.code == kTextStyle; });
    for (TagIterator tag = tags.first; tag != tags.last; ++tag) {
        reader.consume(tag);
        if (tag->code == kTextStyle) rows.emplace_back(context);
        if (tag >= first) {
            require(rows.size() <= std::size(kRowStyles), "a table style has too many row styles");
            rows.back().take(*tag);
            continue;
        }
        if (tag->code == 40 || tag->code == 41) margins[tag->code - 40] = realOf(*tag).value_or(-1.0);
        if (tag->code == 70) style.flow = static_cast<int>(integerOf(*tag).value_or(0));
        // The first of two is a version.
        if (tag->code == 280) style.titleSuppressed = integerOf(*tag) == 1;
        if (tag->code == 281) style.headerSuppressed = integerOf(*tag) == 1;
    }
    require(rows.size() == std::size(kRowStyles), "a table style has too few row styles");
    require(margins[0] >= 0.0 && margins[1] >= 0.0, "a size is below zero");
    reader.end();

    const TagSpan extras = extrasOf(context, source);
    keepOtherSections(context, object, extras, {"STYLES", "FORMER"});
    const bool holds = !extras.empty() && readStyleExtras(context, extras, fingerprintOf(tags), style);
    for (std::size_t row = 0; row < rows.size() && !holds; ++row) {
        CellStyleRecord record = *style.find(kRowStyles[row]);
        const FormatOverrides& read = rows[row].read();
        forEachProperty([&](const auto& property) {
            if ((read.own & property.bit) != 0) property.in(record.format) = property.in(read.format);
        });
        record.format.marginHorz = margins[0];
        record.format.marginVert = margins[1];
        const int index = record.index;
        style.replace(index, std::move(record));
    }
    style.changed();
}

}  // namespace kdhost::file
