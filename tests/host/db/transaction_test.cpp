// Transactions: how they have objects open, how they nest, what an abort puts back, and how they and steps of undo
// go together.

#include "kd/db/transaction.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "kd/db/tablestyle.h"
#include "tests/host/db/witness.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;
using kdtest::Witness;
using Names = std::vector<std::wstring>;

class Transactions : public ::testing::Test {
protected:
    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_database); }

    /// Gets an object that must be had.
    template <class T>
    T* get(KdDbObjectId id, KdDb::OpenMode mode) {
        KdDbObject* object = nullptr;
        EXPECT_EQ(m_manager.topTransaction()->getObject(object, id, mode), Kdad::eOk);
        return static_cast<T*>(object);
    }
    void stretch(double length) { get<KdDbLine>(m_line, KdDb::kForWrite)->setEndPoint({length, 0.0, 0.0}); }
    void stretchByOpen(double length) {
        auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
        line->setEndPoint({length, 0.0, 0.0});
        line->close();
    }
    double length() { return kdhost::peek<KdDbLine>(m_line)->endPoint().x; }

    /// Puts a style into the drawing, left open for write.
    KdDbTableStyle* post(const wchar_t* name, KdDbObjectId& id) {
        auto* dictionary = mustOpen<KdDbDictionary>(m_database.tableStyleDictionaryId(), KdDb::kForWrite);
        auto* style = new KdDbTableStyle;
        EXPECT_EQ(dictionary->setAt(name, style, id), Kdad::eOk);
        dictionary->close();
        return style;
    }
    unsigned styleCount() { return kdhost::peek<KdDbDictionary>(m_database.tableStyleDictionaryId())->numEntries(); }

    KdDbDatabase m_database;
    kdhost::TransactionManager m_manager{m_database};
    KdDbObjectId m_line = kdtest::appendLine(m_database);
};

// ---- starting and ending

TEST_F(Transactions, they_nest_and_the_innermost_is_on_top) {
    EXPECT_EQ(m_manager.topTransaction(), nullptr);
    KdDbTransaction* outer = m_manager.startTransaction();
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(m_manager.topTransaction(), outer);
    KdDbTransaction* inner = m_manager.startTransaction();
    EXPECT_EQ(m_manager.topTransaction(), inner);
    EXPECT_EQ(m_manager.numActiveTransactions(), 2);
    EXPECT_EQ(m_manager.endTransaction(), Kdad::eOk);
    EXPECT_EQ(m_manager.topTransaction(), outer);
    EXPECT_EQ(m_manager.abortTransaction(), Kdad::eOk);
    EXPECT_EQ(m_manager.topTransaction(), nullptr);
    EXPECT_EQ(m_manager.numActiveTransactions(), 0);
}

TEST_F(Transactions, without_one_there_is_nothing_to_end_or_abort_or_add_to) {
    EXPECT_EQ(m_manager.endTransaction(), Kdad::eInvalidContext);
    EXPECT_EQ(m_manager.abortTransaction(), Kdad::eInvalidContext);
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(line, true), Kdad::eInvalidContext);
    line->close();
}

TEST_F(Transactions, a_start_can_fail) {
    kdhost::faults().noTransaction = true;
    EXPECT_EQ(m_manager.startTransaction(), nullptr);
    EXPECT_EQ(m_manager.topTransaction(), nullptr);
    EXPECT_EQ(m_manager.numActiveTransactions(), 0);
}

// ---- getting objects

TEST_F(Transactions, an_object_got_is_open_until_the_outermost_ends_and_closed_by_nobody) {
    m_manager.startTransaction();
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForWrite);
    EXPECT_TRUE(line->isWriteEnabled());
    m_manager.endTransaction();
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(kdhost::openObjects().size(), 1u);
    m_manager.endTransaction();
    EXPECT_FALSE(line->isReadEnabled());
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_F(Transactions, a_close_of_what_only_a_transaction_has_open_does_no_harm) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForWrite);
    EXPECT_EQ(line->close(), Kdad::eOk);
    EXPECT_TRUE(line->isWriteEnabled());
    m_manager.endTransaction();
    EXPECT_FALSE(line->isWriteEnabled());
}

