// Cells on their way to the clipboard: what lies there, what the temporary drawing holds, and what a failure leaves.

#include "tests/module/exchange/clipfixture.h"

namespace {

using kdtest::cells;
using kdtest::describe;
using kdtest::texts;

/// Copies, and looks into the temporary drawing.
class CellCopies : public kdtest::CellClipboard {
protected:
    /// The one table of the drawing copied last.
    const KdDbTable& copied() {
        drawing = std::make_unique<KdDbDatabase>(false, true);
        EXPECT_EQ(drawing->readDwgFile(copiedFile().toStdWString().c_str()), Kdad::eOk);
        KdArray<KdDbObjectId> tables;
        EXPECT_TRUE(CVqTableCommon::GetTablesFormDatabase(drawing.get(), tables));
        EXPECT_EQ(tables.length(), 1);
        return look(tables[0]);
    }

    static tagVqDrawingClipboardInfo drawingInfo() {
        tagVqDrawingClipboardInfo found{};
        const QByteArray bytes = held(L"AutoCAD.r19");
        EXPECT_EQ(bytes.size(), 2168);
        if (bytes.size() == 2168) std::memcpy(&found, bytes.constData(), 2168);
        return found;
    }

    std::unique_ptr<KdDbDatabase> drawing;
};

TEST_F(CellCopies, put_a_record_on_the_clipboard_that_tells_the_file_and_the_place) {
    const KdDbObjectId id = add(table(5, 6).fill());
    ASSERT_EQ(copy(id, "B3:D4"), 1);
    const tagVqTableClipboardInfo cellsInfo = info();
    EXPECT_EQ(cellsInfo.m_rows, 2);
    EXPECT_EQ(cellsInfo.m_columns, 3);
    EXPECT_EQ(cellsInfo.m_version, 12);
    EXPECT_EQ(cellsInfo.m_reserved, 0);
    EXPECT_EQ(cellsInfo.m_sourceTable, static_cast<std::int64_t>(id.asInteger()));
    EXPECT_EQ(cellsInfo.m_firstRow, 2);
    EXPECT_EQ(cellsInfo.m_firstColumn, 1);
    EXPECT_TRUE(QFile::exists(copiedFile()));
    EXPECT_TRUE(copiedFile().endsWith(QLatin1String(".DWG")));
}

TEST_F(CellCopies, put_the_file_there_for_other_programs_too) {
    auto made = table(3, 3).fill().build();
    made->setPosition({100.0, 200.0, 0.0});
    const KdDbObjectId id = add(std::move(made));
    ASSERT_EQ(copy(id, "B2:C3"), 1);
    const tagVqDrawingClipboardInfo record = drawingInfo();
    EXPECT_EQ(fileNameIn(record.m_fileName), copiedFile().toStdWString());
    EXPECT_EQ(std::wstring(record.m_versionTag), L"R15");
    const KdGePoint3d corner = copied().getGeomExtents().minPoint();
    EXPECT_DOUBLE_EQ(record.m_basePoint[0], corner.x);
    EXPECT_DOUBLE_EQ(record.m_basePoint[1], corner.y);
    EXPECT_DOUBLE_EQ(record.m_basePoint[2], corner.z);
    EXPECT_DOUBLE_EQ(drawing->insbase().x, corner.x);
    EXPECT_DOUBLE_EQ(drawing->insbase().y, corner.y);
    const auto* bytes = reinterpret_cast<const char*>(&record);
    EXPECT_EQ(QByteArray(bytes + 1040, 1040), QByteArray(1040, '\0'));
    EXPECT_EQ(QByteArray(bytes + 2096, 8), QByteArray(8, '\0'));
    EXPECT_EQ(QByteArray(bytes + 2128, 40), QByteArray(40, '\0'));
}

TEST_F(CellCopies, hold_the_selected_cells_alone) {
    const KdDbObjectId id = add(table(4, 4).fill().align("B3", KdDb::kBottomRight).cellStyle("C3", L"_TITLE"));
    ASSERT_EQ(copy(id, "B3:C4"), 1);
    EXPECT_EQ(texts(copied()), "|B3|C3|\n|B4|C4|\n");
    EXPECT_EQ(copied().alignment(0, 0), KdDb::kBottomRight);
    EXPECT_STREQ(copied().cellStyle(0, 1), L"_TITLE");
}

TEST_F(CellCopies, of_any_part_at_the_border_are_trimmed_right) {
    const KdDbObjectId id = add(table(3, 3).fill());
    for (const auto& [range, expected] : {std::pair{"A1:C3", "|A1|B1|C1|\n|A2|B2|C2|\n|A3|B3|C3|\n"},
                                          {"A1:B1", "|A1|B1|\n"},
                                          {"C1:C3", "|C1|\n|C2|\n|C3|\n"},
                                          {"A3", "|A3|\n"},
                                          {"C3", "|C3|\n"},
                                          {"A1", "|A1|\n"}}) {
        ASSERT_EQ(copy(id, range), 1) << range;
        EXPECT_EQ(texts(copied()), expected) << range;
    }
}

TEST_F(CellCopies, of_whole_rows_and_columns_and_of_reversed_selections_are_the_cells_meant) {
    const KdDbObjectId id = add(table(3, 3).fill());
    select(id, KdCellRange{1, -1, 1, -1});
    ASSERT_EQ(CVqTableCommon::CopyTableCells(id), 1);
    EXPECT_EQ(texts(copied()), "|A2|B2|C2|\n");
    EXPECT_EQ(info().m_columns, 3);
    select(id, KdCellRange{-1, 2, -1, 2});
    ASSERT_EQ(CVqTableCommon::CopyTableCells(id), 1);
    EXPECT_EQ(texts(copied()), "|C1|\n|C2|\n|C3|\n");
    select(id, KdCellRange{2, 1, 1, 0});
    ASSERT_EQ(CVqTableCommon::CopyTableCells(id), 1);
    EXPECT_EQ(texts(copied()), "|A2|B2|\n|A3|B3|\n");
    EXPECT_EQ(info().m_firstRow, 1);
}

TEST_F(CellCopies, keep_merges_and_what_is_left_of_those_cut) {
    const KdDbObjectId id = add(table(5, 5).merge("B2:D3").merge("A4:A5").fill());
    ASSERT_EQ(copy(id, "A1:E5"), 1);
    EXPECT_EQ(copied().getMergeRange(1, 1), cells("B2:D3"));
    ASSERT_EQ(copy(id, "B2:D4"), 1);
    EXPECT_EQ(copied().getMergeRange(0, 0), cells("A1:C2"));
    EXPECT_STREQ(copied().textString(0, 0), L"B2");
    ASSERT_EQ(copy(id, "C3:E4"), 1);
    EXPECT_EQ(copied().getMergeRange(0, 0), cells("A1:B1"));
    ASSERT_EQ(copy(id, "A1:B2"), 1) << "the merge's owner is its last cell";
    EXPECT_EQ(copied().getMergeRange(1, 1), cells("B2"));
    EXPECT_STREQ(copied().textString(1, 1), L"B2");
}

TEST_F(CellCopies, suppress_the_header_as_the_last_title_or_header_row_among_them_says) {
    const KdDbObjectId id =
        add(table(3, 3).fill().rowStyle(0, L"_TITLE").rowStyle(1, L"_HEADER").rowStyle(2, L"_DATA"));
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->suppressHeaderRow(true);
    ASSERT_FALSE(look(id).isTitleSuppressed());
    for (const auto& [range, suppressed] :
         {std::pair{"A1:C1", false}, {"A2:C2", true}, {"A1:C2", true}, {"A3:C3", true}}) {
        ASSERT_EQ(copy(id, range), 1);
        EXPECT_EQ(copied().isHeaderSuppressed(), suppressed) << range;
    }
}

TEST_F(CellCopies, hold_locked_cells_too) {
    const KdDbObjectId id = add(table(4, 4).fill().lock("A1:D4"));
    ASSERT_EQ(copy(id, "B2:C3"), 1);
    EXPECT_EQ(texts(copied()), "|B2|C2|\n|B3|C3|\n");
}

TEST_F(CellCopies, leave_drawing_and_table_as_they_were) {
    const KdDbObjectId id = add(table(4, 4).merge("B2:C3").fill());
    const auto before = blocksAndEntities();
    const std::string description = describe(look(id));
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    EXPECT_EQ(blocksAndEntities(), before);
    EXPECT_EQ(describe(look(id)), description);
    EXPECT_EQ(selection(id), cells("A1:B2"));
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(blocksAndEntities(), before);
    EXPECT_EQ(describe(look(id)), description);
}

TEST_F(CellCopies, of_a_table_with_an_extension_dictionary_leave_nothing) {
    const KdDbObjectId id = add(table(2, 2).fill());
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->createExtensionDictionary();
    const auto before = blocksAndEntities();
    ASSERT_EQ(copy(id, "A1:B1"), 1);
    EXPECT_EQ(texts(copied()), "|A1|B1|\n");
    EXPECT_EQ(blocksAndEntities(), before);
}

TEST_F(CellCopies, take_the_managers_range_before_the_selection) {
    const KdDbObjectId id = add(table(3, 3).fill());
    select(id, "A1");
    CVqTableClipDataMgr manager;
    manager.m_range = cells("B2:C3");
    {
        const OpenObject<KdDbTable> open(id, KdDb::kForRead);
        ASSERT_EQ(manager.CopyTableCells(open.get()), 1);
    }
    EXPECT_EQ(texts(copied()), "|B2|C2|\n|B3|C3|\n");
}

/// A failed copy: nothing on the clipboard, nothing left in the drawing.
class RefusedCopies : public CellCopies {
protected:
    void expectRefused(KdDbObjectId id, const char* why) {
        putPlain("before");
        const auto before = blocksAndEntities();
        EXPECT_EQ(CVqTableCommon::CopyTableCells(id), 0) << why;
        EXPECT_EQ(held(L"CF_ACTABLE_CELLS"), QByteArray()) << why;
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before")) << why;
        EXPECT_EQ(blocksAndEntities(), before) << why;
        EXPECT_EQ(underWay(), 0) << why;
    }
};

TEST_F(RefusedCopies, leave_everything_as_it_was) {
    const KdDbObjectId id = add(table(2, 2).fill());
    expectRefused(id, "nothing selected");
    select(id, "A1");
    qputenv("TMPDIR", "/there/is/no/such/folder");
    expectRefused(id, "no folder for the file");
    qputenv("TMPDIR", QFile::encodeName(folder.path()));
    qputenv("TMPFILEXT", "a/b");
    expectRefused(id, "no file can have the name");
    qunsetenv("TMPFILEXT");
    expectRefused(KdDbObjectId::kNull, "no table");
    KdDbHostApplicationServices* services = kddbHostApplicationServices();
    kddbSetHostApplicationServices(nullptr);
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(CVqTableCommon::CopyTableCells(id), 0);
    kdhost::faults().noMainAppService = false;
    EXPECT_EQ(CVqTableCommon::CopyTableCells(id), 0) << "no working drawing";
    kddbSetHostApplicationServices(services);
    EXPECT_EQ(copy(id, "A1"), 1);
}

TEST_F(RefusedCopies, need_a_table_that_may_be_read) {
    CVqTableClipDataMgr manager;
    EXPECT_EQ(manager.CopyTableCells(nullptr), 0);
    const KdDbObjectId id = add(table(2, 2).fill());
    select(id, "A1");
    EXPECT_EQ(manager.CopyTableCells(const_cast<KdDbTable*>(&look(id))), 0) << "not open";
    auto memory = table(2, 2).fill().select("A1").build();
    EXPECT_EQ(manager.CopyTableCells(memory.get()), 0) << "in no drawing";
}

TEST_F(RefusedCopies, are_those_on_a_locked_layer_too) {
    auto made = table(2, 2).fill().select("A1").build();
    const KdDbObjectId id = add(std::move(made));
    {
        const OpenObject<KdDbLayerTableRecord> layer(look(id).layerId(), KdDb::kForWrite);
        ASSERT_TRUE(layer);
        layer->setIsLocked(true);
    }
    expectRefused(id, "nobody could erase the clone");
    EXPECT_EQ(CVqTableCommon::CutTableCells(id), 0);
    EXPECT_STREQ(look(id).textString(0, 0), L"A1");
}

TEST_F(RefusedCopies, stay_whole_when_any_open_fails) {
    const KdDbObjectId id = add(table(3, 3).merge("A1:B2").fill());
    const std::string description = describe(look(id));
    const auto before = blocksAndEntities();
    int refused = 0;
    for (int number = 1; number <= 40; ++number) {
        select(id, "A1:B2");
        putPlain("before");
        kdhost::faults().failOpenNumber = number;
        const int done = CVqTableCommon::CopyTableCells(id);
        kdhost::faults() = {};
        if (done == 0) {
            ++refused;
            EXPECT_EQ(held(L"CF_ACTABLE_CELLS"), QByteArray()) << number;
        }
        EXPECT_EQ(describe(look(id)), description) << number;
        // A clone that can't be erased is taken back.
        ASSERT_EQ(blocksAndEntities(), before) << number;
    }
    EXPECT_GE(refused, 3);
}

TEST_F(CellCopies, by_cutting_empty_the_cells_and_leave_their_looks) {
    const KdDbObjectId id = add(table(3, 3).fill().align("B2", KdDb::kBottomRight));
    ASSERT_EQ(cut(id, "A2:B2"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|\n|||C2|\n|A3|B3|C3|\n");
    EXPECT_EQ(look(id).alignment(1, 1), KdDb::kBottomRight);
    EXPECT_EQ(texts(copied()), "|A2|B2|\n");
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_STREQ(look(id).textString(1, 1), L"B2");
}

TEST_F(CellCopies, by_cutting_empty_nothing_when_the_copy_fails) {
    const KdDbObjectId id = add(table(2, 2).fill());
    qputenv("TMPDIR", "/there/is/no/such/folder");
    EXPECT_EQ(cut(id, "A1:B2"), 0);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n");
}

TEST_F(CellCopies, trim_nothing_without_a_range_in_the_table) {
    auto made = table(3, 3).fill().build();
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(made.get(), nullptr), 0);
    const CKdTableCellRange invalid;
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(made.get(), &invalid), 0);
    CKdTableCellRange range = cells("A1:B2");
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(nullptr, &range), 0);
    range = cells("B2:D4");
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(made.get(), &range), 1) << "sticks out";
    EXPECT_EQ(made->numRows(), 3);
    range = cells("A1:C3");
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(made.get(), &range), 1);
    EXPECT_EQ(made->numColumns(), 3);
    range = cells("C2:C3");
    EXPECT_EQ(CVqTableClipDataMgr::TrimTable(made.get(), &range), 1);
    EXPECT_EQ(texts(*made), "|C2|\n|C3|\n");
}

}  // namespace
