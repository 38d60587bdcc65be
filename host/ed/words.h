// What the host says and asks on the command line: each text in both of its languages, where it is used.
#pragma once

#include <concepts>
#include <string>
#include <vector>

namespace kdhost {

class Words {
public:
    /// Texts whose places for values, %1 to %9, differ don't compile. The texts must outlive the object, as
    /// literals do.
    consteval Words(const wchar_t* english, const wchar_t* chinese) : m_english(english), m_chinese(chinese) {
        if (placesIn(english) != placesIn(chinese)) throw "both languages must have the same places for values";
    }

    /// In the host's language.
    const wchar_t* text() const;
    /// In the host's language, with the values in the places %1, %2 and so on.
    template <class... Values>
    std::wstring with(const Values&... values) const {
        return filled({shown(values)...});
    }

private:
    /// One bit for each place.
    static constexpr unsigned placesIn(const wchar_t* text) {
        unsigned places = 0;
        for (; *text != L'\0'; ++text) {
            if (*text == L'%' && text[1] >= L'1' && text[1] <= L'9') places |= 1U << (text[1] - L'0');
        }
        return places;
    }
    static std::wstring shown(const std::wstring& text) { return text; }
    static std::wstring shown(std::integral auto number) { return std::to_wstring(number); }
    static std::wstring shown(double number);

    std::wstring filled(const std::vector<std::wstring>& values) const;

    const wchar_t* m_english;
    const wchar_t* m_chinese;
};

}  // namespace kdhost
