// What changes lines, solids, texts and insertions, and what every entity has.

#include "kd/db/blockreference.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "tests/host/db/setters/setters.h"

namespace kdtest {
namespace {

const KdGeMatrix3d& turned() {
    static const KdGeMatrix3d matrix =
        KdGeMatrix3d::translation({5, 6, 7}) * KdGeMatrix3d::rotation(0.5, KdGeVector3d::kZAxis, KdGePoint3d(1, 1, 0));
    return matrix;
}

void addCommon(std::vector<Setter>& list) {
    using Entity = KdDbEntity;
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Entity>(&SetterWorld::line, name, set, show));
    };
    add(
        "setDatabaseDefaults", [](Entity& e, SetterWorld& w) { e.setDatabaseDefaults(&w.database); },
        [](const Entity& e) { return e.layerId(); });
    add(
        "setLayer", [](Entity& e, SetterWorld& w) { e.setLayer(w.layer); },
        [](const Entity& e) { return e.layerId(); });
    add(
        "setColor", [](Entity& e, auto&) { e.setColor(KdCmColor::fromIndex(3)); },
        [](const Entity& e) { return e.color(); });
    add(
        "setLinetype", [](Entity& e, SetterWorld& w) { e.setLinetype(w.linetype); },
        [](const Entity& e) { return e.linetypeId(); });
    add(
        "setLineWeight", [](Entity& e, auto&) { e.setLineWeight(KdDb::kLnWt050); },
        [](const Entity& e) { return int(e.lineWeight()); });
    add(
        "setVisibility", [](Entity& e, auto&) { e.setVisibility(KdDb::kInvisible); },
        [](const Entity& e) { return int(e.visibility()); });
}

void addPoints(std::vector<Setter>& list) {
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<KdDbLine>(&SetterWorld::line, name, set, show));
    };
    add(
        "setStartPoint",
        [](KdDbLine& l, auto&) {
            l.setStartPoint({7, 8, 9});
        },
        [](const KdDbLine& l) { return l.startPoint(); });
    add(
        "setEndPoint",
        [](KdDbLine& l, auto&) {
            l.setEndPoint({7, 8, 9});
        },
        [](const KdDbLine& l) { return l.endPoint(); });
    add(
        "transformBy", [](KdDbLine& l, auto&) { l.transformBy(turned()); },
        [](const KdDbLine& l) { return l.endPoint(); });
    const auto corner = [](const KdDbSolid& s) {
        KdGePoint3d point;
        s.getPointAt(2, point);
        return point;
    };
    list.push_back(setterOf<KdDbSolid>(
        &SetterWorld::solid, "setPointAt",
        [](KdDbSolid& s, auto&) {
            s.setPointAt(2, {7, 8, 9});
        },
        corner));
    list.push_back(setterOf<KdDbSolid>(
        &SetterWorld::solid, "transformBy", [](KdDbSolid& s, auto&) { s.transformBy(turned()); }, corner));
}

void addInsertion(std::vector<Setter>& list) {
    using Insertion = KdDbBlockReference;
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Insertion>(&SetterWorld::insertion, name, set, show));
    };
    add(
        "setNormal",
        [](Insertion& i, auto&) {
            i.setNormal({0, 0, -1});
        },
        [](const Insertion& i) { return i.normal(); });
    add(
        "setPosition",
        [](Insertion& i, auto&) {
            i.setPosition({7, 8, 9});
        },
        [](const Insertion& i) { return i.position(); });
    add(
        "setBlockTableRecord", [](Insertion& i, SetterWorld& w) { i.setBlockTableRecord(w.database.paperSpaceId()); },
        [](const Insertion& i) { return i.blockTableRecord(); });
    add(
        "setRotation", [](Insertion& i, auto&) { i.setRotation(1.5); },
        [](const Insertion& i) { return i.rotation(); });
    add(
        "setScaleFactor", [](Insertion& i, auto&) { i.setScaleFactor(2.5); },
        [](const Insertion& i) { return i.scaleFactor(); });
    add(
        "transformBy", [](Insertion& i, auto&) { i.transformBy(turned()); },
        [](const Insertion& i) { return asText(i.position()) + ' ' + asText(i.rotation()); });
}

void addText(std::vector<Setter>& list) {
    using Text = KdDbMText;
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Text>(&SetterWorld::mtext, name, set, show));
    };
    add(
        "setLocation",
        [](Text& t, auto&) {
            t.setLocation({7, 8, 9});
        },
        [](const Text& t) { return t.location(); });
    add(
        "setNormal",
        [](Text& t, auto&) {
            t.setNormal({0, 0, -1});
        },
        [](const Text& t) { return t.normal(); });
    add(
        "setRotation", [](Text& t, auto&) { t.setRotation(1.5); }, [](const Text& t) { return t.rotation(); });
    add(
        "setFlowDirection", [](Text& t, auto&) { t.setFlowDirection(KdDbMText::kTtoB); },
        [](const Text& t) { return int(t.flowDirection()); });
    add(
        "setWidth", [](Text& t, auto&) { t.setWidth(3.0); }, [](const Text& t) { return t.width(); });
    add(
        "setHeight", [](Text& t, auto&) { t.setHeight(3.0); }, [](const Text& t) { return t.height(); });
    add(
        "setDirection",
        [](Text& t, auto&) {
            t.setDirection({0, 1, 0});
        },
        [](const Text& t) { return t.direction(); });
    add(
        "setTextStyle", [](Text& t, SetterWorld& w) { t.setTextStyle(w.textStyle); },
        [](const Text& t) { return t.textStyle(); });
    add(
        "setTextHeight", [](Text& t, auto&) { t.setTextHeight(17.0); },
        [](const Text& t) { return asText(t.textHeight()) + ' ' + asText(t.actualWidth()); });
    add(
        "setAttachment", [](Text& t, auto&) { t.setAttachment(Text::kBottomRight); },
        [](const Text& t) { return int(t.attachment()); });
    add(
        "setContents", [](Text& t, auto&) { t.setContents(L"another text"); },
        [](const Text& t) { return t.contents(); });
    add(
        "setBackgroundFill", [](Text& t, auto&) { t.setBackgroundFill(true); },
        [](const Text& t) { return t.backgroundFillOn(); });
    add(
        "setBackgroundFillColor", [](Text& t, auto&) { t.setBackgroundFillColor(KdCmColor::fromIndex(3)); },
        [](const Text& t) { return t.backgroundFillColor(); });
    add(
        "setBackgroundScaleFactor", [](Text& t, auto&) { t.setBackgroundScaleFactor(4.5); },
        [](const Text& t) { return t.backgroundScaleFactor(); });
    add(
        "setUseBackgroundColor", [](Text& t, auto&) { t.setUseBackgroundColor(true); },
        [](const Text& t) { return t.useBackgroundColorOn(); });
    add(
        "transformBy", [](Text& t, auto&) { t.transformBy(turned()); },
        [](const Text& t) { return asText(t.location()) + ' ' + asText(t.rotation()); });
}

}  // namespace

void addEntitySetters(std::vector<Setter>& list) {
    addCommon(list);
    addPoints(list);
    addInsertion(list);
    addText(list);
}

}  // namespace kdtest
