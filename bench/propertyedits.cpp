// Edits of a property of 100,000 selected cells, each with its step of undo kept, and what menus ask about as large a
// selection. The peer is an item model in which the alignment of as many items is set.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <memory>

#include "bench/peerratio.h"
#include "host/db/undo.h"
#include "host/win32/modules.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/tableditmenu.h"
#include "tests/support/application.h"

namespace {

using Common = CVqTableCommon;

constexpr int columns = 8;
constexpr int rows = 12'500;

/// A running application; each table lies in its drawing, with all of its cells selected.
class Session {
public:
    KdDbObjectId addTable(int rowCount) {
        auto table = std::make_unique<KdDbTable>();
        table->setTableStyle(m_host.database().tablestyle());
        table->setSize(rowCount, columns);
        for (int row = 0; row < rowCount; ++row) {
            for (int column = 0; column < columns; ++column) {
                table->setTextString(row, column, L"123.45");
                table->setCellStyle(row, column, L"_DATA");
            }
        }
        table->generateLayout();
        table->setSubSelection({0, 0, rowCount - 1, columns - 1});
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(m_host.database().modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(id, table.get());
        table.release()->close();
        return id;
    }
    /// False unless there was just one step since the last call.
    bool undoAndForget() {
        const auto history = kdhost::undoHistory(m_host.database());
        const std::size_t steps = history->undoSteps().size();
        history->undo();
        // The next change ends what could be redone.
        Common::SettingLocked(steps % 2 == 0 ? 1819 : 1820, m_small);
        return history->undoSteps().size() == steps && steps == ++m_steps;
    }

private:
    kdtest::HostApplication m_host;
    KdDbObjectId m_small = addTable(1);
    std::size_t m_steps = 0;
};

std::unique_ptr<Session> session;

void itemAlignments(benchmark::State& state) {
    QStandardItemModel model(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            model.setItem(row, column, new QStandardItem(QStringLiteral("123.45")));
        }
    }
    int alignment = Qt::AlignLeft;
    for (auto _ : state) {
        alignment = alignment == Qt::AlignLeft ? Qt::AlignRight : Qt::AlignLeft;
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                model.setData(model.index(row, column), alignment, Qt::TextAlignmentRole);
            }
        }
    }
}

/// Sets one of two values, so that each run changes every cell.
using Edit = int (*)(KdDbObjectId table, bool odd);

/// Each run leaves one step of undo, which is undone and forgotten before the next one.
void measureEdit(const std::string& name, KdDbObjectId table, Edit edit) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
        bool odd = false;
        for (auto _ : state) {
            odd = !odd;
            if (edit(table, odd) == 0) state.SkipWithError("refused");
            state.PauseTiming();
            if (!session->undoAndForget()) state.SkipWithError("not one step of undo");
            state.ResumeTiming();
        }
    })->Unit(benchmark::kMillisecond);
}

using MenuTest = bool (*)(const KdDbTable* table, KdUiMenu* menu);

void measureMenu(const char* name, KdDbObjectId id, MenuTest test, const char* menuName) {
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        VqTableditMenu menu;
        if (!menu.LoadMenuItem(QStringLiteral("TvxTableRes/TvxTableRes"), QString::fromLatin1(menuName), {})) {
            state.SkipWithError("no menu");
        }
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        for (auto _ : state) {
            if (!test(table.get(), &menu)) state.SkipWithError("no answer");
        }
    })->Unit(benchmark::kMillisecond);
}

void registerEdits(KdDbObjectId table, const std::string& size) {
    measureEdit("SetSelectionAlignment" + size, table, [](KdDbObjectId id, bool odd) {
        return Common::SetSelectionAlignment(id, odd ? KdDb::kBottomLeft : KdDb::kBottomRight);
    });
    measureEdit("SetBackgroundColor" + size, table, [](KdDbObjectId id, bool odd) {
        return Common::SetBackgroundColor(id, KdCmColor::fromIndex(odd ? 3 : 5));
    });
    measureEdit("SettingLocked" + size, table,
                [](KdDbObjectId id, bool odd) { return Common::SettingLocked(odd ? 1820 : 1819, id); });
    measureEdit("SetDataFormatMenu" + size, table,
                [](KdDbObjectId id, bool odd) { return Common::SetDataFormatMenu(odd ? 1824 : 1826, id); });
    measureEdit("SetCellStyleByName" + size, table, [](KdDbObjectId id, bool odd) {
        CStdStr<wchar_t> name = odd ? L"_TITLE" : L"_DATA";
        return Common::SetCellStyleByName(id, name);
    });
}

void registerMenus(KdDbObjectId table) {
    measureMenu("SetFormatMenuState", table, Common::SetFormatMenuState, "IDR_DATAFORMAT_MENU");
    measureMenu("SetAlignmentMenuState", table, Common::SetAlignmentMenuState, "IDR_ALIGNMENT_MENU");
    measureMenu("SetLockingMenuState", table, Common::SetLockingMenuState, "IDR_LOCKING_MENU");
    const MenuTest background = [](const KdDbTable* open, KdUiMenu*) {
        KdCmColor color;
        return Common::GetBackgroundColor(open, color);
    };
    measureMenu("GetBackgroundColor", table, background, "IDR_LOCKING_MENU");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(KD_BINARY_DIRECTORY "/plugins");
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    benchmark::Initialize(&argc, argv);
    session = std::make_unique<Session>();
    benchmark::RegisterBenchmark("itemAlignments", itemAlignments)->Unit(benchmark::kMillisecond);
    const KdDbObjectId table = session->addTable(rows);
    registerMenus(session->addTable(rows));
    registerEdits(table, "");
    registerEdits(session->addTable(10 * rows), "_on_ten_times_the_cells");
    kdbench::PeerRatioReporter reporter("itemAlignments", 0.35, 0.15);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    session.reset();
    FreeLibrary(hLibModule);
    return 0;
}
