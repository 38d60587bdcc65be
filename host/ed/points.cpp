// Reading of coordinates.

#include "host/ed/points.h"

#include <cmath>
#include <numbers>
#include <vector>

#include "host/rx/numbertext.h"

namespace kdhost {
namespace {

std::optional<std::vector<double>> parseNumbers(const std::wstring& text, wchar_t separator) {
    std::vector<double> numbers;
    for (std::size_t begin = 0;;) {
        const std::size_t end = text.find(separator, begin);
        const std::optional<double> number = numberFrom(std::wstring_view(text).substr(begin, end - begin));
        if (!number) return std::nullopt;
        numbers.push_back(*number);
        if (end == std::wstring::npos) return numbers;
        begin = end + 1;
    }
}

std::optional<KdGeVector3d> parsePolar(const std::wstring& text) {
    const auto numbers = parseNumbers(text, L'<');
    if (!numbers || numbers->size() != 2) return std::nullopt;
    const double angle = (*numbers)[1] * std::numbers::pi / 180.0;
    return KdGeVector3d((*numbers)[0] * std::cos(angle), (*numbers)[0] * std::sin(angle), 0.0);
}

std::optional<KdGeVector3d> parseCartesian(const std::wstring& text) {
    const auto numbers = parseNumbers(text, L',');
    if (!numbers || numbers->size() < 2 || numbers->size() > 3) return std::nullopt;
    return KdGeVector3d((*numbers)[0], (*numbers)[1], numbers->size() == 3 ? (*numbers)[2] : 0.0);
}

}  // namespace

std::optional<KdGePoint3d> parsePoint(const std::wstring& text, const KdGePoint3d& base) {
    const bool relative = !text.empty() && text.front() == L'@';
    const std::wstring coordinates = relative ? text.substr(1) : text;
    if (relative && coordinates.empty()) return base;
    const bool polar = coordinates.find(L'<') != std::wstring::npos;
    const std::optional<KdGeVector3d> offset = polar ? parsePolar(coordinates) : parseCartesian(coordinates);
    if (!offset) return std::nullopt;
    return (relative ? base : KdGePoint3d()) + *offset;
}

}  // namespace kdhost
