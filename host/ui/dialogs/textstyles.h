// The text styles of a drawing, as their dialog works on them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/ui/hosttexts.h"
#include "kd/db/objectid.h"

class KdDbDatabase;

namespace kdhost {

struct TextStyleValues {
    std::wstring font;
    bool bold = false;
    bool italic = false;
    double height = 0.0;
    double widthFactor = 1.0;

    friend bool operator==(const TextStyleValues&, const TextStyleValues&) = default;
};

/// Each change is one object opened, changed and closed. What is refused changes nothing and gives the message
/// to show.
class TextStyles {
public:
    using Refusal = std::optional<HostText>;

    explicit TextStyles(KdDbDatabase& database) : m_database(database) {}

    /// In the order of their making.
    std::vector<std::wstring> names() const;
    /// Null when there is no such style. Names are compared without regard to case.
    KdDbObjectId find(const std::wstring& name) const;
    std::wstring current() const;
    /// Nothing when there is no such style.
    std::optional<TextStyleValues> values(const std::wstring& name) const;
    /// A name that no style has.
    std::wstring proposal() const;

    /// The new style begins with the values of `like`.
    Refusal create(const std::wstring& name, const std::wstring& like);
    Refusal rename(const std::wstring& from, const std::wstring& to);
    Refusal remove(const std::wstring& name);
    Refusal set(const std::wstring& name, const TextStyleValues& values);
    Refusal setCurrent(const std::wstring& name);

    /// True when anything in the drawing uses the style, or it is the current one.
    bool isUsed(KdDbObjectId style) const;

private:
    KdDbDatabase& m_database;
};

}  // namespace kdhost
