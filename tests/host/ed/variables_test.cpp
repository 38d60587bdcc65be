// Host variables by name.

#include "kd/ed/variables.h"

#include "host/ed/variables.h"
#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/resbuf.h"
#include "tests/support/application.h"

namespace {

class Variables : public kdtest::ApplicationTest {
protected:
    static int setShort(const wchar_t* name, short value) {
        resbuf buffer;
        buffer.restype = RTSHORT;
        buffer.resval.rint = value;
        return kdedSetVar(name, &buffer);
    }

    static int setText(const wchar_t* name, const wchar_t* value) {
        resbuf buffer;
        buffer.restype = RTSTR;
        buffer.resval.rstring = kdutNewString(value);
        const int status = kdedSetVar(name, &buffer);
        kdutDelBuffer(buffer.resval.rstring);
        return status;
    }

    static std::wstring text(const wchar_t* name) {
        resbuf buffer;
        if (kdedGetVar(name, &buffer) != RTNORM || buffer.restype != RTSTR) return L"(none)";
        const std::wstring value = buffer.resval.rstring;
        kdutDelBuffer(buffer.resval.rstring);
        return value;
    }

    static int number(const wchar_t* name) {
        resbuf buffer;
        if (kdedGetVar(name, &buffer) != RTNORM || buffer.restype != RTSHORT) return -999;
        return buffer.resval.rint;
    }
};

TEST_F(Variables, have_their_standard_values_in_a_new_session) {
    EXPECT_EQ(number(L"FILEDIA"), 1);
    EXPECT_EQ(number(L"TABLETOOLBAR"), 1);
    EXPECT_EQ(number(L"_VQ_COPYTABLECELLS"), 0);
    EXPECT_EQ(number(L"LWDISPLAY"), 0);
    EXPECT_EQ(number(L"CVPORT"), 2);
    EXPECT_EQ(number(L"TILEMODE"), 1);
    EXPECT_EQ(text(L"CTABLESTYLE"), L"Standard");
    EXPECT_EQ(text(L"CLAYER"), L"0");
    EXPECT_EQ(text(L"CPROFILE"), L"Default");
    EXPECT_EQ(text(L"CMDNAMES"), L"");
}

TEST_F(Variables, are_found_in_either_case_and_kept) {
    EXPECT_EQ(setShort(L"filedia", 0), RTNORM);
    EXPECT_EQ(number(L"FileDia"), 0);
}

TEST_F(Variables, refuse_what_does_not_suit_them) {
    EXPECT_EQ(setShort(L"FILEDIA", 2), RTERROR);
    EXPECT_EQ(setShort(L"FILEDIA", -1), RTERROR);
    EXPECT_EQ(setText(L"FILEDIA", L"1"), RTERROR);
    EXPECT_EQ(setShort(L"CLAYER", 1), RTERROR);
    EXPECT_EQ(setShort(L"CVPORT", 1), RTERROR) << "read only";
    EXPECT_EQ(setShort(L"NOSUCH", 1), RTERROR);
    EXPECT_EQ(kdedSetVar(L"FILEDIA", nullptr), RTERROR);
    EXPECT_EQ(kdedSetVar(nullptr, nullptr), RTERROR);
    EXPECT_EQ(number(L"FILEDIA"), 1);
    resbuf buffer;
    EXPECT_EQ(kdedGetVar(L"NOSUCH", &buffer), RTERROR);
    EXPECT_EQ(kdedGetVar(L"FILEDIA", nullptr), RTERROR);
}

TEST_F(Variables, the_current_table_style_is_the_drawing_s) {
    KdDbDictionary* styles = nullptr;
    ASSERT_EQ(host.database().getTableStyleDictionary(styles, KdDb::kForWrite), Kdad::eOk);
    auto* style = new KdDbTableStyle;
    KdDbObjectId id;
    ASSERT_EQ(styles->setAt(L"Parts List", style, id), Kdad::eOk);
    style->close();
    styles->close();

    EXPECT_EQ(setText(L"CTABLESTYLE", L"parts list"), RTNORM);
    EXPECT_EQ(text(L"CTABLESTYLE"), L"Parts List");
    EXPECT_EQ(host.database().tablestyle(), id);
    EXPECT_EQ(setText(L"CTABLESTYLE", L"no such style"), RTERROR);
    EXPECT_EQ(host.database().tablestyle(), id);
}

TEST_F(Variables, can_be_made_unreadable_by_tests) {
    kdhost::faults().unreadableVariables = {L"FILEDIA"};
    resbuf buffer;
    EXPECT_EQ(kdedGetVar(L"filedia", &buffer), RTERROR);
    EXPECT_EQ(kdedGetVar(L"LWDISPLAY", &buffer), RTNORM);
}

TEST_F(Variables, are_set_by_their_own_name_and_by_setvar) {
    host.run(L"FILEDIA\n0\n");
    EXPECT_EQ(number(L"FILEDIA"), 0);
    host.run(L"SETVAR LWDISPLAY 1\n");
    EXPECT_EQ(number(L"LWDISPLAY"), 1);
    host.run(L"LWDISPLAY \n");
    EXPECT_EQ(number(L"LWDISPLAY"), 1) << "Enter keeps the value";
    EXPECT_TRUE(host.failures().empty());
    host.run(L"FILEDIA 7\n");
    EXPECT_EQ(host.lastMessage(), L"\"7\" is no value for FILEDIA.");
    host.run(L"SETVAR NOSUCH\n");
    EXPECT_EQ(host.failures().size(), 2u);
    host.run(L"CVPORT\n");
    EXPECT_EQ(host.lastMessage(), L"CVPORT = 2 (read only)");
}

TEST_F(Variables, of_the_table_have_values_of_their_own_type) {
    std::wstring before;
    for (const kdhost::VariableRecord& variable : kdhost::variableRecords()) {
        EXPECT_LT(before, variable.name) << "the table is sorted, each name once";
        before = variable.name;
        resbuf buffer;
        ASSERT_EQ(kdedGetVar(variable.name, &buffer), RTNORM);
        EXPECT_EQ(buffer.restype, variable.type);
        if (buffer.restype == RTSTR) kdutDelBuffer(buffer.resval.rstring);
    }
}

TEST(ResultBuffers, a_chain_is_released_with_its_texts) {
    resbuf* first = kdutNewRb(RTSTR);
    first->resval.rstring = kdutNewString(L"text");
    first->rbnext = kdutNewRb(RTREAL);
    EXPECT_EQ(first->rbnext->restype, RTREAL);
    EXPECT_EQ(kdutRelRb(first), RTNORM);
    EXPECT_EQ(kdutRelRb(nullptr), RTNORM);
}

TEST(ResultBuffers, texts_are_copied_and_freed) {
    wchar_t* copy = nullptr;
    EXPECT_EQ(kdutNewString(nullptr, copy), RTERROR);
    EXPECT_EQ(copy, nullptr);
    EXPECT_EQ(kdutNewString(L"表", copy), RTNORM);
    EXPECT_STREQ(copy, L"表");
    kdutDelBuffer(copy);
    EXPECT_EQ(copy, nullptr);
    kdutDelBuffer(copy);
}

}  // namespace
