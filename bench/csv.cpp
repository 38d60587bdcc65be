// Figures of reading and writing comma-separated text, each beside a peer of the same run, and the ratios
// against their goals. Best times count, since other work on the machine only ever adds.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <time.h>

#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextCodec>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <map>
#include <memory>
#include <random>

#include "bench/peerratio.h"
#include "host/win32/modules.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/exchange/csvlines.h"
#include "module/exchange/tableexport.h"
#include "tests/support/application.h"
#include "tests/support/places.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace {

constexpr int repetitions = 7;
constexpr int columns = 8;

/// The clock of every figure, own and peer's: time of the processor, which other work on the machine disturbs
/// least. What a run made is freed outside of its time.
class Stopwatch {
public:
    double seconds() const { return now() - m_start; }

private:
    static double now() {
        timespec time{};
        ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }
    double m_start = now();
};

/// The same of the programs run so far.
double secondsOfPrograms() {
    rusage usage{};
    ::getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Rows as people keep them: numbers, words, some quoted, some empty, some beyond ASCII.
QByteArray sampleText(int rows) {
    static const std::vector<QByteArray> words = {"alpha", "bolt M8", "plate",         "washer",
                                                  "x",     "seal",    "Tr\xC3\xA4ger", "\xE7\xAE\xA1\xE9\x81\x93"};
    std::mt19937 random(1);
    const auto word = [&] { return words[random() % words.size()]; };
    QByteArray text;
    for (int row = 0; row < rows; ++row) {
        text += QByteArray::number(row) + ',' + word() + ',';
        text += QByteArray::number(static_cast<double>(random() % 1000000) / 1000.0, 'f', 3) + ",\"" + word() + ", ";
        text += QByteArray::number(row) + "\"," + word() + ',' + QByteArray::number(qulonglong(random() % 100000));
        text += ",,\"say \"\"" + word() + "\"\"\"\n";
    }
    return text;
}

/// The files of the run, made when they are first asked for.
class Files {
public:
    QString csv(int rows) {
        QString path = m_folder.filePath(QStringLiteral("%1.csv").arg(rows));
        if (!QFile::exists(path)) write(path, sampleText(rows));
        return path;
    }
    QString longLine() {
        QString path = m_folder.filePath(QStringLiteral("line.csv"));
        QByteArray text;
        while (text.size() < (1 << 20)) text += "field,\"a,b\",";
        if (!QFile::exists(path)) write(path, text + "last\n");
        return path;
    }
    QString output() const { return m_folder.filePath(QStringLiteral("out.csv")); }

private:
    static void write(const QString& path, const QByteArray& text) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) qFatal("no room for the files");
    }

    QTemporaryDir m_folder;
};

Files& files() {
    static Files theFiles;
    return theFiles;
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("a file of the run is gone");
    return file.readAll();
}

// ---- reading

void readRows(benchmark::State& state, const QString& path) {
    for (auto _ : state) {
        csv::Rows rows;
        const Stopwatch watch;
        const bool read = rows.read(contentOf(path));
        state.SetIterationTime(watch.seconds());
        if (!read) state.SkipWithError("refused");
    }
}

void readTable(benchmark::State& state, const QString& path) {
    const kdtest::HostApplication host;
    const std::wstring file = path.toStdWString();
    for (auto _ : state) {
        struTableIoInfo info;
        info.handle = CreateTableIOHandle(1);
        info.file = file.c_str();
        const Stopwatch watch;
        ImportTableFromCSV(&info);
        state.SetIterationTime(watch.seconds());
        if (info.status != 0) state.SkipWithError("refused");
        delete info.table;
        info.handle->Release();
    }
}

