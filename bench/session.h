// What figures of edits run in: an application with a drawing, tables in it, and edits whose steps of undo are taken
// back outside of the time that counts.
#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "host/db/undo.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "tests/support/application.h"

namespace kdbench {

class Session {
public:
    /// Cells of data with texts, all of them selected.
    KdDbObjectId addTable(int rowCount, int columnCount) {
        auto table = std::make_unique<KdDbTable>();
        table->setTableStyle(m_host.database().tablestyle());
        table->setSize(rowCount, columnCount);
        for (int row = 0; row < rowCount; ++row) {
            for (int column = 0; column < columnCount; ++column) {
                table->setTextString(row, column, L"123.45");
                table->setCellStyle(row, column, L"_DATA");
            }
        }
        table->generateLayout();
        table->setSubSelection({0, 0, rowCount - 1, columnCount - 1});
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(m_host.database().modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(id, table.get());
        table.release()->close();
        return id;
    }

    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_host.database()); }

    std::size_t steps() { return history().undoSteps().size(); }

    /// Takes the last steps back and ends what could be redone, by a change that belongs to no step.
    void undoAndForget(int count) {
        m_odd = !m_odd;
        for (; count > 0; --count) history().undo();
        const OpenObject<KdDbTable> small(m_small, KdDb::kForWrite);
        small->setAlignment(0, 0, m_odd ? KdDb::kTopLeft : KdDb::kTopRight);
    }

private:
    kdtest::HostApplication m_host;
    KdDbObjectId m_small = addTable(1, 1);
    bool m_odd = false;
};

/// Formats set one of two values, neither of which the cells have: each run changes every cell. What inserts or deletes
/// is told a value too, and passes over it.
using Edit = int (*)(KdDbObjectId table, bool odd);

struct MeasuredEdit {
    std::string name;
    Edit edit;
    benchmark::TimeUnit unit;
    /// As many edits make one run: what takes a few microseconds would drown in the cost of looking at the clock.
    int edits = 1;
    void (*prepare)(KdDbObjectId table) = [](KdDbObjectId) {};  ///< called before each run
};

/// The edits, and the undo of them. Each edit leaves one step of undo, which is undone and forgotten before the next
/// run.
inline void measureEdit(Session& session, KdDbObjectId table, const MeasuredEdit& measured) {
    benchmark::RegisterBenchmark(measured.name.c_str(), [=, &session](benchmark::State& state) {
        const std::size_t steps = session.steps();
        // Both values the same number of times, however few the runs: one may cost more than the other.
        while (state.KeepRunningBatch(2)) {
            for (const bool odd : {true, false}) {
                state.PauseTiming();
                measured.prepare(table);
                state.ResumeTiming();
                for (int edit = 0; edit < measured.edits; ++edit) {
                    if (measured.edit(table, odd) == 0) state.SkipWithError("refused");
                }
                state.PauseTiming();
                session.undoAndForget(measured.edits);
                state.ResumeTiming();
            }
        }
        if (session.steps() != steps) state.SkipWithError("not one step of undo each time");
    })->Unit(measured.unit);
    benchmark::RegisterBenchmark(("undo_of_" + measured.name).c_str(), [=, &session](benchmark::State& state) {
        measured.prepare(table);
        for (int edit = 0; edit < measured.edits; ++edit) measured.edit(table, edit % 2 == 0);
        for (auto _ : state) {
            for (int edit = 0; edit < measured.edits; ++edit) {
                if (session.history().undo() != Kdad::eOk) state.SkipWithError("not undone");
            }
            state.PauseTiming();
            for (int edit = 0; edit < measured.edits; ++edit) {
                if (session.history().redo() != Kdad::eOk) state.SkipWithError("not redone");
            }
            state.ResumeTiming();
        }
        session.undoAndForget(measured.edits);
    })->Unit(measured.unit);
}

}  // namespace kdbench
