// Tests of global memory, clipboard formats and data objects.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "host/win32/clipboardformats.h"
#include "mfc/oledataobject.h"
#include "win32/clipboard.h"
#include "win32/globalmem.h"

namespace {

class Clipboard : public ::testing::Test {
protected:
    void SetUp() override { QGuiApplication::clipboard()->clear(); }
    void TearDown() override { QGuiApplication::clipboard()->clear(); }
};

CLIPFORMAT formatOf(const wchar_t* name) {
    return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name));
}

KdClipboardMemory* recordOf(const std::string& bytes) {
    auto* record = static_cast<KdClipboardMemory*>(std::calloc(1, sizeof(KdClipboardMemory)));
    record->data = GlobalAlloc(8194, bytes.size());
    record->size = bytes.size();
    std::copy(bytes.begin(), bytes.end(), static_cast<char*>(record->data));
    return record;
}

std::string bytesOf(HGLOBAL memory) {
    const auto* record = static_cast<const KdClipboardMemory*>(memory);
    return record == nullptr ? "(none)" : std::string(static_cast<const char*>(record->data), record->size);
}

TEST(GlobalMemory, a_block_is_known_by_its_address_until_it_is_freed) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 100);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 100U);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_EQ(GlobalUnlock(block), 1);
    EXPECT_EQ(GlobalUnlock(block), 0);
    EXPECT_EQ(GlobalUnlock(block), 0);
    const std::array<char, 100> zeros{};
    EXPECT_EQ(std::memcmp(block, zeros.data(), zeros.size()), 0);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalFree(block), block);
    EXPECT_EQ(GlobalSize(block), 0U);
    EXPECT_EQ(GlobalLock(block), nullptr);
}

TEST(GlobalMemory, what_is_no_block_is_refused) {
    int other = 0;
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_EQ(GlobalLock(&other), nullptr);
    EXPECT_EQ(GlobalFree(&other), &other);
    EXPECT_EQ(GlobalAlloc(0, static_cast<std::size_t>(-1) / 4), nullptr);
}

TEST(GlobalMemory, an_empty_block_is_a_block) {
    HGLOBAL block = GlobalAlloc(0, 0);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 0U);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST_F(Clipboard, a_format_is_registered_once_whatever_its_case) {
    const UINT first = RegisterClipboardFormatW(L"Test Format One");
    EXPECT_GE(first, 0xC000U);
    EXPECT_LE(first, 0xFFFFU);
    EXPECT_EQ(RegisterClipboardFormatW(L"TEST format one"), first);
    EXPECT_NE(RegisterClipboardFormatW(L"Test Format Two"), first);
    EXPECT_EQ(RegisterClipboardFormatW(L""), 0U);
    EXPECT_EQ(RegisterClipboardFormatW(nullptr), 0U);
}

TEST_F(Clipboard, a_formats_name_is_cut_to_the_buffer) {
    const UINT format = RegisterClipboardFormatW(L"Name To Cut");
    std::array<wchar_t, 32> name{};
    EXPECT_EQ(GetClipboardFormatNameW(format, name.data(), 32), 11);
    EXPECT_STREQ(name.data(), L"Name To Cut");
    EXPECT_EQ(GetClipboardFormatNameW(format, name.data(), 5), 4);
    EXPECT_STREQ(name.data(), L"Name");
    EXPECT_EQ(GetClipboardFormatNameW(1, name.data(), 32), 0);
    EXPECT_EQ(GetClipboardFormatNameW(format, name.data(), 0), 0);
    EXPECT_EQ(GetClipboardFormatNameW(format, nullptr, 32), 0);
}

TEST_F(Clipboard, each_format_is_a_mime_type_of_its_own) {
    EXPECT_EQ(kdhost::clipboardMimeType(RegisterClipboardFormatW(L"text/plain")), QStringLiteral("text/plain"));
    EXPECT_EQ(kdhost::clipboardMimeType(RegisterClipboardFormatW(L"A Format")),
              QStringLiteral("application/x-kd-clipboard;format=\"A Format\""));
    EXPECT_TRUE(kdhost::clipboardMimeType(17).isEmpty());
}

TEST_F(Clipboard, what_one_object_caches_another_reads) {
    const CLIPFORMAT one = formatOf(L"Cells");
    const CLIPFORMAT two = formatOf(L"Drawing");
    const std::string bytes("a\0b\xFF", 4);
    COleDataObject writer;
    ASSERT_TRUE(writer.AttachClipboard());
    writer.CacheGlobalData(one, recordOf(bytes));
    writer.CacheGlobalData(two, recordOf("file"));

    COleDataObject reader;
    ASSERT_TRUE(reader.AttachClipboard());
    EXPECT_TRUE(reader.IsDataAvailable(one));
    EXPECT_TRUE(reader.IsDataAvailable(two));
    EXPECT_EQ(bytesOf(reader.GetGlobalData(one)), bytes);
    EXPECT_EQ(bytesOf(reader.GetGlobalData(two)), "file");
    EXPECT_EQ(static_cast<KdClipboardMemory*>(reader.GetGlobalData(one))->locked, 0);
}

