// The TABLEIMPORT command.

#include "host/app/commands/tableimport.h"

#include <QFileInfo>
#include <memory>

#include "host/app/commands/append.h"
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

/// Empty when the file may be read, else what is wrong with it.
std::wstring refusal(const QString& path) {
    const QFileInfo file(path);
    if (!path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive)) return L"is not a .csv file.";
    if (!file.exists()) return L"does not exist.";
    if (file.isDir()) return L"is a folder.";
    if (!file.isReadable()) return L"can't be read.";
    return {};
}

struct Reading {
    std::unique_ptr<KdDbTable> table;
    std::wstring failure;  ///< empty on success
};

Reading readTable(const std::wstring& path) {
    const auto create = reinterpret_cast<decltype(&CreateTableIOHandle)>(findExport(kModule, "CreateTableIOHandle"));
    const auto import = reinterpret_cast<decltype(&ImportTableFromCSV)>(findExport(kModule, "ImportTableFromCSV"));
    if (create == nullptr || import == nullptr) return {nullptr, L"can't be read: the table module is not loaded."};
    const std::unique_ptr<CVqTableIOHandle, Release> handle(create(kCommaSeparated));
    if (!handle) return {nullptr, L"can't be read: the table module reads no such files."};

    struTableIoInfo info;
    info.handle = handle.get();
    info.file = path.c_str();
    import(&info);
    std::unique_ptr<KdDbTable> table(info.table);
    if (info.status != 0 || !table) {
        // The reader gives no text of its own where bytes are not UTF-8.
        return {nullptr, info.error.empty() ? L"is not UTF-8 text." : info.error};
    }
    // A table without a row would lie in the drawing where nobody can see or pick it.
    if (table->numRows() == 0) return {nullptr, L"holds no row to import."};
    return {std::move(table), {}};
}

void fail(const std::wstring& path, const std::wstring& what) {
    commandLine().fail(path + L": " + what);
}

}  // namespace

void importTable() {
    Editor& editor = *currentEditor();
    wchar_t name[1024];
    if (kdedGetString(1, L"\nFile to import: ", name) != RTNORM) return;
    const std::wstring path = name;
    if (const std::wstring what = refusal(QString::fromStdWString(path)); !what.empty()) return fail(path, what);
    Reading reading = readTable(path);
    if (!reading.table) return fail(path, reading.failure);

    KdGePoint3d point;
    if (kdedGetPoint(nullptr, L"\nInsertion point: ", point) != RTNORM) return;
    reading.table->setPosition(editor.toWorld(point));
    const int rows = reading.table->numRows();
    const int columns = reading.table->numColumns();
    if (!appendToCurrentSpace(editor.database(), std::move(reading.table))) {
        return fail(path, L"can't be put into the drawing now.");
    }
    kdutPrintf(L"\nImported %ls: %d rows, %d columns.", path.c_str(), rows, columns);
}

}  // namespace kdhost
