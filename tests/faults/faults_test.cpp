// Whatever fails in an act, the drawing is whole, nothing stays open, undo takes all of it back, and the act can be
// done again.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <iterator>
#include <sstream>

#include "tests/faults/scenario.h"
#include "tests/faults/session.h"

namespace kdtest {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kAllUpTo = 8;
constexpr int kThenEvery = 31;
#else
constexpr int kAllUpTo = 200;
constexpr int kThenEvery = 7;
#endif

/// What an act may leave undone when something in it fails, and why.
struct Leftover {
    const char* text;
    const char* reason;
};
constexpr Leftover kToldLeftovers[] = {
    {"breach: a transaction was left open in TABLESTYLE, in TABLESTYLE",
     "a style that can't be got to be modified ends the step at once; the host ends the transaction with the command"},
    {"breach: a transaction was left open in ManCellStyle", "the same for the cell styles of a table's style"},
};

std::string withoutTold(const std::string& disorder) {
    std::istringstream lines(disorder);
    std::string rest;
    for (std::string line; std::getline(lines, line);) {
        const bool isTold = std::any_of(std::begin(kToldLeftovers), std::end(kToldLeftovers),
                                        [&](const Leftover& told) { return line.rfind(told.text, 0) == 0; });
        if (!isTold) rest += line + "\n";
    }
    return rest;
}

std::string times(const char* line, std::size_t count) {
    std::string lines;
    for (std::size_t i = 0; i < count; ++i) lines += line;
    return lines;
}

int failedParts() {
    return ::testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

class Faults : public ::testing::TestWithParam<Scenario> {
protected:
    void SetUp() override {
        start = begin();
        whole = resultOf(GetParam().act, &wholeMessage);
        for (const Partial& partial : GetParam().partials) {
            if (!partial.act.empty()) allowed.push_back(resultOf(partial.act).unnamed);
        }
    }

    Look begin() {
        session.begin(GetParam());
        EXPECT_EQ(session.run(GetParam().ready).failure, "") << "getting ready";
        return session.look();
    }

    Look resultOf(const std::string& act, std::wstring* message = nullptr) {
        begin();
        const Ending ending = session.run(act);
        EXPECT_EQ(ending.failure, "") << act;
        EXPECT_EQ(session.disorder(), "");
        if (message != nullptr) *message = ending.message;
        return session.look();
    }

    void tryEach(const FaultKind& kind) {
        constexpr int enough = 12;
        begin();
        const int count = session.count(GetParam().act, kind);
        const int share = GetParam().share;
        // Scenarios that share what fails begin at places of their own.
        int number =
            1 + (share == 1 ? 0 : static_cast<int>(std::hash<std::string>{}(GetParam().name) % unsigned(share)));
        int tried = 0;
        const int partsBefore = failedParts();
        for (; number <= count && failedParts() < partsBefore + enough; ++tried) {
            tryOne(kind, number);
            number += (number < kAllUpTo ? 1 : kThenEvery) * share;
        }
        RecordProperty(std::string(kind.name) + "_faults", tried);
    }

    void tryOne(const FaultKind& kind, int number) {
        SCOPED_TRACE(std::string(kind.name) + " " + std::to_string(number));
        const Look before = begin();
        ASSERT_EQ(before.unnamed, start.unnamed);
        const Ending ending = session.run(GetParam().act, kind, number);
        EXPECT_TRUE(ending.struck);
        EXPECT_EQ(withoutTold(session.disorder()), "");
        const Look after = session.look();
        expectToldResult(after, ending);
        expectNothingLost(before, after);
        expectFilesWhole(before, after);
        expectUndone(before, after);
        expectDoneAgain(before);
    }

    void expectToldResult(const Look& after, const Ending& ending) const {
        if (after.unnamed == whole.unnamed) return;
        if (GetParam().tells) {
            EXPECT_TRUE(!ending.failure.empty() || ending.message != wholeMessage) << "nobody was told";
        }
        if (after.unnamed == start.unnamed || isAllowed(after)) return;
        ADD_FAILURE() << "neither nothing nor the whole, after: " << ending.failure << "\n"
                      << difference(after.unnamed);
    }

    bool isAllowed(const Look& after) const {
        if (std::find(allowed.begin(), allowed.end(), after.unnamed) != allowed.end()) return true;
        const std::vector<Partial>& partials = GetParam().partials;
        return std::any_of(partials.begin(), partials.end(), [&](const Partial& partial) {
            return partial.act.empty() && after.unnamed.find(partial.holds) != after.unnamed.npos;
        });
    }

    /// Cells are gone from the drawing only when the clipboard has them.
    void expectNothingLost(const Look& before, const Look& after) const {
        if (after.clipboard == whole.clipboard || whole.clipboard == start.clipboard) return;
        EXPECT_EQ(after.unnamed, before.unnamed) << "changed without the clipboard";
    }

    /// Each drawing on disk is the old one or the new one, and nothing lies beside it.
    void expectFilesWhole(const Look& before, const Look& after) const {
        for (const auto& [name, content] : before.files) EXPECT_EQ(after.files.count(name), 1u) << name << " is gone";
        for (const auto& [name, content] : after.files) {
            EXPECT_TRUE(before.files.count(name) + whole.files.count(name) > 0) << name << " is left behind";
        }
        EXPECT_EQ(Session::damagedFiles(after), "");
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

    void expectDoneAgain(const Look& before) {
        session.restoreFiles(before);
        EXPECT_EQ(session.run(GetParam().ready).failure, "");
        EXPECT_EQ(session.run(GetParam().act).failure, "") << "doesn't work again";
        EXPECT_EQ(session.disorder(), "");
        const Look again = session.look();
        EXPECT_TRUE(again.unnamed == whole.unnamed) << "another result when done again\n" << difference(again.unnamed);
    }

    /// The first places that differ, from the start and from the whole.
    std::string difference(const std::string& seen) const {
        std::string text = "from the start: " + firstDifference(start.unnamed, seen) +
                           "\nfrom the whole: " + firstDifference(whole.unnamed, seen);
        for (const std::string& partial : allowed) text += "\nfrom a part: " + firstDifference(partial, seen);
        return text;
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
    std::wstring wholeMessage;
    std::vector<std::string> allowed;
};

TEST_P(Faults, leave_the_drawing_whole_and_nothing_open) {
    ASSERT_FALSE(HasFailure());
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
