// Every operation that changes what an object of a drawing holds, as records: how it is called, and what tells
// whether it was. One test goes through all of them; another holds the records against the headers.
#pragma once

#include <QString>
#include <functional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "host/db/access.h"
#include "kd/db/database.h"
#include "kd/db/table.h"

namespace kdtest {

/// A drawing with one object of each class, and with what setters can give them.
struct SetterWorld {
    SetterWorld();

    KdDbDatabase database;
    KdDbObjectId layer;      ///< "walls"
    KdDbObjectId linetype;   ///< "fence"
    KdDbObjectId textStyle;  ///< "small"
    KdDbObjectId block;      ///< "Part", with a line in it
    KdDbObjectId style;      ///< "Narrow", with the cell style "Notes"
    KdDbObjectId layerTable;
    KdDbObjectId dictionary;  ///< of the table styles
    KdDbObjectId line;
    KdDbObjectId solid;
    KdDbObjectId mtext;  ///< with a field of the name "OLD"
    KdDbObjectId insertion;
    KdDbObjectId table;
    KdDbObjectId field;  ///< with a code and no child, posted
};

/// Which lock of cells refuses a setter.
enum class CellLock { None, Content, Format };

struct Setter {
    std::string owner;  ///< class whose header declares it
    std::string name;
    std::string variant;  ///< tells records of one operation apart
    KdDbObjectId SetterWorld::*object;
    std::function<void(KdDbObject&, SetterWorld&)> set;
    /// What it changes, as text.
    std::function<std::string(const KdDbObject&)> shown;
    CellLock lock = CellLock::None;
};

/// Names a record in tests.
inline std::string testName(const Setter& setter) {
    return setter.owner + "_" + setter.name + (setter.variant.empty() ? "" : "_" + setter.variant);
}
inline void PrintTo(const Setter& setter, std::ostream* out) {
    *out << testName(setter);
}

/// An operation of the drawing itself.
struct Setting {
    std::string name;
    std::function<void(SetterWorld&)> set;
    std::function<std::string(const KdDbDatabase&)> shown;
};

const std::vector<Setter>& allSetters();
const std::vector<Setting>& allSettings();

/// Everything that the records can tell of the drawing.
std::string fingerprint(const SetterWorld& world);

// ---- for the makers of records

/// A value as text.
template <class Value>
std::string asText(const Value& value) {
    std::ostringstream out;
    out.precision(17);
    if constexpr (std::is_convertible_v<Value, std::wstring>) {
        for (const wchar_t each : std::wstring(value)) out << static_cast<char>(each);
    } else if constexpr (requires { value.kwszPtr(); }) {
        out << asText(value.kwszPtr());
    } else if constexpr (requires { value.asInteger(); }) {
        out << '#' << value.asInteger();
    } else if constexpr (requires { value.colorMethod(); }) {
        out << value.colorMethod() << ':' << value.red() << ',' << value.green() << ',' << value.blue();
    } else if constexpr (requires { value.x + value.y + value.z; }) {
        out << value.x << ',' << value.y << ',' << value.z;
    } else if constexpr (requires { value.begin(); } && !std::is_convertible_v<Value, std::string>) {
        for (const auto& each : value) out << asText(each) << ' ';
    } else {
        out << value;
    }
    return out.str();
}

/// A record of class T: `set(T&, SetterWorld&)` and `show(const T&)`.
template <class T, class Set, class Show>
Setter setterOf(KdDbObjectId SetterWorld::*object, const char* name, Set set, Show show, CellLock lock = CellLock::None,
                std::string variant = {}) {
    return {QString::fromWCharArray(T::desc()->name()).toStdString(),
            name,
            std::move(variant),
            object,
            [=](KdDbObject& open, SetterWorld& world) { set(static_cast<T&>(open), world); },
            [=](const KdDbObject& seen) { return asText(show(static_cast<const T&>(seen))); },
            lock};
}

void addTableSetters(std::vector<Setter>& list);
void addStyleSetters(std::vector<Setter>& list);
void addEntitySetters(std::vector<Setter>& list);
void addObjectSetters(std::vector<Setter>& list);
void addRecordSetters(std::vector<Setter>& list);

/// The six edges of a cell.
inline constexpr KdDb::GridLineType kEdges[] = {KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                                                KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};

}  // namespace kdtest
