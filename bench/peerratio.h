// Reports each figure also as a ratio to a peer that is measured in the same run, beside the goal for it. A figure of
// ten times the cells is compared with the same figure of the plain number.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kdbench {

/// Stands at the end of the name of a benchmark that works on ten times the cells.
inline const std::string tenTimesTheCells = "_on_ten_times_the_cells";

/// What a figure is compared with: the benchmark named `peer`, and the ratios that are good and very good.
struct Goal {
    std::string peer;
    double goal;
    double stretch;
};

/// A console report, followed by a list of ratios.
class PeerRatioReporter : public benchmark::ConsoleReporter {
public:
    /// The goal of all benchmarks without one of their own.
    PeerRatioReporter(std::string peer, double goal, double stretch) : m_goal{std::move(peer), goal, stretch} {}

    /// The benchmark of that name has a goal of its own.
    void setGoal(const std::string& name, const Goal& goal) { m_goals[name] = goal; }

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred) m_times.emplace_back(run.benchmark_name(), run.GetAdjustedCPUTime());
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        std::printf("\n%-44s %7s  %-8s goal  stretch  peer\n", "", "ratio", "");
        for (const auto& [name, time] : m_times) {
            const Goal goal = goalOf(name);
            const double peerTime = timeOf(goal.peer);
            if (isPeer(name) || peerTime <= 0.0) continue;
            const double ratio = time / peerTime;
            const char* verdict = ratio <= goal.stretch ? "stretch" : ratio <= goal.goal ? "goal" : "missed";
            std::printf("%-44s %7.3f  %-8s %-5.3g %-8.3g %s\n", name.c_str(), ratio, verdict, goal.goal, goal.stretch,
                        goal.peer.c_str());
        }
    }

private:
    /// What grows with the cells takes ten times as long on ten times the cells, and hardly more.
    Goal goalOf(const std::string& name) const {
        if (name.ends_with(tenTimesTheCells)) {
            return {name.substr(0, name.size() - tenTimesTheCells.size()), 11.0, 10.0};
        }
        const auto own = m_goals.find(name);
        return own == m_goals.end() ? m_goal : own->second;
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
    std::map<std::string, Goal> m_goals;
    std::vector<std::pair<std::string, double>> m_times;
};

}  // namespace kdbench
