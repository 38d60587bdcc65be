// Overriding properties of many cells at the cost of a few records: cells that held the same overrides and
// are given the same value go on sharing one record.
#pragma once

#include <array>

#include "host/db/tablecell.h"

namespace kdhost {

/// A property and the value that a cell is to override it with.
template <class T>
struct Override {
    const FormatProperty<T>& which;
    const T& value;

    bool isMadeIn(const CellLook& cell) const {
        const T* own = cell.ownValue(which);
        return own != nullptr && *own == value;
    }
    bool isMadeIn(const FormatOverrides& overrides) const { return which.in(overrides.format) == value; }
    void makeIn(FormatOverrides& overrides) const {
        overrides.own |= which.bit;
        which.in(overrides.format) = value;
    }
};

template <class T>
Override(const FormatProperty<T>&, const T&) -> Override<T>;

/// The last changes of overrides: which record became which under what change.
class OverrideMemo {
public:
    /// Makes one or more overrides in a cell at once.
    template <class... T>
    void set(CellLook& cell, const Override<T>&... made) {
        if ((made.isMadeIn(cell) && ...)) return;
        const FormatBits bits = (made.which.bit | ...);
        for (const Step& step : m_steps) {
            if (step.bits == bits && step.before.shares(cell.overrides) && (made.isMadeIn(*step.after) && ...)) {
                cell.overrides = step.after;
                return;
            }
        }
        Step& step = m_steps[m_next];
        m_next = (m_next + 1) % m_steps.size();
        step.bits = bits;
        step.before = cell.overrides;
        (made.makeIn(cell.overrides.write()), ...);
        step.after = cell.overrides;
    }

private:
    struct Step {
        FormatBits bits = 0;  ///< 0: never used
        CopyOnWrite<FormatOverrides> before;
        CopyOnWrite<FormatOverrides> after;
    };
    /// Enough for all parts of all edges set on cell after cell.
    std::array<Step, 40> m_steps;
    std::size_t m_next = 0;
};

}  // namespace kdhost
