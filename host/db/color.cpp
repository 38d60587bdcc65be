// Colours, and the table of the 255 colours that an index names.

#include "kd/db/color.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
};

constexpr int kByBlockIndex = 0;
constexpr int kByLayerIndex = 256;
constexpr int kNoneIndex = 257;
constexpr int kForeground = 7;

constexpr std::array<Rgb, 10> kNamed = {{{0, 0, 0},
                                         {255, 0, 0},
                                         {255, 255, 0},
                                         {0, 255, 0},
                                         {0, 255, 255},
                                         {0, 0, 255},
                                         {255, 0, 255},
                                         {255, 255, 255},
                                         {128, 128, 128},
                                         {192, 192, 192}}};
constexpr std::array<int, 5> kBrightness = {255, 165, 127, 76, 38};
constexpr std::array<int, 6> kGreys = {51, 91, 132, 173, 214, 255};

/// One of red, green and blue in the pure colour of one of 24 hues; red is full at hue 0, green at 8, blue
/// at 16. Between full and nothing lie four steps.
constexpr double share(int hue, int fullAt) {
    const int around = (hue - fullAt + 24) % 24;
    const int distance = std::min(around, 24 - around);
    return std::clamp((8 - distance) / 4.0, 0.0, 1.0);
}

/// Ten colours a hue: five brightnesses, of which each even one is pure and each odd one half white.
constexpr int shaded(double share, int shade) {
    const int brightness = kBrightness[static_cast<std::size_t>(shade / 2)];
    const double tinted = shade % 2 == 0 ? share : (share + 1.0) / 2.0;
    return static_cast<int>(brightness * tinted);
}

Rgb colorOfIndex(int index) {
    if (index < 10) return kNamed[static_cast<std::size_t>(index)];
    if (index >= 250) {
        const int grey = kGreys[static_cast<std::size_t>(index - 250)];
        return {grey, grey, grey};
    }
    const int hue = index / 10 - 1;
    const int shade = index % 10;
    return {shaded(share(hue, 0), shade), shaded(share(hue, 8), shade), shaded(share(hue, 16), shade)};
}

int distance(const Rgb& a, const Rgb& b) {
    const int red = a.red - b.red;
    const int green = a.green - b.green;
    const int blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

/// Of equally near colours the lowest index.
int nearestIndex(const Rgb& color) {
    int nearest = 1;
    for (int index = 2; index <= 255; ++index) {
        if (distance(colorOfIndex(index), color) < distance(colorOfIndex(nearest), color)) nearest = index;
    }
    return nearest;
}

Rgb unpacked(std::uint32_t value) {
    return {static_cast<int>(value >> 16 & 255), static_cast<int>(value >> 8 & 255), static_cast<int>(value & 255)};
}

Rgb rgbOf(KdCmEntityColor::ColorMethod method, std::uint32_t value) {
    switch (method) {
        case KdCmEntityColor::kByACI:
            return colorOfIndex(static_cast<int>(value));
        case KdCmEntityColor::kByColor:
            return unpacked(value);
        default:
            return {};
    }
}

}  // namespace

KdCmColor KdCmColor::fromIndex(int index) {
    if (index == kByBlockIndex) return byBlock();
    if (index == kNoneIndex) return none();
    if (index < 1 || index > 255) return {};
    KdCmColor color = withMethod(KdCmEntityColor::kByACI);
    color.m_value = static_cast<std::uint32_t>(index);
    return color;
}

KdCmColor KdCmColor::fromRgb(int red, int green, int blue) {
    const auto part = [](int value) { return static_cast<std::uint32_t>(std::clamp(value, 0, 255)); };
    KdCmColor color = withMethod(KdCmEntityColor::kByColor);
    color.m_value = part(red) << 16 | part(green) << 8 | part(blue);
    return color;
}

void KdCmColor::setColorMethod(KdCmEntityColor::ColorMethod method) {
    if (method == m_method) return;
    m_method = method;
    m_value = method == KdCmEntityColor::kByACI ? kForeground : 0;
}

int KdCmColor::colorIndex() const {
    switch (m_method) {
        case KdCmEntityColor::kByBlock:
            return kByBlockIndex;
        case KdCmEntityColor::kByACI:
            return static_cast<int>(m_value);
        case KdCmEntityColor::kByColor:
            return nearestIndex(unpacked(m_value));
        case KdCmEntityColor::kNone:
            return kNoneIndex;
        default:
            return kByLayerIndex;
    }
}

int KdCmColor::red() const {
    return rgbOf(m_method, m_value).red;
}
int KdCmColor::green() const {
    return rgbOf(m_method, m_value).green;
}
int KdCmColor::blue() const {
    return rgbOf(m_method, m_value).blue;
}
