// What the tags of one cell say of its looks and its value.
#pragma once

#include "host/db/tablecell.h"
#include "host/file/loadcontext.h"

namespace kdhost::file {

/// Overrides, gathered tag by tag.
struct ReadOverrides {
    /// `mask` tells which codes are overrides at all.
    void take(LoadContext& context, const Tag& tag, std::int64_t mask);
    /// Once all tags are taken: a fill that is off is none, whatever colour it has.
    void finish();
    template <class T>
    void set(const FormatProperty<T>& which, const std::type_identity_t<T>& value) {
        overrides.own |= which.bit;
        which.in(overrides.format) = value;
    }

    FormatOverrides overrides;
    bool fills = true;
};

/// Overrides that count where a cell has none of its own.
void addOverrides(CellLook& cell, const FormatOverrides& others);

/// The value of a cell, of whatever type.
struct ReadValue {
    void take(const Tag& tag);
    /// As a text cell has it: the text itself, else what is shown, else the number.
    std::wstring asText() const;
    /// Units, formats and the types of numbers are the cell's own where its value has them.
    void giveType(CellLook& cell) const;

    int type = 0;
    int unit = 0;
    std::wstring text;
    std::wstring format;
    std::wstring display;
    std::int64_t number = 0;
    double real = 0.0;
};

}  // namespace kdhost::file
