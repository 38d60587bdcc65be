// The host's commands in Chinese: every prompt and every answer, and words that are taken in either language.

#include <algorithm>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/commands.h"
#include "host/win32/modules.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "tests/support/application.h"

namespace {

class CommandsInChinese : public kdtest::ApplicationTest {
protected:
    CommandsInChinese() { kdhost::setLanguage(kdhost::Language::Chinese); }
    ~CommandsInChinese() override { kdhost::setLanguage(kdhost::Language::English); }

    static bool isChinese(const std::wstring& text) {
        return std::any_of(text.begin(), text.end(), [](wchar_t each) { return each >= 0x4E00 && each < 0xA000; });
    }
    static std::string utf8(const std::wstring& text) { return QString::fromStdWString(text).toStdString(); }
};

TEST_F(CommandsInChinese, every_prompt_is_chinese) {
    host.run(L"LINE 0,0 5,5 \nBLOCK\nPart\n0,0\nAll\n\n");
    const wchar_t* prompts[] = {
        L"BLOCK\n",
        L"BLOCK\nX\n",
        L"BLOCK\nX\n0,0\n",
        L"CLOSE\n",
        L"DOCUMENT\n",
        L"ERASE\n",
        L"INSERT\n",
        L"INSERT\nPart\n",
        L"INSERT\nPart\n0,0\n",
        L"INSERT\nPart\n0,0\n1\n",
        L"LANGUAGE\n",
        L"LAYER\n",
        L"LAYER\nM\n",
        L"LINE\n",
        L"LINE\n0,0\n",
        L"LIST\n",
        L"LUNITS\n",
        L"SETVAR\n",
        L"SETVAR\nLUNITS\n",
        L"TABLEIMPORT\n",
        L"UCS\n",
        L"UCS\n0,0\n",
        L"UCS\n0,0\n1,0\n",
        L"UCS\nZ\n",
        L"UNDO\n",
        L"ZOOM\n",
        L"ZOOM\nW\n",
        L"ZOOM\nW\n0,0\n",
    };
    for (const wchar_t* typed : prompts) {
        // The prompt that finds nothing more to read is the one that waits.
        std::wstring asked;
        host.type(typed);
        kdhost::runQueuedCommands();
        asked = host.editor().promptText();
        EXPECT_TRUE(isChinese(asked)) << utf8(typed) << utf8(asked);
    }
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(CommandsInChinese, every_message_and_refusal_is_chinese) {
    host.run(L"LINE 0,0 5,5 Undo U C \nLINE 0,0 5,5 \nLIST L \nU\nREDO\nREDO\nUNDO x\nERASE 900,900 x All \n");
    host.run(L"LAYER LO nothere\n\nLAYER Paint\nDOCUMENT 7\nSETVAR NOSUCH\nLUPREC 99\nCVPORT\nNOSUCH\nZOOM x\n");
    host.run(L"UCS P\nUCS 0,0 1,0 2,0\nUCS Z x\nLINE nowhere \nINSERT\nNothing\nBLOCK\n*X\n");
    host.run(L"LINE 0,0 5,5 \nBLOCK\nPart\n0,0\nALL\n\nBLOCK\nPart\nINSERT\nPart\n0,0\n0\n");
    host.run(L"TABLEIMPORT\n/nowhere.csv\nTABLEIMPORT\n/nowhere.txt\n");
    EXPECT_GE(host.failures().size(), 15u);
    for (const std::wstring& message : host.messages()) EXPECT_TRUE(isChinese(message)) << utf8(message);
}

TEST_F(CommandsInChinese, words_are_taken_by_their_letters_and_as_the_english_ones) {
    const auto layerIsLocked = [&] {
        return kdhost::peek<KdDbLayerTableRecord>(host.database().layerZero())->isLocked();
    };
    for (const wchar_t* word : {L"LO", L"锁定(LO)", L"_LOck", L"LOCK"}) {
        host.run(std::wstring(L"LAYER ") + word + L" 0\n\n");
        EXPECT_TRUE(layerIsLocked()) << utf8(word);
        host.run(L"LAYER U 0\n\n");
        EXPECT_FALSE(layerIsLocked());
    }
    host.run(L"UCS\n5,5\n\nUCS W\nUCS Z 90\nUCS _World\n");
    EXPECT_EQ(host.database().ucsxdir(), KdGeVector3d(1, 0, 0));
    host.run(L"LINE 0,0 1,0 1,1 C\nZOOM Extents\nZOOM 范围(E)\n");
    EXPECT_EQ(kdhost::entitiesOfCurrentSpace(host.database()).size(), 3u);
    EXPECT_TRUE(host.failures().empty());
}

}  // namespace
