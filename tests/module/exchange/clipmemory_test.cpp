// Blocks of clipboard memory, and file names in records.

#include "module/exchange/clipmemory.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "module/exchange/cliprecords.h"

namespace {

TEST(ClipboardMemory, a_block_is_locked_by_one_at_a_time) {
    int value = 7;
    KdClipboardMemory* record = InitMem(&value, sizeof value);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->data, &value);
    EXPECT_EQ(record->size, sizeof value);
    EXPECT_EQ(record->locked, 1) << "its writer fills it first";
    EXPECT_EQ(TableGlobalLock(record), nullptr);
    EXPECT_EQ(TableGlobalUnlock(record), 1);
    EXPECT_EQ(record->locked, 0);
    EXPECT_EQ(TableGlobalLock(record), &value);
    EXPECT_EQ(TableGlobalLock(record), nullptr);
    EXPECT_EQ(TableGlobalUnlock(record), 1);
    EXPECT_EQ(TableGlobalUnlock(record), 1);
    std::free(record);
}

TEST(ClipboardMemory, nothing_is_nothing) {
    EXPECT_EQ(InitMem(nullptr, 5), nullptr);
    EXPECT_EQ(TableGlobalLock(nullptr), nullptr);
    EXPECT_EQ(TableGlobalUnlock(nullptr), 0);
}

TEST(ClipboardMemory, a_record_too_large_for_memory_is_refused) {
    COleDataObject object;
    object.AttachClipboard();
    EXPECT_FALSE(putOnClipboard(object, 0xC000, "", static_cast<std::size_t>(-1) / 4));
}

struct SmallField {
    wchar_t name[4]{};
    wchar_t behind = L'!';
};

TEST(FileNamesInRecords, may_fill_their_field) {
    SmallField field;
    putFileName(field.name, L"abc");
    EXPECT_EQ(fileNameIn(field.name), L"abc");
    putFileName(field.name, L"abcd");
    EXPECT_EQ(fileNameIn(field.name), L"abcd");
    EXPECT_EQ(field.behind, L'!');
}

TEST(FileNamesInRecordsDeathTest, end_the_process_when_they_are_longer) {
    SmallField field;
    EXPECT_DEATH(putFileName(field.name, L"abcde"), "");
    tagVqDrawingClipboardInfo drawing{};
    EXPECT_DEATH(putFileName(drawing.m_fileName, std::wstring(261, L'a')), "");
    tagVqTableClipboardInfo cells{};
    EXPECT_DEATH(putFileName(cells.m_fileName, std::wstring(1025, L'a')), "");
}

}  // namespace
