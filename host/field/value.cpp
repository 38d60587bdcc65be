// Texts as values, and the other way round.

#include "host/field/value.h"

#include <cmath>

#include "host/db/fieldstate.h"
#include "host/field/characters.h"
#include "host/rx/numbertext.h"
#include "host/text/layout.h"

namespace kdhost::field {
namespace {

std::wstring_view trimmed(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

Value valueOfPlain(std::wstring_view text) {
    const std::wstring_view inner = trimmed(text);
    if (inner.empty()) return {};
    if (inner == kNoEvaluation) return Value::error();
    const bool perCent = inner.ends_with(L'%');
    const auto number = numberFrom(perCent ? trimmed(inner.substr(0, inner.size() - 1)) : inner);
    if (number) return Value::of(perCent ? *number / 100.0 : *number);
    return {ValueKind::text, 0.0, std::wstring(text)};
}

}  // namespace

Value Value::of(double number) {
    if (!std::isfinite(number)) return error();
    return {ValueKind::number, number, {}};
}

Value valueOfText(const wchar_t* contents) {
    const int length = text::plainLength(contents);
    if (length < 0) return valueOfPlain(text::strip(contents));
    return valueOfPlain({contents, static_cast<std::size_t>(length)});
}

std::wstring asContents(const std::wstring& text) {
    if (text::isPlain(text)) return text;
    std::wstring contents;
    for (const wchar_t character : text) {
        if (character == L'\\' || character == L'{' || character == L'}') contents += L'\\';
        contents += character;
    }
    return contents;
}

}  // namespace kdhost::field
