// Measures of a font, from Qt's font engine.

#include "host/text/metrics.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QStringList>
#include <map>
#include <tuple>

namespace kdhost::text {
namespace {

/// Pixel size that fonts are measured at: large enough that rounding of the engine doesn't show.
constexpr int kMeasuringSize = 1024;

/// European, Arabic and Hebrew letters, then Chinese and Japanese; packages.txt names both. Hangul is in neither: a
/// font of its own would stand before these wherever Qt looks for Chinese letters by itself, as in dialogs.
const char* const kFallbackFamilies[] = {"DejaVu Sans", "Droid Sans Fallback"};

constexpr double kTabInBlanks = 4.0;

using Face = std::tuple<std::wstring, bool, bool>;

std::map<Face, std::unique_ptr<Advances>>& faces() {
    static std::map<Face, std::unique_ptr<Advances>> kept;
    return kept;
}

/// Fonts must not outlive the application that they belong to.
void forgetFaces() {
    faces().clear();
}

}  // namespace

QFont qtFont(const Font& font, int pixelSize) {
    QStringList families;
    if (!font.family.empty()) families << QString::fromStdWString(font.family);
    for (const char* family : kFallbackFamilies) families << QString::fromLatin1(family);
    QFont result;
    result.setFamilies(families);
    result.setPixelSize(pixelSize);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setKerning(false);
    result.setHintingPreference(QFont::PreferNoHinting);
    result.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::ForceOutline | QFont::PreferQuality));
    return result;
}

double capitalRatio(const Font& font) {
    return advancesOf(font).capitalRatio();
}

Advances::Advances(const Font& font) : m_metrics(std::make_unique<QFontMetricsF>(qtFont(font, kMeasuringSize))) {
    double capital = m_metrics->capHeight();
    if (capital <= 0.0) capital = m_metrics->ascent();
    if (capital <= 0.0) capital = kMeasuringSize;
    m_capitalRatio = capital / kMeasuringSize;
    for (std::size_t i = 0; i < m_latin.size(); ++i) m_latin[i] = measure(static_cast<wchar_t>(i));
}

Advances::~Advances() = default;

double Advances::ofOther(wchar_t character) {
    const auto known = m_others.find(character);
    if (known != m_others.end()) return known->second;
    return m_others.emplace(character, measure(character)).first->second;
}

double Advances::measure(wchar_t character) const {
    const double unit = m_capitalRatio * kMeasuringSize;
    if (character == L'\t') return kTabInBlanks * m_metrics->horizontalAdvance(QLatin1Char(' ')) / unit;
    if (character < L' ' || character == 0x7F) return 0.0;
    const uint code = static_cast<uint>(character);
    return m_metrics->horizontalAdvance(QString::fromUcs4(&code, 1)) / unit;
}

Advances& advancesOf(const Font& font) {
    static Face lastFace;
    static Advances* last = nullptr;
    auto& kept = faces();
    if (kept.empty()) {
        last = nullptr;
        qAddPostRoutine(forgetFaces);
    }
    const bool same = last != nullptr && std::get<0>(lastFace) == font.family && std::get<1>(lastFace) == font.bold &&
                      std::get<2>(lastFace) == font.italic;
    if (same) return *last;
    const Face face{font.family, font.bold, font.italic};
    std::unique_ptr<Advances>& advances = kept[face];
    if (advances == nullptr) advances = std::make_unique<Advances>(font);
    lastFace = face;
    last = advances.get();
    return *last;
}

}  // namespace kdhost::text
