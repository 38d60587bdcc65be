// Galleries as text and as pictures.

#include "tests/module/preview/gallery.h"
#include "tests/support/places.h"

#include <gtest/gtest.h>

#include <QString>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/draw/entitydrawing.h"
#include "host/draw/render.h"
#include "kd/db/blockreference.h"

namespace kdtest::preview {
namespace {

namespace draw = kdhost::draw;

constexpr double kTolerance = 0.002;
constexpr double kGap = 6.0;  ///< between samples of a picture, drawing units

std::string rounded(double number) {
    const double value = std::round(number * 1000.0) / 1000.0;
    std::ostringstream out;
    out << (value == 0.0 ? 0.0 : value);  // no negative zero
    return out.str();
}

std::string shown(const KdGePoint3d& point) {
    return ' ' + rounded(point.x) + ' ' + rounded(point.y);
}

std::string shown(const draw::Color& color) {
    if (color.foreground) return " foreground";
    return " rgb " + std::to_string(color.red) + ' ' + std::to_string(color.green) + ' ' + std::to_string(color.blue);
}

std::string shown(const draw::Polyline& line) {
    std::string text = "line";
    for (const KdGePoint3d& point : line.points) text += shown(point);
    text += shown(line.color) + " weight " + std::to_string(line.lineWeight);
    if (!line.dashes.empty()) text += " dashes";
    for (const double dash : line.dashes) text += ' ' + rounded(dash);
    return text;
}

std::string shown(const draw::Polygon& fill) {
    std::string text = "fill";
    for (const KdGePoint3d& point : fill.points) text += shown(point);
    return text + shown(fill.color);
}

std::string shown(const draw::Text& run) {
    return "text \"" + QString::fromStdWString(run.text).toStdString() + "\" at" + shown(run.origin) + " direction " +
           rounded(run.direction.x) + ' ' + rounded(run.direction.y) + " height " + rounded(run.height) + " width " +
           rounded(run.width) + shown(run.color);
}

/// Word by word; numbers may differ by a little.
bool alike(const std::string& kept, const std::string& seen) {
    std::istringstream keptWords(kept);
    std::istringstream seenWords(seen);
    std::string a;
    std::string b;
    while (keptWords >> a) {
        if (!(seenWords >> b)) return false;
        if (a == b) continue;
        bool isNumberA = false;
        bool isNumberB = false;
        const double valueA = QString::fromStdString(a).toDouble(&isNumberA);
        const double valueB = QString::fromStdString(b).toDouble(&isNumberB);
        if (!isNumberA || !isNumberB || std::abs(valueA - valueB) > kTolerance) return false;
    }
    return !(seenWords >> b);
}

std::string keptPath(const std::string& name) {
    return kdtest::sourceFile("tests/module/preview/data/") + name + ".txt";
}

void compare(const std::string& name, const std::vector<std::string>& seen) {
    std::ifstream file(keptPath(name));
    ASSERT_TRUE(file) << "nothing is kept of the gallery " << name;
    std::string kept;
    std::string title;
    for (const std::string& line : seen) {
        if (line.starts_with('#')) title = line;
        ASSERT_TRUE(std::getline(file, kept)) << name << " has more than is kept, in " << title << ": " << line;
        ASSERT_TRUE(alike(kept, line)) << name << ", in " << title << "\nkept " << kept << "\nseen " << line;
    }
    EXPECT_FALSE(std::getline(file, kept)) << name << " has less than is kept: " << kept;
}

}  // namespace

void Gallery::add(const std::string& title, const KdDbBlockReference& sample) {
    m_items.push_back({title, draw::primitivesOf(sample, {.lineWeights = true})});
}

std::vector<std::string> Gallery::lines() const {
    std::vector<std::string> result;
    for (const Item& item : m_items) {
        result.push_back("# " + item.title);
        for (const draw::Primitive& primitive : item.primitives) {
            result.push_back(std::visit([](const auto& any) { return shown(any); }, primitive));
        }
    }
    return result;
}

void Gallery::paint(const std::string& folder) const {
    double across = 0.0;
    double down = 0.0;
    for (const Item& item : m_items) {
        const KdDbExtents extents = draw::extentsOf(item.primitives);
        across = std::max(across, extents.maxPoint().x - extents.minPoint().x + kGap);
        down = std::max(down, extents.maxPoint().y - extents.minPoint().y + kGap);
    }
    draw::Primitives all;
    for (std::size_t place = 0; place < m_items.size(); ++place) {
        draw::Primitives primitives = m_items[place].primitives;
        const KdGePoint3d low = draw::extentsOf(primitives).minPoint();
        const auto width = static_cast<std::size_t>(m_width);
        const std::size_t column = place % width;
        const std::size_t row = place / width;
        const KdGeVector3d by(static_cast<double>(column) * across - low.x, -static_cast<double>(row) * down - low.y,
                              0.0);
        draw::transform(primitives, KdGeMatrix3d::translation(by));
        std::move(primitives.begin(), primitives.end(), std::back_inserter(all));
    }
    EXPECT_EQ(draw::render(all, folder + '/' + m_name + ".png"), "");
}

void Gallery::finish() const {
    const std::filesystem::path folder = kdtest::builtFile("pictures/galleries");
    std::filesystem::create_directories(folder);
    paint(folder.string());
    std::ofstream file(folder / (m_name + ".txt"));
    for (const std::string& line : lines()) file << line << '\n';
    EXPECT_TRUE(file.flush()) << "the gallery " << m_name << " can't be written";
    compare(m_name, lines());
}

}  // namespace kdtest::preview
