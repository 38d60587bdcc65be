// How fast the dialogs of styles open, show another style and filter, in a drawing of 200 table styles with 50 cell
// styles each and 1,000 tables. The peer is a dialog with a plain list of as many rows and the same preview painted.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QTimer>

#include "bench/peerratio.h"
#include "host/win32/modules.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "mfc/resource.h"
#include "module/core/openobject.h"
#include "module/preview/previewstatic.h"
#include "module/style/managercellstyledlg.h"
#include "module/style/styletablepreview.h"
#include "module/style/tablestyledlg.h"
#include "tests/support/application.h"
#include "tests/support/places.h"

namespace {

constexpr int kTableStyles = 200;
constexpr int kCellStyles = 50;
constexpr int kTables = 1000;

std::wstring numbered(const wchar_t* text, int number) {
    return text + std::to_wstring(number);
}

/// The drawing, and the resources that the dialogs are built from.
class Drawing {
public:
    Drawing() {
        AfxSetResourceHandle(LoadResourceDll(L"TvxTableRes.dll"));
        for (int style = 0; style < kTableStyles; ++style) m_styles.push_back(addStyle(numbered(L"Style ", style)));
        for (int table = 0; table < kTables; ++table) addTable(m_styles[static_cast<std::size_t>(table % 20)]);
    }

    KdDbDatabase& database() { return m_host.database(); }
    KdDbTransactionManager& transactions() { return *m_host.document().transactionManager(); }
    KdDbObjectId style(int number) const { return m_styles[static_cast<std::size_t>(number)]; }

private:
    KdDbObjectId addStyle(const std::wstring& name) {
        auto* style = new KdDbTableStyle;
        for (int number = 0; number < kCellStyles; ++number) {
            style->createCellStyle(numbered(L"Cell style ", number).c_str(), L"_DATA");
        }
        KdDbObjectId id;
        style->postTableStyleToDb(&database(), name.c_str(), id);
        style->close();
        return id;
    }
    void addTable(KdDbObjectId style) {
        auto* table = new KdDbTable;
        table->setTableStyle(style);
        table->setSize(10, 5);
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(database().modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(id, table);
        table->close();
    }

    kdtest::HostApplication m_host;
    std::vector<KdDbObjectId> m_styles;
};

Drawing& drawing() {
    static Drawing instance;
    return instance;
}

/// Ends the dialog once it has been painted.
void endWhenShown(QDialog& dialog) {
    QTimer::singleShot(0, &dialog, [&dialog] {
        QApplication::processEvents();
        dialog.reject();
    });
}

void open(CVqTableStyleDlg& dialog) {
    dialog.SetDatabase(&drawing().database());
    endWhenShown(dialog);
    dialog.DoModal();
}

void opensTableStyles(benchmark::State& state) {
    for (auto _ : state) {
        CVqTableStyleDlg dialog;
        open(dialog);
    }
}
BENCHMARK(opensTableStyles)->Unit(benchmark::kMillisecond);

void opensCellStyles(benchmark::State& state) {
    for (auto _ : state) {
        drawing().transactions().startTransaction();
        CVqTableManagerCellStyleDlg dialog;
        dialog.SetTableStyleId(drawing().style(0));
        dialog.SetTableStyleName(L"Style 0");
        endWhenShown(dialog);
        dialog.DoModal();
        drawing().transactions().abortTransaction();
    }
}
BENCHMARK(opensCellStyles)->Unit(benchmark::kMillisecond);

/// Does something to the open dialog, again and again.
template <class Act>
void inOpenDialog(benchmark::State& state, Act act) {
    CVqTableStyleDlg dialog;
    dialog.SetDatabase(&drawing().database());
    QTimer::singleShot(0, &dialog, [&] {
        QApplication::processEvents();
        int round = 0;
        for (auto _ : state) {
            act(dialog, ++round);
            QApplication::processEvents();
        }
        dialog.reject();
    });
    dialog.DoModal();
}

/// An arrow key in the list: another style is previewed, and asked whether a table has it.
void showsAnotherTableStyle(benchmark::State& state) {
    inOpenDialog(state, [](CVqTableStyleDlg& dialog, int round) {
        auto* list = qobject_cast<QListWidget*>(dialog.getWidgetsFromOrignal("IDC_TABLESTYLE_STYLE_LIST"));
        list->setCurrentRow(round % kTableStyles);
    });
}
BENCHMARK(showsAnotherTableStyle)->Unit(benchmark::kMillisecond);

void filtersTableStyles(benchmark::State& state) {
    inOpenDialog(state, [](CVqTableStyleDlg& dialog, int round) {
        auto* filter = qobject_cast<QComboBox*>(dialog.getWidgetsFromOrignal("IDC_TABLESTYLE_LIST_COMBOBOX"));
        filter->setCurrentIndex(round % 2);
    });
}
BENCHMARK(filtersTableStyles)->Unit(benchmark::kMillisecond);

/// The controls of the dialog made by hand, without a drawing behind them.
void opensPlainDialog(benchmark::State& state) {
    for (auto _ : state) {
        QDialog dialog;
        QHBoxLayout layout(&dialog);
        auto* list = new QListWidget(&dialog);
        for (int row = 0; row < kTableStyles; ++row) list->addItem(QString::fromStdWString(numbered(L"Style ", row)));
        list->setMinimumSize(196, 220);
        auto* picture = new QLabel(&dialog);
        picture->setMinimumSize(330, 250);
        picture->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        layout.addWidget(list);
        layout.addWidget(picture);
        const auto table = makeStyleTablePreview(&drawing().database(), drawing().style(0));
        CVqPreviewStatic preview;
        preview.Attach(picture);
        preview.initialPreviewer(picture, &drawing().database(), {table.get()});
        preview.update();
        endWhenShown(dialog);
        dialog.exec();
        preview.Attach(nullptr);
    }
}
BENCHMARK(opensPlainDialog)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    benchmark::Initialize(&argc, argv);
    kdbench::PeerRatioReporter reporter("opensPlainDialog", 4.0, 2.0);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
