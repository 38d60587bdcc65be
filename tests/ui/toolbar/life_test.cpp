// When the toolbar shows, what it follows, and when it goes.

#include <QAction>
#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include "kd/ad/appinterface.h"
#include "kd/ad/mainapp.h"
#include "module/frame/docmanagerreactor.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

class ToolbarLife : public ToolbarTest {};

TEST_F(ToolbarLife, shows_for_the_modes_1_and_2_and_hides_without_going) {
    const KdDbObjectId table = addTable(TableBuilder(3, 3).select("B2"));
    for (const int mode : {1, 2}) {
        setMode(mode);
        EXPECT_TRUE(CVqTableCommon::ShowTableToolbar(table, true));
        EXPECT_TRUE(isShown()) << mode;
        EXPECT_EQ(window()->tableId(), table);
        EXPECT_TRUE(CVqTableCommon::ShowTableToolbar(table, false));
        ASSERT_NE(window(), nullptr) << mode;
        EXPECT_FALSE(isShown());
        EXPECT_TRUE(window()->tableId().isNull());
    }
}

TEST_F(ToolbarLife, is_hidden_and_destroyed_by_the_mode_0_and_none_is_made) {
    const KdDbObjectId table = addTable(TableBuilder(3, 3).select("B2"));
    for (const bool show : {true, false}) {
        setMode(1);
        showTableToolBar(table, true);
        const QPointer<QWidget> shown(window());
        ASSERT_NE(shown, nullptr);
        setMode(0);
        EXPECT_TRUE(showTableToolBar(table, show));
        EXPECT_EQ(shown, nullptr) << show;
        EXPECT_EQ(window(), nullptr);
        EXPECT_TRUE(showTableToolBar(table, true));
        EXPECT_EQ(window(), nullptr) << show;
    }
}

TEST_F(ToolbarLife, does_as_it_is_told_while_the_mode_cannot_be_read) {
    const KdDbObjectId table = addTable(TableBuilder(3, 3).select("B2"));
    setMode(0);
    kdhost::faults().unreadableVariables = {L"TABLETOOLBAR"};
    EXPECT_TRUE(showTableToolBar(table, true));
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(showTableToolBar(table, false));
    ASSERT_NE(window(), nullptr);
    EXPECT_FALSE(isShown());
}

TEST_F(ToolbarLife, hiding_makes_no_window) {
    EXPECT_TRUE(showTableToolBar(KdDbObjectId::kNull, false));
    EXPECT_EQ(window(), nullptr);
}

TEST_F(ToolbarLife, stands_in_the_middle_of_the_screen_with_its_title_and_no_buttons_in_its_frame) {
    showOver(TableBuilder(3, 3).select("B2"));
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const int middle = screen.width() / 2;
    EXPECT_NEAR(window()->frameGeometry().center().x(), middle, 2);
    EXPECT_EQ(window()->y(), screen.height() / 2);
    EXPECT_EQ(window()->windowTitle(), QStringLiteral("Table"));
    const Qt::WindowFlags buttons =
        Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;
    EXPECT_FALSE(window()->windowFlags() & buttons);
    EXPECT_TRUE(window()->windowFlags() & Qt::CustomizeWindowHint);
    EXPECT_EQ(unsigned(window()->windowFlags()) & 0x2001003U, 0x2001003U);
    EXPECT_EQ(unsigned(window()->windowFlags()) & ~0xF7FF3FFFU, 0U);
    EXPECT_EQ(window()->parentWidget(), nullptr);
    EXPECT_TRUE(window()->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(ToolbarLife, stays_over_the_main_window_without_being_its_child) {
    QWidget* main = kfsw_kdadMainWnd();
    ASSERT_NE(main, nullptr);
    main->winId();
    showOver(TableBuilder(3, 3).select("B2"));
    EXPECT_EQ(window()->windowHandle()->transientParent(), main->windowHandle());
    EXPECT_EQ(window()->parentWidget(), nullptr);
}

TEST_F(ToolbarLife, comes_up_without_becoming_the_active_window) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating));
    showTableToolBar(table, false);
    showTableToolBar(table, true);
    EXPECT_TRUE(window()->testAttribute(Qt::WA_ShowWithoutActivating)) << "nor does it when it comes again";
}

