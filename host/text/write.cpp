// Pieces written as a text with codes.

#include <algorithm>
#include <cmath>
#include <locale>
#include <numbers>
#include <sstream>

#include "host/text/format.h"

namespace kdhost::text {
namespace {

/// With as few digits as `reads` takes for the number.
template <class Reads>
std::wstring shortest(double value, Reads&& reads) {
    for (int digits = 6; digits <= 17; ++digits) {
        std::wostringstream out;
        out.imbue(std::locale::classic());
        out.precision(digits);
        out << value;
        if (digits == 17 || reads(std::wcstod(out.str().c_str(), nullptr))) return out.str();
    }
    return {};
}

std::wstring shortest(double value) {
    return shortest(value, [value](double read) { return read == value; });
}

/// An angle in radians, in degrees.
std::wstring degrees(double angle) {
    constexpr double kHalfTurn = 180.0;
    return shortest(angle * kHalfTurn / std::numbers::pi,
                    [angle](double read) { return read * std::numbers::pi / kHalfTurn == angle; });
}

std::wstring code(wchar_t letter, const std::wstring& parameter) {
    return std::wstring(L"\\") + letter + parameter + L";";
}

std::wstring paragraphCode(const Paragraph& paragraph) {
    std::wstring parts = L"i" + shortest(paragraph.firstIndent) + L",l" + shortest(paragraph.left) + L",r" +
                         shortest(paragraph.right) + L",q" + (paragraph.align == 0 ? L'*' : paragraph.align);
    if (!paragraph.rest.empty()) parts += L"," + paragraph.rest;
    parts += L",t";
    for (std::size_t i = 0; i < paragraph.tabs.size(); ++i)
        parts += (i == 0 ? L"" : L",") + shortest(paragraph.tabs[i]);
    return code(L'p', parts);
}

std::wstring inkCode(const Ink& ink) {
    return code(ink.kind == Ink::Kind::bgr ? L'c' : L'C',
                std::to_wstring(ink.kind == Ink::Kind::ofText ? 256 : ink.value));
}

bool sameFace(const Font& a, const Font& b) {
    return a.family == b.family && a.bold == b.bold && a.italic == b.italic;
}

std::wstring codeOfTypeface(const Format& format) {
    const std::wstring& given = format.typeface.code;
    const bool holds = !given.empty() && sameFace(format.typeface.font, format.font);
    return L'\\' + (holds ? given : typefaceCode(format.font)) + L';';
}

/// Codes from one format to another.
std::wstring change(const Format& from, const Format& to) {
    std::wstring codes;
    if (!(from.paragraph == to.paragraph)) codes += paragraphCode(to.paragraph);
    if (!sameFace(from.font, to.font) || from.typeface.code != to.typeface.code) codes += codeOfTypeface(to);
    if (from.height != to.height) codes += code(L'H', shortest(to.height));
    if (from.font.widthFactor != to.font.widthFactor) codes += code(L'W', shortest(to.font.widthFactor));
    if (from.font.obliqueAngle != to.font.obliqueAngle) {
        codes += code(L'Q', degrees(to.font.obliqueAngle));
    }
    if (from.tracking != to.tracking) codes += code(L'T', shortest(to.tracking));
    if (from.alignment != to.alignment) codes += code(L'A', std::to_wstring(to.alignment));
    if (!(from.ink == to.ink)) codes += inkCode(to.ink);
    if (from.underline != to.underline) codes += to.underline ? L"\\L" : L"\\l";
    if (from.overline != to.overline) codes += to.overline ? L"\\O" : L"\\o";
    if (from.strike != to.strike) codes += to.strike ? L"\\K" : L"\\k";
    return codes;
}

std::wstring escapedInStack(const std::wstring& text) {
    std::wstring out;
    for (const wchar_t c : text) {
        if (c == L'/' || c == L'#' || c == L'^' || c == L';' || c == L'\\') out += L'\\';
        out += c;
    }
    return out;
}

std::wstring content(const Piece& piece) {
    switch (piece.kind) {
        case Piece::Kind::Characters:
            return escaped(piece.text);
        case Piece::Kind::LineBreak:
            return L"\\P";
        case Piece::Kind::Stack: {
            std::wstring out = L"\\S" + escapedInStack(piece.text);
            if (piece.separator != 0) out += piece.separator + escapedInStack(piece.lower);
            return out + L";";
        }
    }
    return {};
}

}  // namespace

std::wstring typefaceCode(const Font& font) {
    return L'f' + font.family + (font.bold ? L"|b1" : L"|b0") + (font.italic ? L"|i1" : L"|i0");
}

std::wstring escaped(const std::wstring& characters) {
    std::wstring out;
    out.reserve(characters.size());
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const wchar_t c = characters[i];
        switch (c) {
            case L'\\':
            case L'{':
            case L'}':
                out += L'\\';
                out += c;
                break;
            case L'\n':
                out += L"\\P";
                break;
            case kHardBlank:
                out += L"\\~";
                break;
            case L'%':
                // Two of them begin a code of their own.
                if (i + 1 < characters.size() && characters[i + 1] == L'%') {
                    out += L"%%%";
                } else {
                    out += c;
                }
                break;
            default:
                out += c;
        }
    }
    return out;
}

std::wstring write(const std::vector<Piece>& pieces, const Format& base) {
    std::wstring out;
    for (std::size_t i = 0; i < pieces.size();) {
        // Neighbours of one format share a group.
        std::size_t end = i;
        std::wstring inside;
        for (; end < pieces.size() && pieces[end].format == pieces[i].format; ++end) inside += content(pieces[end]);
        const std::wstring codes = change(base, pieces[i].format);
        if (codes.empty()) {
            out += inside;
        } else {
            out.append(1, L'{').append(codes).append(inside).append(1, L'}');
        }
        i = end;
    }
    return out;
}

}  // namespace kdhost::text