TEST_F(Transactions, an_object_held_for_write_only_by_a_transaction_admits_readers_and_no_writer) {
    m_manager.startTransaction();
    get<KdDbLine>(m_line, KdDb::kForWrite);
    auto* reader = mustOpen<KdDbLine>(m_line);
    auto* another = mustOpen<KdDbLine>(m_line);
    KdDbObject* writer = nullptr;
    EXPECT_EQ(kddbOpenObject(writer, m_line, KdDb::kForWrite), Kdad::eWasOpenForWrite);
    another->close();
    reader->close();
    EXPECT_TRUE(reader->isWriteEnabled());
    m_manager.endTransaction();
}

TEST_F(Transactions, a_reader_outlives_the_transaction) {
    m_manager.startTransaction();
    get<KdDbLine>(m_line, KdDb::kForWrite);
    auto* reader = mustOpen<KdDbLine>(m_line);
    m_manager.endTransaction();
    EXPECT_TRUE(reader->isReadEnabled());
    EXPECT_FALSE(reader->isWriteEnabled());
    EXPECT_EQ(reader->close(), Kdad::eOk);
}

TEST_F(Transactions, an_object_held_for_read_admits_readers_and_no_writer) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForRead);
    EXPECT_FALSE(line->isWriteEnabled());
    mustOpen<KdDbLine>(m_line)->close();
    KdDbObject* writer = nullptr;
    EXPECT_EQ(kddbOpenObject(writer, m_line, KdDb::kForWrite), Kdad::eWasOpenForRead);
    m_manager.endTransaction();
}

TEST_F(Transactions, the_same_object_may_be_got_again_and_for_write_after_a_read) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForRead);
    EXPECT_EQ(get<KdDbLine>(m_line, KdDb::kForWrite), line);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(get<KdDbLine>(m_line, KdDb::kForRead), line);
    EXPECT_TRUE(line->isWriteEnabled()) << "a hold is never made less";
    m_manager.startTransaction();
    EXPECT_EQ(get<KdDbLine>(m_line, KdDb::kForWrite), line);
    m_manager.abortTransaction();
    EXPECT_TRUE(line->isWriteEnabled()) << "the outer one holds it still";
    m_manager.endTransaction();
    EXPECT_FALSE(line->isReadEnabled());
}

TEST_F(Transactions, an_inner_abort_leaves_the_hold_as_the_outer_one_had_it) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForRead);
    m_manager.startTransaction();
    get<KdDbLine>(m_line, KdDb::kForWrite);
    m_manager.abortTransaction();
    EXPECT_TRUE(line->isReadEnabled());
    EXPECT_FALSE(line->isWriteEnabled());
    m_manager.endTransaction();
}

TEST_F(Transactions, an_upgrade_of_what_a_transaction_holds_is_the_transaction_s) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForRead);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eOk);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(line->downgradeOpen(), Kdad::eOk);
    m_manager.endTransaction();
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_F(Transactions, an_upgrade_beside_a_reader_is_refused) {
    m_manager.startTransaction();
    auto* line = get<KdDbLine>(m_line, KdDb::kForRead);
    auto* reader = mustOpen<KdDbLine>(m_line);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eWasOpenForRead);
    KdDbObject* object = nullptr;
    EXPECT_EQ(m_manager.topTransaction()->getObject(object, m_line, KdDb::kForWrite), Kdad::eWasOpenForRead);
    EXPECT_EQ(object, nullptr);
    reader->close();
    m_manager.endTransaction();
}

