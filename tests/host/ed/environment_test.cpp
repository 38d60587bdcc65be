// The environment as modules read it.

#include "kd/ed/environment.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <array>
#include <string>

#include "kd/ed/resbuf.h"

namespace {

class Environment : public ::testing::Test {
protected:
    void TearDown() override { qunsetenv("KD_TEST_ENTRY"); }

    int read(int size) { return kdedGetEnv(L"KD_TEST_ENTRY", value.data(), size); }

    std::array<wchar_t, 8> value{L'a', L'b'};
};

TEST_F(Environment, an_entry_is_read_when_it_fits_with_its_ending_zero) {
    qputenv("KD_TEST_ENTRY", "\xE8\xA1\xA8-x");
    EXPECT_EQ(read(4), RTNORM);
    EXPECT_EQ(std::wstring(value.data()), L"表-x");
}

TEST_F(Environment, an_empty_entry_is_one) {
    qputenv("KD_TEST_ENTRY", "");
    EXPECT_EQ(read(1), RTNORM);
    EXPECT_EQ(std::wstring(value.data()), L"");
}

TEST_F(Environment, what_cannot_be_read_leaves_the_buffer_as_it_was) {
    EXPECT_EQ(read(8), RTERROR) << "there is none";
    qputenv("KD_TEST_ENTRY", "long");
    EXPECT_EQ(read(4), RTERROR);
    EXPECT_EQ(read(0), RTERROR);
    EXPECT_EQ(kdedGetEnv(nullptr, value.data(), 8), RTERROR);
    EXPECT_EQ(kdedGetEnv(L"KD_TEST_ENTRY", nullptr, 8), RTERROR);
    EXPECT_EQ(std::wstring(value.data()), L"ab");
}

}  // namespace
