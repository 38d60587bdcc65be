// Long runs of the whole program by a user who does anything that is valid. docs/endurance.md tells how to run more
// of them by hand, and how to play a run again.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cstdlib>
#include <iostream>
#include <regex>

#include "tests/endurance/session.h"

namespace endurance {
namespace {

/// The undo of a drawing keeps all its steps, so a run is no longer than that.
constexpr int actionsOfSession = 500;
constexpr int runs = 20;
constexpr unsigned secondsOfSession = 120;

int fromEnvironment(const char* name, int otherwise) {
    bool isSet = false;
    const int value = qEnvironmentVariableIntValue(name, &isSet);
    return isSet ? value : otherwise;
}

int actionsOfRun() {
    return fromEnvironment("KD_ENDURANCE_ACTIONS", KD_ENDURANCE_ACTIONS) / runs;
}

/// Written where the tests were started; where, for a message.
std::string keep(const std::string& journal, std::uint64_t seed) {
    const QString folder = qEnvironmentVariable("KD_ENDURANCE_FOLDER", QStringLiteral("."));
    const QString path = QDir(folder).absoluteFilePath(QStringLiteral("endurance-%1.kds").arg(seed));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(QByteArray::fromStdString(journal));
    return path.toStdString();
}

void tell(const std::map<std::string, int>& counts) {
    if (fromEnvironment("KD_ENDURANCE_COUNTS", 0) == 0) return;
    for (const auto& [action, count] : counts) std::cout << "counted " << action << "\t" << count << "\n";
}

class Endurance : public ::testing::TestWithParam<int> {};

TEST_P(Endurance, whatever_is_done_the_program_stands_it) {
    std::map<std::string, int> counts;
    auto seed = static_cast<std::uint64_t>(fromEnvironment("KD_ENDURANCE_SEED", 1)) * 1000000 +
                static_cast<std::uint64_t>(GetParam()) * 10000;
    int left = actionsOfRun();
    for (; left > 0; ++seed) {
        alarm(secondsOfSession);
        const Outcome outcome = runSession(seed, std::min(left, actionsOfSession));
        ASSERT_TRUE(outcome.failure.empty())
            << "seed " << seed << ": " << outcome.failure << "    the journal is " << keep(outcome.journal, seed);
        for (const auto& [action, count] : outcome.counts) counts[action] += count;
        left -= outcome.actions;
    }
    tell(counts);
}

TEST(EnduranceJournal, a_seed_gives_the_same_journal_and_drawing_each_time) {
    for (const std::uint64_t seed : {7U, 8U}) {
        const Outcome first = runSession(seed, 100);
        const Outcome second = runSession(seed, 100);
        ASSERT_TRUE(first.failure.empty()) << first.failure;
        EXPECT_EQ(first.journal, second.journal);
        EXPECT_EQ(first.dump, second.dump);
    }
}

/// Formulas name other tables by numbers of the run.
std::string withoutNumbers(const std::string& dump) {
    static const std::regex table("Table\\([^)]*\\)");
    return std::regex_replace(dump, table, "Table()");
}

TEST(EnduranceJournal, kdhost_plays_a_journal_to_the_same_drawing) {
    for (const std::uint64_t seed : {9U, 10U}) {
        const Outcome made = runSession(seed, 80);
        ASSERT_TRUE(made.failure.empty()) << made.failure;
        EXPECT_EQ(withoutNumbers(made.dump), withoutNumbers(dumpOfProgram(made.journal)));
    }
}

/// The journal that the environment names, or one made here.
TEST(EnduranceJournal, a_journal_is_played_with_the_same_checks) {
    const QString path = qEnvironmentVariable("KD_ENDURANCE_REPLAY");
    std::string journal = runSession(9, path.isEmpty() ? 60 : 1).journal;
    if (QFile file(path); !path.isEmpty()) {
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        journal = file.readAll().toStdString();
    }
    const Outcome played = replay(journal);
    EXPECT_TRUE(played.failure.empty()) << played.failure;
}

INSTANTIATE_TEST_SUITE_P(Runs, Endurance, ::testing::Range(0, runs));

}  // namespace
}  // namespace endurance
