// What changes symbol tables, their records and the blocks, and the settings of the drawing itself.

#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "tests/host/db/setters/setters.h"

namespace kdtest {
namespace {

std::string recordsOf(const KdDbSymbolTable& table) {
    KdDbSymbolTableIterator* made = nullptr;
    table.newIterator(made);
    const std::unique_ptr<KdDbSymbolTableIterator> records(made);
    std::string all;
    for (records->start(); !records->done(); records->step()) {
        KdDbObjectId id;
        records->getRecordId(id);
        std::wstring name;
        kdhost::peek<KdDbSymbolTableRecord>(id)->getName(name);
        all += asText(name) + asText(id) + ' ';
    }
    return all;
}

std::string entitiesOf(const KdDbBlockTableRecord& block) {
    KdDbBlockTableRecordIterator* made = nullptr;
    block.newIterator(made);
    const std::unique_ptr<KdDbBlockTableRecordIterator> entities(made);
    std::string all;
    for (entities->start(); !entities->done(); entities->step()) {
        KdDbObjectId id;
        entities->getEntityId(id);
        all += asText(id) + ' ';
    }
    return all;
}

std::wstring nameOf(const KdDbSymbolTableRecord& record) {
    std::wstring name;
    record.getName(name);
    return name;
}

void addTables(std::vector<Setter>& list) {
    list.push_back(setterOf<KdDbSymbolTable>(
        &SetterWorld::layerTable, "add",
        [](KdDbSymbolTable& table, auto&) {
            auto record = std::make_unique<KdDbLayerTableRecord>();
            record->setName(L"doors");
            KdDbObjectId id;
            if (table.add(id, record.get()) == Kdad::eOk) record.release()->close();
        },
        recordsOf));
    list.push_back(setterOf<KdDbSymbolTableRecord>(
        &SetterWorld::layer, "setName", [](KdDbSymbolTableRecord& r, auto&) { r.setName(L"renamed"); }, nameOf));
}

void addBlock(std::vector<Setter>& list) {
    using Block = KdDbBlockTableRecord;
    const auto add = [&](const char* name, auto set, auto show, std::string variant = {}) {
        list.push_back(setterOf<Block>(&SetterWorld::block, name, set, show, CellLock::None, std::move(variant)));
    };
    add(
        "setOrigin",
        [](Block& b, auto&) {
            b.setOrigin({7, 8, 9});
        },
        [](const Block& b) { return b.origin(); });
    add(
        "appendKdDbEntity",
        [](Block& b, auto&) {
            auto line = std::make_unique<KdDbLine>();
            KdDbObjectId id;
            if (b.appendKdDbEntity(id, line.get()) == Kdad::eOk) line.release()->close();
        },
        entitiesOf, "id");
    add(
        "appendKdDbEntity",
        [](Block& b, auto&) {
            auto line = std::make_unique<KdDbLine>();
            if (b.appendKdDbEntity(line.get()) == Kdad::eOk) line.release()->close();
        },
        entitiesOf);
}

void addLayer(std::vector<Setter>& list) {
    using Layer = KdDbLayerTableRecord;
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Layer>(&SetterWorld::layer, name, set, show));
    };
    add(
        "setColor", [](Layer& l, auto&) { l.setColor(KdCmColor::fromIndex(3)); },
        [](const Layer& l) { return l.color(); });
    add(
        "setLinetypeObjectId", [](Layer& l, SetterWorld& w) { l.setLinetypeObjectId(w.linetype); },
        [](const Layer& l) { return l.linetypeObjectId(); });
    add(
        "setLineWeight", [](Layer& l, auto&) { l.setLineWeight(KdDb::kLnWt050); },
        [](const Layer& l) { return int(l.lineWeight()); });
    add(
        "setIsLocked", [](Layer& l, auto&) { l.setIsLocked(true); }, [](const Layer& l) { return l.isLocked(); });
    add(
        "setIsPlottable", [](Layer& l, auto&) { l.setIsPlottable(false); },
        [](const Layer& l) { return l.isPlottable(); });
}

