// The host's own commands.

#include <QFile>
#include <QTemporaryDir>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/pickfirst.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/support/application.h"

namespace {

class HostCommands : public kdtest::ApplicationTest {
protected:
    std::vector<KdDbObjectId> entities() { return kdhost::entitiesOfCurrentSpace(host.database()); }

    std::wstring layerOf(KdDbObjectId id) {
        std::wstring name;
        kdhost::peek<KdDbLayerTableRecord>(kdhost::peek<KdDbEntity>(id)->layerId())->getName(name);
        return name;
    }

    QString file(const char* name, const QByteArray& bytes) {
        const QString path = m_folder.filePath(QString::fromUtf8(name));
        QFile out(path);
        EXPECT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
        return path;
    }

    void import(const QString& path) { host.run(L"TABLEIMPORT\n" + path.toStdWString() + L"\n10,20\n"); }

    QTemporaryDir m_folder;
};

TEST_F(HostCommands, line_joins_points_until_enter) {
    host.run(L"LINE\n0,0\n10,0\n@0,5\n\n");
    ASSERT_EQ(entities().size(), 2u);
    const auto* second = kdhost::peek<KdDbLine>(entities()[1]);
    EXPECT_EQ(second->startPoint(), KdGePoint3d(10, 0, 0));
    EXPECT_EQ(second->endPoint(), KdGePoint3d(10, 5, 0));
}

TEST_F(HostCommands, erase_takes_the_selection_or_asks) {
    host.run(L"LINE 0,0 10,0 \nLINE 0,50 10,50 \n");
    host.editor().pickFirst().set({entities()[0]});
    host.run(L"ERASE\n");
    EXPECT_EQ(host.lastMessage(), L"1 erased.");
    EXPECT_EQ(entities().size(), 1u);
    host.run(L"ERASE\n5,50\n\n");
    EXPECT_EQ(entities().size(), 0u);
}

TEST_F(HostCommands, erase_keeps_what_lies_on_a_locked_layer) {
    host.run(L"LAYER Make walls\n\nLINE 0,0 10,0 \nLAYER LO walls\n\nERASE All \n");
    EXPECT_EQ(entities().size(), 1u);
    EXPECT_EQ(host.lastMessage(), L"1 on locked layers or in use kept.");
    host.run(L"LAYER U walls\n\nERASE All \n");
    EXPECT_EQ(entities().size(), 0u);
}

TEST_F(HostCommands, layers_are_made_current_and_named_with_blanks) {
    host.run(L"LAYER Make outer walls\n\nLINE 0,0 10,0 \nLAYER Set 0\n\nLINE 0,0 10,0 \n");
    ASSERT_EQ(entities().size(), 2u);
    EXPECT_EQ(layerOf(entities()[0]), L"outer walls");
    EXPECT_EQ(layerOf(entities()[1]), L"0");
    host.run(L"LAYER Make OUTER WALLS\n\n");
    EXPECT_TRUE(host.failures().empty()) << "a layer that is there is made current";
    host.run(L"LAYER LO nothere\n\n");
    EXPECT_EQ(host.lastMessage(), L"There is no layer \"nothere\".");
    host.run(L"LAYER Paint\n");
    EXPECT_EQ(host.lastMessage(), L"\"Paint\" is none of Make, Set, LOck, Unlock, Plot, Noplot.");
}

TEST_F(HostCommands, list_tells_what_an_entity_is) {
    host.run(L"LINE 0,0 10,5 \nLIST Last \n");
    const std::wstring message = host.lastMessage();
    EXPECT_EQ(message.rfind(L"KdDbLine, handle ", 0), 0u);
    EXPECT_NE(message.find(L"layer 0, from 0,0 to 10,5"), std::wstring::npos);
}

TEST_F(HostCommands, documents_are_opened_and_switched) {
    host.run(L"NEW\n");
    EXPECT_EQ(host.documents().documentCount(), 2);
    EXPECT_EQ(host.documents().current(), host.documents().at(1));
    host.run(L"DOCUMENT 1\n");
    EXPECT_EQ(host.documents().current(), host.documents().at(0));
    for (const wchar_t* wrong : {L"DOCUMENT 3\n", L"DOCUMENT 0\n", L"DOCUMENT x\n", L"DOCUMENT 4294967297\n"}) {
        host.run(wrong);
        EXPECT_EQ(host.documents().current(), host.documents().at(0));
    }
    EXPECT_EQ(host.failures().size(), 4u);
}

TEST_F(HostCommands, zoom_shows_all_a_window_or_enlarges) {
    host.run(L"LINE 1000,1000 3000,2000 \nZOOM All\n");
    KdGePoint3d corner(3000, 2000, 0);
    host.editor().view().worldToScreen(corner);
    EXPECT_GE(corner.x, 0.0);
    EXPECT_LE(corner.x, 1600.0);
    const double before = host.editor().view().unitsPerPixel();
    host.run(L"ZOOM 2x\n");
    EXPECT_DOUBLE_EQ(host.editor().view().unitsPerPixel(), before / 2.0);
    host.run(L"ZOOM W 0,0 10,10\n");
    EXPECT_LT(host.editor().view().unitsPerPixel(), 0.02);
    host.run(L"ZOOM 0\nREGEN\n");
    EXPECT_EQ(host.failures(), std::vector<std::wstring>{L"\"0\" is no factor to zoom by."});
}

TEST_F(HostCommands, quit_drops_what_was_typed_ahead) {
    host.run(L"QUIT NOSUCH\n");
    EXPECT_TRUE(host.application().isQuitRequested());
    EXPECT_TRUE(host.failures().empty());
}

struct Refused {
    const char* name;
    const wchar_t* why;
};

class RefusedImports : public HostCommands, public ::testing::WithParamInterface<Refused> {};

TEST_P(RefusedImports, are_told_in_one_line_and_change_nothing) {
    QDir(m_folder.path()).mkdir(QStringLiteral("folder.csv"));
    file("text.txt", "a,b\n");
    const QString path = m_folder.filePath(QString::fromUtf8(GetParam().name));
    import(path);
    ASSERT_FALSE(host.failures().empty());
    EXPECT_EQ(host.failures()[0], path.toStdWString() + L": " + GetParam().why);
    EXPECT_TRUE(entities().empty());
}

INSTANTIATE_TEST_SUITE_P(HostCommands, RefusedImports,
                         ::testing::Values(Refused{"missing.csv", L"does not exist."},
                                           Refused{"folder.csv", L"is a folder."},
                                           Refused{"text.txt", L"is not a .csv file."},
                                           Refused{"csv", L"is not a .csv file."}));

class Imports : public HostCommands {
protected:
    Imports() { EXPECT_EQ(host.application().loadModule(L"TvxTable.tvx"), L""); }
};

TEST_F(HostCommands, import_needs_the_table_module) {
    const QString path = file("a.csv", "a,b\n");
    import(path);
    EXPECT_EQ(host.failures()[0], path.toStdWString() + L": can't be read: the table module is not loaded.");
}

TEST_F(Imports, a_file_becomes_a_table_at_the_point) {
    const QString path = file("a table.CSV", "name,city\nAda,London\n,x\n李雷,北京\n");
    import(path);
    EXPECT_TRUE(host.failures().empty());
    ASSERT_EQ(entities().size(), 1u);
    const auto* table = kdhost::peek<KdDbTable>(entities()[0]);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->numRows(), 4);
    EXPECT_EQ(table->numColumns(), 2);
    EXPECT_EQ(table->position(), KdGePoint3d(10, 20, 0));
    EXPECT_STREQ(table->textString(3, 0), L"李雷");
    EXPECT_EQ(host.lastMessage(), L"Imported " + path.toStdWString() + L": 4 rows, 2 columns.");
    EXPECT_EQ(host.editor().pickFirst().currentTable(), entities()[0]);
}

TEST_F(Imports, bytes_that_are_not_utf8_are_told) {
    const QString path = file("latin.csv", "name\nJos\xe9\n");
    import(path);
    ASSERT_FALSE(host.failures().empty());
    EXPECT_EQ(host.failures()[0], path.toStdWString() + L": is not UTF-8 text.");
    EXPECT_TRUE(entities().empty());
}

TEST_F(Imports, a_cancelled_point_leaves_no_table) {
    const QString path = file("a.csv", "a,b\n");
    host.run(L"TABLEIMPORT\n" + path.toStdWString() + L"\n");
    EXPECT_TRUE(entities().empty());
    EXPECT_TRUE(host.failures().empty());
}

}  // namespace
