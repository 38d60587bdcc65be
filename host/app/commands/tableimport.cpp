// The TABLEIMPORT command.

#include "host/app/commands/tableimport.h"

#include <QFileInfo>
#include <memory>

#include "host/app/commands/valueprompts.h"
#include "host/db/currentspace.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/rx/dynamiclinker.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace kdhost {
namespace {

constexpr const wchar_t* kModule = L"TvxTable.tvx";
constexpr int kCommaSeparated = 1;

struct Release {
    void operator()(CVqTableIOHandle* handle) const { handle->Release(); }
};

constexpr Words kFile{L"\nFile to import: ", L"\n要导入的文件: "};
constexpr Words kPoint{L"\nInsertion point: ", L"\n插入点: "};
constexpr Words kNotCsv{L"is not a .csv file.", L"不是 .csv 文件。"};
constexpr Words kMissing{L"does not exist.", L"不存在。"};
constexpr Words kFolder{L"is a folder.", L"是文件夹。"};
constexpr Words kUnreadable{L"can't be read.", L"无法读取。"};
constexpr Words kNoModule{L"can't be read: the table module is not loaded.", L"无法读取: 未加载表格模块。"};
constexpr Words kNoReader{L"can't be read: the table module reads no such files.",
                          L"无法读取: 表格模块不支持此类文件。"};
constexpr Words kNotUtf8{L"is not UTF-8 text.", L"不是 UTF-8 文本。"};
constexpr Words kNoRow{L"holds no row to import.", L"没有可导入的行。"};
constexpr Words kNotWritten{L"can't be put into the drawing now.", L"现在无法放入图形。"};
constexpr Words kImported{L"\nImported %1: %2 rows, %3 columns.", L"\n已导入 %1: %2 行，%3 列。"};

/// Empty when the file may be read, else what is wrong with it.
std::wstring refusal(const QString& path) {
    const QFileInfo file(path);
    if (!path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive)) return kNotCsv.text();
    if (!file.exists()) return kMissing.text();
    if (file.isDir()) return kFolder.text();
    if (!file.isReadable()) return kUnreadable.text();
    return {};
}

struct Reading {
    std::unique_ptr<KdDbTable> table;
    std::wstring failure;  ///< empty on success
};

Reading readTable(const std::wstring& path) {
    const auto create = reinterpret_cast<decltype(&CreateTableIOHandle)>(findExport(kModule, "CreateTableIOHandle"));
    const auto import = reinterpret_cast<decltype(&ImportTableFromCSV)>(findExport(kModule, "ImportTableFromCSV"));
    if (create == nullptr || import == nullptr) return {nullptr, kNoModule.text()};
    const std::unique_ptr<CVqTableIOHandle, Release> handle(create(kCommaSeparated));
    if (!handle) return {nullptr, kNoReader.text()};

    struTableIoInfo info;
    info.handle = handle.get();
    info.file = path.c_str();
    import(&info);
    std::unique_ptr<KdDbTable> table(info.table);
    if (info.status != 0 || !table) {
        // The reader gives no text of its own where bytes are not UTF-8.
        return {nullptr, info.error.empty() ? std::wstring(kNotUtf8.text()) : info.error};
    }
    // A table without a row would lie in the drawing where nobody can see or pick it.
    if (table->numRows() == 0) return {nullptr, kNoRow.text()};
    return {std::move(table), {}};
}

void fail(const std::wstring& path, const std::wstring& what) {
    commandLine().fail(path + L": " + what);
}

}  // namespace

void importTable() {
    Editor& editor = *currentEditor();
    const std::optional<std::wstring> name = askForText(kFile, true);
    if (!name) return;
    const std::wstring& path = *name;
    if (const std::wstring what = refusal(QString::fromStdWString(path)); !what.empty()) return fail(path, what);
    Reading reading = readTable(path);
    if (!reading.table) return fail(path, reading.failure);

    KdGePoint3d point;
    if (kdedGetPoint(nullptr, kPoint.text(), point) != RTNORM) return;
    reading.table->setPosition(editor.toWorld(point));
    const int rows = reading.table->numRows();
    const int columns = reading.table->numColumns();
    if (!appendToCurrentSpace(editor.database(), std::move(reading.table))) {
        return fail(path, kNotWritten.text());
    }
    commandLine().write(kImported.with(path, rows, columns));
}

}  // namespace kdhost
