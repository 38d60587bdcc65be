// The tags that a drawing file is made of: a code and a value, a line each.
//
// The bytes are taken apart once, strictly: what isn't a whole file of tags in UTF-8 is refused as a whole. A value
// stays where it stands in the bytes until somebody asks for it as a number or text. Memory is bounded by the length
// of the file, whatever the file says of itself.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kdhost::file {

struct Tag {
    const char* at = nullptr;
    std::uint32_t length = 0;
    std::int16_t code = 0;

    std::string_view value() const { return {at, length}; }
    bool is(int wantedCode, std::string_view wanted) const { return code == wantedCode && value() == wanted; }
};
using TagIterator = const Tag*;

/// Some tags in a row.
struct TagSpan {
    TagIterator first = nullptr;
    TagIterator last = nullptr;  ///< behind the last one

    TagIterator begin() const { return first; }
    TagIterator end() const { return last; }
    std::size_t size() const { return static_cast<std::size_t>(last - first); }
    bool empty() const { return first == last; }
};

/// Takes the bytes apart; the tags point into them. Comments (code 999) are left out. False unless the bytes are tags
/// from the first to the last, in valid UTF-8.
bool readTags(std::string_view bytes, std::vector<Tag>& tags);

/// The same for tags without the end of a file.
bool appendTags(std::string_view bytes, std::vector<Tag>& tags);

/// Whether the bytes begin as a file of tags does: they may be a drawing, damaged or not.
bool looksLikeTags(std::string_view bytes);

// The value as a number or text; none when it isn't one, as a whole and within the type's range.
std::optional<double> realOf(const Tag& tag);
/// Degrees, in radians.
std::optional<double> angleOf(const Tag& tag);
std::optional<std::int64_t> integerOf(const Tag& tag);
/// Hexadecimal digits, 1 to 16.
std::optional<std::uint64_t> handleOf(const Tag& tag);

/// The text, in which the file writes control characters and the caret by a caret and a letter.
std::wstring textOf(std::string_view value);

/// The tags as lines again.
std::string linesOf(TagSpan tags);

/// Whether values of the code are handles of other objects.
bool isPointerCode(int code);
/// Whether those objects belong to the one that has the tag.
bool isOwningCode(int code);

}  // namespace kdhost::file
