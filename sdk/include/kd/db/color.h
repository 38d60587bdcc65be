// Colours of entities, cells and edges.
#pragma once

#include <cstdint>

namespace KdCmEntityColor {
enum ColorMethod : int { kByLayer = 192, kByBlock = 193, kByColor = 194, kByACI = 195, kNone = 200 };
}

/// A colour by layer, by block, by index (1 to 255), by red, green and blue, or none.
class KdCmColor {
public:
    /// By layer.
    constexpr KdCmColor() = default;

    static KdCmColor none() { return withMethod(KdCmEntityColor::kNone); }
    static KdCmColor byBlock() { return withMethod(KdCmEntityColor::kByBlock); }
    /// 0 is by block, 256 by layer, 257 none; other values outside 1 to 255 give by layer.
    static KdCmColor fromIndex(int index);
    static KdCmColor fromRgb(int red, int green, int blue);

    bool isNone() const { return m_method == KdCmEntityColor::kNone; }
    bool isByLayer() const { return m_method == KdCmEntityColor::kByLayer; }
    bool isByBlock() const { return m_method == KdCmEntityColor::kByBlock; }
    bool isByACI() const { return m_method == KdCmEntityColor::kByACI; }
    bool isByColor() const { return m_method == KdCmEntityColor::kByColor; }

    KdCmEntityColor::ColorMethod colorMethod() const { return m_method; }
    /// Keeps the value of an index or of red, green and blue where the new method is the same, and sets it
    /// to 7 or to black otherwise.
    void setColorMethod(KdCmEntityColor::ColorMethod method);

    /// 1 to 255 for an index, 0 by block, 256 by layer, 257 none; for a true colour the nearest index.
    int colorIndex() const;
    void setColorIndex(int index) { *this = fromIndex(index); }
    int red() const;  ///< of a true colour or an index; 0 otherwise
    int green() const;
    int blue() const;

    friend bool operator==(const KdCmColor&, const KdCmColor&) = default;

private:
    static constexpr KdCmColor withMethod(KdCmEntityColor::ColorMethod method) {
        KdCmColor color;
        color.m_method = method;
        return color;
    }

    KdCmEntityColor::ColorMethod m_method = KdCmEntityColor::kByLayer;
    std::uint32_t m_value = 0;  ///< an index, or 0xRRGGBB
};
