// Figures of saving and opening drawings of one table, beside another program's library on the same files, and the
// ratios against their goals. Best times of the processor count, since other work on the machine only ever adds.

#include <malloc.h>
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

#include "bench/peerratio.h"
#include "host/rx/encoding.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/support/objects.h"
#include "tests/support/places.h"

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

/// The work is done in fresh memory, as by a program that has just started: the memory of a small drawing would else
/// be that of the run before, and that of a large one the system's.
double best(const std::function<void()>& work) {
    double shortest = 1e9;
    for (int run = 0; run < repetitions; ++run) {
        ::malloc_trim(0);
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
               {kdtest::sourcePath("bench/drawingpeer.py"), file, QString::number(repetitions / 2)});
    if (!peer.waitForFinished(-1) || peer.exitCode() != 0) {
        std::printf("the peer failed: %s\n", peer.readAllStandardError().constData());
        return {};
    }
    const QList<QByteArray> lines = peer.readAllStandardOutput().split('\n');
    return {lines.value(0).toDouble(), lines.value(1).toDouble()};
}

/// Times of one drawing, in seconds.
struct Times {
    double open = 0.0;
    double save = 0.0;
};

void tell(const std::string& operation, int cells, double time, double peerTime, const kdbench::Goal& goal) {
    if (peerTime > 0.0) kdbench::printRatio({operation, static_cast<double>(cells), time, time / peerTime, goal});
}

/// Tells the ratios to the peer, and to the drawing of a tenth of the cells.
Times measure(int cells, const Times& ofTenth, const QTemporaryDir& folder) {
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
    tell("open", cells, open, peerRead, {"ezdxf readfile", goal, stretch});
    tell("save", cells, save, peerWrite, {"ezdxf saveas"});
    const std::string tenth = "/" + std::to_string(cells / 10);
    tell("open", cells, open, ofTenth.open, {"open" + tenth, 11.0, 10.0});
    tell("save", cells, save, ofTenth.save, {"save" + tenth, 11.0, 10.0});
    return {open, save};
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication qt(argc, argv);
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    const QTemporaryDir folder;
    kdbench::printRatioHeading();
    Times times;
    for (const int cells : {1000, 10000, 100000}) times = measure(cells, times, folder);
    return 0;
}
