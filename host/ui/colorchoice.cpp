// Colours by their texts and names.

#include "host/ui/colorchoice.h"

#include <QStringList>
#include <array>

#include "host/ui/hosttexts.h"

namespace kdhost {
namespace {

constexpr std::array kNames = {HostText::Red,  HostText::Yellow,  HostText::Green,       HostText::Cyan,
                               HostText::Blue, HostText::Magenta, HostText::BlackOrWhite};

/// Digits only, so that signs and blanks inside are refused.
std::optional<int> numberOf(const QString& text, int from, int to) {
    for (const QChar character : text) {
        if (character < QLatin1Char('0') || character > QLatin1Char('9')) return std::nullopt;
    }
    bool read = false;
    const int number = text.toInt(&read);
    if (!read || number < from || number > to) return std::nullopt;
    return number;
}

std::optional<KdCmColor> trueColorOf(const QStringList& parts) {
    constexpr int kBrightest = 255;
    std::array<int, 3> values{};
    for (int i = 0; i < 3; ++i) {
        const std::optional<int> value = numberOf(parts[i].trimmed(), 0, kBrightest);
        if (!value) return std::nullopt;
        values[static_cast<std::size_t>(i)] = *value;
    }
    return KdCmColor::fromRgb(values[0], values[1], values[2]);
}

}  // namespace

std::optional<KdCmColor> colorOfText(const QString& text) {
    constexpr int kLastIndex = 255;
    const QString wanted = text.trimmed().toLower();
    if (wanted == QLatin1String("none")) return KdCmColor::none();
    if (wanted == QLatin1String("bylayer")) return KdCmColor();
    if (wanted == QLatin1String("byblock")) return KdCmColor::byBlock();
    const QStringList parts = wanted.split(QLatin1Char(','));
    if (parts.size() == 3) return trueColorOf(parts);
    const std::optional<int> index = numberOf(wanted, 1, kLastIndex);
    if (!index) return std::nullopt;
    return KdCmColor::fromIndex(*index);
}

QString colorName(const KdCmColor& color) {
    if (color.isNone()) return hostText(HostText::NoColor);
    if (color.isByLayer()) return hostText(HostText::ByLayer);
    if (color.isByBlock()) return hostText(HostText::ByBlock);
    if (color.isByColor()) return hostText(HostText::TrueColor).arg(color.red()).arg(color.green()).arg(color.blue());
    const auto index = static_cast<std::size_t>(color.colorIndex());
    if (index >= 1 && index <= kNames.size()) return hostText(kNames[index - 1]);
    return hostText(HostText::ColorNumber).arg(color.colorIndex());
}

bool offersColor(const KdCmColor& color, bool allowMeta) {
    return allowMeta || color.isByACI() || color.isByColor();
}

}  // namespace kdhost
