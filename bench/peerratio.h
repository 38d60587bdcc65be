// Reports each figure also as a ratio to a peer that is measured in the same run, beside the goal for it. A figure of
// ten times the cells is compared with the same figure of the plain number.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kdbench {

/// Stands at the end of the name of a benchmark that works on ten times the cells.
inline const std::string tenTimesTheCells = "_on_ten_times_the_cells";
/// And on a tenth of them.
inline const std::string tenthOfTheCells = "_on_a_tenth_of_the_cells";

/// What a figure is compared with: the benchmark named `peer`, and the ratios that are good and very good.
struct Goal {
    std::string peer;
    double goal = 0.0;
    double stretch = 0.0;
};

/// A line of the list that every program here ends with: `bench.sh` gathers these. A size or a goal of 0 is told by a
/// dash, and a time of 0 too.
struct RatioRow {
    std::string operation;
    double cells = 0.0;
    double seconds = 0.0;
    double ratio = 0.0;
    Goal goal;
};

/// Columns stand two blanks or more apart, and nothing in them has two blanks in a row.
inline void printRatioHeading() {
    std::printf("\n%-56s  %10s  %12s  %8s  %-7s  %-6s  %-7s  %s\n", "operation", "cells", "time", "ratio", "verdict",
                "goal", "stretch", "peer");
}

inline const char* verdict(double ratio, const Goal& goal) {
    if (goal.goal <= 0.0) return "-";
    return ratio <= goal.stretch ? "stretch" : ratio <= goal.goal ? "goal" : "MISSED";
}

inline void printRatio(const RatioRow& row) {
    const auto numberOrDash = [](const char* format, double number) {
        std::array<char, 32> text{"-"};
        if (number > 0.0) std::snprintf(text.data(), text.size(), format, number);
        return std::string(text.data());
    };
    const std::string time = row.seconds < 1e-3  ? numberOrDash("%.3f us", row.seconds * 1e6)
                             : row.seconds < 1.0 ? numberOrDash("%.3f ms", row.seconds * 1e3)
                                                 : numberOrDash("%.3f s", row.seconds);
    std::printf("%-56s  %10s  %12s  %8.3f  %-7s  %-6s  %-7s  %s\n", row.operation.c_str(),
                numberOrDash("%.0f", row.cells).c_str(), time.c_str(), row.ratio, verdict(row.ratio, row.goal),
                numberOrDash("%.3g", row.goal.goal).c_str(), numberOrDash("%.3g", row.goal.stretch).c_str(),
                row.goal.peer.c_str());
}

/// A console report, followed by the list of ratios. Of a benchmark that is repeated the best time counts.
class PeerRatioReporter : public benchmark::ConsoleReporter {
public:
    /// The goal of all benchmarks without one of their own, and the cells that they work on, where that says anything.
    PeerRatioReporter(std::string peer, double goal, double stretch, double cells = 0.0)
        : m_goal{std::move(peer), goal, stretch}, m_cells(cells) {}

    /// The benchmark of that name has a goal of its own; one of 0 is no goal, only a ratio to be told.
    void setGoal(const std::string& name, const Goal& goal) { m_goals[name] = goal; }
    /// And a size of its own.
    void setCells(const std::string& name, double cells) { m_sizes[name] = cells; }

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
            keepBest(nameOf(run), run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit));
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        printRatioHeading();
        for (const auto& [name, time] : m_times) {
            const Goal goal = goalOf(name);
            const double peerTime = timeOf(goal.peer);
            if (isPeer(name) || peerTime <= 0.0) continue;
            printRatio({name, cellsOf(name), time, time / peerTime, goal});
        }
    }

private:
    static std::string nameOf(const Run& run) {
        benchmark::BenchmarkName name = run.run_name;
        name.repetitions.clear();
        return name.str();
    }
    void keepBest(const std::string& name, double time) {
        for (auto& [known, best] : m_times) {
            if (known != name) continue;
            best = std::min(best, time);
            return;
        }
        m_times.emplace_back(name, time);
    }
    /// What grows with the cells takes ten times as long on ten times the cells, and hardly more.
    Goal goalOf(const std::string& name) const {
        if (name.ends_with(tenTimesTheCells)) return {without(name, tenTimesTheCells), 11.0, 10.0};
        const auto own = m_goals.find(name);
        return own == m_goals.end() ? m_goal : own->second;
    }
    double cellsOf(const std::string& name) const {
        if (name.ends_with(tenTimesTheCells)) return 10.0 * cellsOf(without(name, tenTimesTheCells));
        if (name.ends_with(tenthOfTheCells)) return 0.1 * cellsOf(without(name, tenthOfTheCells));
        const auto own = m_sizes.find(name);
        return own == m_sizes.end() ? m_cells : own->second;
    }
    static std::string without(const std::string& name, const std::string& ending) {
        return name.substr(0, name.size() - ending.size());
    }
    /// Peers of the plain goals; a benchmark that its own larger sibling is compared with is none.
    bool isPeer(const std::string& name) const {
        if (name == m_goal.peer) return true;
        for (const auto& [of, goal] : m_goals) {
            if (goal.peer == name) return true;
        }
        return false;
    }
    double timeOf(const std::string& wanted) const {
        for (const auto& [name, time] : m_times) {
            if (name == wanted) return time;
        }
        return 0.0;
    }

    Goal m_goal;
    double m_cells;
    std::map<std::string, Goal> m_goals;
    std::map<std::string, double> m_sizes;
    std::vector<std::pair<std::string, double>> m_times;  ///< best times in seconds, as they came
};

/// The time of other processes is no time of this one's processor.
class WallClockReporter : public PeerRatioReporter {
public:
    using PeerRatioReporter::PeerRatioReporter;

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> timed = runs;
        for (Run& run : timed) run.cpu_accumulated_time = run.real_accumulated_time;
        PeerRatioReporter::ReportRuns(timed);
    }
};

}  // namespace kdbench