/// The rule of the format put as a pattern, built and decoded anew for each line.
void readByPattern(benchmark::State& state, const QString& path) {
    for (auto _ : state) {
        QVector<QStringList> rows;
        const Stopwatch watch;
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return state.SkipWithError("no file");
        while (!file.atEnd()) {
            const QByteArray line = file.readLine();
            QTextCodec::ConverterState converter;
            const QString text =
                QTextCodec::codecForName("UTF-8")->toUnicode(line.constData(), line.size(), &converter);
            const QRegularExpression separator(QStringLiteral(",(?=([^\"]*\"[^\"]*\")*[^\"]*$)"));
            QStringList fields = text.split(separator, Qt::KeepEmptyParts);
            for (QString& field : fields) {
                if (field.size() < 2 || !field.startsWith(QLatin1Char('"')) || !field.endsWith(QLatin1Char('"')))
                    continue;
                field = field.mid(1, field.size() - 2).replace(QLatin1String("\"\""), QLatin1String("\""));
            }
            rows.append(fields);
        }
        state.SetIterationTime(watch.seconds());
    }
}

void readBySqlite(benchmark::State& state, const QString& path) {
    for (auto _ : state) {
        const double before = secondsOfPrograms();
        QProcess sqlite;
        sqlite.start(QStringLiteral("sqlite3"),
                     {QStringLiteral("-cmd"), QStringLiteral(".mode csv"), QStringLiteral(":memory:"),
                      QStringLiteral(".import '%1' cells").arg(path)});
        sqlite.waitForFinished(-1);
        state.SetIterationTime(secondsOfPrograms() - before);
        if (sqlite.exitCode() != 0) state.SkipWithError("sqlite3 failed");
    }
}

/// A peer that times itself and prints its seconds; each repetition is one line.
void timedByPython(benchmark::State& state, const QStringList& arguments) {
    for (auto _ : state) {
        QProcess python;
        python.start(QStringLiteral("python3"),
                     QStringList(kdtest::sourcePath("bench/peers.py")) + arguments + QStringList(QStringLiteral("1")));
        python.waitForFinished(-1);
        const double seconds = python.readAllStandardOutput().trimmed().toDouble();
        if (python.exitCode() != 0 || seconds <= 0) state.SkipWithError("python3 failed");
        state.SetIterationTime(seconds);
    }
}

// ---- writing

/// A running host with one table of the sample's cells, selected.
class ExportRun {
public:
    explicit ExportRun(int rows) {
        csv::Rows sample;
        if (!sample.read(contentOf(files().csv(rows)))) qFatal("the sample is refused");
        auto* const table = new KdDbTable;
        table->setDatabaseDefaults(&m_host.database());
        table->setTableStyle(m_host.database().tablestyle());
        table->setSize(rows, columns);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                const std::wstring text = sample.lines()[row][column].trimmed().toStdWString();
                table->setTextString(row, column, text.c_str());
            }
        }
        KdDbObjectId id;
        {
            const OpenObject<KdDbBlockTableRecord> space(m_host.database().modelSpaceId(), KdDb::kForWrite);
            space->appendKdDbEntity(id, table);
            table->close();
        }
        m_host.editor().pickFirst().set({id});
    }

    double run() {
        m_host.answerFileDialog(files().output().toStdWString());
        const ResourceScope resources;
        const Stopwatch watch;
        tableExportEntry();
        return watch.seconds();
    }

private:
    kdtest::HostApplication m_host;
};

void exportTable(benchmark::State& state, int rows) {
    ExportRun run(rows);
    QFile::remove(files().output());
    for (auto _ : state) state.SetIterationTime(run.run());
    const auto lines = contentOf(files().output()).count('\n');
    if (lines != rows) state.SkipWithError("rows are missing");
}

/// The same bytes, one call of the C library for each.
void writeByFwrite(benchmark::State& state, int rows) {
    ExportRun(rows).run();
    const QByteArray bytes = contentOf(files().output());
    const std::string path = files().output().toStdString();
    for (auto _ : state) {
        const Stopwatch watch;
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        for (const char& byte : bytes) std::fwrite(&byte, 1, 1, file);
        std::fclose(file);
        state.SetIterationTime(watch.seconds());
    }
}

