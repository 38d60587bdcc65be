// All setters: each is undone and redone whole, put back by an abort, refused without a write open, on a locked
// layer and by a locked cell; and the list of them is complete.

#include "tests/host/db/setters/setters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <set>

#include "host/db/opening.h"
#include "host/db/transaction.h"
#include "host/db/undo.h"
#include "kd/db/symboltable.h"
#include "tests/support/objects.h"
#include "tests/support/places.h"

namespace kdtest {
namespace {

using Names = std::vector<std::wstring>;

class Setters : public ::testing::TestWithParam<Setter> {
protected:
    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_world.database); }
    KdDbObjectId id() const { return m_world.*GetParam().object; }
    std::string shown() const { return GetParam().shown(*kdhost::peekObject(id(), true)); }
    std::string all() const { return fingerprint(m_world); }
    void setOn(KdDbObject& object) { GetParam().set(object, m_world); }
    void set() {
        auto* object = mustOpen<KdDbObject>(id(), KdDb::kForWrite);
        ASSERT_NE(object, nullptr);
        setOn(*object);
        object->close();
    }

    SetterWorld m_world;
};

TEST_P(Setters, is_one_step_that_is_undone_and_redone_whole) {
    const std::string valueBefore = shown();
    const std::string before = all();
    {
        const kdhost::UndoCommandScope command(&m_world.database, L"SET");
        set();
    }
    const std::string after = all();
    EXPECT_NE(shown(), valueBefore);
    EXPECT_EQ(history().undoSteps(), Names{L"SET"});
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(history().undo(), Kdad::eOk);
        EXPECT_EQ(all(), before);
        EXPECT_EQ(history().redo(), Kdad::eOk);
        EXPECT_EQ(all(), after);
    }
}

TEST_P(Setters, is_put_back_by_an_abort) {
    const std::string before = all();
    kdhost::TransactionManager manager(m_world.database);
    KdDbObject* object = nullptr;
    ASSERT_EQ(manager.startTransaction()->getObject(object, id(), KdDb::kForWrite), Kdad::eOk);
    setOn(*object);
    EXPECT_NE(all(), before);
    EXPECT_EQ(manager.abortTransaction(), Kdad::eOk);
    EXPECT_EQ(all(), before);
    EXPECT_TRUE(history().undoSteps().empty());
}

TEST_P(Setters, without_a_write_open_changes_nothing_and_is_noted) {
    const std::string before = all();
    {
        const kdhost::UndoCommandScope command(&m_world.database, L"SET");
        auto* object = mustOpen<KdDbObject>(id());
        setOn(*object);
        object->close();
    }
    EXPECT_EQ(all(), before);
    EXPECT_FALSE(kdhost::takeDisciplineBreaches().empty());
    EXPECT_TRUE(history().undoSteps().empty());
}

class EntitySetters : public Setters {};

TEST_P(EntitySetters, finds_no_way_to_an_entity_on_a_locked_layer) {
    const KdDbObjectId layer = kdhost::peek<KdDbEntity>(id())->layerId();
    const auto lock = [&](bool locked) {
        auto* record = mustOpen<KdDbLayerTableRecord>(layer, KdDb::kForWrite);
        record->setIsLocked(locked);
        record->close();
    };
    lock(true);
    const std::string before = all();
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, id(), KdDb::kForWrite), Kdad::eOnLockedLayer);
    kdhost::TransactionManager manager(m_world.database);
    EXPECT_EQ(manager.startTransaction()->getObject(object, id(), KdDb::kForWrite), Kdad::eOnLockedLayer);
    manager.endTransaction();
    ASSERT_EQ(kddbOpenObject(object, id(), KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Kdad::eOnLockedLayer);
    setOn(*object);
    EXPECT_EQ(all(), before);
    EXPECT_FALSE(kdhost::takeDisciplineBreaches().empty());

    lock(false);
    EXPECT_EQ(object->upgradeOpen(), Kdad::eOk);
    setOn(*object);
    object->close();
    EXPECT_NE(all(), before);
}

TEST_P(EntitySetters, goes_on_where_the_layer_is_locked_behind_its_open) {
    const std::string before = shown();
    auto* object = mustOpen<KdDbObject>(id(), KdDb::kForWrite);
    auto* layer = mustOpen<KdDbLayerTableRecord>(static_cast<const KdDbEntity&>(*object).layerId(), KdDb::kForWrite);
    layer->setIsLocked(true);
    layer->close();
    setOn(*object);
    object->close();
    EXPECT_NE(shown(), before);
}

class TableSetters : public Setters {};