TEST_F(Transactions, what_cannot_be_got_is_told_as_by_an_open) {
    KdDbDatabase other;
    const KdDbObjectId elsewhere = kdtest::appendLine(other);
    const KdDbObjectId erased = kdtest::appendLine(m_database);
    auto* gone = mustOpen<KdDbLine>(erased, KdDb::kForWrite);
    gone->erase();
    gone->close();
    const KdDbObjectId locked = kdtest::appendLine(m_database);
    const KdDbObjectId layer = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"walls");
    auto* onLayer = mustOpen<KdDbLine>(locked, KdDb::kForWrite);
    onLayer->setLayer(layer);
    onLayer->close();
    auto* record = mustOpen<KdDbLayerTableRecord>(layer, KdDb::kForWrite);
    record->setIsLocked(true);
    record->close();

    KdDbTransaction* top = m_manager.startTransaction();
    KdDbObject* object = nullptr;
    EXPECT_EQ(top->getObject(object, KdDbObjectId::kNull, KdDb::kForRead), Kdad::eNullObjectId);
    EXPECT_EQ(top->getObject(object, KdDbObjectId(UINT64_C(1) << 60), KdDb::kForRead), Kdad::eUnknownId);
    EXPECT_EQ(top->getObject(object, elsewhere, KdDb::kForRead), Kdad::eInvalidContext);
    EXPECT_EQ(top->getObject(object, erased, KdDb::kForRead), Kdad::eWasErased);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(top->getObject(object, erased, KdDb::kForRead, true), Kdad::eOk);
    EXPECT_EQ(top->getObject(object, locked, KdDb::kForWrite), Kdad::eOnLockedLayer);
    EXPECT_EQ(top->getObject(object, locked, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(object->upgradeOpen(), Kdad::eOnLockedLayer);

    auto* writer = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    EXPECT_EQ(top->getObject(object, m_line, KdDb::kForRead), Kdad::eWasOpenForWrite);
    writer->close();
    auto* reader = mustOpen<KdDbLine>(m_line);
    EXPECT_EQ(top->getObject(object, m_line, KdDb::kForWrite), Kdad::eWasOpenForRead);
    EXPECT_EQ(top->getObject(object, m_line, KdDb::kForRead), Kdad::eOk);
    reader->close();
    m_manager.endTransaction();
}

TEST_F(Transactions, the_open_that_a_fault_names_fails_here_too) {
    KdDbTransaction* top = m_manager.startTransaction();
    kdhost::faults().failOpenNumber = 1;
    KdDbObject* object = nullptr;
    EXPECT_NE(top->getObject(object, m_line, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(top->getObject(object, m_line, KdDb::kForRead), Kdad::eOk);
    m_manager.endTransaction();
}

// ---- new objects

TEST_F(Transactions, a_new_object_lives_and_dies_with_the_transaction) {
    for (const bool abort : {true, false}) {
        m_manager.startTransaction();
        KdDbObjectId id;
        KdDbTableStyle* style = post(L"Narrow", id);
        EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(style, true), Kdad::eOk);
        EXPECT_EQ(get<KdDbTableStyle>(id, KdDb::kForRead), style);
        get<KdDbTableStyle>(id, KdDb::kForWrite)->setFlowDirection(1);
        style->close();
        EXPECT_EQ(abort ? m_manager.abortTransaction() : m_manager.endTransaction(), Kdad::eOk);
        EXPECT_EQ(kdhost::peekObject(id) == nullptr, abort);
        EXPECT_EQ(styleCount(), abort ? 1u : 2u);
        EXPECT_TRUE(kdhost::openObjects().empty());
    }
}

TEST_F(Transactions, a_new_object_can_be_given_back_to_its_maker) {
    m_manager.startTransaction();
    KdDbObjectId id;
    KdDbTableStyle* style = post(L"Narrow", id);
    m_manager.addNewlyCreatedDBRObject(style, true);
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(style, false), Kdad::eOk);
    m_manager.endTransaction();
    EXPECT_TRUE(style->isWriteEnabled());
    EXPECT_EQ(style->close(), Kdad::eOk);
}

TEST_F(Transactions, what_is_not_new_or_not_open_is_not_added) {
    m_manager.startTransaction();
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(nullptr, true), Kdad::eNullObjectPointer);
    KdDbTableStyle inMemory;
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(&inMemory, true), Kdad::eNotInDatabase);
    KdDbDatabase other;
    auto* elsewhere = mustOpen<KdDbLine>(kdtest::appendLine(other), KdDb::kForWrite);
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(elsewhere, true), Kdad::eNotInDatabase);
    elsewhere->close();
    auto* reader = mustOpen<KdDbLine>(m_line);
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(reader, true), Kdad::eNotOpenForWrite);
    EXPECT_EQ(m_manager.addNewlyCreatedDBRObject(reader, false), Kdad::eNotOpenForWrite);
    reader->close();
    m_manager.endTransaction();
}

// ---- aborting

