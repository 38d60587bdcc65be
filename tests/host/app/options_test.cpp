// The program's arguments.

#include "host/app/options.h"

#include <gtest/gtest.h>

namespace {

using Arguments = std::vector<std::string>;

TEST(ProgramOptions, are_read) {
    const auto [options, error] = kdhost::parseOptions(
        {"--headless", "--load", "a.tvx", "--load", "b.tvx", "--script", "s.kds", "--lang", "zh_CN", "--dump", "d.json",
         "--render", "r.svg", "--open", "o.dxf", "--save", "s.dxf", "--insert-tables"});
    EXPECT_EQ(error, "");
    EXPECT_TRUE(options.headless);
    EXPECT_EQ(options.modules, (Arguments{"a.tvx", "b.tvx"}));
    EXPECT_EQ(options.script, "s.kds");
    EXPECT_EQ(options.language, kdhost::Language::Chinese);
    EXPECT_EQ(options.dump, "d.json");
    EXPECT_EQ(options.render, "r.svg");
    EXPECT_EQ(options.open, "o.dxf");
    EXPECT_EQ(options.save, "s.dxf");
    EXPECT_TRUE(options.insertTables);
}

struct Wrong {
    Arguments arguments;
    const char* error;
};

class WrongOptions : public ::testing::TestWithParam<Wrong> {};

TEST_P(WrongOptions, are_told) {
    EXPECT_EQ(kdhost::parseOptions(GetParam().arguments).error, GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(ProgramOptions, WrongOptions,
                         ::testing::Values(Wrong{{"--nosuch"}, "--nosuch: there is no such option"},
                                           Wrong{{"--headless", "file"}, "file: there is no such option"},
                                           Wrong{{"--script"}, "--script: a value is missing"},
                                           Wrong{{"--dump", ""}, "--dump: a value is missing"},
                                           Wrong{{"--lang", "fr"}, "--lang: \"fr\" is neither en nor zh_CN"},
                                           Wrong{{"--open"}, "--open: a value is missing"},
                                           Wrong{{"--headless", "--save", ""}, "--save: a value is missing"}));

TEST(ProgramOptions, leave_window_and_language_open) {
    const auto [options, error] = kdhost::parseOptions({});
    EXPECT_EQ(error, "");
    EXPECT_FALSE(options.headless);
    EXPECT_EQ(options.language, std::nullopt);
}

}  // namespace
