// The line type dialog.

#include "host/ui/linetypes.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

class LinetypeDialogs : public kdtest::HostDialogTest {
protected:
    bool ask() { return kdedLinetypeDialog(&host.database(), linetype); }
    std::vector<std::wstring> names() {
        std::vector<std::wstring> result;
        for (const kdhost::LinetypeEntry& entry : kdhost::linetypesOf(&host.database())) result.push_back(entry.name);
        return result;
    }
    KdDbObjectId linetype;
};

TEST_F(LinetypeDialogs, the_given_type_is_shown_and_ok_gives_the_chosen_one) {
    linetype = host.database().continuousLinetype();
    next([](QWidget& dialog) {
        auto& list = in<QListWidget>(dialog, "IDC_LINETYPE_LIST");
        EXPECT_EQ(list.currentRow(), 2);
        QTest::keyClick(&list, Qt::Key_Up);
        QTest::keyClick(&list, Qt::Key_Return);
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(linetype, host.database().byBlockLinetype());
}

TEST_F(LinetypeDialogs, cancel_leaves_the_id_as_it_was) {
    linetype = host.database().continuousLinetype();
    next([](QWidget& dialog) {
        in<QListWidget>(dialog, "IDC_LINETYPE_LIST").setCurrentRow(0);
        press(dialog, "IDCANCEL");
    });
    EXPECT_FALSE(ask());
    EXPECT_EQ(linetype, host.database().continuousLinetype());
}

TEST_F(LinetypeDialogs, loaded_patterns_become_line_types_of_the_drawing) {
    const std::vector<std::wstring> before = names();
    next([&](QWidget& dialog) {
        next([](QWidget& load) {
            expectReachable(load);
            auto& list = in<QListWidget>(load, "IDC_LINETYPE_PATTERN_LIST");
            list.clearSelection();
            for (const char* name : {"BORDER", "PHANTOM"}) {
                list.findItems(QString::fromLatin1(name), Qt::MatchExactly).first()->setSelected(true);
            }
            press(load, "IDOK");
        });
        press(dialog, "IDC_LINETYPE_LOAD_BUTTON");
        EXPECT_EQ(in<QListWidget>(dialog, "IDC_LINETYPE_LIST").currentItem()->text(), QStringLiteral("PHANTOM"));
        press(dialog, "IDOK");
    });
    EXPECT_TRUE(ask());
    std::vector<std::wstring> after = before;
    after.insert(after.end(), {L"BORDER", L"PHANTOM"});
    EXPECT_EQ(names(), after);
    const std::vector<kdhost::LinetypeEntry> entries = kdhost::linetypesOf(&host.database());
    EXPECT_EQ(entries.back().id, linetype);
    EXPECT_EQ(entries.back().dashes, kdhost::standardLinetypes()[7].dashes);
}

TEST_F(LinetypeDialogs, a_pattern_that_is_there_stays_as_it_is) {
    const KdDbObjectId first = kdhost::loadLinetype(host.database(), {L"border", L"mine", {1.0, -1.0}, {}});
    EXPECT_EQ(kdhost::loadLinetype(host.database(), kdhost::standardLinetypes()[0]), first);
    EXPECT_EQ(kdhost::linetypesOf(&host.database()).back().dashes, (std::vector<double>{1.0, -1.0}));
}

TEST_F(LinetypeDialogs, while_the_table_is_open_nothing_is_loaded) {
    const std::size_t before = names().size();
    KdDbLinetypeTable* table = nullptr;
    ASSERT_EQ(host.database().getLinetypeTable(table, KdDb::kForWrite), Kdad::eOk);
    EXPECT_TRUE(kdhost::loadLinetype(host.database(), kdhost::standardLinetypes()[0]).isNull());
    table->close();
    EXPECT_EQ(names().size(), before);
}

TEST_F(LinetypeDialogs, a_double_click_chooses) {
    next([](QWidget& dialog) {
        auto& list = in<QListWidget>(dialog, "IDC_LINETYPE_LIST");
        const QPoint place = list.visualItemRect(list.item(1)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(linetype, host.database().byBlockLinetype());
}

TEST_F(LinetypeDialogs, without_a_database_there_is_no_dialog) {
    EXPECT_FALSE(kdedLinetypeDialog(nullptr, linetype));
    EXPECT_TRUE(linetype.isNull());
}

TEST_F(LinetypeDialogs, every_control_is_named_and_reached_by_tab) {
    next([](QWidget& dialog) {
        expectReachable(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(ask());
}

}  // namespace
