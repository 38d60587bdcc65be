// Edits of a property of 100,000 selected cells, each with its step of undo kept, and what menus ask about as large a
// selection. The peer is an item model in which the alignment of as many items is set.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QStandardItemModel>
#include <memory>

#include "bench/itempeers.h"
#include "bench/peerratio.h"
#include "bench/session.h"
#include "host/win32/modules.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/tableditmenu.h"
#include "tests/support/places.h"

namespace {

using Common = CVqTableCommon;

constexpr int columns = 8;
constexpr int rows = 12'500;

std::unique_ptr<kdbench::Session> session;

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

void scanOfItemFlags(benchmark::State& state) {
    kdbench::scanItemFlags(state, rows, columns);
}

using MenuTest = bool (*)(const KdDbTable* table, KdUiMenu* menu);

void measureMenu(const std::string& name, KdDbObjectId id, MenuTest test, const char* menuName) {
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
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

void measure(const std::string& name, KdDbObjectId table, kdbench::Edit edit) {
    kdbench::measureEdit(*session, table, {.name = name, .edit = edit, .unit = benchmark::kMillisecond});
}

void registerEdits(KdDbObjectId table, const std::string& size) {
    measure("SetSelectionAlignment" + size, table, [](KdDbObjectId id, bool odd) {
        return Common::SetSelectionAlignment(id, odd ? KdDb::kBottomLeft : KdDb::kBottomRight);
    });
    measure("SetBackgroundColor" + size, table, [](KdDbObjectId id, bool odd) {
        return Common::SetBackgroundColor(id, KdCmColor::fromIndex(odd ? 3 : 5));
    });
    measure("SettingLocked" + size, table,
            [](KdDbObjectId id, bool odd) { return Common::SettingLocked(odd ? 1820 : 1821, id); });
    measure("SetDataFormatMenu" + size, table,
            [](KdDbObjectId id, bool odd) { return Common::SetDataFormatMenu(odd ? 1824 : 1826, id); });
    measure("SetCellStyleByName" + size, table, [](KdDbObjectId id, bool odd) {
        CStdStr<wchar_t> name = odd ? L"_TITLE" : L"_HEADER";
        return Common::SetCellStyleByName(id, name);
    });
}

/// What EDITTABLECELL asks before it carries out a word of its operation menu, with all rows but one selected.
bool surveyOperations(const KdDbTable* table, KdUiMenu*) {
    return table->canInsert(0, true) && table->canInsert(rows - 1, true) && table->canDelete(0, rows - 1, true) &&
           table->canInsert(0, false) && table->canInsert(columns - 1, false) &&
           table->canDelete(0, columns - 1, false);
}

bool askBackground(const KdDbTable* table, KdUiMenu*) {
    KdCmColor color;
    return Common::GetBackgroundColor(table, color);
}

struct MenuQuestion {
    const char* name;
    MenuTest test;
    const char* menu;
};

constexpr MenuQuestion menuQuestions[] = {
    {"SetFormatMenuState", Common::SetFormatMenuState, "IDR_DATAFORMAT_MENU"},
    {"SetAlignmentMenuState", Common::SetAlignmentMenuState, "IDR_ALIGNMENT_MENU"},
    {"SetLockingMenuState", Common::SetLockingMenuState, "IDR_LOCKING_MENU"},
    {"GetBackgroundColor", askBackground, "IDR_LOCKING_MENU"},
    {"surveyOperations", surveyOperations, "IDR_LOCKING_MENU"},
};

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    benchmark::Initialize(&argc, argv);
    session = std::make_unique<kdbench::Session>();
    kdbench::PeerRatioReporter reporter("itemAlignments", 0.35, 0.15, rows * columns);
    benchmark::RegisterBenchmark("itemAlignments", itemAlignments)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scanOfItemFlags", scanOfItemFlags)->Unit(benchmark::kMillisecond);
    const KdDbObjectId asked = session->addTable(rows, columns);
    const KdDbObjectId askedTenTimes = session->addTable(10 * rows, columns);
    for (const MenuQuestion& question : menuQuestions) {
        measureMenu(question.name, asked, question.test, question.menu);
        measureMenu(question.name + kdbench::tenTimesTheCells, askedTenTimes, question.test, question.menu);
        reporter.setGoal(question.name, {"scanOfItemFlags", 0.5, 0.15});
    }
    registerEdits(session->addTable(rows, columns), "");
    registerEdits(session->addTable(10 * rows, columns), kdbench::tenTimesTheCells);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    session.reset();
    FreeLibrary(hLibModule);
    return 0;
}
