// What tests of the cell clipboard share: an application with a clipboard, and a folder of its own for temporary files.
#pragma once

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstring>

#include "kd/ed/variables.h"
#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipmemory.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {

class CellClipboard : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        ASSERT_TRUE(folder.isValid());
        m_temporaryBefore = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(folder.path()));
        QGuiApplication::clipboard()->clear();
    }
    void TearDown() override {
        QGuiApplication::clipboard()->clear();
        qputenv("TMPDIR", m_temporaryBefore);
        qunsetenv("TMPFILEXT");
        TableEdits::TearDown();
    }

    /// As drawings have them: with the drawing's table style.
    TableBuilder table(int rows, int columns) {
        TableBuilder builder(rows, columns);
        builder.style(host.database().tablestyle());
        return builder;
    }

    static int copy(KdDbObjectId id, const char* cells) {
        select(id, cells);
        return CVqTableCommon::CopyTableCells(id);
    }
    static int cut(KdDbObjectId id, const char* cells) {
        select(id, cells);
        return CVqTableCommon::CutTableCells(id);
    }
    static int paste(KdDbObjectId id, const char* cells) {
        select(id, cells);
        return CVqTableCommon::PasteTableCells(id);
    }
    static int canPaste(KdDbObjectId id, const char* cells) {
        select(id, cells);
        return CVqTableClipDataMgr().CanPasteTableCell(&look(id));
    }

    static CLIPFORMAT format(const wchar_t* name) { return static_cast<CLIPFORMAT>(RegisterClipboardFormatW(name)); }
    /// What the clipboard holds in a format; nothing when it has none.
    static QByteArray held(const wchar_t* name) {
        COleDataObject object;
        object.AttachClipboard();
        const auto* record = static_cast<const KdClipboardMemory*>(object.GetGlobalData(format(name)));
        return record == nullptr ? QByteArray()
                                 : QByteArray(static_cast<const char*>(record->data), static_cast<int>(record->size));
    }
    /// The only thing on the clipboard from now on.
    static void put(const wchar_t* name, const void* bytes, std::size_t size) {
        COleDataObject object;
        object.AttachClipboard();
        EXPECT_TRUE(putOnClipboard(object, format(name), bytes, size));
    }
    static void put(const wchar_t* name, const QByteArray& bytes) {
        put(name, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    static void putWide(const wchar_t* name, const std::wstring& text) {
        put(name, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    static void putPlain(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }
    static tagVqTableClipboardInfo info() {
        tagVqTableClipboardInfo found{};
        const QByteArray bytes = held(L"CF_ACTABLE_CELLS");
        EXPECT_EQ(bytes.size(), 4128);
        if (bytes.size() == 4128) std::memcpy(&found, bytes.constData(), 4128);
        return found;
    }
    static void putInfo(const std::wstring& file, int rows, int columns) {
        tagVqTableClipboardInfo made{};
        putFileName(made.m_fileName, file);
        made.m_rows = rows;
        made.m_columns = columns;
        put(L"CF_ACTABLE_CELLS", &made, sizeof made);
    }
    static QString copiedFile() { return QString::fromStdWString(fileNameIn(info().m_fileName)); }

    static int underWay() {
        resbuf value;
        return kdedGetVar(L"_VQ_COPYTABLECELLS", &value) == RTNORM ? value.resval.rint : -1;
    }

    /// Blocks and entities of the drawing, to see that nothing stays behind.
    std::pair<int, int> blocksAndEntities() {
        int blocks = 0;
        int entities = 0;
        const OpenObject<KdDbBlockTable> open(host.database().blockTableId(), KdDb::kForRead);
        KdDbSymbolTableIterator* records = nullptr;
        open->newIterator(records);
        for (records->start(); !records->done(); records->step()) {
            ++blocks;
            KdDbObjectId id;
            records->getRecordId(id);
            const OpenObject<KdDbBlockTableRecord> block(id, KdDb::kForRead);
            KdDbBlockTableRecordIterator* inside = nullptr;
            block->newIterator(inside);
            for (inside->start(); !inside->done(); inside->step()) ++entities;
            delete inside;
        }
        delete records;
        return {blocks, entities};
    }

    static QByteArray bytesOf(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::wstring pathOf(const char* name) const { return folder.filePath(QLatin1String(name)).toStdWString(); }

    static std::wstring textNumber(unsigned number) {
        const ResourceScope resources;
        return loadText(number);
    }

    QTemporaryDir folder;

private:
    QByteArray m_temporaryBefore;
};

/// A drawing file of these tables, for no document.
inline void saveTables(const std::wstring& path, std::vector<std::unique_ptr<KdDbTable>> tables) {
    KdDbDatabase drawing(true, true);
    for (auto& table : tables) {
        table->setTableStyle(drawing.tablestyle());
        const OpenObject<KdDbBlockTableRecord> space(drawing.modelSpaceId(), KdDb::kForWrite);
        KdDbTable* made = table.release();
        EXPECT_EQ(space->appendKdDbEntity(made), Kdad::eOk);
        made->close();
    }
    EXPECT_EQ(drawing.saveAs(path.c_str()), Kdad::eOk);
}

}  // namespace kdtest
