// OPEN, SAVE and SAVEAS.

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/rx/encoding.h"
#include "host/win32/modules.h"
#include "kd/db/line.h"
#include "tests/support/application.h"

namespace {

class FileCommands : public kdtest::ApplicationTest {
protected:
    std::wstring path(const wchar_t* name) const {
        return m_folder.filePath(QString::fromWCharArray(name)).toStdWString();
    }
    std::size_t entityCount() { return kdhost::entitiesOfCurrentSpace(host.database()).size(); }
    static bool isThere(const std::wstring& file) { return QFile::exists(QString::fromStdWString(file)); }

private:
    QTemporaryDir m_folder;
};

TEST_F(FileCommands, a_new_drawing_is_saved_under_a_name_that_is_asked_for_and_then_under_that_name) {
    host.run(L"LINE 0,0 10,0 \n");
    host.answerFileDialog(path(L"plan"));
    host.run(L"SAVE\n");
    EXPECT_EQ(host.lastMessage(), L"Saved: " + path(L"plan.dxf"));
    ASSERT_EQ(host.fileDialogs().size(), 1U);
    EXPECT_EQ(host.fileDialogs()[0].title, L"Save Drawing As");
    EXPECT_EQ(host.fileDialogs()[0].extension, L"dxf");
    EXPECT_TRUE(host.fileDialogs()[0].forWriting);
    EXPECT_TRUE(isThere(path(L"plan.dxf")));
    EXPECT_EQ(host.document().title(), L"plan.dxf");
    host.run(L"LINE 0,0 10,0 \nSAVE\n");
    EXPECT_EQ(host.fileDialogs().size(), 1U) << "the name is known";
    KdDbDatabase saved(false, true);
    ASSERT_EQ(saved.readDwgFile(path(L"plan.dxf").c_str()), Kdad::eOk);
    EXPECT_EQ(kdhost::entitiesOfCurrentSpace(saved).size(), 2U);
}

TEST_F(FileCommands, saveas_gives_the_drawing_another_file_and_leaves_the_first_one) {
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"SAVEAS\nLINE 0,0 10,0 \n");
    host.answerFileDialog(path(L"b.dxf"));
    host.run(L"SAVEAS\n");
    EXPECT_EQ(host.fileDialogs()[1].defaultName, path(L"a.dxf"));
    EXPECT_EQ(host.document().fileName(), path(L"b.dxf"));
    KdDbDatabase first(false, true);
    ASSERT_EQ(first.readDwgFile(path(L"a.dxf").c_str()), Kdad::eOk);
    EXPECT_TRUE(kdhost::entitiesOfCurrentSpace(first).empty());
}

TEST_F(FileCommands, a_file_that_is_open_is_known_by_any_way_to_it) {
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"SAVEAS\n");
    EXPECT_EQ(host.documents().openFile(path(L"gone/../a.dxf")), Kdad::eOk);
    const QString fromHere = QDir::current().relativeFilePath(QString::fromStdWString(path(L"a.dxf")));
    EXPECT_EQ(host.documents().openFile(fromHere.toStdWString()), Kdad::eOk);
    EXPECT_EQ(host.documents().documentCount(), 1);
    EXPECT_EQ(host.documents().openFile(L""), Kdad::eInvalidInput);
}

TEST_F(FileCommands, no_drawing_is_saved_into_the_file_of_another_open_one) {
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"LINE 0,0 10,0 \nSAVEAS\nNEW\n");
    host.answerFileDialog(path(L"gone/../a.dxf"));
    host.run(L"SAVEAS\n");
    EXPECT_EQ(host.failures(), (std::vector{path(L"gone/../a.dxf") + L": another open drawing has this file."}));
    EXPECT_FALSE(host.document().hasFile());
    KdDbDatabase kept(false, true);
    ASSERT_EQ(kept.readDwgFile(path(L"a.dxf").c_str()), Kdad::eOk);
    EXPECT_EQ(kdhost::entitiesOfCurrentSpace(kept).size(), 1U);
    host.run(L"CLOSE 1\n");
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"SAVEAS\n");
    EXPECT_EQ(host.document().fileName(), path(L"a.dxf")) << "with the other one closed it may";
}

