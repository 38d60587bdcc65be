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

    /// Takes the last step back and ends what could be redone by another one.
    void undoAndForget() {
        m_odd = !m_odd;
        history().undo();
        CVqTableCommon::SettingLocked(m_odd ? 1820 : 1819, m_small);
    }

private:
    kdtest::HostApplication m_host;
    KdDbObjectId m_small = addTable(1, 1);
    bool m_odd = false;
};

/// Sets one of two values, so that each run changes every cell.
using Edit = int (*)(KdDbObjectId table, bool odd);

/// The edit, and its undo and redo. Each run of the edit leaves one step of undo, which is undone and forgotten before
/// the next one; `prepare` is called before each.
inline void measureEdit(
    Session& session, const std::string& name, KdDbObjectId table, Edit edit, benchmark::TimeUnit unit,
    void (*prepare)(KdDbObjectId table) = [](KdDbObjectId) {}) {
    benchmark::RegisterBenchmark(name.c_str(), [=, &session](benchmark::State& state) {
        bool odd = false;
        const std::size_t steps = session.steps();
        for (auto _ : state) {
            state.PauseTiming();
            prepare(table);
            odd = !odd;
            state.ResumeTiming();
            if (edit(table, odd) == 0) state.SkipWithError("refused");
            state.PauseTiming();
            session.undoAndForget();
            state.ResumeTiming();
        }
        if (session.steps() != steps + static_cast<std::size_t>(state.iterations())) {
            state.SkipWithError("not one step of undo each time");
        }
    })->Unit(unit);
    benchmark::RegisterBenchmark(("undo_of_" + name).c_str(), [=, &session](benchmark::State& state) {
        prepare(table);
        edit(table, true);
        for (auto _ : state) {
            if (session.history().undo() != Kdad::eOk) state.SkipWithError("not undone");
            state.PauseTiming();
            if (session.history().redo() != Kdad::eOk) state.SkipWithError("not redone");
            state.ResumeTiming();
        }
        session.undoAndForget();
    })->Unit(unit);
}

}  // namespace kdbench
