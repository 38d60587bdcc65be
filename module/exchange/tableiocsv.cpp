// The reader of comma-separated text, and what every reader shares.

#include "module/exchange/tableiocsv.h"

#include <QFile>
#include <optional>

#include "kd/db/database.h"
#include "kd/db/table.h"
#include "module/core/resources.h"
#include "module/core/tablestyles.h"
#include "module/exchange/csvlines.h"
#include "module/exchange/readingprogress.h"

namespace {

constexpr double columnWidth = 45.0;
constexpr double rowHeight = 15.0;
constexpr double textHeight = 6.0;

/// The whole file; nothing when it can't be opened or read.
std::optional<QByteArray> readFile(const wchar_t* path) {
    if (path == nullptr) return std::nullopt;
    QFile file(QString::fromWCharArray(path));
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    QByteArray bytes = file.atEnd() ? QByteArray() : file.readAll();
    if (file.error() != QFileDevice::NoError) return std::nullopt;
    return bytes;
}

/// Only the fields that are there are written: what a short row lacks keeps the text height of its style.
void fill(KdDbTable& table, int rows, const QVector<QStringList>& data) {
    std::wstring text;
    for (int row = 0; row < rows; ++row) {
        ReadingWatch::tell(row, rows);
        int column = 0;
        for (const QString& field : data[row]) {
            text.resize(static_cast<std::size_t>(field.size()));
            text.resize(static_cast<std::size_t>(field.toWCharArray(text.data())));
            table.setTextString(row, column, text.c_str());
            table.setTextHeight(row, column, textHeight);
            ++column;
        }
    }
    ReadingWatch::tell(rows, rows);
}

}  // namespace

int CVqTableIOHandle::GetSubNameList(const wchar_t* /*file*/, std::vector<CStdStr<wchar_t>>& /*names*/) {
    return 0;
}

std::int64_t CVqTableIOHandle::AddRef() {
    return ++m_referenceCount;
}

std::int64_t CVqTableIOHandle::Release() {
    const std::int64_t left = --m_referenceCount;
    if (left == 0) delete this;
    return left;
}

CVqTableIOCSV::CVqTableIOCSV() {
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    m_database = services != nullptr ? services->workingDatabase() : nullptr;
}

CVqTableIOCSV::~CVqTableIOCSV() = default;

int CVqTableIOCSV::OutHandle(const KdDbTable* /*table*/, const wchar_t* /*file*/, const wchar_t* /*sheet*/,
                             const wchar_t* /*range*/) {
    return 1;
}

int CVqTableIOCSV::GetSubNameList(const wchar_t* /*file*/, std::vector<CStdStr<wchar_t>>& /*names*/) {
    return 1;
}

int CVqTableIOCSV::InHandle(CStdStr<wchar_t>& error, const wchar_t* file, KdDbTable*& table, const wchar_t* sheet,
                            const wchar_t* /*range*/) {
    // A caller that names no sheet gets the first one, which is all that such a file has.
    CStdStr<wchar_t> sheetName = sheet;
    if (sheet == nullptr) sheetName.Format(loadText(6057), L"sheet1");

    const std::optional<QByteArray> bytes = readFile(file);
    csv::Rows rows;
    if (!bytes || !rows.read(*bytes)) {
        table = nullptr;
        return 1;
    }
    if (CreateATable(rows.rowCount(), rows.columnCount(), table, rows.lines()) == 0) return 0;
    error = loadText(6054) + loadText(6060);
    return 1;
}

int CVqTableIOCSV::CreateATable(int rows, int columns, KdDbTable*& table, const QVector<QStringList>& data) const {
    // The caller's from the end on only: an exception on the way takes it along.
    auto made = std::make_unique<KdDbTable>();
    made->setDatabaseDefaults(m_database);
    const std::optional<KdDbObjectId> style = tableStyleNamed(m_database, L"Standard");
    if (!style) {
        table = nullptr;
        return 1;
    }
    made->setTableStyle(*style);
    made->setSize(rows, columns);
    made->generateLayout();
    made->setColumnWidth(columnWidth);
    made->setRowHeight(rowHeight);
    made->setPosition(KdGePoint3d());
    made->recomputeTableBlock(true);
    fill(*made, rows, data);
    table = made.release();
    return 0;
}
