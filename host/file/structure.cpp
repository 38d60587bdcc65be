// Sections, objects and handles of a file.

#include "host/file/structure.h"

#include <algorithm>

namespace kdhost::file {
namespace {

constexpr int kName = 0;
constexpr int kHandle = 5;
constexpr int kDimensionStyleHandle = 105;
constexpr int kSubclass = 100;
constexpr int kGroup = 102;
constexpr int kExtendedData = 1000;

constexpr std::string_view kSections[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

/// Sections that are made of objects with handles.
bool hasObjects(std::string_view section) {
    return std::find(std::begin(kSections) + 2, std::end(kSections), section) != std::end(kSections);
}

TagIterator nextName(TagIterator at, TagIterator last) {
    while (at != last && at->code != kName) ++at;
    return at;
}

}  // namespace

TagIterator behindGroup(TagIterator at, TagIterator last) {
    for (++at; at != last && at->code != kName; ++at) {
        if (at->is(kGroup, "}")) return at + 1;
    }
    return nullptr;
}

bool readIdentity(FileObject& object) {
    const int handleCode = object.name == "DIMSTYLE" ? kDimensionStyleHandle : kHandle;
    TagIterator at = object.tags.first;
    const auto take = [&](std::uint64_t& handle) {
        const std::optional<std::uint64_t> value = handleOf(*at);
        if (value) handle = *value;
        return value.has_value();
    };
    while (at != object.tags.last && at->code != kSubclass && at->code < kExtendedData) {
        if (at->code == kGroup) {
            const TagIterator behind = behindGroup(at, object.tags.last);
            if (behind == nullptr) return false;
            const bool isExtension = at->value() == "{ACAD_XDICTIONARY" && behind - at == 3;
            if (isExtension) {
                ++at;
                if (!take(object.extension)) return false;
            }
            at = behind;
            continue;
        }
        if (at->code == handleCode && object.handle == 0 && !take(object.handle)) return false;
        if (at->code == 330 && object.owner == 0 && !take(object.owner)) return false;
        ++at;
    }
    object.body = at;
    return true;
}

bool FileStructure::readObjects(FileSection& section) {
    TagIterator at = section.tags.first;
    if (at != section.tags.last && at->code != kName) return false;
    while (at != section.tags.last) {
        FileObject object;
        object.name = at->value();
        object.tags = {at + 1, nextName(at + 1, section.tags.last)};
        if (!readIdentity(object)) return false;
        at = object.tags.last;
        section.objects.push_back(object);
    }
    return true;
}

bool FileStructure::read(const std::vector<Tag>& tags) {
    TagIterator at = tags.data();
    const TagIterator last = at + tags.size();
    while (at != last && !at->is(kName, "EOF")) {
        if (!at->is(kName, "SECTION") || last - at < 3 || at[1].code != 2) return false;
        FileSection section;
        section.name = at[1].value();
        at += 2;
        section.tags.first = at;
        while (at != last && !at->is(kName, "ENDSEC") && !at->is(kName, "SECTION") && !at->is(kName, "EOF")) ++at;
        if (at == last || !at->is(kName, "ENDSEC")) return false;
        section.tags.last = at++;
        const bool isKnown = std::any_of(m_sections.begin(), m_sections.end(),
                                         [&](const FileSection& other) { return other.name == section.name; });
        if (isKnown || (hasObjects(section.name) && !readObjects(section))) return false;
        m_sections.push_back(std::move(section));
    }
    const bool isWhole = std::all_of(std::begin(kSections), std::end(kSections), [&](std::string_view name) {
        return name == "CLASSES" || &section(name) != &section({});
    });
    return isWhole && checkHandles();
}

const FileSection& FileStructure::section(std::string_view name) const {
    static const FileSection none;
    for (const FileSection& each : m_sections) {
        if (!name.empty() && each.name == name) return each;
    }
    return none;
}

bool FileStructure::checkHandles() {
    std::vector<std::uint64_t> handles;
    for (const FileSection& section : m_sections) {
        for (const FileObject& object : section.objects) {
            if (object.handle != 0) handles.push_back(object.handle);
            if (object.handle == 0 && object.name != "ENDTAB") return false;
        }
    }
    // Files list most of their objects in the order of their handles.
    if (!std::is_sorted(handles.begin(), handles.end())) std::sort(handles.begin(), handles.end());
    if (!handles.empty()) m_nextHandle = handles.back() + 1;
    // The greatest of all can't be followed by another one.
    return m_nextHandle != 0 && std::adjacent_find(handles.begin(), handles.end()) == handles.end();
}

std::vector<Subclass> subclassesOf(const FileObject& object) {
    std::vector<Subclass> result;
    TagIterator at = object.body;
    while (at != object.tags.last && at->code == kSubclass) {
        Subclass each{at->value(), {at + 1, at + 1}};
        for (++at; at != object.tags.last && at->code != kSubclass && at->code != 1001;) {
            if (at->code != kGroup) {
                ++at;
                continue;
            }
            const TagIterator behind = behindGroup(at, object.tags.last);
            at = behind == nullptr ? object.tags.last : behind;
        }
        each.tags.last = at;
        result.push_back(each);
    }
    result.push_back({{}, {at, object.tags.last}});
    return result;
}

}  // namespace kdhost::file
