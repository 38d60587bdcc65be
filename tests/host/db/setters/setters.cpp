// The drawing that setters are tried on, and the list of all of them.

#include "tests/host/db/setters/setters.h"

#include "kd/db/blockreference.h"
#include "kd/db/field.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/tablestyle.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

namespace kdtest {
namespace {

KdDbObjectId makeStyle(KdDbDatabase& database) {
    auto* styles = mustOpen<KdDbDictionary>(database.tableStyleDictionaryId(), KdDb::kForWrite);
    auto* style = new KdDbTableStyle;
    KdDbObjectId id;
    EXPECT_EQ(styles->setAt(L"Narrow", style, id), Kdad::eOk);
    style->createCellStyle(L"Notes", L"_DATA");
    style->close();
    styles->close();
    return id;
}

KdDbObjectId makeBlock(KdDbDatabase& database) {
    const KdDbObjectId id = addRecord<KdDbBlockTableRecord>(database.blockTableId(), L"Part");
    auto* block = mustOpen<KdDbBlockTableRecord>(id, KdDb::kForWrite);
    auto* line = new KdDbLine({0, 0, 0}, {1, 1, 0});
    EXPECT_EQ(block->appendKdDbEntity(line), Kdad::eOk);
    line->close();
    block->close();
    return id;
}

KdDbObjectId makeText(KdDbDatabase& database) {
    auto* text = new KdDbMText;
    text->setContents(L"some text");
    text->setTextHeight(2.0);
    const KdDbObjectId id = append(database, text);
    auto* open = mustOpen<KdDbMText>(id, KdDb::kForWrite);
    auto* field = new KdDbField;
    field->setFieldCode(L"old");
    EXPECT_EQ(open->setField(L"OLD", field), Kdad::eOk);
    field->close();
    open->close();
    return id;
}

KdDbObjectId makeTable(KdDbDatabase& database, KdDbObjectId block) {
    TableBuilder builder(4, 3);
    builder.style(database.tablestyle()).merge("A1:C1").merge("B2:C3").fill().align("A4", KdDb::kTopLeft);
    std::unique_ptr<KdDbTable> table = builder.build();
    table->setBlockTableRecordId(3, 2, 0, block, false);
    table->setRowHeight(3, 1.0);  // too low for its text
    return append(database, table.release());
}

KdDbObjectId makeField(KdDbDatabase& database) {
    auto* field = new KdDbField;
    field->setFieldCode(L"code");
    EXPECT_EQ(field->postInDatabase(&database), Kdad::eOk);
    const KdDbObjectId id = field->objectId();
    field->close();
    return id;
}

}  // namespace

SetterWorld::SetterWorld()
    : layer(addRecord<KdDbLayerTableRecord>(database.layerTableId(), L"walls")),
      linetype(addRecord<KdDbLinetypeTableRecord>(database.linetypeTableId(), L"fence")),
      textStyle(addRecord<KdDbTextStyleTableRecord>(database.textStyleTableId(), L"small")),
      block(makeBlock(database)),
      style(makeStyle(database)),
      layerTable(database.layerTableId()),
      dictionary(database.tableStyleDictionaryId()),
      line(appendLine(database)),
      solid(append(database, new KdDbSolid({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}))),
      mtext(makeText(database)),
      insertion(append(database, new KdDbBlockReference({1, 2, 0}, block))),
      table(makeTable(database, block)),
      field(makeField(database)) {
    database.setClayer(layer);
}

const std::vector<Setter>& allSetters() {
    static const std::vector<Setter> list = [] {
        std::vector<Setter> all;
        addTableSetters(all);
        addStyleSetters(all);
        addEntitySetters(all);
        addObjectSetters(all);
        addRecordSetters(all);
        return all;
    }();
    return list;
}

std::string fingerprint(const SetterWorld& world) {
    std::string all;
    for (const Setter& setter : allSetters()) {
        const KdDbObject* object = kdhost::peekObject(world.*setter.object, true);
        all += setter.owner + "::" + setter.name + setter.variant + ' ' + setter.shown(*object) + '\n';
    }
    for (const Setting& setting : allSettings()) all += setting.name + ' ' + setting.shown(world.database) + '\n';
    return all + describe(static_cast<const KdDbTable&>(*kdhost::peekObject(world.table, true)));
}

}  // namespace kdtest
