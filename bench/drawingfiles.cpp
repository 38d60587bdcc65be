// Figures of saving and opening drawings of one table, beside another program's library on the same files, and the
// ratios against their goals. Best times of the processor count, since other work on the machine only ever adds.

#include <time.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "host/rx/encoding.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/support/objects.h"

namespace {

constexpr int repetitions = 7;
constexpr int columns = 10;
constexpr double goal = 0.05;
constexpr double stretch = 0.02;

double processorTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double best(const std::function<void()>& work) {
    double shortest = 1e9;
    for (int run = 0; run < repetitions; ++run) {
        const double start = processorTime();
        work();
        shortest = std::min(shortest, processorTime() - start);
    }
    return shortest;
}

/// A table as people make them: numbers and words, some cells with looks of their own.
void fill(KdDbDatabase& database, int cells) {
    auto* table = new KdDbTable;
    table->setTableStyle(database.tablestyle());
    const int rows = cells / columns;
    table->setSize(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const std::wstring number = std::to_wstring(row * 7 + column);
            table->setTextString(row, column, column == 0 ? (L"Part no. " + number).c_str() : number.c_str());
            if (column == 3) table->setAlignment(row, column, KdDb::kMiddleRight);
            if (row % 10 == 5) table->setBackgroundColor(row, column, KdCmColor::fromIndex(2));
        }
    }
    kdtest::append(database, table);
}

/// Seconds of the peer's best reading and best writing of the file, without its start; zeros when it can't be had.
std::pair<double, double> peerTimes(const QString& file) {
    QProcess peer;
    peer.start(QStringLiteral("/usr/bin/python3"),
               {QStringLiteral(KD_SOURCE_DIRECTORY "/bench/drawingpeer.py"), file, QString::number(repetitions / 2)});
    if (!peer.waitForFinished(-1) || peer.exitCode() != 0) {
        std::printf("the peer failed: %s\n", peer.readAllStandardError().constData());
        return {};
    }
    const QList<QByteArray> lines = peer.readAllStandardOutput().split('\n');
    return {lines.value(0).toDouble(), lines.value(1).toDouble()};
}

const char* verdict(double ratio) {
    return ratio <= stretch ? "stretch" : ratio <= goal ? "goal" : "missed";
}

void measure(int cells, const QTemporaryDir& folder) {
    KdDbDatabase database;
    fill(database, cells);
    const QString file = folder.filePath(QStringLiteral("table%1.dxf").arg(cells));
    const std::wstring path = file.toStdWString();
    const double save = best([&] { database.saveAs(path.c_str()); });
    std::unique_ptr<KdDbDatabase> read;
    const double open = best([&] {
        read = std::make_unique<KdDbDatabase>(false, true);
        if (read->readDwgFile(path.c_str()) != Kdad::eOk) std::printf("the file was refused\n");
    });
    const auto [peerRead, peerWrite] = peerTimes(file);
    std::printf(
        "%8d %8.2f MB  open %8.2f ms  peer %9.1f ms  ratio %.4f %-8s save %8.2f ms  peer %9.1f ms  ratio %.4f\n", cells,
        static_cast<double>(QFile(file).size()) / 1e6, open * 1e3, peerRead * 1e3, open / peerRead,
        verdict(open / peerRead), save * 1e3, peerWrite * 1e3, save / peerWrite);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication qt(argc, argv);
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    const QTemporaryDir folder;
    std::printf("goals of opening: %.2f, stretch %.2f of the peer's time\n", goal, stretch);
    for (const int cells : {1000, 10000, 100000}) measure(cells, folder);
    return 0;
}
