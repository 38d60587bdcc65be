// Records of what only this program holds, in extension dictionaries of the objects concerned.
#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>

#include "host/db/cellformat.h"
#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

/// Where an object's extras will stand: an own dictionary, or the object's.
struct ExtrasPlace {
    std::uint64_t dictionary = 0;
    std::uint64_t record = 0;
    bool ownDictionary = false;  ///< made for the record alone
};
ExtrasPlace placeExtras(SaveContext& context, const KdDbObject& object);

/// Writes the record apart, to stand among the objects; `content` writes into the context as ever.
void writeExtras(SaveContext& context, const ExtrasPlace& place, const KdDbObject& object,
                 const std::function<void()>& content);

/// The tags of the object's extras, behind version and head; empty when it has none, or of a later version.
TagSpan extrasOf(const LoadContext& context, const FileObject& object);
/// Keeps the sections of other names than these: a later version of this program knows what they mean.
void keepOtherSections(LoadContext& context, KdDbObject& object, TagSpan extras,
                       std::initializer_list<std::string_view> known);
/// Whether the object has such sections.
bool hasOtherSections(const KdDbObject& object);
/// Finds extras among the objects, and what is in the file for their sake.
void findExtras(LoadContext& context, const FileSection& objects);

/// A cursor over the tags of a record, which must be what is asked for.
class ExtrasReader {
public:
    explicit ExtrasReader(TagSpan tags) : m_at(tags.first), m_last(tags.last) {}

    bool atEnd() const { return m_at == m_last; }
    bool isNext(int code) const { return m_at != m_last && m_at->code == code; }
    std::int64_t integer(int code);
    /// In 0 to `limit` - 1.
    int index(int code, std::size_t limit);
    /// A count of things of which each takes a tag at least.
    int count(int code);
    double real(int code);
    std::wstring longText(int pieceCode, int lastCode);
    KdDbObjectId pointer(int code, const LoadContext& context);
    /// Passes on to the next section of that name, over those that it doesn't know; false when there is none.
    bool toSection(std::string_view name);

private:
    const Tag& next(int code);

    TagIterator m_at;
    TagIterator m_last;
};

/// The properties in `bits`, each with its value.
void writeFormat(SaveContext& context, const CellFormat& format, FormatBits bits);
void readFormat(LoadContext& context, ExtrasReader& reader, CellFormat& format, FormatBits bits);

}  // namespace kdhost::file
