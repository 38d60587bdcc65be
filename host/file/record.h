// One object's attributes, in and out of tags.
//
// What an object's class holds is told once, by a function that names each attribute with its code; a RecordWriter
// carries it out as writing, a RecordReader as reading. What a file says beyond that is kept: the reader gathers
// the tags that nobody asked for, the writer puts them behind the object's own.
#pragma once

#include <concepts>
#include <type_traits>

#include "host/db/entitystate.h"
#include "host/file/checked.h"
#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

/// Attributes that are a whole number in the file.
template <class T>
concept Whole = std::integral<T> || std::is_enum_v<T>;

/// To the last bit: vectors compare with a tolerance elsewhere, and a file keeps them as they are.
template <class T>
bool isExactly(const T& value, const T& other) {
    return value == other;
}
inline bool isExactly(const KdGeVector3d& value, const KdGeVector3d& other) {
    return value.x == other.x && value.y == other.y && value.z == other.z;
}

class RecordWriter {
public:
    RecordWriter(SaveContext& context, const KdDbObject& object)
        : m_context(context), m_out(context.out), m_object(object) {}
    static constexpr bool kReads = false;

    void subclass(std::string_view marker) { m_out.raw(100, marker); }
    /// Ends the attributes that all entities have, or those of the object; what a program hangs on it may follow.
    void endCommon();
    void end();
    /// Values that must be there are looked for among what is common to all entities from now on.
    void fixesCommon() { m_fixes = &ForeignTags::common; }

    void value(int code, double number) { m_out.real(code, number); }
    void value(int code, Whole auto number) { m_out.integer(code, static_cast<std::int64_t>(number)); }
    void value(int code, const std::wstring& text) { m_out.text(code, text); }
    void value(int code, const KdGePoint3d& point) { m_out.point(code, point); }
    void value(int code, const KdGeVector3d& vector) { m_out.point(code, vector); }
    void angle(int code, double radians) { m_out.angle(code, radians); }
    /// Left out when it is the standard one, which a reader takes then.
    template <class T>
    void value(int code, const T& value, const std::type_identity_t<T>& standard) {
        if (!isExactly(value, standard)) this->value(code, value);
    }
    void angle(int code, double radians, double standard) {
        if (radians != standard) angle(code, radians);
    }
    /// A text of any length, in pieces.
    void longText(int pieceCode, int lastCode, const std::wstring& text) { m_out.longText(pieceCode, lastCode, text); }
    /// What says nothing of the object but must be there; a file's own value is kept.
    void fixed(int code, std::string_view text);

    void layer(int code, KdDbObjectId id) { m_out.raw(code, name(id, m_context.contents.roots.layerZero)); }
    void linetype(int code, KdDbObjectId id, KdDbObjectId standard) { record(code, id, standard); }
    void textStyle(int code, KdDbObjectId id) { m_out.raw(code, name(id, m_context.contents.current.textStyle)); }
    void block(int code, KdDbObjectId id) { m_out.raw(code, m_context.nameOf(id)); }
    void pointer(int code, KdDbObjectId id) { m_out.handle(code, m_context.handleOf(id)); }
    /// By index, and beside it the true colour where there is one.
    void color(int code, const KdCmColor& color, int standardIndex = -1);
    void check(bool) {}

private:
    void record(int code, KdDbObjectId id, KdDbObjectId standard) {
        if (id != standard && !m_context.nameOf(id).empty()) m_out.raw(code, m_context.nameOf(id));
    }
    /// Every object names something: what is gone is stood in for.
    const std::string& name(KdDbObjectId id, KdDbObjectId standIn) {
        const std::string& own = m_context.nameOf(id);
        return own.empty() ? m_context.nameOf(standIn) : own;
    }
    bool hasForeign(int code) const;

    SaveContext& m_context;
    TagWriter& m_out;
    const KdDbObject& m_object;
    KeptTags ForeignTags::*m_fixes = &ForeignTags::own;
    bool m_ended = false;
};

class RecordReader {
public:
    RecordReader(LoadContext& context, KdDbObject& object, const FileObject& source)
        : m_context(context), m_object(object), m_subclasses(subclassesOf(source)) {
        m_foreign.groups = context.keepGroups(source);
    }
    static constexpr bool kReads = true;

    /// The attributes asked for from now on stand in this subclass, which must be the next one.
    void subclass(std::string_view marker);
    void endCommon() { leave(m_foreign.common); }
    /// Lets go of what nobody asked for in the subclass.
    void forget() { m_tags = {}; }
    /// Lets go of the groups of references before the first subclass.
    void forgetGroups() { m_foreign.groups = {}; }
    void end();

    void value(int code, double& number) { number = asked(realOf(needed(code))); }
    void value(int code, Whole auto& number) { take(needed(code), number); }
    void value(int code, std::wstring& text) { text = textOf(needed(code).value()); }
    void value(int code, KdGePoint3d& point) { xyz(code, point.x, point.y, point.z); }
    void value(int code, KdGeVector3d& vector) { xyz(code, vector.x, vector.y, vector.z); }
    void angle(int code, double& radians) { radians = asked(angleOf(needed(code))); }
    template <class T>
    void value(int code, T& value, const std::type_identity_t<T>& standard) {
        value = standard;
        if (has(code)) this->value(code, value);
    }
    void angle(int code, double& radians, double standard) {
        radians = standard;
        if (has(code)) angle(code, radians);
    }
    void longText(int pieceCode, int lastCode, std::wstring& text);
    void fixed(int code, std::string_view text);

    void layer(int code, KdDbObjectId& id) { id = m_context.layer(needed(code).value()); }
    void linetype(int code, KdDbObjectId& id, KdDbObjectId standard) {
        record(code, id, m_context.contents.roots.linetypeTable, standard);
    }
    void textStyle(int code, KdDbObjectId& id) {
        record(code, id, m_context.contents.roots.textStyleTable, m_context.contents.current.textStyle);
    }
    void block(int code, KdDbObjectId& id) {
        id = m_context.recordOrNull(m_context.contents.roots.blockTable, needed(code).value());
    }
    void pointer(int code, KdDbObjectId& id);
    void color(int code, KdCmColor& color, int standardIndex = -1);
    void check(bool condition) { require(condition, "a value is outside its range"); }

    bool has(int code) { return find(code) != nullptr; }

    /// What the program of that name has hung on the object, taken over from the file; empty for nothing.
    TagSpan takeExtended(std::string_view program);

    /// Hands over the tags that stand in the present subclass for walks of the caller's own.
    TagSpan tags() const { return m_tags; }
    /// The tag is known; it is not kept beside the object.
    void consume(TagIterator tag) { m_consumed[static_cast<std::size_t>(tag - m_tags.first)] = 1; }

private:
    TagIterator find(int code);
    const Tag& needed(int code);
    void record(int code, KdDbObjectId& id, KdDbObjectId table, KdDbObjectId standard);
    void xyz(int code, double& x, double& y, double& z);
    /// What nobody asked for in the subclass goes to what is kept.
    void leave(KeptTags& kept);
    template <Whole T>
    static void take(const Tag& tag, T& number) {
        const std::int64_t value = asked(integerOf(tag));
        number = static_cast<T>(value);
        require(static_cast<std::int64_t>(number) == value, "a number is outside its range");
    }

    LoadContext& m_context;
    KdDbObject& m_object;
    std::vector<Subclass> m_subclasses;
    std::size_t m_next = 0;
    TagSpan m_tags;
    std::vector<char> m_consumed;
    std::size_t m_cursor = 0;
    ForeignTags m_foreign;
};

}  // namespace kdhost::file
