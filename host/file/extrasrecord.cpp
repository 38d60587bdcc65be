// Records of what only this program holds.

#include "host/file/extrasrecord.h"

#include <algorithm>
#include <limits>

#include "host/db/access.h"
#include "host/file/checked.h"
#include "host/file/tableextras.h"

namespace kdhost::file {
namespace {

constexpr int kVersion = 1;
constexpr int kSection = 300;
constexpr int kColorMethods = 8;

// One value of a property each way; which code it has follows from its type.

void write(SaveContext& context, double value) {
    context.out.real(40, value);
}
void write(SaveContext& context, const std::wstring& value) {
    context.out.longText(2, 1, value);
}
void write(SaveContext& context, KdDbObjectId value) {
    context.out.handle(330, context.handleOf(value));
}
void write(SaveContext& context, const KdCmColor& color) {
    context.out.integer(70, color.colorMethod() - KdCmEntityColor::kByLayer);
    if (color.isByACI()) context.out.integer(62, color.colorIndex());
    if (color.isByColor()) context.out.integer(420, color.red() << 16 | color.green() << 8 | color.blue());
}
template <class T>
requires std::is_enum_v<T> || std::is_integral_v<T>
void write(SaveContext& context, T value) {
    context.out.integer(90, static_cast<std::int64_t>(value));
}

void read(LoadContext&, ExtrasReader& reader, double& value) {
    value = reader.real(40);
}
void read(LoadContext&, ExtrasReader& reader, std::wstring& value) {
    value = reader.longText(2, 1);
}
void read(LoadContext& context, ExtrasReader& reader, KdDbObjectId& value) {
    value = reader.pointer(330, context);
}
void read(LoadContext&, ExtrasReader& reader, KdCmColor& color) {
    const int method = KdCmEntityColor::kByLayer + reader.index(70, kColorMethods + 1);
    color = {};
    color.setColorMethod(static_cast<KdCmEntityColor::ColorMethod>(method));
    if (color.isByACI()) color = KdCmColor::fromIndex(reader.index(62, 256));
    if (!color.isByColor()) return;
    const int rgb = reader.index(420, 0x1000000);
    color = KdCmColor::fromRgb(rgb >> 16, rgb >> 8 & 255, rgb & 255);
}
template <class T>
requires std::is_enum_v<T> || std::is_integral_v<T>
void read(LoadContext&, ExtrasReader& reader, T& value) {
    const std::int64_t number = reader.integer(90);
    require(number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max(),
            "a number is outside its range");
    value = static_cast<T>(number);
}

bool isSound(const GridLook& look) {
    return (look.visibility == KdDb::kVisible || look.visibility == KdDb::kInvisible) &&
           (look.style == KdDb::kGridLineStyleSingle || look.style == KdDb::kGridLineStyleDouble) &&
           look.spacing >= 0.0;
}

/// Whether nothing in the format is beyond what a setter takes.
bool isSound(const CellFormat& format) {
    return format.alignment >= KdDb::kTopLeft && format.alignment <= KdDb::kBottomRight && format.textHeight >= 0.0 &&
           std::all_of(format.grid.begin(), format.grid.end(), [](const GridLook& look) { return isSound(look); });
}

}  // namespace

// ---- writing

ExtrasPlace placeExtras(SaveContext& context, const KdDbObject& object) {
    ExtrasPlace place;
    place.dictionary = context.handleOf(object.extensionDictionary());
    place.ownDictionary = place.dictionary == 0;
    if (place.ownDictionary) place.dictionary = context.newHandle();
    place.record = context.newHandle();
    if (!place.ownDictionary) context.extraEntries[object.extensionDictionary()] = place.record;
    return place;
}

void writeExtras(SaveContext& context, const ExtrasPlace& place, const KdDbObject& object,
                 const std::function<void()>& content) {
    std::swap(context.out.bytes(), context.objects);
    TagWriter& out = context.out;
    if (place.ownDictionary) {
        out.raw(0, "DICTIONARY");
        out.handle(5, place.dictionary);
        out.handle(330, object.handle());
        out.raw(100, "AcDbDictionary");
        out.integer(280, 1);
        out.integer(281, 1);
        out.raw(3, kExtrasKey);
        out.handle(360, place.record);
    }
    out.raw(0, "XRECORD");
    out.handle(5, place.record);
    out.handle(330, place.dictionary);
    out.raw(100, "AcDbXrecord");
    out.integer(280, 1);
    out.integer(90, kVersion);
    out.integer(290, place.ownDictionary ? 1 : 0);
    content();
    if (hasOtherSections(object)) context.keptTags(KdDbObjectAccess::state(object).foreign->extras, object);
    out.raw(kSection, "END");
    std::swap(context.out.bytes(), context.objects);
}

void writeFormat(SaveContext& context, const CellFormat& format, FormatBits bits) {
    forEachProperty([&](const auto& property) {
        if ((bits & property.bit) != 0) write(context, property.in(format));
    });
}

// ---- reading

void findExtras(LoadContext& context, const FileSection& objects) {
    for (const FileObject& object : objects.objects) {
        if (object.name != "DICTIONARY") continue;
        std::size_t entries = 0;
        const FileObject* record = nullptr;
        bool isNamed = false;
        for (const Tag& tag : object.tags) {
            if (tag.code == 3) {
                ++entries;
                isNamed = tag.value() == kExtrasKey;
            } else if (isNamed && (tag.code == 350 || tag.code == 360)) {
                record = context.fileObject(handleOf(tag).value_or(0));
                isNamed = false;
            }
        }
        if (record == nullptr || record->name != "XRECORD") continue;
        const TagSpan all{record->body, record->tags.last};
        context.extras.emplace(object.handle, record);
        context.passedOver.insert(record->handle);
        constexpr std::size_t kOwnFlag = 3;
        const bool isOwn = all.size() > kOwnFlag && all.first[kOwnFlag].is(290, "1");
        if (isOwn && entries == 1) context.passedOver.insert(object.handle);
    }
}

TagSpan extrasOf(const LoadContext& context, const FileObject& object) {
    const auto found = context.extras.find(object.extension);
    if (found == context.extras.end()) return {};
    const FileObject& record = *found->second;
    const TagSpan all{record.body, record.tags.last};
    // Subclass, cloning flag, version, and whether the dictionary is the record's own.
    constexpr std::size_t kHead = 4;
    if (all.size() < kHead || !all.first[0].is(100, "AcDbXrecord") || all.first[2].code != 90) return {};
    if (integerOf(all.first[2]) != kVersion) return {};
    return {all.first + kHead, all.last};
}

void keepOtherSections(LoadContext& context, KdDbObject& object, TagSpan extras,
                       std::initializer_list<std::string_view> known) {
    ForeignTags foreign;
    bool isOther = false;
    for (const Tag& tag : extras) {
        if (tag.is(kSection, "END")) break;
        if (tag.code == kSection) isOther = std::find(known.begin(), known.end(), tag.value()) == known.end();
        if (isOther) context.keep(&tag, foreign.extras);
    }
    context.setForeign(object, std::move(foreign));
}

bool hasOtherSections(const KdDbObject& object) {
    const auto& foreign = KdDbObjectAccess::state(object).foreign;
    return foreign != nullptr && !foreign->extras.empty();
}

const Tag& ExtrasReader::next(int code) {
    require(isNext(code), "a record of extras is not what it says");
    return *m_at++;
}

std::int64_t ExtrasReader::integer(int code) {
    return asked(integerOf(next(code)));
}

int ExtrasReader::index(int code, std::size_t limit) {
    const std::int64_t value = integer(code);
    require(value >= 0 && static_cast<std::size_t>(value) < limit, "a number is outside its range");
    return static_cast<int>(value);
}

int ExtrasReader::count(int code) {
    return index(code, static_cast<std::size_t>(m_last - m_at) + 1);
}

double ExtrasReader::real(int code) {
    return asked(realOf(next(code)));
}

std::wstring ExtrasReader::longText(int pieceCode, int lastCode) {
    std::wstring text;
    while (isNext(pieceCode)) text += textOf(next(pieceCode).value());
    return text += textOf(next(lastCode).value());
}

KdDbObjectId ExtrasReader::pointer(int code, const LoadContext& context) {
    return context.idOf(asked(handleOf(next(code))));
}

bool ExtrasReader::toSection(std::string_view name) {
    for (TagIterator at = m_at; at != m_last; ++at) {
        if (!at->is(kSection, name)) continue;
        m_at = at + 1;
        return true;
    }
    return false;
}

void readFormat(LoadContext& context, ExtrasReader& reader, CellFormat& format, FormatBits bits) {
    forEachProperty([&](const auto& property) {
        if ((bits & property.bit) != 0) read(context, reader, property.in(format));
    });
    require(isSound(format), "a format holds what no format can");
}

}  // namespace kdhost::file
