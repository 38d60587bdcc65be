// What a file of tags consists of: sections, in them objects, in these subclasses.
#pragma once

#include <map>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/file/tags.h"

namespace kdhost::file {

/// One object of a section: all from its name to the next name.
struct FileObject {
    std::string_view name;
    TagSpan tags;  ///< all behind the name
    std::uint64_t handle = 0;
    std::uint64_t owner = 0;
    std::uint64_t extension = 0;  ///< its extension dictionary
    TagIterator body = nullptr;   ///< the first subclass; `tags.last` without one
};

struct FileSection {
    std::string_view name;
    TagSpan tags;  ///< between its name and its end
    std::vector<FileObject> objects;
};

class FileStructure {
public:
    /// False when sections don't begin and end as they must, one that every drawing has is missing or comes twice, an
    /// object that must have a handle has none, or a handle comes twice.
    bool read(const std::vector<Tag>& tags);

    /// Empty when the file has none of that name.
    const FileSection& section(std::string_view name) const;
    const std::vector<FileSection>& sections() const { return m_sections; }
    /// Greater than every handle in the file.
    std::uint64_t nextHandle() const { return m_nextHandle; }

private:
    bool readObjects(FileSection& section);
    bool checkHandles();

    std::vector<FileSection> m_sections;
    std::uint64_t m_nextHandle = 1;
};

/// Splits the first tags of an object: handle, owner, groups of references, up to its first subclass. False for tags
/// that are no handles where handles must be.
bool readIdentity(FileObject& object);

/// Behind the group in braces that begins at `at`; null when it doesn't end.
TagIterator behindGroup(TagIterator at, TagIterator last);

/// One subclass of an object, with its marker; the marker is empty for tags before the first.
struct Subclass {
    std::string_view marker;
    TagSpan tags;
};
/// The subclasses in their order, and last, without a marker, what programs have hung on the object.
std::vector<Subclass> subclassesOf(const FileObject& object);

}  // namespace kdhost::file
