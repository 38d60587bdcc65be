// What a cell or a formula comes to.
#pragma once

#include <string>
#include <string_view>

namespace kdhost::field {

enum class ValueKind : unsigned char { empty, number, text, error };

struct Value {
    ValueKind kind = ValueKind::empty;
    double number = 0.0;
    std::wstring text;  ///< as it is read, without formatting codes

    static Value of(double number);  ///< an error unless finite
    static Value error() { return {ValueKind::error, 0.0, {}}; }
};

/// What a cell's text, formatting codes and all, comes to. A text that reads as a number is one, with a per
/// cent sign behind it a hundredth of it; blanks around it don't count. "####" is an error.
Value valueOfText(const wchar_t* contents);

/// A text as the contents of a cell: what would be read as a formatting code is written so that it isn't.
std::wstring asContents(const std::wstring& text);

}  // namespace kdhost::field
