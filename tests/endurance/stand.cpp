// Reading of how the program stands.

#include "tests/endurance/stand.h"

#include <QDir>
#include <algorithm>
#include <cmath>
#include <cwchar>
#include <iterator>
#include <memory>

#include "host/ad/application.h"
#include "host/app/cells/cellactions.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/symbols.h"
#include "host/db/undo.h"
#include "host/db/walk.h"
#include "host/ed/picking.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/support/random.h"

namespace endurance {
namespace {

/// The names of a symbol table's records that `wanted` takes.
template <class Record, class Wanted>
std::vector<std::wstring> names(KdDbObjectId symbolTable, Wanted wanted) {
    std::vector<std::wstring> found;
    for (const KdDbObjectId id : kdhost::recordsOf(symbolTable)) {
        const auto* record = kdhost::peek<Record>(id);
        if (record != nullptr && wanted(*record)) found.push_back(kdhost::recordName(id));
    }
    return found;
}

}  // namespace

kdhost::Document& Stand::document() const {
    return *m_application.documents().current();
}

kdhost::Editor& Stand::editor() const {
    return document().editor();
}

int Stand::documents() const {
    return m_application.documents().documentCount();
}

std::vector<const KdDbTable*> Stand::tables() const {
    std::vector<const KdDbTable*> found;
    for (const KdDbObjectId id : kdhost::entitiesOfCurrentSpace(*document().database())) {
        if (const auto* table = kdhost::peek<KdDbTable>(id)) found.push_back(table);
    }
    return found;
}

int Stand::entities() const {
    return static_cast<int>(kdhost::entitiesOfCurrentSpace(*document().database()).size());
}

const KdDbTable* Stand::tableOfSelectedCells() const {
    return kdhost::peek<KdDbTable>(kdhost::tableOfSelectedCells(editor()));
}

const KdDbTable* Stand::currentTable() const {
    return kdhost::peek<KdDbTable>(editor().pickFirst().currentTable());
}

std::vector<std::wstring> Stand::layers() const {
    return names<KdDbLayerTableRecord>(document().database()->layerTableId(), [](const auto&) { return true; });
}

bool Stand::hasLockedLayer() const {
    const auto isLocked = [](const KdDbLayerTableRecord& layer) { return layer.isLocked(); };
    return !names<KdDbLayerTableRecord>(document().database()->layerTableId(), isLocked).empty();
}

std::vector<std::wstring> Stand::blocks() const {
    return names<KdDbBlockTableRecord>(document().database()->blockTableId(), [](const KdDbBlockTableRecord& block) {
        const std::wstring name = kdhost::recordName(block.objectId());
        return !block.isLayout() && !name.empty() && name.front() != L'*';
    });
}

std::vector<std::wstring> Stand::tableStyles() const {
    std::vector<std::wstring> found;
    const auto* styles = kdhost::peek<KdDbDictionary>(document().database()->tableStyleDictionaryId());
    const std::unique_ptr<KdDbDictionaryIterator> entry(styles->newIterator());
    for (; !entry->done(); entry->next()) found.push_back(entry->name());
    return found;
}

std::vector<std::wstring> Stand::cellStyles() const {
    KdArray<KdString> names;
    const std::vector<const KdDbTable*> all = tables();
    const auto* style = all.empty() ? nullptr : kdhost::peek<KdDbTableStyle>(all.front()->tableStyle());
    if (style != nullptr) style->getCellStyles(names);
    std::vector<std::wstring> found;
    for (int i = 0; i < names.length(); ++i) found.emplace_back(names[i].kwszPtr());
    return found;
}

bool Stand::canUndo() const {
    return !kdhost::undoHistory(*document().database())->undoSteps().empty();
}

bool Stand::canRedo() const {
    return !kdhost::undoHistory(*document().database())->redoSteps().empty();
}

bool Stand::isFileOfOther(const std::wstring& name) const {
    const kdhost::DocumentManager& documents = m_application.documents();
    for (int index = 0; index < documents.documentCount(); ++index) {
        const kdhost::Document* other = documents.at(index);
        if (other != &document() && other->hasFile() && other->title() == name) return true;
    }
    return false;
}

std::vector<std::wstring> Stand::files(const std::wstring& extension) const {
    std::vector<std::wstring> found;
    const QStringList pattern{QStringLiteral("*.") + QString::fromStdWString(extension)};
    for (const QString& name : QDir::current().entryList(pattern, QDir::Files, QDir::Name)) {
        found.push_back(name.toStdWString());
    }
    return found;
}

std::wstring columnName(int column) {
    std::wstring name;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        name.insert(name.begin(), static_cast<wchar_t>(L'A' + (rest - 1) % 26));
    }
    return name;
}

std::wstring someCell(Random& random, int rows, int columns) {
    const int row = random.below(rows);
    return columnName(random.below(columns)) + std::to_wstring(row + 1);
}

std::wstring someCells(Random& random, int rows, int columns) {
    const int kind = random.below(10);
    if (kind < 4) return someCell(random, rows, columns);
    const int top = random.below(rows);
    const int left = random.below(columns);
    // Few cells more often than many.
    const int bottom = std::min(rows - 1, top + random.below(kind < 8 ? 3 : rows));
    const int right = std::min(columns - 1, left + random.below(kind < 8 ? 3 : columns));
    if (kind == 8) return std::to_wstring(top + 1) + L":" + std::to_wstring(bottom + 1);
    if (kind == 9) return columnName(left) + L":" + columnName(right);
    return columnName(left) + std::to_wstring(top + 1) + L":" + columnName(right) + std::to_wstring(bottom + 1);
}

namespace {

KdGePoint3d pointIn(Random& random, const KdDbTable& table) {
    KdGePoint3dArray corners;
    const int row = random.below(table.numRows());
    table.getCellExtents(row, random.below(table.numColumns()), true, corners);
    return corners[0] + (corners[3] - corners[0]) * (random.between(2, 8) / 10.0);
}

}  // namespace

std::wstring placeText(const KdGePoint3d& place) {
    wchar_t text[80];
    std::swprintf(text, std::size(text), L"%.6f,%.6f", place.x, place.y);
    return text;
}

std::wstring placeIn(Random& random, const KdDbTable& table) {
    return placeText(pointIn(random, table));
}

namespace {

/// A script's line has six digits of it, which tell in a table that a window without width has made.
KdGePoint3d asWritten(const KdGePoint3d& place) {
    return {std::round(place.x * 1e6) / 1e6, std::round(place.y * 1e6) / 1e6, 0.0};
}

}  // namespace

std::optional<std::wstring> clearPlaceIn(Random& random, const Stand& stand, const KdDbTable& table) {
    for (int tries = 0; tries < 5; ++tries) {
        const KdGePoint3d place = asWritten(pointIn(random, table));
        const std::vector<KdDbObjectId> hit = kdhost::pickAt(stand.editor(), place);
        const auto cell = kdhost::cellAt(stand.editor(), place);
        if (cell && cell->table == table.objectId() && hit.front() == table.objectId()) return placeText(place);
    }
    return std::nullopt;
}

std::wstring somePlace(Random& random) {
    const int x = random.between(0, 40) * 25;
    return std::to_wstring(x) + L"," + std::to_wstring(random.between(0, 40) * 25);
}

}  // namespace endurance
