// One figure on tables of three sizes: a tenth of the rows, the rows, and ten times the rows.
#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/peerratio.h"

namespace kdbench {

/// Registers the figure on three sizes; each but the smallest is compared with the one before it as well as the plain
/// one with its peer. `Sample(rows)` is what the figure works on, made when its turn comes, and `run(sample, state)`
/// measures it.
template <class Sample, class Run>
void measureGrowth(PeerRatioReporter& reporter, const std::string& name, int rows, benchmark::TimeUnit unit, Run run) {
    const auto measure = [=](const std::string& sizedName, int sizedRows) {
        benchmark::RegisterBenchmark(sizedName.c_str(), [=](benchmark::State& state) {
            Sample sample(sizedRows);
            run(sample, state);
        })->Unit(unit);
    };
    const std::string small = name + tenthOfTheCells;
    reporter.setGoal(small, {});  // is there to be compared with
    measure(small, rows / 10);
    measure(small + tenTimesTheCells, rows);
    measure(name, rows);
    measure(name + tenTimesTheCells, 10 * rows);
}

}  // namespace kdbench
