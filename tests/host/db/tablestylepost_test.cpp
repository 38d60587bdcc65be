// Table styles on their way into a drawing.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/rx/faults.h"
#include "kd/db/tablestyle.h"
#include "tests/host/db/undofixture.h"

namespace {

using kdtest::mustOpen;

class PostTableStyle : public kdtest::Undo {
protected:
    ~PostTableStyle() override { kdhost::faults() = {}; }

    unsigned styles() { return dictionary().numEntries(); }
    bool has(const wchar_t* name) { return dictionary().has(name); }
    KdDbObjectId dictionaryId() {
        KdDbDictionary* opened = nullptr;
        EXPECT_EQ(m_database.getTableStyleDictionary(opened, KdDb::kForRead), Kdad::eOk);
        const KdDbObjectId id = opened->objectId();
        opened->close();
        return id;
    }

    /// Posting fails so, and leaves style and drawing as they were.
    void expectRefused(KdDbDatabase* database, const wchar_t* name, Kdad::ErrorStatus status) {
        const unsigned before = styles();
        KdDbTableStyle style;
        KdDbObjectId id(5);
        EXPECT_EQ(style.postTableStyleToDb(database, name, id), status);
        EXPECT_TRUE(id.isNull());
        EXPECT_EQ(style.database(), nullptr);
        EXPECT_TRUE(style.isWriteEnabled());
        EXPECT_EQ(styles(), before);
    }

private:
    const KdDbDictionary& dictionary() { return *kdhost::peek<KdDbDictionary>(dictionaryId()); }
};

TEST_F(PostTableStyle, enters_the_style_under_its_name_and_leaves_it_open_for_write) {
    auto* style = new KdDbTableStyle;
    style->setTextHeight(7.5, L"_DATA");
    KdDbObjectId id;
    ASSERT_EQ(style->postTableStyleToDb(&m_database, L"Parts", id), Kdad::eOk);
    EXPECT_EQ(style->objectId(), id);
    EXPECT_EQ(style->database(), &m_database);
    EXPECT_EQ(style->ownerId(), dictionaryId());
    EXPECT_TRUE(style->isWriteEnabled());
    style->setTextHeight(8.5, L"_DATA");
    style->close();
    EXPECT_TRUE(has(L"PARTS"));
    EXPECT_EQ(kdhost::peek<KdDbTableStyle>(id)->textHeight(L"_DATA"), 8.5);
}

TEST_F(PostTableStyle, is_undone_as_one_step) {
    step([&] {
        auto* style = new KdDbTableStyle;
        KdDbObjectId id;
        ASSERT_EQ(style->postTableStyleToDb(&m_database, L"Parts", id), Kdad::eOk);
        style->close();
    });
    ASSERT_EQ(history().undo(), Kdad::eOk);
    EXPECT_FALSE(has(L"Parts"));
    ASSERT_EQ(history().redo(), Kdad::eOk);
    EXPECT_TRUE(has(L"Parts"));
}

TEST_F(PostTableStyle, needs_a_drawing) {
    expectRefused(nullptr, L"Parts", Kdad::eNullObjectPointer);
}

TEST_F(PostTableStyle, needs_a_name_that_is_free) {
    expectRefused(&m_database, L"", Kdad::eInvalidKey);
    expectRefused(&m_database, nullptr, Kdad::eInvalidKey);
    expectRefused(&m_database, L"STANDARD", Kdad::eDuplicateKey);
}

TEST_F(PostTableStyle, needs_the_dictionary_for_itself) {
    for (const KdDb::OpenMode mode : {KdDb::kForRead, KdDb::kForWrite}) {
        auto* other = mustOpen<KdDbDictionary>(dictionaryId(), mode);
        KdDbTableStyle style;
        KdDbObjectId id(5);
        EXPECT_EQ(style.postTableStyleToDb(&m_database, L"Parts", id),
                  mode == KdDb::kForRead ? Kdad::eWasOpenForRead : Kdad::eWasOpenForWrite);
        EXPECT_TRUE(id.isNull());
        EXPECT_EQ(style.database(), nullptr);
        other->close();
    }
}

TEST_F(PostTableStyle, fails_where_the_dictionary_is_missing) {
    kdhost::faults().noTableStyleDictionary = true;
    KdDbTableStyle style;
    KdDbObjectId id(5);
    EXPECT_EQ(style.postTableStyleToDb(&m_database, L"Parts", id), Kdad::eKeyNotFound);
    EXPECT_TRUE(id.isNull());
}

TEST_F(PostTableStyle, takes_a_style_once) {
    auto* style = new KdDbTableStyle;
    KdDbObjectId first;
    ASSERT_EQ(style->postTableStyleToDb(&m_database, L"One", first), Kdad::eOk);
    KdDbObjectId again(5);
    EXPECT_EQ(style->postTableStyleToDb(&m_database, L"Two", again), Kdad::eAlreadyInDatabase);
    EXPECT_TRUE(again.isNull());
    EXPECT_EQ(style->objectId(), first);
    style->close();
    EXPECT_FALSE(has(L"Two"));
}

}  // namespace
