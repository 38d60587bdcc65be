// Text and formulas from the clipboard, in the formats of this program and of others.

#include "kd/db/field.h"
#include "tests/module/exchange/clipfixture.h"

namespace {

using kdtest::texts;

const wchar_t* const formatted = L"AutoCAD Unicode MText Clipboard Data";
const wchar_t* const internalText = L"VQCAD Internal text Clipboard Data";
const wchar_t* const cellsFormat = L"CF_ACTABLE_CELLS";

class TextPastes : public kdtest::CellClipboard {
protected:
    /// The text on the clipboard; "(none)" where there is none.
    static std::wstring read() {
        COleDataObject object;
        object.AttachClipboard();
        KdString text(L"from before");
        const int found = CVqTableClipDataMgr::GetTextClipboardData(object, text);
        if (found == 0) {
            EXPECT_TRUE(text.isEmpty());
            return L"(none)";
        }
        return text.str();
    }

    KdDbObjectId numbers() { return add(table(3, 3).text("A1", L"2").text("B1", L"3")); }
    std::wstring fieldCode(KdDbObjectId id, int row, int column) {
        const OpenObject<KdDbField> field(look(id).fieldId(row, column), KdDb::kForRead);
        return field ? field->getFieldCode(KdDbField::kAddChildren).str() : L"(none)";
    }
};

TEST_F(TextPastes, go_into_every_selected_cell) {
    const KdDbObjectId id = add(table(3, 3).fill());
    putPlain("x");
    EXPECT_EQ(paste(id, "A1:B2"), 1);
    EXPECT_EQ(texts(look(id)), "|x|x|C1|\n|x|x|C2|\n|A3|B3|C3|\n");
    EXPECT_EQ(steps().back(), L"PasteTable");
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|\n|A2|B2|C2|\n|A3|B3|C3|\n");
}

TEST_F(TextPastes, leave_locked_cells_alone) {
    const KdDbObjectId id = add(table(2, 2).fill().lock("A1"));
    putPlain("x");
    EXPECT_EQ(paste(id, "A1:B1"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|x|\n|A2|B2|\n");
    putPlain("=1+2");
    EXPECT_EQ(paste(id, "A1:B1"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|3|\n|A2|B2|\n");
}

TEST_F(TextPastes, without_text_on_the_clipboard_do_nothing_and_succeed) {
    const KdDbObjectId id = add(table(1, 2).fill());
    EXPECT_EQ(paste(id, "A1:B1"), 1);
    OpenObject<KdDbTable>(id, KdDb::kForRead)->clearSubSelection();
    EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 1) << "without a selection, too";
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n");
}

TEST_F(TextPastes, that_begin_with_an_equals_sign_are_formulas_in_every_cell) {
    const KdDbObjectId id = numbers();
    putPlain("=a1*B1");
    EXPECT_EQ(paste(id, "B2:C3"), 1);
    for (const auto& [row, column] : {std::pair{1, 1}, {1, 2}, {2, 1}, {2, 2}}) {
        EXPECT_STREQ(look(id).textString(row, column), L"6");
        EXPECT_EQ(look(id).contentType(row, column), KdDb::kCellContentTypeField);
        EXPECT_EQ(fieldCode(id, row, column), L"\\AcExpr (A1*B1)");
    }
    EXPECT_NE(look(id).fieldId(1, 1), look(id).fieldId(2, 2));
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->setTextString(0, 0, L"5");
    EXPECT_STREQ(look(id).textString(2, 2), L"15");
    EXPECT_EQ(underWay(), 0);
}

/// Notes at each close of a changed table whether a clipboard operation is told to be under way.
class CloseWatch : public kdhost::DatabaseListener {
public:
    CloseWatch(KdDbObjectId table, std::function<int()> underWay) : m_table(table), m_underWay(std::move(underWay)) {
        kdhost::addDatabaseListener(this);
    }
    ~CloseWatch() override { kdhost::removeDatabaseListener(this); }
    CloseWatch(const CloseWatch&) = delete;
    CloseWatch& operator=(const CloseWatch&) = delete;
    void objectChanged(KdDbObjectId id) override {
        if (id == m_table) seen.push_back(m_underWay());
    }
    std::vector<int> seen;

private:
    KdDbObjectId m_table;
    std::function<int()> m_underWay;
};

TEST_F(TextPastes, of_formulas_are_over_when_the_table_closes_and_those_of_text_are_under_way) {
    const KdDbObjectId id = numbers();
    select(id, "C3");
    for (const auto& [text, underWayAtClose] : {std::pair{"=1+2", 0}, {"text", 1}}) {
        putPlain(text);
        const CloseWatch watch(id, underWay);
        EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 1);
        ASSERT_FALSE(watch.seen.empty());
        EXPECT_EQ(watch.seen, std::vector<int>(watch.seen.size(), underWayAtClose)) << text;
        EXPECT_EQ(underWay(), 0);
    }
}

TEST_F(TextPastes, of_formulas_are_one_step_of_undo) {
    const KdDbObjectId id = numbers();
    const std::string before = texts(look(id));
    const std::size_t count = steps().size();
    putPlain("=1+2");
    EXPECT_EQ(paste(id, "A1:C3"), 1);
    EXPECT_EQ(steps().size(), count + 1);
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(texts(look(id)), before);
}

TEST_F(TextPastes, lose_their_equals_signs_and_blanks_before_they_are_formulas) {
    const KdDbObjectId id = numbers();
    for (const char* text : {"= =1+2", "==1+2", "=  1+2", "=== ==1+2"}) {
        putPlain(text);
        EXPECT_EQ(paste(id, "C3"), 1) << text;
        EXPECT_EQ(fieldCode(id, 2, 2), L"\\AcExpr (1+2)") << text;
        EXPECT_STREQ(look(id).textString(2, 2), L"3") << text;
    }
}

TEST_F(TextPastes, of_a_lone_equals_sign_are_text) {
    const KdDbObjectId id = numbers();
    putPlain("=");
    EXPECT_EQ(paste(id, "A1:B1"), 1);
    EXPECT_STREQ(look(id).textString(0, 1), L"=");
    EXPECT_TRUE(look(id).fieldId(0, 1).isNull());
    putPlain(" =1");
    EXPECT_EQ(paste(id, "A1"), 1);
    EXPECT_STREQ(look(id).textString(0, 0), L" =1");
}

TEST_F(TextPastes, tell_whether_they_made_formulas) {
    const KdDbObjectId id = add(table(2, 2).lock("A1"));
    const OpenObject<KdDbTable> open(id, KdDb::kForWrite);
    CVqTableClipDataMgr manager;
    bool formula = false;
    putPlain("text");
    open->setSubSelection(kdtest::cells("A1:B1"));
    EXPECT_EQ(manager.PastTableCells(open.get(), formula), 1);
    EXPECT_FALSE(formula);
    putPlain("=1+2");
    manager.m_range = kdtest::cells("A1");
    EXPECT_EQ(manager.PastTableCells(open.get(), formula), 1);
    EXPECT_FALSE(formula) << "the one cell is locked";
    manager.m_range = kdtest::cells("B2");
    EXPECT_EQ(manager.PastTableCells(open.get(), formula), 1);
    EXPECT_TRUE(formula);
    EXPECT_STREQ(open->textString(0, 1), L"text") << "the manager's range goes before the selection";
}

TEST_F(TextPastes, of_formulas_pass_cells_by_whose_fields_cannot_be_posted) {
    auto memory = table(1, 2).fill().select("A1:B1").build();
    putPlain("=1+2");
    bool formula = false;
    EXPECT_EQ(CVqTableClipDataMgr().PastTableCells(memory.get(), formula), 1);
    EXPECT_FALSE(formula) << "the table is in no drawing";
    EXPECT_EQ(texts(*memory), "|A1|B1|\n");
}

TEST_F(TextPastes, keep_one_carriage_return_of_each_line_end) {
    put(L"text/plain", QByteArray("one\r\ntwo\r\n\rthree\nfour\r\r\n"));
    EXPECT_EQ(read(), L"one\rtwo\r\rthree\nfour\r\r");
}

TEST_F(TextPastes, read_plain_text_as_utf8) {
    putPlain("\xE8\xA1\xA8\xE6\xA0\xBC \xF0\x9F\x98\x80");
    EXPECT_EQ(read(), L"表格 \U0001F600");
    const KdDbObjectId id = add(table(1, 1));
    EXPECT_EQ(paste(id, "A1"), 1);
    EXPECT_STREQ(look(id).textString(0, 0), L"表格 \U0001F600");
}

TEST_F(TextPastes, prefer_formatted_text_to_the_programs_own_and_that_to_plain_text) {
    const auto add = [](COleDataObject& object, const wchar_t* name, const std::wstring& text) {
        EXPECT_TRUE(putOnClipboard(object, format(name), text.c_str(), (text.size() + 1) * sizeof(wchar_t)));
    };
    COleDataObject object;
    object.AttachClipboard();
    EXPECT_TRUE(putOnClipboard(object, format(L"text/plain"), "plain", 6));
    EXPECT_EQ(read(), L"plain");
    add(object, internalText, L"internal");
    EXPECT_EQ(read(), L"internal");
    add(object, formatted, L"{\\C1;formatted}");
    EXPECT_EQ(read(), L"{\\C1;formatted}");
    add(object, formatted, L"");
    EXPECT_EQ(read(), L"internal") << "an empty one gives no text";
}

TEST_F(TextPastes, take_texts_of_other_programs_as_far_as_they_go) {
    putWide(formatted, L"two words");
    EXPECT_EQ(read(), L"two words");
    put(formatted, L"abc", 3 * sizeof(wchar_t));
    EXPECT_EQ(read(), L"abc") << "no zero at the end";
    put(formatted, L"abc", 2 * sizeof(wchar_t) + 3);
    EXPECT_EQ(read(), L"ab") << "half a character at the end";
    put(formatted, "x", 1);
    EXPECT_EQ(read(), L"(none)");
    put(internalText, L"ab\0cd", 5 * sizeof(wchar_t));
    EXPECT_EQ(read(), L"ab");
    put(internalText, L"", sizeof(wchar_t));
    EXPECT_EQ(read(), L"") << "an empty text is one";
}

TEST_F(TextPastes, are_put_aside_by_cells) {
    const KdDbObjectId id = add(table(2, 2).fill());
    ASSERT_EQ(copy(id, "A1"), 1);
    const QByteArray record = held(cellsFormat);
    COleDataObject object;
    object.AttachClipboard();
    EXPECT_TRUE(putOnClipboard(object, format(L"text/plain"), "plain", 6));
    EXPECT_TRUE(putOnClipboard(object, format(cellsFormat), record.constData(), 4128));
    EXPECT_EQ(paste(id, "B2"), 1);
    EXPECT_STREQ(look(id).textString(1, 1), L"A1");
}

class RecordsOfOthers : public TextPastes {
protected:
    static int read(tagVqTableClipboardInfo& info) {
        COleDataObject object;
        object.AttachClipboard();
        return CVqTableClipDataMgr::GetAcTableClipboardData(object, info);
    }
};

TEST_F(RecordsOfOthers, that_are_cut_short_are_no_data) {
    tagVqTableClipboardInfo info{};
    info.m_rows = 77;
    EXPECT_EQ(read(info), 0);
    put(cellsFormat, QByteArray(4127, 'x'));
    EXPECT_EQ(read(info), 1);
    EXPECT_EQ(info.m_rows, 77);
    const KdDbObjectId id = add(table(2, 2).fill());
    EXPECT_EQ(canPaste(id, "A1"), 1);
    EXPECT_EQ(paste(id, "A1"), 0);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n");
}

TEST_F(RecordsOfOthers, that_are_longer_are_read_by_their_beginning) {
    tagVqTableClipboardInfo made{};
    made.m_rows = 5;
    QByteArray bytes(reinterpret_cast<const char*>(&made), sizeof made);
    put(cellsFormat, bytes + QByteArray(100, 'x'));
    tagVqTableClipboardInfo info{};
    EXPECT_EQ(read(info), 1);
    EXPECT_EQ(info.m_rows, 5);
}

TEST_F(RecordsOfOthers, of_anything_fail_to_be_pasted_and_nothing_more) {
    const KdDbObjectId id = add(table(2, 2).fill());
    const auto before = blocksAndEntities();
    for (const char byte : {'\xff', '\x01', '/', '\x7f'}) {
        put(cellsFormat, QByteArray(4128, byte));
        EXPECT_EQ(paste(id, "A1:B2"), 0);
        EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n");
        EXPECT_EQ(blocksAndEntities(), before);
    }
    putInfo(folder.path().toStdWString(), 1, 1);
    EXPECT_EQ(paste(id, "A1:B2"), 0) << "a folder";
    kdtest::CellClipboard::write(folder.filePath(QStringLiteral("notes.txt")), "no drawing");
    putInfo(pathOf("notes.txt"), 1, 1);
    EXPECT_EQ(paste(id, "A1:B2"), 0);
}

TEST_F(RecordsOfOthers, need_not_tell_the_number_of_cells_that_the_file_holds) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    putInfo(copiedFile().toStdWString(), 1, 1);
    EXPECT_EQ(paste(id, "B2"), 1);
    EXPECT_STREQ(look(id).textString(2, 2), L"B2");
}

TEST_F(RecordsOfOthers, are_known_by_the_names_of_their_formats) {
    EXPECT_EQ(CVqTableClipDataMgr::GetAcTableClipFormat(), format(L"CF_ACTABLE_CELLS"));
    EXPECT_EQ(CVqTableClipDataMgr::m_cfAcTable, format(L"CF_ACTABLE_CELLS"));
    EXPECT_EQ(CVqTableClipDataMgr::GetAutoCADClipFormat(), format(L"AutoCAD.r19"));
    EXPECT_EQ(CVqTableClipDataMgr::m_cfAutoCAD, format(L"AutoCAD.r19"));
    EXPECT_EQ(CVqTableClipDataMgr::GetAutoCADUnicodeMTextClipFormat(), format(formatted));
    EXPECT_EQ(CVqTableClipDataMgr::m_cfAcMText, format(formatted));
}

}  // namespace