TEST_F(Transactions, an_abort_puts_objects_back) {
    m_manager.startTransaction();
    stretch(5.0);
    m_manager.abortTransaction();
    EXPECT_EQ(length(), 1.0);
    m_manager.startTransaction();
    stretch(6.0);
    m_manager.endTransaction();
    EXPECT_EQ(length(), 6.0);
}

TEST_F(Transactions, an_inner_end_is_the_outer_one_s_to_abort) {
    m_manager.startTransaction();
    m_manager.startTransaction();
    stretch(5.0);
    KdDbObjectId id;
    m_manager.addNewlyCreatedDBRObject(post(L"Narrow", id), true);
    m_manager.endTransaction();
    EXPECT_EQ(length(), 5.0);
    m_manager.abortTransaction();
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(kdhost::peekObject(id), nullptr);
    EXPECT_EQ(styleCount(), 1u);
}

TEST_F(Transactions, an_inner_abort_leaves_what_the_outer_one_changed) {
    m_manager.startTransaction();
    stretch(5.0);
    m_manager.startTransaction();
    stretch(6.0);
    m_manager.abortTransaction();
    EXPECT_EQ(length(), 5.0);
    stretch(7.0);
    m_manager.endTransaction();
    EXPECT_EQ(length(), 7.0);
}

TEST_F(Transactions, an_abort_puts_back_what_was_changed_by_other_opens_meanwhile) {
    m_manager.startTransaction();
    stretchByOpen(5.0);
    m_database.setLunits(4);
    const KdDbObjectId made = kdtest::appendLine(m_database);
    m_manager.abortTransaction();
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(m_database.lunits(), 2);
    EXPECT_EQ(kdhost::peekObject(made), nullptr);
}

TEST_F(Transactions, an_object_that_somebody_has_open_at_the_abort_is_put_back_under_his_hands) {
    m_manager.startTransaction();
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    line->setEndPoint({5.0, 0.0, 0.0});
    m_manager.abortTransaction();
    EXPECT_EQ(line->endPoint().x, 1.0);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(line->close(), Kdad::eOk);
}

TEST_F(Transactions, reactors_are_told_once_when_the_outermost_ends_or_aborts) {
    Witness witness;
    kdhost::peekObject(m_line)->addReactor(&witness);
    m_manager.startTransaction();
    m_manager.startTransaction();
    stretch(5.0);
    stretch(6.0);
    m_manager.endTransaction();
    EXPECT_EQ(witness.told, "");
    m_manager.endTransaction();
    EXPECT_EQ(witness.told, "m");
    m_manager.startTransaction();
    stretch(7.0);
    m_manager.abortTransaction();
    EXPECT_EQ(witness.told, "mm");
    kdhost::peekObject(m_line)->removeReactor(&witness);
}

// ---- steps of undo

TEST_F(Transactions, an_aborted_one_leaves_no_step_and_what_can_be_redone) {
    history().beginMark(L"Stretch", {});
    stretchByOpen(3.0);
    history().endMark();
    history().undo();
    {
        const kdhost::UndoCommandScope command(&m_database, L"TABLESTYLE");
        m_manager.startTransaction();
        stretch(5.0);
        KdDbObjectId id;
        m_manager.addNewlyCreatedDBRObject(post(L"Narrow", id), true);
        m_manager.abortTransaction();
    }
    EXPECT_EQ(history().undoSteps(), Names{});
    EXPECT_EQ(history().redoSteps(), Names{L"Stretch"});
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 3.0);
}

