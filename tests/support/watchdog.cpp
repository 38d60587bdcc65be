// The watch over each test's time.

#include "tests/support/watchdog.h"

#include <execinfo.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

namespace kdtest {
namespace {

constexpr unsigned kSeconds = 120;

std::string running;  ///< the test's name, ready to be written by a handler of signals

void giveUp(int) {
    // Nothing of this may allocate: the alarm can come anywhere.
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, running.data(), running.size());
    std::array<void*, 64> frames{};
    backtrace_symbols_fd(frames.data(), backtrace(frames.data(), frames.size()), STDERR_FILENO);
    _exit(EXIT_FAILURE);
}

class Watchdog : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo& test) override {
        running = std::string("no end of ") + test.test_suite_name() + "." + test.name() + ", which stands at\n";
        alarm(kSeconds);
    }
    void OnTestEnd(const ::testing::TestInfo&) override { alarm(0); }
};

}  // namespace

void installWatchdog() {
    std::signal(SIGALRM, giveUp);
    ::testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
}

}  // namespace kdtest