TEST_P(TableSetters, asks_the_lock_that_concerns_it) {
    struct Case {
        int state;
        bool refused;
    };
    const bool content = GetParam().lock == CellLock::Content;
    const bool format = GetParam().lock == CellLock::Format;
    for (const Case& expected : {Case{1, content}, {2, content}, {16, format}, {32, format}, {51, content || format}}) {
        SetterWorld world;
        const auto value = [&] { return GetParam().shown(*kdhost::peekObject(world.table)); };
        auto* table = mustOpen<KdDbTable>(world.table, KdDb::kForWrite);
        table->setCellState(-1, -1, static_cast<KdDb::CellState>(expected.state));
        const std::string before = fingerprint(world);
        const std::string valueBefore = value();
        GetParam().set(*table, world);
        table->close();
        if (expected.refused) {
            EXPECT_EQ(value(), valueBefore) << expected.state;
            // What copies content and looks keeps the part that is locked.
            if (expected.state == 51) {
                EXPECT_EQ(fingerprint(world), before);
            }
        } else if (GetParam().name != "setCellState" || expected.state != 2) {
            EXPECT_NE(value(), valueBefore) << expected.state;
        }
    }
}

std::string nameOfParam(const ::testing::TestParamInfo<Setter>& info) {
    return testName(info.param);
}

/// The records of what is set on these objects.
std::vector<Setter> settersOf(const std::vector<KdDbObjectId SetterWorld::*>& objects) {
    std::vector<Setter> list = allSetters();
    std::erase_if(list, [&](const Setter& setter) {
        return std::find(objects.begin(), objects.end(), setter.object) == objects.end();
    });
    return list;
}

std::vector<Setter> tableSetters() {
    std::vector<Setter> list = allSetters();
    std::erase_if(list, [](const Setter& setter) { return setter.owner != "KdDbTable"; });
    return list;
}

INSTANTIATE_TEST_SUITE_P(All, Setters, ::testing::ValuesIn(allSetters()), nameOfParam);
INSTANTIATE_TEST_SUITE_P(All, EntitySetters,
                         ::testing::ValuesIn(settersOf({&SetterWorld::line, &SetterWorld::solid, &SetterWorld::mtext,
                                                        &SetterWorld::insertion, &SetterWorld::table})),
                         nameOfParam);
INSTANTIATE_TEST_SUITE_P(All, TableSetters, ::testing::ValuesIn(tableSetters()), nameOfParam);

// ---- the settings of a drawing

TEST(Settings, each_is_one_step_that_is_undone_and_redone_whole) {
    for (const Setting& setting : allSettings()) {
        SCOPED_TRACE(setting.name);
        SetterWorld world;
        const std::string before = fingerprint(world);
        const std::string valueBefore = setting.shown(world.database);
        kdhost::UndoHistory& history = *kdhost::undoHistory(world.database);
        history.beginMark(L"Set", {});
        setting.set(world);
        history.endMark();
        EXPECT_NE(setting.shown(world.database), valueBefore);
        const std::string after = fingerprint(world);
        EXPECT_EQ(history.undoSteps(), Names{L"Set"});
        EXPECT_EQ(history.undo(), Kdad::eOk);
        EXPECT_EQ(fingerprint(world), before);
        EXPECT_EQ(history.redo(), Kdad::eOk);
        EXPECT_EQ(fingerprint(world), after);
    }
}

TEST(Settings, each_is_put_back_by_an_abort_inside_a_mark_which_then_is_no_step) {
    for (const Setting& setting : allSettings()) {
        SCOPED_TRACE(setting.name);
        SetterWorld world;
        const std::string before = fingerprint(world);
        kdhost::UndoHistory& history = *kdhost::undoHistory(world.database);
        kdhost::TransactionManager manager(world.database);
        history.beginMark(L"Set", {});
        manager.startTransaction();
        setting.set(world);
        manager.abortTransaction();
        history.endMark();
        EXPECT_EQ(fingerprint(world), before);
        EXPECT_TRUE(history.undoSteps().empty());
    }
}

// ---- what a locked layer allows

TEST(LockedLayers, take_new_entities_and_let_selections_of_cells_change) {
    SetterWorld world;
    auto* layer = mustOpen<KdDbLayerTableRecord>(world.layer, KdDb::kForWrite);
    layer->setIsLocked(true);
    layer->close();
    auto* added = new KdDbLine;
    added->setLayer(world.layer);
    const KdDbObjectId id = append(world.database, added);
    EXPECT_EQ(kdhost::peek<KdDbLine>(id)->layerId(), world.layer);
    auto* moved = mustOpen<KdDbLine>(world.line, KdDb::kForWrite);
    EXPECT_EQ(moved->setLayer(world.layer), Kdad::eOk) << "an entity may be put on a locked layer";
    moved->close();

    auto* table = mustOpen<KdDbTable>(world.table, KdDb::kForWrite);
    table->setLayer(world.layer);
    table->close();
    table = mustOpen<KdDbTable>(world.table);
    table->setSubSelection({3, 0, 3, 1});
    EXPECT_EQ(table->getSubSelection(), (KdCellRange{3, 0, 3, 1}));
    table->clearSubSelection();
    EXPECT_FALSE(table->hasSubSelection());
    table->close();
}