TEST_F(Transactions, one_that_ends_belongs_to_its_command_or_mark) {
    {
        const kdhost::UndoCommandScope command(&m_database, L"TABLESTYLE");
        m_manager.startTransaction();
        stretch(5.0);
        m_manager.endTransaction();
    }
    history().beginMark(L"ManCellStyle", {});
    m_manager.startTransaction();
    stretch(6.0);
    m_manager.endTransaction();
    history().endMark();
    EXPECT_EQ(history().undoSteps(), (Names{L"TABLESTYLE", L"ManCellStyle"}));
    history().undo();
    EXPECT_EQ(length(), 5.0);
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Transactions, one_outside_of_commands_and_marks_is_a_step) {
    m_manager.startTransaction();
    m_manager.startTransaction();
    stretch(5.0);
    m_manager.endTransaction();
    m_manager.endTransaction();
    EXPECT_EQ(history().undoSteps(), Names{kdhost::kUnnamedStep});
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Transactions, a_mark_inside_one_joins_it) {
    {
        const kdhost::UndoCommandScope command(&m_database, L"TABLESTYLE");
        m_manager.startTransaction();
        stretch(5.0);
        history().beginMark(L"Mark", {});
        stretch(6.0);
        history().endMark();
        m_manager.abortTransaction();
        EXPECT_EQ(length(), 1.0);
        m_manager.startTransaction();
        history().beginMark(L"Mark", {});
        stretch(7.0);
        history().endMark();
        m_manager.endTransaction();
    }
    EXPECT_EQ(history().undoSteps(), Names{L"TABLESTYLE"});
}

TEST_F(Transactions, an_abort_inside_a_mark_takes_its_own_part_out_of_the_mark_s_step) {
    history().beginMark(L"ManCellStyle", {});
    stretchByOpen(2.0);
    m_manager.startTransaction();
    stretch(5.0);
    KdDbObjectId id;
    m_manager.addNewlyCreatedDBRObject(post(L"Narrow", id), true);
    m_manager.abortTransaction();
    EXPECT_EQ(length(), 2.0);
    m_database.setLunits(4);
    history().endMark();
    EXPECT_EQ(history().undoSteps(), Names{L"ManCellStyle"});
    EXPECT_EQ(history().undo(), Kdad::eOk);
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(m_database.lunits(), 2);
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 2.0);
    EXPECT_EQ(m_database.lunits(), 4);
    EXPECT_EQ(kdhost::peekObject(id), nullptr) << "what was aborted comes back by no redo";
}

TEST_F(Transactions, undo_is_refused_while_one_is_open) {
    history().beginMark(L"Mark", {});
    stretchByOpen(2.0);
    history().endMark();
    m_manager.startTransaction();
    EXPECT_EQ(history().undo(), Kdad::eInvalidContext);
    m_manager.endTransaction();
    EXPECT_EQ(history().undo(), Kdad::eOk);
}

TEST_F(Transactions, one_that_a_command_or_a_mark_leaves_open_ends_with_it_and_is_noted) {
    {
        const kdhost::UndoCommandScope command(&m_database, L"TABLESTYLE");
        m_manager.startTransaction();
        m_manager.startTransaction();
        stretch(5.0);
    }
    EXPECT_EQ(m_manager.topTransaction(), nullptr);
    EXPECT_TRUE(kdhost::openObjects().empty());
    EXPECT_EQ(length(), 5.0);
    history().beginMark(L"ManCellStyle", {});
    m_manager.startTransaction();
    stretch(6.0);
    history().endMark();
    EXPECT_EQ(m_manager.topTransaction(), nullptr);
    EXPECT_EQ(history().undoSteps(), (Names{L"TABLESTYLE", L"ManCellStyle"}));
    for (const char* owner : {"TABLESTYLE", "TABLESTYLE", "ManCellStyle"}) {
        kdtest::expectDisciplineBreach(std::string("a transaction was left open in ") + owner);
    }
}

TEST_F(Transactions, one_that_is_open_when_its_drawing_goes_is_noted) {
    auto database = std::make_unique<KdDbDatabase>();
    kdhost::TransactionManager manager(*database);
    KdDbObject* line = nullptr;
    manager.startTransaction()->getObject(line, kdtest::appendLine(*database), KdDb::kForWrite);
    database.reset();
    EXPECT_TRUE(kdhost::openObjects().empty());
    kdtest::expectDisciplineBreach("a transaction was left open when its drawing was deleted");
}

TEST_F(Transactions, one_begun_before_a_command_and_ended_in_it_parts_them) {
    m_manager.startTransaction();
    stretch(2.0);
    {
        const kdhost::UndoCommandScope command(&m_database, L"COMMAND");
        stretch(3.0);
        m_manager.endTransaction();
        stretchByOpen(4.0);
    }
    EXPECT_EQ(history().undoSteps(), (Names{kdhost::kUnnamedStep, L"COMMAND"}));
    history().undo();
    EXPECT_EQ(length(), 3.0);
}

}  // namespace
