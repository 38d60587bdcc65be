// Pictures of samples: read from their blocks, compared and put into words.

#include "tests/module/preview/samplepicture.h"

#include <gtest/gtest.h>

#include <QString>
#include <algorithm>
#include <cmath>
#include <sstream>

#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/symboltable.h"
#include "kd/db/symbolutilities.h"

namespace kdtest::preview {
namespace {

constexpr double kAlike = 1e-9;

/// Reads entities in the place where a reference puts them.
class Reader {
public:
    Reader(const KdGeMatrix3d& toWorld, KdDbObjectId screenOnly, KdDbObjectId defaultLinetype)
        : m_toWorld(toWorld), m_screenOnly(screenOnly), m_defaultLinetype(defaultLinetype) {}

    Part operator()(const KdDbSolid& solid) const {
        Solid read{{}, solid.color()};
        for (int corner = 0; corner < 4; ++corner) {
            KdGePoint3d point;
            EXPECT_EQ(solid.getPointAt(corner, point), Kdad::eOk);
            read.corners.at(static_cast<std::size_t>(corner)) = m_toWorld * point;
        }
        return read;
    }

    Part operator()(const KdDbMText& text) const {
        EXPECT_TRUE((m_toWorld * text.normal()).isEqualTo(KdGeVector3d::kZAxis, kAlike)) << "the text lies askew";
        return Text{text.contents(), m_toWorld * text.location(), m_toWorld * text.direction(), text.textHeight(),
                    text.width(),    text.attachment(),           text.flowDirection(),         text.textStyle(),
                    text.color()};
    }

    Part operator()(const KdDbLine& line) const {
        Line read;
        read.from = m_toWorld * line.startPoint();
        read.to = m_toWorld * line.endPoint();
        if (line.linetypeId() != m_defaultLinetype) read.linetype = line.linetypeId();
        read.weight = line.lineWeight();
        read.color = line.color();
        read.screenOnly = line.layerId() == m_screenOnly;
        return read;
    }

private:
    KdGeMatrix3d m_toWorld;
    KdDbObjectId m_screenOnly;
    KdDbObjectId m_defaultLinetype;
};

bool alike(double a, double b) {
    return std::abs(a - b) <= kAlike;
}
bool alike(const KdGePoint3d& a, const KdGePoint3d& b) {
    return alike(a.x, b.x) && alike(a.y, b.y) && alike(a.z, b.z);
}
bool alike(const KdGeVector3d& a, const KdGeVector3d& b) {
    return alike(a.x, b.x) && alike(a.y, b.y) && alike(a.z, b.z);
}

bool alike(const Solid& a, const Solid& b) {
    for (std::size_t corner = 0; corner < a.corners.size(); ++corner) {
        if (!alike(a.corners.at(corner), b.corners.at(corner))) return false;
    }
    return a.color == b.color;
}
bool alike(const Text& a, const Text& b) {
    return a.contents == b.contents && alike(a.place, b.place) && alike(a.direction, b.direction) &&
           alike(a.height, b.height) && alike(a.wrapWidth, b.wrapWidth) && a.attachment == b.attachment &&
           a.flow == b.flow && a.style == b.style && a.color == b.color;
}
bool alike(const Line& a, const Line& b) {
    return alike(a.from, b.from) && alike(a.to, b.to) && a.linetype == b.linetype && a.weight == b.weight &&
           a.color == b.color && a.screenOnly == b.screenOnly;
}

bool alike(const Part& a, const Part& b) {
    if (a.index() != b.index()) return false;
    return std::visit([&](const auto& part) { return alike(part, std::get<std::decay_t<decltype(part)>>(b)); }, a);
}

std::ostream& operator<<(std::ostream& out, const KdGePoint3d& point) {
    return out << '(' << point.x << ", " << point.y << (alike(point.z, 0.0) ? "" : ", not flat") << ')';
}

std::ostream& operator<<(std::ostream& out, const KdCmColor& color) {
    return out << " colour " << color.colorMethod() << ':' << color.red() << ',' << color.green() << ','
               << color.blue();
}

void show(std::ostream& out, const Solid& solid) {
    out << "solid";
    for (const KdGePoint3d& corner : solid.corners) out << ' ' << corner;
    out << solid.color;
}
void show(std::ostream& out, const Text& text) {
    out << "text \"" << QString::fromStdWString(text.contents).toStdString() << "\" at " << text.place << " direction ("
        << text.direction.x << ", " << text.direction.y << ") height " << text.height << " wrapped at "
        << text.wrapWidth << " attachment " << text.attachment << " flow " << text.flow << " style #"
        << text.style.asInteger() << text.color;
}
void show(std::ostream& out, const Line& line) {
    out << "line " << line.from << " to " << line.to << " linetype #" << line.linetype.asInteger() << " weight "
        << line.weight << line.color << (line.screenOnly ? " screen only" : "");
}

std::string shown(const Part& part) {
    std::ostringstream out;
    out.precision(12);
    std::visit([&](const auto& any) { show(out, any); }, part);
    return out.str();
}

}  // namespace

Picture pictureOf(const KdDbBlockReference& reference, KdDbObjectId screenOnly) {
    const auto* block = kdhost::peek<KdDbBlockTableRecord>(reference.blockTableRecord());
    if (block == nullptr) return {};
    const Reader read(reference.blockTransform(), screenOnly, block->database()->celtype());
    Picture picture;
    for (const KdDbObjectId id : kdhost::entitiesOf(reference.blockTableRecord())) {
        if (const auto* solid = kdhost::peek<KdDbSolid>(id)) {
            picture.push_back(read(*solid));
        } else if (const auto* text = kdhost::peek<KdDbMText>(id)) {
            picture.push_back(read(*text));
        } else if (const auto* line = kdhost::peek<KdDbLine>(id)) {
            picture.push_back(read(*line));
        } else {
            ADD_FAILURE() << "an entity of another class stands in the block";
        }
    }
    return picture;
}

int differingParts(const Picture& expected, const Picture& seen) {
    EXPECT_EQ(expected.size(), seen.size());
    int count = 0;
    for (std::size_t place = 0; place < std::min(expected.size(), seen.size()); ++place) {
        if (!alike(expected[place], seen[place])) ++count;
    }
    return count;
}

std::string difference(const Picture& expected, const Picture& seen) {
    const std::size_t common = std::min(expected.size(), seen.size());
    for (std::size_t place = 0; place < common; ++place) {
        if (alike(expected[place], seen[place])) continue;
        return "part " + std::to_string(place) + "\nexpected " + shown(expected[place]) + "\n    seen " +
               shown(seen[place]);
    }
    if (expected.size() == seen.size()) return {};
    return std::to_string(expected.size()) + " parts expected, " + std::to_string(seen.size()) + " seen";
}

std::string shown(const Picture& picture) {
    std::string lines;
    for (const Part& part : picture) lines += shown(part) + '\n';
    return lines;
}

KdDbObjectId screenOnlyLayer(KdDbDatabase* database) {
    return KdDbSymbolUtilities::servicesPtr106()->screenOnlyLayerId(database);
}

}  // namespace kdtest::preview