TEST_F(ToolbarLife, follows_the_selection_of_its_table) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    select(table, "A1:B2");
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarLife, selecting_cells_is_no_change_of_the_drawing) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).fill().select("B2"));
    const std::string before = describe(look(table));
    for (const char* range : {"A1", "A1:C3", "B1:B3", "A2:C2"}) select(table, range);
    showTableToolBar(table, false);
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarLife, leaves_one_table_when_it_is_shown_for_another) {
    const KdDbObjectId first = showOver(TableBuilder(3, 3).select("B2"));
    const KdDbObjectId second = showOver(TableBuilder(3, 3).select("C3"));
    EXPECT_EQ(window()->tableId(), second);
    select(first, "A1:B2");
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    select(second, "A1:B2");
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, hidden_it_follows_nothing) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    showTableToolBar(table, false);
    select(table, "A1:B2");
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, without_selected_cells_it_stays_as_it_is) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    OpenObject<KdDbTable>(table, KdDb::kForRead)->clearSubSelection();
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, waits_for_the_close_of_a_table_that_is_open_for_write) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        open->setSubSelection(cells("A1:B2"));
        window()->UpdateToolBar();
        EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    }
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, shows_how_the_table_stands_after_an_undo) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    CVqTableCommon::MergeAll(table);
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    EXPECT_TRUE(button("IDC_TABLEDIT_UNMERGECELL").isEnabled());
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    EXPECT_FALSE(button("IDC_TABLEDIT_UNMERGECELL").isEnabled());
}

TEST_F(ToolbarLife, stays_as_it_is_over_a_table_that_was_erased_and_follows_it_again_when_it_comes_back) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    const Names before = enabled();
    {
        const kdhost::UndoCommandScope command(&host.database(), L"ERASE");
        OpenObject<KdDbTable>(table, KdDb::kForWrite)->erase();
    }
    EXPECT_EQ(enabled(), before);
    KdCellRange range;
    EXPECT_FALSE(CVqTableCommon::GetSelectRange(range));
    click("IDC_TABLEDIT_TOPINSERT");
    EXPECT_TRUE(window()->OnCommandId(1816));
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_TRUE(CVqTableCommon::GetSelectRange(range));
    select(table, "B2");
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, a_window_that_is_gone_hears_no_more_of_a_table_that_was_erased_and_comes_back) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    {
        const kdhost::UndoCommandScope command(&host.database(), L"ERASE");
        OpenObject<KdDbTable>(table, KdDb::kForWrite)->erase();
    }
    setMode(0);
    showTableToolBar(table, true);
    ASSERT_EQ(window(), nullptr);
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    select(table, "B2");
    EXPECT_EQ(window(), nullptr);
}

TEST_F(ToolbarLife, outlives_the_drawing_of_its_table) {
    kdhost::Document& first = host.document();
    host.documents().openNew();
    showOver(TableBuilder(3, 3).select("A1:B2"));
    ASSERT_TRUE(host.documents().close(host.document()));
    EXPECT_EQ(&host.document(), &first);
    KdCellRange range;
    EXPECT_FALSE(CVqTableCommon::GetSelectRange(range));
    showOver(TableBuilder(3, 3).select("B2"));
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
}

TEST_F(ToolbarLife, shows_for_the_table_of_the_document_that_comes_to_the_front) {
    const VqTableDocManagerReactor reactor;
    kdhost::Document& first = host.document();
    const KdDbObjectId firstTable = showOver(TableBuilder(3, 3).select("B2"));
    first.data().m_tableId = firstTable;
    kdhost::Document& second = host.documents().openNew();
    ASSERT_NE(window(), nullptr);
    EXPECT_FALSE(isShown());
    const KdDbObjectId secondTable = addTable(TableBuilder(3, 3).select("A1:B2"));
    second.data().m_tableId = secondTable;

    host.documents().activate(first);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(window()->tableId(), firstTable);
    EXPECT_FALSE(button("IDC_TABLEDIT_MERGECELL").isEnabled());
    host.documents().activate(second);
    EXPECT_EQ(window()->tableId(), secondTable);
    EXPECT_TRUE(button("IDC_TABLEDIT_MERGECELL").isEnabled());

    ASSERT_TRUE(host.documents().close(second));
    EXPECT_EQ(window()->tableId(), firstTable);
    ASSERT_TRUE(host.documents().close(first));
    EXPECT_FALSE(isShown());
    host.documents().openNew();
}

TEST_F(ToolbarLife, stays_while_one_of_several_documents_goes_and_hides_with_the_last) {
    VqTableDocManagerReactor reactor;
    kdhost::Document& first = host.document();
    kdhost::Document& second = host.documents().openNew();
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    second.data().m_tableId = table;
    reactor.documentToBeDestroyed(&first);
    EXPECT_TRUE(isShown());
    ASSERT_TRUE(host.documents().close(first));
    EXPECT_TRUE(isShown());
    EXPECT_EQ(window()->tableId(), table);
    kdhost::faults().noDocumentData = true;
    reactor.documentToBeDestroyed(&second);
    EXPECT_TRUE(isShown()) << "no record tells of a table";
    kdhost::faults().noDocumentData = false;
    reactor.documentToBeDestroyed(&second);
    EXPECT_FALSE(isShown());
    second.data().m_tableId.setNull();
}