// ---- the figures and their goals

/// Keeps the best time of each benchmark while the console shows them all.
class BestTimes : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            const double seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
            const auto [entry, first] = m_best.emplace(run.run_name.function_name, seconds);
            if (!first) entry->second = std::min(entry->second, seconds);
        }
        ConsoleReporter::ReportRuns(runs);
    }

    /// 0 for a benchmark that didn't run.
    double of(const std::string& name) const {
        const auto entry = m_best.find(name);
        return entry != m_best.end() ? entry->second : 0.0;
    }

private:
    std::map<std::string, double> m_best;
};

/// An operation on so many rows, and what it is held against: a peer on as many, or itself on fewer. Without a peer the
/// ratio is that to a millisecond.
struct Work {
    const char* operation;
    const char* own;
    int rows;
    const char* peer;
    double goal;
    double stretch;
};

constexpr Work works[] = {
    {"import to rows", "import/100000", 100000, "python_read/100000", 0.50, 0.25},
    {"import to rows", "import/10000", 10000, "pattern/10000", 0.06, 0.03},
    {"import to rows", "import/100000", 100000, "sqlite/100000", 0.75, 0.35},
    {"import to rows", "import/1000000", 1000000, "import/100000", 14, 11},
    {"import of a line of 1 MB", "line", 0, "", 20, 8},
    {"import to a table", "import_table/100000", 100000, "import_table/10000", 11, 10},
    {"export", "export/100000", 100000, "fwrite/100000", 0.50, 0.30},
    {"export", "export/100000", 100000, "python_write/100000", 0.60, 0.40},
    {"export", "export/100000", 100000, "export/10000", 11, 10},
};

void printRatios(const BestTimes& times) {
    kdbench::printRatioHeading();
    for (const Work& work : works) {
        const bool hasPeer = *work.peer != '\0';
        const double own = times.of(work.own);
        const double peer = hasPeer ? times.of(work.peer) : 0.001;
        if (own <= 0.0 || peer <= 0.0) continue;
        kdbench::printRatio({work.operation,
                             static_cast<double>(work.rows) * columns,
                             own,
                             own / peer,
                             {hasPeer ? work.peer : "1 ms", work.goal, work.stretch}});
    }
}

template <class Function>
void add(const std::string& name, Function function) {
    benchmark::RegisterBenchmark(name.c_str(), function)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(repetitions);
}

void addAll() {
    for (const int rows : {10000, 100000}) {
        const std::string size = "/" + std::to_string(rows);
        const QString path = files().csv(rows);
        add("import" + size, [path](benchmark::State& state) { readRows(state, path); });
        add("import_table" + size, [path](benchmark::State& state) { readTable(state, path); });
        add("python_read" + size, [path](benchmark::State& state) {
            timedByPython(state, {QStringLiteral("read"), path});
        });
        add("sqlite" + size, [path](benchmark::State& state) { readBySqlite(state, path); });
        add("export" + size, [rows](benchmark::State& state) { exportTable(state, rows); });
        add("fwrite" + size, [rows](benchmark::State& state) { writeByFwrite(state, rows); });
        add("python_write" + size, [path](benchmark::State& state) {
            timedByPython(state, {QStringLiteral("write"), path, files().output()});
        });
    }
    add("pattern/10000", [](benchmark::State& state) { readByPattern(state, files().csv(10000)); });
    add("import/1000000", [](benchmark::State& state) { readRows(state, files().csv(1000000)); });
    add("line", [](benchmark::State& state) { readRows(state, files().longLine()); });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::setlocale(LC_ALL, "C");
    std::setlocale(LC_CTYPE, "C.UTF-8");
    kdhost::setPluginFolder(kdtest::builtFile("plugins"));
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    benchmark::Initialize(&argc, argv);
    addAll();
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    printRatios(times);
    FreeLibrary(hLibModule);
    return 0;
}