TEST_F(FileCommands, a_drawing_is_changed_from_its_first_change_until_it_is_saved) {
    EXPECT_FALSE(host.document().isChanged()) << "a new one";
    host.run(L"LINE 0,0 10,0 \n");
    EXPECT_TRUE(host.document().isChanged());
    host.answerFileDialog(path(L"nowhere/a.dxf"));
    host.run(L"SAVE\n");
    EXPECT_TRUE(host.document().isChanged()) << "it could not be written";
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"SAVE\n");
    EXPECT_FALSE(host.document().isChanged());
    host.run(L"ZOOM 2x\n");
    EXPECT_FALSE(host.document().isChanged());
    KdDbDatabase* const saved = &host.database();
    host.run(L"NEW\nCLOSE 1\n\n");
    ASSERT_NE(&host.database(), saved);
    ASSERT_EQ(host.documents().openFile(path(L"a.dxf")), Kdad::eOk);
    EXPECT_FALSE(host.document().isChanged()) << "as it was read";
    host.run(L"U\n");
    EXPECT_FALSE(host.document().isChanged());
}

TEST_F(FileCommands, open_brings_a_drawing_beside_the_others_without_steps_to_undo) {
    host.run(L"LINE 0,0 10,0 \n");
    host.answerFileDialog(path(L"a.dxf"));
    host.run(L"SAVEAS\nNEW\n");
    EXPECT_EQ(entityCount(), 0U);
    host.answerFileDialog(path(L"b.dxf"));
    host.run(L"SAVEAS\nNEW\n");
    host.answerFileDialog(path(L"b.dxf"));
    host.run(L"OPEN\n");
    EXPECT_EQ(host.documents().documentCount(), 3) << "it was open";
    QFile::rename(QString::fromStdWString(path(L"a.dxf")), QString::fromStdWString(path(L"c.DWG")));
    host.answerFileDialog(path(L"c.DWG"));
    host.run(L"OPEN\n");
    EXPECT_EQ(host.documents().documentCount(), 4);
    EXPECT_EQ(entityCount(), 1U);
    EXPECT_NEAR(host.editor().view().unitsPerPixel() * host.editor().view().shown().widthPixels(), 10.0, 3.0)
        << "the drawing is shown whole";
    host.run(L"U\n");
    EXPECT_EQ(entityCount(), 1U) << "there is nothing to undo";
    host.run(L"ERASE ALL \nU\n");
    EXPECT_EQ(entityCount(), 1U) << "changes of a drawing that was opened are undone like any";
}

TEST_F(FileCommands, a_cancelled_dialog_changes_nothing) {
    host.run(L"SAVE\nSAVEAS\nOPEN\n");
    EXPECT_EQ(host.fileDialogs().size(), 3U);
    EXPECT_EQ(host.documents().documentCount(), 1);
    EXPECT_FALSE(host.document().hasFile());
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(FileCommands, what_cannot_be_opened_or_saved_is_told_in_both_languages) {
    QFile text(QString::fromStdWString(path(L"text.dxf")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no drawing");
    text.close();
    for (const wchar_t* name : {L"missing.dxf", L"text.dxf"}) {
        host.answerFileDialog(path(name));
        host.run(L"OPEN\n");
    }
    host.answerFileDialog(path(L"no folder/a.dxf"));
    host.run(L"SAVEAS\n");
    kdhost::setLanguage(kdhost::Language::Chinese);
    host.answerFileDialog(path(L"text.dxf"));
    host.run(L"OPEN\n");
    kdhost::setLanguage(kdhost::Language::English);
    const std::vector<std::wstring> wanted = {
        path(L"missing.dxf") + L": there is no such file.",
        path(L"text.dxf") + L": this is no drawing, or it is damaged.",
        path(L"no folder/a.dxf") + L": the file can't be read or written.",
        path(L"text.dxf") +
            L": \u8fd9\u4e0d\u662f\u56fe\u5f62\u6587\u4ef6\uff0c\u6216\u6587\u4ef6\u5df2\u635f\u574f\u3002"};
    EXPECT_EQ(host.failures(), wanted);
    EXPECT_EQ(host.documents().documentCount(), 1);
}

}  // namespace
