// Header variables and classes.

#include "host/file/header.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/symbolstate.h"
#include "host/db/walk.h"
#include "kd/db/entity.h"

namespace kdhost::file {
namespace {

constexpr int kVariable = 9;
constexpr const char* kVersion = "AC1027";
constexpr const char* kVersions[] = {"AC1021", "AC1024", "AC1027", "AC1032"};

/// One variable that the drawing keeps: writes its tags, takes them.
struct Variable {
    const char* name;
    void (*write)(const DatabaseContents&, SaveContext&, TagWriter&);
    void (*read)(LoadContext&, TagSpan);
};

const Tag& only(TagSpan tags, int code) {
    require(!tags.empty() && tags.first->code == code, "a variable is of another kind than its name says");
    return *tags.first;
}

template <auto get, auto set>
constexpr Variable number(const char* name) {
    return {name,
            [](const DatabaseContents& contents, SaveContext&, TagWriter& out) {
                out.integer(70, (contents.header.*get)());
            },
            [](LoadContext& context, TagSpan tags) {
                using Value = decltype((context.contents.header.*get)());
                const std::optional<std::int64_t> value = integerOf(only(tags, 70));
                require(value && *value >= INT16_MIN && *value <= INT16_MAX, "a number is none");
                // What this program can't show as the file wants it, it shows its own way.
                (context.contents.header.*set)(static_cast<Value>(*value));
            }};
}

template <int code, KdDbObjectId CurrentSettings::*member, KdDbObjectId DatabaseRoots::*table>
constexpr Variable current(const char* name) {
    return {name,
            [](const DatabaseContents& contents, SaveContext& names, TagWriter& out) {
                out.raw(code, names.nameOf(contents.current.*member));
            },
            [](LoadContext& context, TagSpan tags) {
                const KdDbObjectId id = context.recordOrNull(context.contents.roots.*table, only(tags, code).value());
                if (id.isValid()) context.contents.current.*member = id;
            }};
}

template <class Point>
Point pointOf(TagSpan tags) {
    double xyz[3] = {0.0, 0.0, 0.0};
    for (std::size_t axis = 0; axis < std::min<std::size_t>(3, tags.size()); ++axis) {
        require(tags.first[axis].code == 10 * (static_cast<int>(axis) + 1), "a point is none");
        const std::optional<double> value = realOf(tags.first[axis]);
        require(value.has_value(), "a number is none");
        xyz[axis] = *value;
    }
    return {xyz[0], xyz[1], xyz[2]};
}

template <SpaceSystems CurrentSettings::*space, auto part>
constexpr Variable system(const char* name) {
    return {name,
            [](const DatabaseContents& contents, SaveContext&, TagWriter& out) {
                out.point(10, (contents.current.*space).now.*part);
            },
            [](LoadContext& context, TagSpan tags) {
                auto& value = (context.contents.current.*space).now.*part;
                value = pointOf<std::decay_t<decltype(value)>>(tags);
            }};
}

constexpr Variable kVariables[] = {
    {"$ANGBASE",
     [](const DatabaseContents& contents, SaveContext&, TagWriter& out) { out.angle(50, contents.header.angbase()); },
     [](LoadContext& context, TagSpan tags) {
         const std::optional<double> value = angleOf(only(tags, 50));
         require(value && context.contents.header.setAngbase(*value) == Kdad::eOk, "a number is none");
     }},
    number<&KdDbHeaderVar::angdir, &KdDbHeaderVar::setAngdir>("$ANGDIR"),
    number<&KdDbHeaderVar::aunits, &KdDbHeaderVar::setAunits>("$AUNITS"),
    number<&KdDbHeaderVar::auprec, &KdDbHeaderVar::setAuprec>("$AUPREC"),
    current<6, &CurrentSettings::linetype, &DatabaseRoots::linetypeTable>("$CELTYPE"),
    current<8, &CurrentSettings::layer, &DatabaseRoots::layerTable>("$CLAYER"),
    number<&KdDbHeaderVar::dimzin, &KdDbHeaderVar::setDimzin>("$DIMZIN"),
    {"$INSBASE",
     [](const DatabaseContents& contents, SaveContext&, TagWriter& out) {
         out.point(10, contents.current.insertionBase);
     },
     [](LoadContext& context, TagSpan tags) { context.contents.current.insertionBase = pointOf<KdGePoint3d>(tags); }},
    number<&KdDbHeaderVar::insunits, &KdDbHeaderVar::setInsunits>("$INSUNITS"),
    number<&KdDbHeaderVar::lunits, &KdDbHeaderVar::setLunits>("$LUNITS"),
    number<&KdDbHeaderVar::luprec, &KdDbHeaderVar::setLuprec>("$LUPREC"),
    number<&KdDbHeaderVar::measurement, &KdDbHeaderVar::setMeasurement>("$MEASUREMENT"),
    system<&CurrentSettings::paperSystems, &UserSystem::origin>("$PUCSORG"),
    system<&CurrentSettings::paperSystems, &UserSystem::x>("$PUCSXDIR"),
    system<&CurrentSettings::paperSystems, &UserSystem::y>("$PUCSYDIR"),
    current<7, &CurrentSettings::textStyle, &DatabaseRoots::textStyleTable>("$TEXTSTYLE"),
    {"$TILEMODE",
     [](const DatabaseContents& contents, SaveContext&, TagWriter& out) {
         out.integer(70, contents.current.modelSpace ? 1 : 0);
     },
     [](LoadContext& context, TagSpan tags) {
         context.contents.current.modelSpace = integerOf(only(tags, 70)).value_or(1) != 0;
     }},
    system<&CurrentSettings::modelSystems, &UserSystem::origin>("$UCSORG"),
    system<&CurrentSettings::modelSystems, &UserSystem::x>("$UCSXDIR"),
    system<&CurrentSettings::modelSystems, &UserSystem::y>("$UCSYDIR"),
    number<&KdDbHeaderVar::unitmode, &KdDbHeaderVar::setUnitmode>("$UNITMODE"),
};

/// What is worked out anew at each save.
constexpr std::string_view kMade[] = {"$ACADVER", "$HANDSEED", "$DWGCODEPAGE", "$EXTMIN", "$EXTMAX"};

struct FileVariable {
    std::string_view name;
    TagSpan tags;
};

std::vector<FileVariable> variablesOf(const FileSection& header) {
    std::vector<FileVariable> variables;
    for (TagIterator at = header.tags.first; at != header.tags.last;) {
        require(at->code == kVariable, "a variable has no name");
        FileVariable variable{at->value(), {at + 1, at + 1}};
        for (++at; at != header.tags.last && at->code != kVariable; ++at) {
        }
        variable.tags.last = at;
        variables.push_back(variable);
    }
    return variables;
}

/// A class of objects that are not part of the format's oldest core.
struct Class {
    const char* object;
    const char* lines;
};
constexpr Class kClasses[] = {
    {"ACAD_TABLE", "2\nAcDbTable\n3\nObjectDBX Classes\n90\n1025\n91\n0\n280\n0\n281\n1\n"},
    {"TABLESTYLE", "2\nAcDbTableStyle\n3\nObjectDBX Classes\n90\n4095\n91\n0\n280\n0\n281\n0\n"},
    {"FIELD", "2\nAcDbField\n3\nObjectDBX Classes\n90\n1152\n91\n0\n280\n0\n281\n0\n"},
};

}  // namespace

void writeHeader(const KdDbDatabase& database, SaveContext& names, TagWriter& out, std::uint64_t nextHandle) {
    const DatabaseContents& contents = KdDbDatabaseAccess::contents(database);
    const auto begin = [&](std::string_view name) { out.raw(kVariable, name); };
    out.raw(0, "SECTION");
    out.raw(2, "HEADER");
    begin("$ACADVER");
    out.raw(1, kVersion);
    begin("$DWGCODEPAGE");
    out.raw(3, "ANSI_1252");
    begin("$HANDSEED");
    out.handle(5, nextHandle);
    const KdDbExtents extents = extentsOfEntities(contents.roots.modelSpace);
    begin("$EXTMIN");
    out.point(10, extents.minPoint());
    begin("$EXTMAX");
    out.point(10, extents.maxPoint());
    for (const Variable& variable : kVariables) {
        begin(variable.name);
        variable.write(contents, names, out);
    }
    for (const auto& [name, lines] : contents.remainder.variables) {
        begin(name);
        out.lines(lines);
    }
    out.raw(0, "ENDSEC");
}

void writeClasses(SaveContext& context, TagWriter& out) {
    out.raw(0, "SECTION");
    out.raw(2, "CLASSES");
    const auto write = [&](std::string_view object, std::string_view lines) {
        out.raw(0, "CLASS");
        out.raw(1, object);
        out.lines(lines);
    };
    for (const Class& each : kClasses) write(each.object, each.lines);
    for (const auto& [object, lines] : context.contents.remainder.classes) write(object, lines);
    out.raw(0, "ENDSEC");
}

bool isKnownVersion(const FileSection& header) {
    for (TagIterator at = header.tags.first; at != header.tags.last && at + 1 != header.tags.last; ++at) {
        if (!at->is(kVariable, "$ACADVER")) continue;
        return std::find(std::begin(kVersions), std::end(kVersions), at[1].value()) != std::end(kVersions);
    }
    return false;
}

void readHeader(LoadContext& context, const FileSection& header) {
    for (const FileVariable& each : variablesOf(header)) {
        const auto* known = std::find_if(std::begin(kVariables), std::end(kVariables),
                                         [&](const Variable& variable) { return variable.name == each.name; });
        if (known != std::end(kVariables)) {
            known->read(context, each.tags);
        } else if (std::find(std::begin(kMade), std::end(kMade), each.name) == std::end(kMade)) {
            context.contents.remainder.variables.emplace_back(each.name, linesOf(each.tags));
        }
    }
}

void readClasses(LoadContext& context, const FileSection& classes) {
    const TagSpan tags = classes.tags;
    for (TagIterator at = tags.first; at != tags.last;) {
        require(at->is(0, "CLASS") && at + 1 != tags.last && at[1].code == 1, "a class has no name");
        const std::string_view object = at[1].value();
        const TagIterator first = at + 2;
        for (at = first; at != tags.last && at->code != 0; ++at) {
        }
        const bool isKnown = std::any_of(std::begin(kClasses), std::end(kClasses),
                                         [&](const Class& each) { return each.object == object; });
        if (!isKnown) context.contents.remainder.classes.emplace_back(object, linesOf({first, at}));
    }
}

}  // namespace kdhost::file
