// A table from a file in the insert dialog: when OK is to be had, what is held and what is let go.

#include "kd/db/table.h"
#include "module/core/resources.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

class InsertDialogFile : public InsertDialogTest {
protected:
    Step expectOk(bool enabled) const {
        return [this, enabled] { EXPECT_EQ(isOn("IDOK"), enabled); };
    }
    Step expectTable(int rows, int columns) const {
        return [this, rows, columns] {
            ASSERT_NE(dialog->m_pTable, nullptr);
            EXPECT_EQ(dialog->m_pTable->numRows(), rows);
            EXPECT_EQ(dialog->m_pTable->numColumns(), columns);
        };
    }
    static Step boxed(const std::wstring& button) {
        return [button] { EXPECT_EQ(kdhost::automation::answer(button), L""); };
    }
};

TEST_F(InsertDialogFile, OK_waits_for_a_file) {
    const QString path = goodFile();
    run(steps({{click(wide(kFileRadio)), expectOk(false), click(wide(kEmptyRadio)), expectOk(true)},
               import(path),
               {expectOk(true), expectTable(3, 2),
                [&] {
                    EXPECT_EQ(rowsOf(kFileBox), Names{path.toStdWString()});
                    EXPECT_EQ(shown(kFileBox), path.toStdWString());
                    EXPECT_EQ(control(kFileBox).toolTip(), path) << "for which the box may be too narrow";
                    EXPECT_FALSE(isOn(kFileBox));
                    for (const char* edit : kFigureEdits) EXPECT_FALSE(isOn(edit)) << edit;
                },
                click(L"IDOK")}}));
    EXPECT_TRUE(dialog->m_bDataLink);
    EXPECT_NE(dialog->m_pTable, nullptr);
}

TEST_F(InsertDialogFile, The_table_takes_the_style_that_is_chosen) {
    addStyle(L"Beta");
    run(steps({{choose(wide(kStyleBox), L"Beta")},
               import(goodFile()),
               {[&] { EXPECT_EQ(dialog->m_pTable->tableStyle(), style(L"Beta")); }, click(L"IDCANCEL")}}));
}

TEST_F(InsertDialogFile, A_second_file_takes_the_place_of_the_first) {
    const QString second = write("second.CSV", "a,b,c,d\n");
    run(steps(
        {import(goodFile()),
         import(second),
         {expectTable(1, 4), [&] { EXPECT_EQ(rowsOf(kFileBox), Names{second.toStdWString()}); }, click(L"IDCANCEL")}}));
}

TEST_F(InsertDialogFile, A_second_file_that_fails_leaves_the_first_one_here) {
    run(steps({import(goodFile()),
               {click(wide(kFileManager)), click(L"IDC_BTN_SELPATH"), file(write("latin.csv", "Tr\xE4ger\n")),
                boxed(L"OK"), expectTop(L"IDD_EXLIMPORT"), expect(L"IDOK", L"enabled", L"off"), click(L"IDCANCEL"),
                expectTable(3, 2), expectOk(true), click(L"IDCANCEL")}}));
}

TEST_F(InsertDialogFile, An_empty_file_gives_a_table_without_rows) {
    run(steps({import(write("empty.csv", "")), {expectOk(true), expectTable(0, 0), click(L"IDCANCEL")}}));
}

TEST_F(InsertDialogFile, Back_and_forth_the_file_stays_at_hand) {
    run(steps({import(goodFile()),
               {click(wide(kEmptyRadio)), expectOk(true),
                [&] {
                    EXPECT_FALSE(dialog->m_bDataLink);
                    EXPECT_NE(dialog->m_pTable, nullptr) << "who opened the dialog drops it";
                },
                click(wide(kFileRadio)), expectOk(true), expectTable(3, 2), click(L"IDOK")}}));
    EXPECT_TRUE(dialog->m_bDataLink);
}

TEST_F(InsertDialogFile, The_question_about_large_tables_is_asked_for_a_file_too) {
    run(steps({{setText(wide(kColumnsEdit), L"50"), setText(wide(kRowsEdit), L"50")},
               import(goodFile()),
               {click(L"IDOK"), answer(loadText(2070), L"OK")}}));
    EXPECT_TRUE(dialog->m_bDataLink);
}

TEST_F(InsertDialogFile, The_preview_shows_the_file_and_then_the_sample_again) {
    QImage sample;
    QImage imported;
    run(steps({{[&] { sample = picture(); }, click(wide(kFileRadio)), [&] { EXPECT_EQ(picture(), sample); }},
               import(goodFile()),
               {[&] {
                    imported = picture();
                    EXPECT_NE(imported, sample);
                },
                click(wide(kEmptyRadio)), [&] { EXPECT_EQ(picture(), sample); }, click(wide(kFileRadio)),
                [&] { EXPECT_EQ(picture(), imported); }, click(L"IDCANCEL")}}));
}

}  // namespace
}  // namespace kdtest
