// The dialog of a block in a cell: what it shows, which numbers it takes over, and how it closes.

#include "tests/ui/blockdialog/fixture.h"
#include "tests/ui/looks/fixture.h"

namespace kdtest {
namespace {

class BlockDialog : public BlockDialogTest {
protected:
    int run(CVqTableCellInsertBlockDlg& dialog, const Act& act) {
        next(act);
        return dialog.DoModal();
    }
};

TEST_F(BlockDialog, Shows_what_it_is_given) {
    CVqTableCellInsertBlockDlg dialog(&host.database(), true, 2.5, 0.75, KdDb::kBottomCenter, addBlock(L"part"));
    run(dialog, [&](QWidget& shown) {
        EXPECT_EQ(text(shown, kBlockScale), "2.500000");
        EXPECT_EQ(text(shown, kBlockAngle), "0.750000");
        const auto& alignments = in<QComboBox>(shown, kBlockAlignment);
        ASSERT_EQ(alignments.count(), 9);
        EXPECT_EQ(alignments.currentIndex(), 7);
        for (int row = 0; row < 9; ++row) {
            EXPECT_EQ(alignments.itemText(row).toStdWString(), loadText(2023U + static_cast<unsigned>(row)));
        }
        EXPECT_TRUE(in<QCheckBox>(shown, kBlockAutofit).isChecked());
        EXPECT_EQ(in<QComboBox>(shown, "IDC_CELLINSERTBLOCK_BLOCKNAME_COMBOBOX").count(), 0);
        EXPECT_EQ(in<QLabel>(shown, kBlockPath).text(), QString());
    });
}

TEST_F(BlockDialog, Its_short_form_is_unscaled_at_the_top_left) {
    CVqTableCellInsertBlockDlg dialog(&host.database());
    EXPECT_EQ(dialog.m_database, &host.database());
    EXPECT_EQ(dialog.m_scale, 1.0);
    EXPECT_EQ(dialog.m_rotation, 0.0);
    EXPECT_EQ(dialog.m_alignment, KdDb::kTopLeft);
    EXPECT_FALSE(dialog.m_autofit);
    EXPECT_TRUE(dialog.m_blockId.isNull());
    run(dialog, [](QWidget& shown) {
        EXPECT_EQ(text(shown, kBlockScale), "1.000000");
        EXPECT_EQ(in<QComboBox>(shown, kBlockAlignment).currentIndex(), 0);
    });
}

TEST_F(BlockDialog, OK_closes_it_with_1_and_the_values_as_they_were_given) {
    const KdDbObjectId block = addBlock(L"part");
    CVqTableCellInsertBlockDlg dialog(&host.database(), false, 2.0, 0.5, KdDb::kMiddleLeft, block);
    EXPECT_EQ(run(dialog,
                  [&](QWidget& shown) {
                      enter(shown, kBlockScale, "7");
                      enter(shown, kBlockAngle, "3");
                      in<QComboBox>(shown, kBlockAlignment).setCurrentIndex(8);
                      in<QCheckBox>(shown, kBlockAutofit).click();
                      press(shown, "IDOK");
                  }),
              IDOK);
    EXPECT_EQ(dialog.m_scaleText, L"7");
    EXPECT_EQ(dialog.m_rotationText, L"3");
    EXPECT_EQ(dialog.m_scale, 2.0);
    EXPECT_EQ(dialog.m_rotation, 0.5);
    EXPECT_EQ(dialog.m_alignment, KdDb::kMiddleLeft);
    EXPECT_FALSE(dialog.m_autofit);
    EXPECT_EQ(dialog.m_blockId, block);
}

TEST_F(BlockDialog, Enter_closes_it_with_1_and_Esc_with_2) {
    for (const auto& [key, result] : {std::pair{Qt::Key_Return, IDOK}, std::pair{Qt::Key_Escape, IDCANCEL}}) {
        CVqTableCellInsertBlockDlg dialog(&host.database());
        EXPECT_EQ(run(dialog,
                      [key = key](QWidget& shown) {
                          in<QLineEdit>(shown, kBlockScale).setFocus();
                          pressKey(key);
                      }),
                  result);
    }
}

TEST_F(BlockDialog, Numbers_above_0_are_taken_in_both_edits_and_no_others) {
    struct Entry {
        const char* typed;
        const wchar_t* taken;  ///< null when it isn't
    };
    for (const Entry& entry :
         {Entry{"3", L"3"}, Entry{"0.25", L"0.25"}, Entry{"1e3", L"1e3"}, Entry{"2.5E-1", L"2.5E-1"},
          Entry{"0", nullptr}, Entry{"-1", nullptr}, Entry{"abc", nullptr}, Entry{"12abc", L"12abc"},
          Entry{"", nullptr}, Entry{"0.0", nullptr}}) {
        for (const char* edit : {kBlockScale, kBlockAngle}) {
            SCOPED_TRACE(::testing::Message() << edit << ' ' << entry.typed);
            CVqTableCellInsertBlockDlg dialog(&host.database(), false, 2.0, 2.0, KdDb::kTopLeft, KdDbObjectId());
            run(dialog, [&](QWidget& shown) {
                enter(shown, edit, entry.typed);
                EXPECT_EQ(text(shown, edit), entry.typed) << "the edit keeps it";
            });
            const CStdStr<wchar_t>& kept = edit == kBlockScale ? dialog.m_scaleText : dialog.m_rotationText;
            EXPECT_EQ(kept, entry.taken != nullptr ? entry.taken : L"2.000000");
        }
    }
}

TEST_F(BlockDialog, Browse_asks_for_the_file_as_the_export_does_and_shows_it) {
    CVqTableCellInsertBlockDlg dialog(&host.database());
    host.answerFileDialog(L"/somewhere/part.csv");
    host.answerFileDialog(std::nullopt);
    run(dialog, [&](QWidget& shown) {
        press(shown, "IDC_CELLINSERTBLOCK_BROWSE_BUTTON");
        EXPECT_EQ(dialog.m_pathName, L"/somewhere/part.csv");
        EXPECT_EQ(in<QLabel>(shown, kBlockPath).text(), QStringLiteral("/somewhere/part.csv"));
        press(shown, "IDC_CELLINSERTBLOCK_BROWSE_BUTTON");
        EXPECT_EQ(dialog.m_pathName, L"/somewhere/part.csv") << "cancelling leaves it";
    });
    ASSERT_EQ(host.fileDialogs().size(), 2U);
    const kdhost::FileDialogRequest& asked = host.fileDialogs().front();
    EXPECT_EQ(asked.title, loadText(2053));
    EXPECT_EQ(asked.defaultName, L"Table1");
    EXPECT_EQ(asked.extension, L"csv");
    EXPECT_EQ(asked.flags, 33);
}

TEST_F(BlockDialog, Connecting_its_controls_again_changes_nothing) {
    CVqTableCellInsertBlockDlg dialog(&host.database());
    dialog.bindSingals();
    host.answerFileDialog(std::nullopt);
    run(dialog, [&](QWidget& shown) { press(shown, "IDC_CELLINSERTBLOCK_BROWSE_BUTTON"); });
    EXPECT_EQ(host.fileDialogs().size(), 1U);
}

using BlockDialogWithoutTree = ApplicationTest;

TEST_F(BlockDialogWithoutTree, Ends_at_once_and_is_no_OK) {
    CVqTableCellInsertBlockDlg dialog(&host.database());
    EXPECT_TRUE(dialog.findChildren<QWidget*>().isEmpty());
    EXPECT_EQ(dialog.DoModal(), -1);
}

class BlockDialogLooks : public DialogLooks {};

INSTANTIATE_TEST_SUITE_P(Languages, BlockDialogLooks, bothLanguages(), languageName);

TEST_P(BlockDialogLooks, with_a_file) {
    CVqTableCellInsertBlockDlg dialog(&host.database(), true, 1.0, 0.0, KdDb::kMiddleCenter, KdDbObjectId());
    host.answerFileDialog(isChinese() ? L"/零件/螺栓.csv" : L"/parts/bolt.csv");
    runModal(dialog, [&] {
        press(dialog, "IDC_CELLINSERTBLOCK_BROWSE_BUTTON");
        lookAndReach(dialog, "cellinsertblock");
        press(dialog, "IDCANCEL");
    });
}

}  // namespace
}  // namespace kdtest
