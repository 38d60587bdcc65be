// What the manager of cell styles does: new, rename and delete, each taken back by the caller's Cancel.

#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "kd/ui/widgets.h"
#include "tests/ui/stylemanager/fixture.h"

namespace kdtest {
namespace {

const std::wstring kName = L"IDC_CREATECELLSTYLE_NEWNAME_EDIT";
const std::wstring kStart = L"IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX";
const std::wstring kInvalid =
    L"Enter a name for the style. These characters are not allowed:\n< > / \\ \" : ; ? * | , = ` '";
const std::wstring kExists = L"A cell style with this name already exists. Enter another name.";

class CellStyleManagerEdits : public CellStyleManagerTest {
protected:
    /// Steps that take the style for themselves, so that the manager can't have it for write.
    Step takeStyle() {
        return [this] { m_reader = std::make_unique<OpenObject<KdDbTableStyle>>(style(kStyle), KdDb::kForRead); };
    }
    Step giveStyleBack() {
        return [this] { m_reader.reset(); };
    }
    Step expectPicture(QImage& kept, bool changed) {
        return [this, &kept, changed] {
            const QImage shown = pictureIn(*dialog, "IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC");
            EXPECT_EQ(shown != kept, changed);
            kept = shown;
        };
    }

private:
    std::unique_ptr<OpenObject<KdDbTableStyle>> m_reader;
};

// New.

TEST_F(CellStyleManagerEdits, A_new_style_starts_from_the_marked_row_and_comes_before_the_last_one) {
    EXPECT_EQ(run({choose(L"Notes"), click(kNew), expect(kStart, L"rows", L"5"), expect(kStart, L"text", L"Notes"),
                   expect(kName, L"text", L"Copy of Notes"), setText(kName, L"Doors"), click(L"IDOK"),
                   expectRows({L"Title", L"Header", L"Data", L"Notes", L"Doors", L"Remarks"}, L"Notes"),
                   expectButtons(true, true), click(L"IDOK")}),
              1);
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks", L"Doors"}));
}

TEST_F(CellStyleManagerEdits, A_new_style_can_start_from_a_default) {
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->setTextHeight(17.0, L"_TITLE");
    run({click(kNew), expect(kStart, L"text", L"Title"), setText(kName, L"Doors"), click(L"IDOK"), click(L"IDOK")});
    const OpenObject<KdDbTableStyle> open(style(kStyle), KdDb::kForRead);
    EXPECT_EQ(open->textHeight(L"Doors"), 17.0);
}

TEST_F(CellStyleManagerEdits, The_preview_shows_the_new_style_while_the_selection_stays) {
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->setBackgroundColor(KdCmColor::fromIndex(1), L"_TITLE");
    QImage kept;
    run({choose(L"Notes"), expectPicture(kept, true), click(kNew), kdtest::choose(kStart, L"Title"), click(L"IDOK"),
         expectPicture(kept, true), [&] { EXPECT_EQ(selectedIn(list()), L"Notes"); }, click(L"IDOK")});
}

TEST_F(CellStyleManagerEdits, A_new_style_may_differ_from_another_in_the_case_of_a_letter_beyond_A_to_Z) {
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->createCellStyle(L"Äa", L"_DATA");
    EXPECT_EQ(run({choose(L"Äa"), click(kNew), setText(kName, L"äa"), click(L"IDOK"),
                   expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), click(L"IDOK")}),
              1);
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks", L"Äa", L"äa"}));
}

TEST_F(CellStyleManagerEdits, Cancel_of_the_name_makes_nothing) {
    run({click(kNew), click(L"IDCANCEL"), expectRows(all, L"Title"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

TEST_F(CellStyleManagerEdits, By_the_menu_too) {
    run({context(kList, L"#4"), menu(L"IDR_MANAGECELL_NEW"), setText(kName, L"Doors"), click(L"IDOK"),
         expectRows({L"Title", L"Header", L"Data", L"Notes", L"Doors", L"Remarks"}, L"Remarks"), click(L"IDOK")});
}

TEST_F(CellStyleManagerEdits, A_style_that_cannot_be_written_gets_a_row_alone) {
    run({takeStyle(), click(kNew), setText(kName, L"Doors"), click(L"IDOK"), [&] { EXPECT_EQ(list().count(), 6); },
         giveStyleBack(), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

// Rename.

TEST_F(CellStyleManagerEdits, Renames_by_button_menu_and_key) {
    EXPECT_EQ(run({choose(L"Notes"), click(kRename), label(L"A"), expectFocus(kList),
                   expectRows({L"Title", L"Header", L"Data", L"A", L"Remarks"}, L"A"), context(kList, L"#3"),
                   menu(L"IDR_MANAGECELL_RENAME"), label(L"B"), key(L"F2"), label(L"C"),
                   expectRows({L"Title", L"Header", L"Data", L"C", L"Remarks"}, L"C"), click(L"IDOK")}),
              1);
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"C", L"Remarks"}));
}

TEST_F(CellStyleManagerEdits, A_style_in_use_is_renamed_and_its_cells_go_along) {
    const KdDbObjectId table = addTable(kStyle, L"Notes");
    run({choose(L"Notes"), key(L"F2"), label(L"Doors"), expectButtons(true, false), click(L"IDOK")});
    EXPECT_STREQ(OpenObject<KdDbTable>(table, KdDb::kForRead)->cellStyle(2, 1), L"Doors");
}

TEST_F(CellStyleManagerEdits, Refusals_are_told_and_the_row_keeps_its_text) {
    Steps steps = {choose(L"Notes")};
    const auto refused = [&](const std::wstring& name, const std::wstring& message) {
        for (Step& step : Steps{key(L"F2"), label(name), expectBox(QMessageBox::Warning, QMessageBox::Ok),
                                answer(message, L"OK"), expectFocus(kList), expectRows(all, L"Notes")}) {
            steps.push_back(std::move(step));
        }
    };
    for (const wchar_t c : std::wstring(L"<>/\\\":;?*|,=`'")) refused(L"x" + std::wstring(1, c), kInvalid);
    for (const wchar_t* name : {L"Notes", L"NOTES", L"remarks", L"Data", L"header"}) refused(name, kExists);
    steps.push_back(click(L"IDOK"));
    run(std::move(steps));
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

TEST_F(CellStyleManagerEdits, A_name_that_is_invalid_and_exists_is_told_as_invalid) {
    // As a drawing may bring it.
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->createCellStyle(L"a*b", L"_DATA");
    run({choose(L"Notes"), key(L"F2"), label(L"a*b"), answer(kInvalid, L"OK"), click(L"IDOK")});
}

TEST_F(CellStyleManagerEdits, Names_made_and_given_in_the_manager_exist_from_then_on) {
    run({choose(L"Notes"), click(kNew), setText(kName, L"Doors"), click(L"IDOK"), click(kRename), label(L"doors"),
         answer(kExists, L"OK"), key(L"F2"), label(L"Walls"), choose(L"Remarks"), key(L"F2"), label(L"WALLS"),
         answer(kExists, L"OK"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Walls", L"Remarks", L"Doors"}));
}

TEST_F(CellStyleManagerEdits, The_case_alone_of_a_letter_beyond_A_to_Z_can_be_changed) {
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->createCellStyle(L"Äa", L"_DATA");
    run({choose(L"Äa"), key(L"F2"), label(L"äa"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks", L"äa"}));
}

TEST_F(CellStyleManagerEdits, The_preview_shows_the_new_name_after_a_rename) {
    QImage kept;
    run({choose(L"Notes"), expectPicture(kept, true), key(L"F2"), label(L"Doors"), expectPicture(kept, true),
         click(L"IDOK")});
}

TEST_F(CellStyleManagerEdits, An_empty_label_and_one_given_up_keep_the_name_without_a_word) {
    run({choose(L"Notes"), key(L"F2"), label(L""), expectRows(all, L"Notes"), key(L"F2"), label(L"CANCEL"),
         expectRows(all, L"Notes"), click(L"IDOK")});
}

TEST_F(CellStyleManagerEdits, A_rename_has_no_limit_of_length) {
    const std::wstring longName(300, L'n');
    run({choose(L"Notes"), key(L"F2"), label(longName), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle)[3], longName);
}

TEST_F(CellStyleManagerEdits, The_old_name_is_free_after_a_rename) {
    run({choose(L"Notes"), key(L"F2"), label(L"Doors"), choose(L"Remarks"), key(L"F2"), label(L"Notes"),
         expectRows({L"Title", L"Header", L"Data", L"Doors", L"Notes"}, L"Notes"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Doors", L"Notes"}));
}

TEST_F(CellStyleManagerEdits, A_rename_of_a_style_that_cannot_be_written_changes_the_row_alone) {
    run({takeStyle(), choose(L"Notes"), key(L"F2"), label(L"Doors"),
         expectRows({L"Title", L"Header", L"Data", L"Doors", L"Remarks"}, L"Doors"), giveStyleBack(), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

TEST_F(CellStyleManagerEdits, The_rename_button_needs_a_selected_row) {
    run({choose(L"Notes"), [&] { list().clearSelection(); }, click(kRename),
         [&] { EXPECT_EQ(dynamic_cast<KdUiListWidget&>(list()).labelEditor(), nullptr); }, click(L"IDOK")});
}

// Delete.

TEST_F(CellStyleManagerEdits, Deletes_by_button_menu_and_key_after_a_question) {
    for (const Steps& way :
         {Steps{click(kDelete)}, Steps{context(kList, L"#3"), menu(L"IDR_MANAGECELL_DELETE")}, Steps{key(L"DELETE")}}) {
        Steps steps = {choose(L"Notes")};
        steps.insert(steps.end(), way.begin(), way.end());
        for (Step& step : Steps{expectBox(QMessageBox::Warning, QMessageBox::Ok | QMessageBox::Cancel),
                                answer(kQuestion, L"CANCEL"), expectFocus(kList), expectRows(all, L"Notes")}) {
            steps.push_back(std::move(step));
        }
        steps.insert(steps.end(), way.begin(), way.end());
        for (Step& step : Steps{answer(kQuestion, L"OK"), expectFocus(kList),
                                expectRows({L"Title", L"Header", L"Data", L"Remarks"}, L"Remarks"),
                                [&] { EXPECT_EQ(cellStyleNames(kStyle).size(), 4U); }, click(L"IDCANCEL")}) {
            steps.push_back(std::move(step));
        }
        EXPECT_EQ(run(std::move(steps)), 2);
        EXPECT_EQ(cellStyleNames(kStyle), allInternal);
    }
}

TEST_F(CellStyleManagerEdits, Behind_the_last_row_no_row_takes_its_place) {
    EXPECT_EQ(run({choose(L"Remarks"), click(kDelete), answer(kQuestion, L"OK"),
                   expectRows({L"Title", L"Header", L"Data", L"Notes"}, L""), expectButtons(false, false),
                   key(L"DELETE"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), click(L"IDOK")}),
              1);
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Notes"}));
}

TEST_F(CellStyleManagerEdits, A_deleted_name_is_free_again) {
    run({choose(L"Notes"), click(kDelete), answer(kQuestion, L"OK"), choose(L"Remarks"), key(L"F2"), label(L"Notes"),
         click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Notes"}));
}

TEST_F(CellStyleManagerEdits, A_style_erased_by_another_road_loses_its_row) {
    run({choose(L"Notes"),
         [&] {
             KdDbObject* open = nullptr;
             transactions().topTransaction()->getObject(open, style(kStyle), KdDb::kForWrite, false);
             ASSERT_NE(open, nullptr);
             open->erase(true);
         },
         click(kDelete), answer(kQuestion, L"OK"), [&] { EXPECT_EQ(list().count(), 4); }, click(L"IDCANCEL")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

TEST_F(CellStyleManagerEdits, A_style_that_cannot_be_written_loses_its_row_alone) {
    run({takeStyle(), choose(L"Notes"), click(kDelete), answer(kQuestion, L"OK"),
         expectRows({L"Title", L"Header", L"Data", L"Remarks"}, L"Remarks"), giveStyleBack(), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

}  // namespace
}  // namespace kdtest
