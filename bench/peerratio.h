// Reports each figure also as a ratio to a peer that is measured in the same run, beside the goal for it.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace kdbench {

/// A console report, followed by a list of ratios to the benchmark named `peer`.
class PeerRatioReporter : public benchmark::ConsoleReporter {
public:
    PeerRatioReporter(std::string peer, double goal, double stretch)
        : m_peer(std::move(peer)), m_goal(goal), m_stretch(stretch) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred) m_times.emplace_back(run.benchmark_name(), run.GetAdjustedCPUTime());
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        double peerTime = 0.0;
        for (const auto& [name, time] : m_times) {
            if (name == m_peer) peerTime = time;
        }
        if (peerTime <= 0.0) return;
        std::printf("\nratio to %s (goal %.2f, stretch %.2f)\n", m_peer.c_str(), m_goal, m_stretch);
        for (const auto& [name, time] : m_times) {
            if (name == m_peer) continue;
            const double ratio = time / peerTime;
            const char* verdict = ratio <= m_stretch ? "stretch" : ratio <= m_goal ? "goal" : "missed";
            std::printf("%-44s %7.3f  %s\n", name.c_str(), ratio, verdict);
        }
    }

private:
    std::string m_peer;
    double m_goal;
    double m_stretch;
    std::vector<std::pair<std::string, double>> m_times;
};

}  // namespace kdbench
