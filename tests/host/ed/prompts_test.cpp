// What prompts make of the input.

#include "kd/ed/prompts.h"

#include "host/ed/editor.h"
#include "kd/ed/coordinates.h"
#include "tests/support/application.h"

namespace {

class Prompts : public kdtest::ApplicationTest {
protected:
    std::wstring keyword(const wchar_t* list, int expected = RTNORM, int flags = 0) {
        wchar_t reply[132] = L"";
        kdedInitGet(flags, list);
        EXPECT_EQ(kdedGetKword(L"Choose: ", reply), expected);
        return reply;
    }

    std::wstring text(bool blanks, int expected = RTNORM) {
        wchar_t reply[1024] = L"";
        EXPECT_EQ(kdedGetString(blanks ? 1 : 0, nullptr, reply), expected);
        return reply;
    }
};

TEST_F(Prompts, a_keyword_comes_back_in_its_global_form) {
    host.type(L"_op\n");
    EXPECT_EQ(keyword(L"Betrieb _Operation"), L"Operation");
}

TEST_F(Prompts, a_word_that_is_no_keyword_comes_back_as_typed) {
    host.type(L"NoSuch\n");
    EXPECT_EQ(keyword(L"Yes No _Yes No"), L"NoSuch");
}

TEST_F(Prompts, enter_at_a_keyword_is_told_apart_and_esc_cancels) {
    host.type(L"\n");
    keyword(L"Yes No", RTREJ);
    host.editor().input().put(kdhost::InputItem::Kind::Escape);
    keyword(L"Yes No", RTCAN);
}

TEST_F(Prompts, a_keyword_prompt_may_refuse_enter) {
    host.type(L"\n\ny\n");
    EXPECT_EQ(keyword(L"Yes No", RTNORM, 1), L"Yes");
}

TEST_F(Prompts, keywords_are_announced_for_one_prompt) {
    host.type(L"y\ny\n");
    EXPECT_EQ(keyword(L"Yes No"), L"Yes");
    wchar_t reply[132];
    EXPECT_EQ(kdedGetKword(nullptr, reply), RTNORM);
    EXPECT_STREQ(reply, L"y");
}

TEST_F(Prompts, a_blank_ends_an_answer_except_where_blanks_belong) {
    host.type(L"one two \nthree four \n");
    EXPECT_EQ(text(false), L"one");
    EXPECT_EQ(text(true), L"two ");
    EXPECT_EQ(text(true), L"three four ");
}

TEST_F(Prompts, a_blank_at_the_end_is_an_enter_of_its_own) {
    host.type(L"one \nrest\n");
    EXPECT_EQ(text(false), L"one");
    EXPECT_EQ(text(false), L"");
    EXPECT_EQ(text(false), L"rest");
}

TEST_F(Prompts, long_answers_are_cut) {
    host.type(std::wstring(2000, L'x') + L"\n");
    EXPECT_EQ(text(true).size(), 1023u);
    host.type(std::wstring(2000, L'x') + L"\n");
    EXPECT_EQ(keyword(L"").size(), 131u);
}

TEST_F(Prompts, sent_text_goes_ahead_of_what_was_typed) {
    host.type(L"typed\n");
    host.documents().sendStringToExecute(&host.document(), L"first\n");
    host.documents().sendStringToExecute(&host.document(), L"second\n");
    EXPECT_EQ(text(false), L"first");
    EXPECT_EQ(text(false), L"second");
    EXPECT_EQ(text(false), L"typed");
}

TEST_F(Prompts, the_source_is_asked_only_when_the_queue_is_empty) {
    struct Source : kdhost::InputSource {
        int asked = 0;
        bool feed(kdhost::InputQueue& queue) override {
            queue.type(L"fed\n");
            return ++asked < 2;
        }
    } source;
    kdhost::setInputSource(&source);
    host.type(L"typed\n");
    EXPECT_EQ(text(false), L"typed");
    EXPECT_EQ(source.asked, 0);
    EXPECT_EQ(text(false), L"fed");
    EXPECT_EQ(source.asked, 1);
    kdhost::setInputSource(nullptr);
}

TEST_F(Prompts, a_cancel_mark_in_sent_text_cancels) {
    host.documents().sendStringToExecute(&host.document(), L"ab^Cnext\n");
    text(false, RTCAN);
    EXPECT_EQ(text(false), L"next");
}

TEST_F(Prompts, a_cancel_mark_in_typed_text_cancels_at_the_start_only) {
    host.type(L"^C^Ca^C\n");
    text(false, RTCAN);
    text(false, RTCAN);
    EXPECT_EQ(text(false), L"a^C");
}

TEST_F(Prompts, the_end_of_all_input_cancels) {
    host.type(L"not entered");
    text(true, RTCAN);
    keyword(L"Yes No", RTCAN, 1);
    KdGePoint3d point;
    EXPECT_EQ(kdedGetPoint(nullptr, nullptr, point), RTCAN);
    kded_name name;
    kded_point picked;
    EXPECT_EQ(kdedEntSel(nullptr, name, picked), RTCAN);
}

TEST_F(Prompts, a_point_is_asked_for_until_one_comes) {
    host.type(L"what\n1,2\n@1,1\n@1,1\n");
    KdGePoint3d point;
    EXPECT_EQ(kdedGetPoint(nullptr, L"Point: ", point), RTNORM);
    EXPECT_EQ(point, KdGePoint3d(1, 2, 0));
    EXPECT_EQ(host.lastMessage(), L"A point is needed: x,y or x,y,z.");
    EXPECT_EQ(kdedGetPoint(nullptr, L"Point: ", point), RTNORM);
    EXPECT_EQ(point, KdGePoint3d(2, 3, 0)) << "without a base it counts from the last point";
    const KdGePoint3d base(100, 100, 0);
    EXPECT_EQ(kdedGetPoint(&base, L"Point: ", point), RTNORM);
    EXPECT_EQ(point, KdGePoint3d(101, 101, 0));
}

TEST_F(Prompts, a_point_prompt_takes_keywords_and_enter) {
    KdGePoint3d point;
    host.type(L"u\n\n");
    kdedInitGet(0, L"Undo");
    EXPECT_EQ(kdedGetPoint(nullptr, nullptr, point), RTKWORD);
    wchar_t word[132];
    EXPECT_EQ(kdedGetInput(word), RTNORM);
    EXPECT_STREQ(word, L"Undo");
    EXPECT_EQ(kdedGetPoint(nullptr, nullptr, point), RTREJ);
}

TEST_F(Prompts, points_are_in_user_coordinates_and_picks_in_world_coordinates) {
    host.editor().setUcs(KdGeMatrix3d::translation({10.0, 0.0, 0.0}));
    host.type(L"1,2\n");
    host.editor().input().put(kdhost::InputItem::Kind::Pick, {11.0, 2.0, 0.0});
    KdGePoint3d typed;
    KdGePoint3d picked;
    kdedGetPoint(nullptr, nullptr, typed);
    kdedGetPoint(nullptr, nullptr, picked);
    EXPECT_EQ(typed, KdGePoint3d(1, 2, 0));
    EXPECT_EQ(picked, typed);
    KdGePoint3d world;
    EXPECT_TRUE(kddbUcs2Wcs(typed, world, 1));
    EXPECT_EQ(world, KdGePoint3d(11, 2, 0));
    EXPECT_TRUE(kddbUcs2Wcs(typed, world, 0));
    EXPECT_EQ(world, KdGePoint3d(1, 2, 0));
}

TEST_F(Prompts, a_pick_at_a_text_prompt_is_passed_over) {
    host.editor().input().put(kdhost::InputItem::Kind::Pick, {1.0, 2.0, 0.0});
    host.type(L"word\n");
    EXPECT_EQ(text(false), L"word");
}

TEST_F(Prompts, null_replies_are_errors) {
    EXPECT_EQ(kdedGetKword(L"", nullptr), RTERROR);
    EXPECT_EQ(kdedGetString(0, L"", nullptr), RTERROR);
    EXPECT_EQ(kdedGetInput(nullptr), RTERROR);
    EXPECT_EQ(kdedPrompt(nullptr), RTERROR);
    EXPECT_EQ(kdutPrintf(nullptr), RTERROR);
}

TEST_F(Prompts, printing_formats_wide_text) {
    kdutPrintf(L"\n%s has %d rows\n", L"表格", 3);
    EXPECT_EQ(host.lastMessage(), L"表格 has 3 rows");
}

TEST_F(Prompts, a_file_dialog_gives_its_path_or_is_cancelled) {
    resbuf* result = nullptr;
    host.answerFileDialog(L"/data/a b.csv");
    ASSERT_EQ(kdedGetFileNavDialog(L"Export", L"Table1", L"csv", nullptr, 33, &result), RTNORM);
    ASSERT_EQ(result->restype, RTSTR);
    EXPECT_STREQ(result->resval.rstring, L"/data/a b.csv");
    kdutRelRb(result);
    EXPECT_TRUE(host.fileDialogs().back().forWriting);
    EXPECT_EQ(host.fileDialogs().back().defaultName, L"Table1");

    host.answerFileDialog(std::nullopt);
    EXPECT_EQ(kdedGetFileNavDialog(L"Export", L"Table1", L"csv", nullptr, 32, &result), RTCAN);
    EXPECT_EQ(result, nullptr);
    EXPECT_FALSE(host.fileDialogs().back().forWriting);
}

TEST(PromptsWithoutADrawing, are_errors) {
    wchar_t reply[1024];
    KdGePoint3d point;
    EXPECT_EQ(kdedGetString(0, nullptr, reply), RTERROR);
    EXPECT_EQ(kdedGetKword(nullptr, reply), RTERROR);
    EXPECT_EQ(kdedGetPoint(nullptr, nullptr, point), RTERROR);
    EXPECT_FALSE(kddbUcs2Wcs(point, point, 1));
    EXPECT_EQ(kdDocManagerPtr(), nullptr);
    EXPECT_EQ(GetKdadAppCtxActiveDocData(), nullptr);
}

}  // namespace
