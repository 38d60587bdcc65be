// Measures of a font: how far each character moves on, how high a capital stands. Taken from Qt's font
// engine at a large fixed size, so that they scale, and kept, so that measuring is additions.
#pragma once

#include <QFont>
#include <array>
#include <memory>
#include <unordered_map>

#include "host/rx/encoding.h"
#include "host/text/layout.h"

class QFontMetricsF;

namespace kdhost::text {

/// The Qt font for drawing, at that pixel size: unhinted, without kerning, with the fallbacks that measuring
/// has counted on.
QFont qtFont(const Font& font, int pixelSize);

/// Height of a capital letter, in pixel sizes of the font.
double capitalRatio(const Font& font);

/// Advances of one typeface in heights of its capitals. The width factor is not in them.
class Advances {
public:
    explicit Advances(const Font& font);
    ~Advances();

    double of(wchar_t character) {
        const std::size_t code = codeOf(character);
        return code < m_latin.size() ? m_latin[code] : ofOther(character);
    }
    double capitalRatio() const { return m_capitalRatio; }

private:
    double ofOther(wchar_t character);
    double measure(wchar_t character) const;

    std::unique_ptr<QFontMetricsF> m_metrics;
    double m_capitalRatio = 0.0;
    std::array<double, 256> m_latin{};
    std::unordered_map<wchar_t, double> m_others;
};

/// Kept until the application ends.
Advances& advancesOf(const Font& font);

}  // namespace kdhost::text
