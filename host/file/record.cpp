// Attributes in and out of tags.

#include "host/file/record.h"

#include <algorithm>

namespace kdhost::file {
namespace {

/// A true colour stands this much above the index that comes near it.
constexpr int kTrueColorOffset = 358;
constexpr int kByLayer = 256;

std::uint32_t packed(const KdCmColor& color) {
    return static_cast<std::uint32_t>(color.red() << 16 | color.green() << 8 | color.blue());
}

}  // namespace

// ---- writing

void RecordWriter::endCommon() {
    const auto& foreign = KdDbObjectAccess::state(m_object).foreign;
    if (foreign != nullptr) m_context.keptTags(foreign->common, m_object);
}

void RecordWriter::end() {
    if (std::exchange(m_ended, true)) return;
    const auto& foreign = KdDbObjectAccess::state(m_object).foreign;
    if (foreign != nullptr) m_context.keptTags(foreign->own, m_object);
}

bool RecordWriter::hasForeign(int code) const {
    const auto& foreign = KdDbObjectAccess::state(m_object).foreign;
    if (foreign == nullptr) return false;
    const std::string line = std::to_string(code) + "\n";
    const std::string& lines = ((*foreign).*m_fixes).lines;
    // Lines of codes are every second one.
    for (std::size_t at = 0; at < lines.size();) {
        if (lines.compare(at, line.size(), line) == 0) return true;
        at = lines.find('\n', lines.find('\n', at) + 1) + 1;
    }
    return false;
}

void RecordWriter::fixed(int code, std::string_view text) {
    if (!hasForeign(code)) m_out.raw(code, text);
}

void RecordWriter::color(int code, const KdCmColor& color, int standardIndex) {
    if (color.isByColor() || color.colorIndex() != standardIndex) m_out.integer(code, color.colorIndex());
    if (color.isByColor()) m_out.integer(code + kTrueColorOffset, packed(color));
}

// ---- reading

void RecordReader::subclass(std::string_view marker) {
    require(m_next < m_subclasses.size() && m_subclasses[m_next].marker == marker, "a subclass is missing");
    m_tags = m_subclasses[m_next++].tags;
    m_consumed.assign(m_tags.size(), 0);
    m_cursor = 0;
}

TagIterator RecordReader::find(int code) {
    const std::size_t count = m_tags.size();
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t at = m_cursor + step < count ? m_cursor + step : m_cursor + step - count;
        if (m_tags.first[at].code != code || m_consumed[at] != 0) continue;
        m_cursor = at;
        return m_tags.first + at;
    }
    return nullptr;
}

const Tag& RecordReader::needed(int code) {
    const TagIterator tag = find(code);
    require(tag != nullptr, "an attribute is missing");
    consume(tag);
    return *tag;
}

void RecordReader::xyz(int code, double& x, double& y, double& z) {
    x = asked(realOf(needed(code)));
    y = asked(realOf(needed(code + 10)));
    z = has(code + 20) ? asked(realOf(needed(code + 20))) : 0.0;
}

void RecordReader::longText(int pieceCode, int lastCode, std::wstring& text) {
    text.clear();
    for (TagIterator tag = m_tags.first; tag != m_tags.last; ++tag) {
        if (tag->code != pieceCode && tag->code != lastCode) continue;
        text += textOf(tag->value());
        consume(tag);
    }
}

void RecordReader::fixed(int code, std::string_view text) {
    const TagIterator tag = find(code);
    if (tag != nullptr && tag->value() == text) consume(tag);
}

void RecordReader::record(int code, KdDbObjectId& id, KdDbObjectId table, KdDbObjectId standard) {
    id = has(code) ? m_context.record(table, needed(code).value()) : standard;
}

void RecordReader::pointer(int code, KdDbObjectId& id) {
    id = has(code) ? m_context.idOf(asked(handleOf(needed(code)))) : KdDbObjectId::kNull;
}

void RecordReader::color(int code, KdCmColor& color, int standardIndex) {
    int index = standardIndex;
    if (has(code)) value(code, index);
    check(index >= 0 && index <= kByLayer + 1);
    color = KdCmColor::fromIndex(index);
    if (!has(code + kTrueColorOffset)) return;
    std::uint32_t rgb = 0;
    value(code + kTrueColorOffset, rgb);
    color = KdCmColor::fromRgb(static_cast<int>(rgb >> 16 & 255), static_cast<int>(rgb >> 8 & 255),
                               static_cast<int>(rgb & 255));
}

void RecordReader::leave(KeptTags& kept) {
    for (std::size_t at = 0; at < m_tags.size(); ++at) {
        if (m_consumed[at] == 0) m_context.keep(m_tags.first + at, kept);
    }
    m_tags = {};
}

TagSpan RecordReader::takeExtended(std::string_view program) {
    TagSpan& all = m_subclasses.back().tags;
    const auto begins = [](const Tag& tag) { return tag.code == 1001; };
    TagIterator at = std::find_if(all.first, all.last, begins);
    if (at == all.last || at->value() != program) return {};
    const TagIterator behind = std::find_if(at + 1, all.last, begins);
    const TagSpan taken{at + 1, behind};
    all.first = behind;
    return taken;
}

void RecordReader::end() {
    leave(m_foreign.own);
    for (; m_next < m_subclasses.size(); ++m_next) {
        const Subclass& rest = m_subclasses[m_next];
        if (!rest.marker.empty()) m_foreign.own.lines += "100\n" + std::string(rest.marker) + "\n";
        for (const Tag& tag : rest.tags) m_context.keep(&tag, m_foreign.own);
    }
    m_context.setForeign(m_object, std::move(m_foreign));
}

}  // namespace kdhost::file