// ---- completeness

/// Operations that the headers declare without "const" and that are no setters, or change nothing that is kept.
const std::set<std::string> noSetters = {
    "KdDbObject::close",
    "KdDbObject::upgradeOpen",
    "KdDbObject::downgradeOpen",
    // Transient: the selection is no part of undo.
    "KdDbTable::setSubSelection",
    "KdDbTable::clearSubSelection",
    // Looks are told as changed, and nothing that the entity keeps.
    "KdDbEntity::recordGraphicsModified",
    // Told, not asked: what lists nothing, or isn't open for write, passes it over.
    "KdDbObject::erased",
    "KdDbDictionary::erased",
    // Nothing that the table keeps.
    "KdDbTable::setTableOption",
    "KdDbTable::recomputeTableBlock",
    "KdDbTable::removeDataLink",
    // Puts an object that is in no drawing into one: what is made in a step goes and comes with it.
    "KdDbField::postInDatabase",
    "KdDbTableStyle::postTableStyleToDb",
    "KdDbDatabase::addKdDbObject",
    // The same with whole sets.
    "KdDbDatabase::wblockCloneObjects",
    "KdDbDatabase::insert",
    // Files: one writes what the drawing holds, the other fills a drawing before anything in it can be undone.
    "KdDbDatabase::saveAs",
    "KdDbDatabase::readDwgFile",
};

/// "Class::operation" of what a header declares that may change an object.
std::set<std::string> changersOf(const QString& header) {
    QFile file(kdtest::sourcePath("sdk/include/kd/db/") + header);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QString text = QString::fromUtf8(file.readAll());
    text.remove(QRegularExpression(QStringLiteral("//[^\n]*|KDRX_DECLARE_MEMBERS\\(\\w+\\)")));
    static const QRegularExpression classBegin(QStringLiteral("\\bclass (KdDb\\w+)[^;{]*\\{"));
    static const QRegularExpression declaration(
        QStringLiteral("(?:^|[;{}:])\\s*(?:virtual )?(?:void|bool|Kdad::ErrorStatus)\\s+(\\w+)\\(([^;{}]*)\\)"
                       "\\s*(const)?\\s*(?:override)?\\s*(?:= 0)?(?=;)"));
    std::set<std::string> found;
    for (auto each = classBegin.globalMatch(text); each.hasNext();) {
        const QRegularExpressionMatch begin = each.next();
        const auto end = text.indexOf(QStringLiteral("\n};"), begin.capturedEnd());
        const QString body = text.mid(begin.capturedEnd(), end - begin.capturedEnd());
        for (auto inside = declaration.globalMatch(body); inside.hasNext();) {
            const QRegularExpressionMatch match = inside.next();
            if (!match.captured(3).isEmpty() || match.captured(1).startsWith(QStringLiteral("get"))) continue;
            found.insert((begin.captured(1) + QStringLiteral("::") + match.captured(1)).toStdString());
        }
    }
    return found;
}

TEST(SetterRecords, are_there_for_every_operation_of_the_headers_that_changes_something) {
    std::set<std::string> declared;
    for (const char* header : {"object.h", "entity.h", "line.h", "solid.h", "mtext.h", "blockreference.h", "table.h",
                               "tablestyle.h", "symboltable.h", "dictionary.h", "field.h", "database.h"}) {
        declared.merge(changersOf(QString::fromLatin1(header)));
    }
    EXPECT_GT(declared.size(), 120U);
    std::set<std::string> recorded;
    for (const Setter& setter : allSetters()) recorded.insert(setter.owner + "::" + setter.name);
    for (const Setting& setting : allSettings()) recorded.insert("KdDbDatabase::" + setting.name);
    for (const std::string& each : declared) {
        // Iterators, reactors and the application's services are no objects of a drawing, and an override that only
        // names a base class's setter anew is recorded where an object has it.
        const bool isObject = each.find("Iterator::") == std::string::npos &&
                              each.find("Reactor::") == std::string::npos &&
                              each.find("Services::") == std::string::npos && each != "KdDbEntity::transformBy";
        if (!isObject || noSetters.count(each) != 0) continue;
        EXPECT_EQ(recorded.count(each), 1U) << each << " has no record";
    }
    for (const std::string& each : recorded) EXPECT_EQ(declared.count(each), 1U) << each << " is declared nowhere";
}

}  // namespace
}  // namespace kdtest