void addLinetypeAndTextStyle(std::vector<Setter>& list) {
    using Linetype = KdDbLinetypeTableRecord;
    const auto addLinetype = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Linetype>(&SetterWorld::linetype, name, set, show));
    };
    addLinetype(
        "setComments", [](Linetype& l, auto&) { l.setComments(L"_ _ _"); },
        [](const Linetype& l) { return l.comments(); });
    addLinetype(
        "setDashes",
        [](Linetype& l, auto&) {
            l.setDashes({1.0, -0.5});
        },
        [](const Linetype& l) { return l.dashes(); });

    using Style = KdDbTextStyleTableRecord;
    const auto addStyle = [&](const char* name, auto set, auto show) {
        list.push_back(setterOf<Style>(&SetterWorld::textStyle, name, set, show));
    };
    addStyle(
        "setFont", [](Style& s, auto&) { s.setFont(L"DejaVu Serif"); }, [](const Style& s) { return s.font(); });
    addStyle(
        "setFontStyle", [](Style& s, auto&) { s.setFontStyle(true, true); },
        [](const Style& s) { return asText(s.isBold()) + asText(s.isItalic()); });
    addStyle(
        "setTextSize", [](Style& s, auto&) { s.setTextSize(17.0); }, [](const Style& s) { return s.textSize(); });
    addStyle(
        "setXScale", [](Style& s, auto&) { s.setXScale(2.5); }, [](const Style& s) { return s.xScale(); });
    addStyle(
        "setObliquingAngle", [](Style& s, auto&) { s.setObliquingAngle(0.25); },
        [](const Style& s) { return s.obliquingAngle(); });
}

using Db = KdDbDatabase;

std::vector<Setting> makeSettings() {
    std::vector<Setting> list;
    const auto add = [&](const char* name, auto set, auto show) {
        list.push_back({name, set, [=](const Db& database) { return asText(show(database)); }});
    };
    // The layer "walls" is current already.
    add(
        "setClayer", [](SetterWorld& w) { w.database.setClayer(w.database.layerZero()); },
        [](const Db& d) { return d.clayer(); });
    add(
        "setTextstyle", [](SetterWorld& w) { w.database.setTextstyle(w.textStyle); },
        [](const Db& d) { return d.textstyle(); });
    add(
        "setTablestyle", [](SetterWorld& w) { w.database.setTablestyle(w.style); },
        [](const Db& d) { return d.tablestyle(); });
    add(
        "setTilemode", [](SetterWorld& w) { w.database.setTilemode(false); }, [](const Db& d) { return d.tilemode(); });
    add(
        "setInsbase",
        [](SetterWorld& w) {
            w.database.setInsbase({1, 2, 3});
        },
        [](const Db& d) { return asText(d.insbase()); });
    add(
        "setUcs",
        [](SetterWorld& w) {
            w.database.setUcs({1, 2, 3}, {0, 1, 0}, {0, 0, 1});
        },
        [](const Db& d) { return asText(d.ucsorg()) + ' ' + asText(d.ucsxdir()) + ' ' + asText(d.ucsydir()); });
    add(
        "setPucs",
        [](SetterWorld& w) {
            w.database.setPucs({1, 2, 3}, {0, 1, 0}, {0, 0, 1});
        },
        [](const Db& d) { return asText(d.pucsorg()) + ' ' + asText(d.pucsxdir()) + ' ' + asText(d.pucsydir()); });
    add(
        "setLunits", [](SetterWorld& w) { w.database.setLunits(4); }, [](const Db& d) { return d.lunits(); });
    add(
        "setLuprec", [](SetterWorld& w) { w.database.setLuprec(2); }, [](const Db& d) { return d.luprec(); });
    add(
        "setAunits", [](SetterWorld& w) { w.database.setAunits(3); }, [](const Db& d) { return d.aunits(); });
    add(
        "setAuprec", [](SetterWorld& w) { w.database.setAuprec(5); }, [](const Db& d) { return d.auprec(); });
    add(
        "setAngbase", [](SetterWorld& w) { w.database.setAngbase(1.5); }, [](const Db& d) { return d.angbase(); });
    add(
        "setAngdir", [](SetterWorld& w) { w.database.setAngdir(true); }, [](const Db& d) { return d.angdir(); });
    add(
        "setUnitmode", [](SetterWorld& w) { w.database.setUnitmode(1); }, [](const Db& d) { return d.unitmode(); });
    add(
        "setDimzin", [](SetterWorld& w) { w.database.setDimzin(3); }, [](const Db& d) { return d.dimzin(); });
    add(
        "setInsunits", [](SetterWorld& w) { w.database.setInsunits(1); }, [](const Db& d) { return d.insunits(); });
    add(
        "setMeasurement", [](SetterWorld& w) { w.database.setMeasurement(0); },
        [](const Db& d) { return d.measurement(); });
    return list;
}

}  // namespace

void addRecordSetters(std::vector<Setter>& list) {
    addTables(list);
    addBlock(list);
    addLayer(list);
    addLinetypeAndTextStyle(list);
}

const std::vector<Setting>& allSettings() {
    static const std::vector<Setting> list = makeSettings();
    return list;
}

}  // namespace kdtest