TEST_F(ToolbarLife, stays_as_it_is_when_no_document_comes_to_the_front_or_none_has_a_record) {
    VqTableDocManagerReactor reactor;
    kdhost::Document& document = host.document();
    showOver(TableBuilder(3, 3).select("B2"));
    reactor.documentToBeActivated(nullptr);
    EXPECT_TRUE(isShown());
    kdhost::faults().noDocumentData = true;
    reactor.documentToBeActivated(&document);
    EXPECT_TRUE(isShown());
    kdhost::faults().noDocumentData = false;
    reactor.documentToBeActivated(&document);
    EXPECT_FALSE(isShown()) << "its record holds no table";
}

TEST_F(ToolbarLife, a_window_that_was_given_up_goes_when_a_new_one_comes) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    const QPointer<QWidget> left(window());
    gpTableditMiniFrameWnd = nullptr;  // as the module's last message does
    EXPECT_NE(left, nullptr);
    select(table, "A1:B2");
    showTableToolBar(table, true);
    EXPECT_EQ(left, nullptr);
    EXPECT_TRUE(isShown());
}

TEST_F(ToolbarLife, GetSelectRange_answers_for_the_toolbars_table_alone) {
    KdCellRange range;
    EXPECT_FALSE(CVqTableCommon::GetSelectRange(range));
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2:C3"));
    EXPECT_TRUE(CVqTableCommon::GetSelectRange(range));
    EXPECT_EQ(range, cells("B2:C3"));
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), cells("B2:C3"));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        EXPECT_FALSE(CVqTableCommon::GetSelectRange(range));
    }
    lockLayerOf(table);
    select(table, "A1:B2");
    EXPECT_TRUE(CVqTableCommon::GetSelectRange(range)) << "nothing is written";
    EXPECT_EQ(range, cells("A1:B2"));
    showTableToolBar(table, false);
    EXPECT_FALSE(CVqTableCommon::GetSelectRange(range));
}

TEST_F(ToolbarLife, makes_the_cursor_an_arrow_while_it_shows_however_often_it_is_shown) {
    kdhost::ApplicationInterface& application = host.application().applicationInterface();
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    EXPECT_FALSE(application.showsCross());
    showTableToolBar(table, true);
    showTableToolBar(table, false);
    EXPECT_TRUE(application.showsCross());
    showTableToolBar(table, false);
    EXPECT_TRUE(application.showsCross());
}

TEST_F(ToolbarLife, hands_every_key_to_the_drawing) {
    std::vector<int> keys;
    host.application().applicationInterface().setKeyReceiver([&](const QKeyEvent& key) {
        keys.push_back(key.key());
        return true;
    });
    showOver(TableBuilder(3, 3).select("B2"));
    const std::vector<int> pressed = {Qt::Key_A,     Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space,
                                      Qt::Key_Right, Qt::Key_F1,  Qt::Key_Delete,  Qt::Key_Escape};
    for (const int key : pressed) QTest::keyClick(window(), static_cast<Qt::Key>(key));
    EXPECT_EQ(keys, pressed);
    EXPECT_TRUE(isShown());
}

TEST_F(ToolbarLife, gives_the_keys_back_when_a_button_or_a_row_was_chosen) {
    showOver(TableBuilder(3, 3).select("B2"));
    // Without a window manager nobody makes the window active again when a list has closed.
    const auto focused = [] {
        QApplication::processEvents();
        QApplication::setActiveWindow(nullptr);
        QApplication::setActiveWindow(window());
        return QApplication::focusWidget();
    };
    click("IDC_TABLEDIT_TOPINSERT");
    EXPECT_EQ(focused(), window());
    for (const char* list : {kColorComboName, kCellStyleComboName}) {
        for (const wchar_t* row : {L"#1", L"#2", L"#2"}) {
            chooseRow(list, row);
            EXPECT_EQ(focused(), window()) << list;
        }
    }
    chooseRow(kCellStyleComboName, L"#0");
}

TEST_F(ToolbarLife, without_its_widget_tree_the_window_is_empty_and_does_no_harm) {
    FreeLibrary(std::exchange(hLibModule, nullptr));
    ASSERT_FALSE(QFile::exists(QStringLiteral(":/TvxTableRes/TvxTableRes/IDD_TABLEDIT_DIALOG.ui")));
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("B2"));
    ASSERT_NE(window(), nullptr);
    EXPECT_TRUE(window()->findChildren<QPushButton*>().isEmpty());
    select(table, "A1:B2");
    window()->OnCellStyle();
    window()->OnBackgroundColor();
    EXPECT_TRUE(window()->OnCommandId(1803));
    EXPECT_EQ(look(table).alignment(0, 0), KdDb::kTopCenter);
    setMode(0);
    showTableToolBar(table, false);
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
}

}  // namespace
}  // namespace kdtest
