// Whatever fails in an act, the drawing is whole, nothing stays open, undo takes all of it back, and the act can be
// done again.

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <optional>

#include "tests/faults/scenario.h"
#include "tests/faults/session.h"

namespace kdtest {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kAllUpTo = 12;
constexpr int kThenEvery = 29;
#else
constexpr int kAllUpTo = 40;
constexpr int kThenEvery = 7;
#endif

std::string times(const char* line, std::size_t count) {
    std::string lines;
    for (std::size_t i = 0; i < count; ++i) lines += line;
    return lines;
}

class Faults : public ::testing::TestWithParam<Scenario> {
protected:
    /// What the act, and what each of its first lines, lead to when nothing fails.
    void SetUp() override {
        start = begin();
        whole = resultOf(GetParam().act);
        for (const Partial& partial : GetParam().partials) allowed.push_back(resultOf(partial.act).unnamed);
    }

    Look begin() {
        session.begin(GetParam());
        EXPECT_EQ(session.run(GetParam().ready).failure, "");
        return session.look();
    }

    Look resultOf(const std::string& act) {
        begin();
        EXPECT_EQ(session.run(act).failure, "") << act;
        EXPECT_EQ(session.disorder(), "");
        return session.look();
    }

    void tryEach(const FaultKind& kind) {
        begin();
        const int count = session.count(GetParam().act, kind);
        const int share = GetParam().share;
        int tried = 0;
        for (int number = 1; number <= count; number += (number < kAllUpTo ? 1 : kThenEvery) * share) {
            if (share > 1 && number == 1) number += static_cast<int>(std::hash<std::string>{}(GetParam().name) % share);
            if (number > count) break;
            ++tried;
            tryOne(kind, number);
            if (HasFailure()) return;
        }
        RecordProperty(kind.name, tried);
    }

    void tryOne(const FaultKind& kind, int number) {
        SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(number));
        const Look before = begin();
        ASSERT_EQ(before.unnamed, start.unnamed);
        const Ending ending = session.run(GetParam().act, kind, number);
        EXPECT_TRUE(ending.struck);
        EXPECT_EQ(session.disorder(), "");
        const Look after = session.look();
        expectToldResult(after, ending);
        expectUndone(before, after);
        expectDoneAgain();
    }

    void expectToldResult(const Look& after, const Ending& ending) {
        if (after.unnamed == whole.unnamed) return;
        if (GetParam().tells) {
            EXPECT_NE(ending.failure, "") << "nobody was told";
        }
        if (after.unnamed == start.unnamed) return;
        if (std::find(allowed.begin(), allowed.end(), after.unnamed) != allowed.end()) return;
        ADD_FAILURE() << "neither nothing nor the whole, after: " << ending.failure << "\n"
                      << difference(after.unnamed);
    }

    void expectUndone(const Look& before, const Look& after) {
        ASSERT_GE(after.steps, before.steps);
        const std::size_t steps = after.steps - before.steps;
        if (steps == 0) return;
        EXPECT_EQ(session.run(times("U\n", steps)).failure, "");
        EXPECT_TRUE(session.look().drawing == before.drawing) << "undo doesn't take all of it back";
        EXPECT_EQ(session.run(times("REDO\n", steps)).failure, "");
        EXPECT_TRUE(session.look().drawing == after.drawing) << "redo doesn't bring it back";
        EXPECT_EQ(session.run(times("U\n", steps)).failure, "");
    }

    void expectDoneAgain() {
        EXPECT_EQ(session.run(GetParam().ready).failure, "");
        EXPECT_EQ(session.run(GetParam().act).failure, "") << "doesn't work again";
        EXPECT_EQ(session.disorder(), "");
        const Look again = session.look();
        EXPECT_TRUE(again.unnamed == whole.unnamed) << "another result when done again\n" << difference(again.unnamed);
    }

    /// The first lines that differ, from the start and from the whole.
    std::string difference(const std::string& seen) const {
        return "from the start: " + firstDifference(start.unnamed, seen) +
               "\nfrom the whole: " + firstDifference(whole.unnamed, seen);
    }
    static std::string firstDifference(const std::string& expected, const std::string& seen) {
        const auto [a, b] = std::mismatch(expected.begin(), expected.end(), seen.begin(), seen.end());
        const auto at = static_cast<std::size_t>(a - expected.begin());
        const std::size_t from = at < 120 ? 0 : at - 120;
        return expected.substr(from, 260) + "\n --- seen --- " + seen.substr(from, 260);
    }

    Session session;
    Look start;
    Look whole;
    std::vector<std::string> allowed;
};

TEST_P(Faults, leave_the_drawing_whole_and_nothing_open) {
    for (const FaultKind& kind : kFaultKinds) tryEach(kind);
}

std::vector<Scenario> all() {
    std::vector<Scenario> scenarios;
    for (const auto make : {toolbarScenarios, contextMenuScenarios, keywordScenarios, dialogScenarios,
                            clipboardScenarios, editingScenarios, fileScenarios}) {
        for (Scenario& scenario : make()) scenarios.push_back(std::move(scenario));
    }
    return scenarios;
}

INSTANTIATE_TEST_SUITE_P(In, Faults, ::testing::ValuesIn(all()), [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace kdtest
