// Overriding properties of many cells at the cost of a few records: cells that held the same overrides and
// are given the same value go on sharing one record.
#pragma once

#include <array>

#include "host/db/tablecell.h"

namespace kdhost {

/// The last changes of overrides: which record became which under what change.
class OverrideMemo {
public:
    template <class T>
    void set(Cell& cell, const FormatProperty<T>& which, const T& value) {
        if (const T* own = cell.ownValue(which); own != nullptr && *own == value) return;
        for (const Step& step : m_steps) {
            const bool same =
                step.bit == which.bit && step.before.shares(cell.overrides) && which.in(step.after->format) == value;
            if (same) {
                cell.overrides = step.after;
                return;
            }
        }
        Step& step = m_steps[m_next];
        m_next = (m_next + 1) % m_steps.size();
        step.bit = which.bit;
        step.before = cell.overrides;
        FormatOverrides& overrides = cell.overrides.write();
        overrides.own |= which.bit;
        which.in(overrides.format) = value;
        step.after = cell.overrides;
    }

private:
    struct Step {
        FormatBits bit = 0;  ///< 0: never used
        CopyOnWrite<FormatOverrides> before;
        CopyOnWrite<FormatOverrides> after;
    };
    /// Enough for all parts of all edges set on cell after cell.
    std::array<Step, 40> m_steps;
    std::size_t m_next = 0;
};

}  // namespace kdhost
