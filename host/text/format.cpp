// Codes carried out one after another.

#include "host/text/format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cwchar>
#include <numbers>
#include <optional>

#include "host/text/tokens.h"

namespace kdhost::text {
namespace {

constexpr double kMaxFactor = 1e4;
constexpr double kMaxHeight = 1e9;
constexpr double kMinSize = 1e-9;
constexpr double kMaxObliqueDegrees = 85.0;

/// A plain decimal number, nothing else around it.
std::optional<double> decimal(const std::wstring& text) {
    const bool plain = !text.empty() && text.find_first_not_of(L"0123456789.+-eE") == text.npos;
    if (!plain) return std::nullopt;
    wchar_t* end = nullptr;
    const double value = std::wcstod(text.c_str(), &end);
    return *end == L'\0' && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// A size, or with an "x" behind it a factor on the present one. Only sensible positive sizes count, so that each can
/// be written again.
void setSize(double& size, const std::wstring& parameter, double largest) {
    const bool relative = !parameter.empty() && (parameter.back() == L'x' || parameter.back() == L'X');
    const auto value = decimal(relative ? parameter.substr(0, parameter.size() - 1) : parameter);
    if (!value || (relative && *value > kMaxFactor)) return;
    const double now = relative ? size * *value : *value;
    if (now >= kMinSize && now <= largest) size = now;
}

std::vector<std::wstring> split(const std::wstring& text, wchar_t separator) {
    std::vector<std::wstring> parts(1);
    for (const wchar_t c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

void setHeight(Format& format, const std::wstring& parameter) {
    setSize(format.height, parameter, kMaxHeight);
}
void setWidth(Format& format, const std::wstring& parameter) {
    setSize(format.font.widthFactor, parameter, kMaxFactor);
}
void setTracking(Format& format, const std::wstring& parameter) {
    setSize(format.tracking, parameter, kMaxFactor);
}
void setOblique(Format& format, const std::wstring& parameter) {
    const auto degrees = decimal(parameter);
    if (degrees && std::abs(*degrees) <= kMaxObliqueDegrees) {
        format.font.obliqueAngle = *degrees * std::numbers::pi / 180.0;
    }
}
void setAlignment(Format& format, const std::wstring& parameter) {
    if (parameter.size() == 1 && parameter[0] >= L'0' && parameter[0] <= L'2') format.alignment = parameter[0] - L'0';
}
void setIndexColor(Format& format, const std::wstring& parameter) {
    const auto index = decimal(parameter);
    if (index && *index >= 0.0 && *index <= 256.0) format.ink = {Ink::Kind::index, static_cast<int>(*index)};
}
/// One number of blue, green and red.
void setTrueColor(Format& format, const std::wstring& parameter) {
    const auto value = decimal(parameter);
    if (value && *value >= 0.0 && *value <= 0xFFFFFF) format.ink = {Ink::Kind::bgr, static_cast<int>(*value)};
}

void noteTypeface(Format& format, const std::wstring& code) {
    format.typeface = {{format.font.family, format.font.bold, format.font.italic}, code};
}

/// The family, then b and i for bold and italic; the rest says what a font engine of its own finds out.
void setTypeface(Format& format, const std::wstring& parameter) {
    const std::vector<std::wstring> parts = split(parameter, L'|');
    if (!parts[0].empty()) format.font.family = parts[0];
    format.font.bold = std::find(parts.begin() + 1, parts.end(), L"b1") != parts.end();
    format.font.italic = std::find(parts.begin() + 1, parts.end(), L"i1") != parts.end();
    // A code without a family leans on what was before it and can't stand elsewhere.
    noteTypeface(format, parts[0].empty() ? typefaceCode(format.font) : L'f' + parameter);
}

/// A font file: its name without the extension stands for the family. It is neither bold nor italic.
void setFontFile(Format& format, const std::wstring& parameter) {
    const std::wstring file = split(split(parameter, L'|')[0], L',')[0];
    if (file.empty()) return;
    format.font.family = file.substr(0, file.rfind(L'.'));
    format.font.bold = format.font.italic = false;
    noteTypeface(format, L'F' + parameter);
}

void setParagraphLength(double& length, const std::wstring& text) {
    if (text == L"*") {
        length = 0.0;
    } else if (const auto value = decimal(text); value && std::abs(*value) < kMaxFactor) {
        length = *value;
    }
}

/// Parts between commas, each with a letter ahead; numbers behind a "t" part are its further tabs. An "x" ahead of it
/// all says nothing.
void setParagraph(Format& format, const std::wstring& parameter) {
    Paragraph& paragraph = format.paragraph;
    bool inTabs = false;
    std::wstring rest;
    for (const std::wstring& part : split(parameter.substr(parameter.starts_with(L'x') ? 1 : 0), L',')) {
        const wchar_t letter = part.empty() ? L'\0' : part[0];
        const std::wstring value = part.empty() ? L"" : part.substr(1);
        const auto furtherTab = inTabs ? decimal(part) : std::nullopt;
        if (furtherTab) {
            paragraph.tabs.push_back(*furtherTab);
            continue;
        }
        inTabs = letter == L't';
        if (letter == L'i') {
            setParagraphLength(paragraph.firstIndent, value);
        } else if (letter == L'l') {
            setParagraphLength(paragraph.left, value);
        } else if (letter == L'r') {
            setParagraphLength(paragraph.right, value);
        } else if (letter == L'q') {
            paragraph.align = value.size() == 1 && std::wcschr(L"lcrjd", value[0]) != nullptr ? value[0] : L'\0';
        } else if (inTabs) {
            paragraph.tabs.clear();
            if (const auto tab = decimal(value)) paragraph.tabs.push_back(*tab);
        } else if (!part.empty()) {
            rest += (rest.empty() ? L"" : L",") + part;
        }
    }
    if (!rest.empty()) paragraph.rest = rest;
}

struct PropertyRule {
    wchar_t code;
    void (*set)(Format&, const std::wstring&);
};

constexpr std::array kProperties = {
    PropertyRule{L'H', setHeight},    PropertyRule{L'W', setWidth},     PropertyRule{L'T', setTracking},
    PropertyRule{L'Q', setOblique},   PropertyRule{L'A', setAlignment}, PropertyRule{L'C', setIndexColor},
    PropertyRule{L'c', setTrueColor}, PropertyRule{L'f', setTypeface},  PropertyRule{L'F', setFontFile},
    PropertyRule{L'p', setParagraph},
};

void applyProperty(Format& format, const Token& token) {
    for (const PropertyRule& rule : kProperties) {
        if (rule.code == token.code) rule.set(format, token.text);
    }
}

struct ToggleRule {
    wchar_t on;
    wchar_t off;
    bool Format::*line;
};

constexpr std::array kToggles = {ToggleRule{L'L', L'l', &Format::underline}, ToggleRule{L'O', L'o', &Format::overline},
                                 ToggleRule{L'K', L'k', &Format::strike}};

void applyToggle(Format& format, wchar_t code) {
    for (const ToggleRule& rule : kToggles) {
        if (code == rule.on) format.*rule.line = true;
        if (code == rule.off) format.*rule.line = false;
    }
}

void appendCharacters(std::vector<Piece>& pieces, const Format& format, const std::wstring& text) {
    const bool joins =
        !pieces.empty() && pieces.back().kind == Piece::Kind::Characters && pieces.back().format == format;
    if (joins) {
        pieces.back().text += text;
    } else {
        pieces.push_back({Piece::Kind::Characters, format, text, {}, 0});
    }
}

}  // namespace

std::vector<Piece> pieces(const std::wstring& contents, const Format& base) {
    std::vector<Piece> result;
    std::vector<Format> groups;
    Format format = base;
    for (const Token& token : parse(contents)) {
        switch (token.kind) {
            case TokenKind::characters:
                appendCharacters(result, format, token.text);
                break;
            case TokenKind::hardBlank:
                appendCharacters(result, format, std::wstring(1, kHardBlank));
                break;
            case TokenKind::lineBreak:
                result.push_back({Piece::Kind::LineBreak, format, {}, {}, 0});
                break;
            case TokenKind::stack:
                result.push_back({Piece::Kind::Stack, format, token.text, token.lower, token.code});
                break;
            case TokenKind::groupBegin:
                groups.push_back(format);
                break;
            case TokenKind::groupEnd:
                format = std::move(groups.back());
                groups.pop_back();
                break;
            case TokenKind::toggle:
                applyToggle(format, token.code);
                break;
            case TokenKind::property:
                applyProperty(format, token);
                break;
        }
    }
    return result;
}

}  // namespace kdhost::text