TEST_F(Clipboard, caching_a_format_again_replaces_its_data_alone) {
    const CLIPFORMAT one = formatOf(L"Cells");
    const CLIPFORMAT two = formatOf(L"Drawing");
    COleDataObject writer;
    ASSERT_TRUE(writer.AttachClipboard());
    writer.CacheGlobalData(one, recordOf("old"));
    writer.CacheGlobalData(two, recordOf("file"));
    writer.CacheGlobalData(one, recordOf("new"));
    EXPECT_EQ(bytesOf(writer.GetGlobalData(one)), "new");
    EXPECT_EQ(bytesOf(writer.GetGlobalData(two)), "file");
}

TEST_F(Clipboard, the_first_cached_format_takes_the_place_of_all_that_was_there) {
    QGuiApplication::clipboard()->setText(QStringLiteral("older text"));
    COleDataObject writer;
    ASSERT_TRUE(writer.AttachClipboard());
    writer.CacheGlobalData(formatOf(L"Cells"), recordOf("x"));
    EXPECT_FALSE(writer.IsDataAvailable(formatOf(L"text/plain")));
}

TEST_F(Clipboard, plain_text_of_any_program_comes_as_a_block_of_utf8) {
    QGuiApplication::clipboard()->setText(QStringLiteral("a\r\n\u6837"));
    COleDataObject reader;
    ASSERT_TRUE(reader.AttachClipboard());
    ASSERT_TRUE(reader.IsDataAvailable(formatOf(L"text/plain")));
    HGLOBAL block = reader.GetGlobalData(formatOf(L"text/plain"));
    ASSERT_NE(block, nullptr);
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(block)), "a\r\n\xE6\xA0\xB7");
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST_F(Clipboard, wide_text_without_its_zero_is_ended_by_one) {
    const std::wstring text = L"wide";
    auto* data = new QMimeData;
    data->setData(
        kdhost::clipboardMimeType(RegisterClipboardFormatW(L"Wide Text")),
        QByteArray(reinterpret_cast<const char*>(text.data()), static_cast<int>(text.size() * sizeof(wchar_t))));
    QGuiApplication::clipboard()->setMimeData(data);
    COleDataObject reader;
    ASSERT_TRUE(reader.AttachClipboard());
    const auto* record = static_cast<const KdClipboardMemory*>(reader.GetGlobalData(formatOf(L"Wide Text")));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->size, 16U);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(record->data)), text);
}

TEST_F(Clipboard, an_available_format_may_be_without_data) {
    auto* data = new QMimeData;
    data->setData(kdhost::clipboardMimeType(RegisterClipboardFormatW(L"Cells")), QByteArray());
    QGuiApplication::clipboard()->setMimeData(data);
    COleDataObject reader;
    ASSERT_TRUE(reader.AttachClipboard());
    EXPECT_TRUE(reader.IsDataAvailable(formatOf(L"Cells")));
    EXPECT_EQ(reader.GetGlobalData(formatOf(L"Cells")), nullptr);
}

TEST_F(Clipboard, nothing_comes_of_an_empty_clipboard_or_an_unknown_format) {
    COleDataObject object;
    ASSERT_TRUE(object.AttachClipboard());
    EXPECT_FALSE(object.IsDataAvailable(formatOf(L"text/plain")));
    EXPECT_EQ(object.GetGlobalData(formatOf(L"Cells")), nullptr);
    EXPECT_FALSE(object.IsDataAvailable(7));
    object.CacheGlobalData(7, recordOf("lost"));
    object.CacheGlobalData(formatOf(L"Cells"), nullptr);
    EXPECT_FALSE(object.IsDataAvailable(formatOf(L"Cells")));
}

TEST_F(Clipboard, an_object_that_is_not_attached_reads_and_writes_nothing) {
    QGuiApplication::clipboard()->setText(QStringLiteral("text"));
    COleDataObject object;
    EXPECT_FALSE(object.IsDataAvailable(formatOf(L"text/plain")));
    EXPECT_EQ(object.GetGlobalData(formatOf(L"text/plain")), nullptr);
    object.CacheGlobalData(formatOf(L"Cells"), recordOf("x"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("text"));
    ASSERT_TRUE(object.AttachClipboard());
    EXPECT_TRUE(object.IsDataAvailable(formatOf(L"text/plain")));
    object.Release();
    EXPECT_FALSE(object.IsDataAvailable(formatOf(L"text/plain")));
}

}  // namespace
