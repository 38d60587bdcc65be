// The pick-first selection.

#include "host/ed/pickfirst.h"

#include <algorithm>
#include <utility>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/editor.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "kd/ed/selection.h"

namespace kdhost {
namespace {

bool contains(const std::vector<KdDbObjectId>& ids, KdDbObjectId id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

/// A table's selection is transient and changes under any open. The host selects while a module may hold the
/// table open, so it goes without an open of its own.
KdDbTable* tableForSelecting(KdDbObjectId id) {
    return const_cast<KdDbTable*>(peek<KdDbTable>(id));
}

}  // namespace

std::vector<KdDbObjectId> PickFirst::tablesWithSelectedCells() const {
    std::vector<KdDbObjectId> ids = entitiesOfCurrentSpace(m_database);
    std::erase_if(ids, [](KdDbObjectId id) {
        const auto* table = peek<KdDbTable>(id);
        return table == nullptr || !table->hasSubSelection();
    });
    return ids;
}

std::vector<KdDbObjectId> PickFirst::objects() const {
    std::vector<KdDbObjectId> ids = m_picked;
    std::erase_if(ids, [](KdDbObjectId id) { return peekObject(id) == nullptr; });
    for (KdDbObjectId id : tablesWithSelectedCells()) {
        if (!contains(ids, id)) ids.push_back(id);
    }
    return ids;
}

void PickFirst::set(std::vector<KdDbObjectId> ids) {
    m_picked = std::move(ids);
    for (KdDbObjectId id : tablesWithSelectedCells()) {
        if (!contains(m_picked, id)) tableForSelecting(id)->clearSubSelection();
    }
    for (KdDbObjectId id : m_picked) {
        if (peek<KdDbTable>(id) != nullptr) setCurrentTable(id);
    }
}

void PickFirst::add(KdDbObjectId id) {
    std::vector<KdDbObjectId> ids = objects();
    if (!contains(ids, id)) ids.push_back(id);
    set(std::move(ids));
}

void PickFirst::selectCells(KdDbObjectId id, const KdCellRange& cells) {
    KdDbTable* table = tableForSelecting(id);
    if (table == nullptr) return;
    set({id});
    table->setSubSelection(cells);
}

KdDbObjectId PickFirst::currentTable() const {
    const auto found = std::find_if(m_latestTables.rbegin(), m_latestTables.rend(),
                                    [](KdDbObjectId id) { return peek<KdDbTable>(id) != nullptr; });
    return found == m_latestTables.rend() ? KdDbObjectId() : *found;
}

void PickFirst::setCurrentTable(KdDbObjectId table) {
    constexpr std::size_t kept = 16;
    std::erase(m_latestTables, table);
    if (m_latestTables.size() == kept) m_latestTables.erase(m_latestTables.begin());
    m_latestTables.push_back(table);
}

namespace {

constexpr int kDropSelection = 9;

class PickfirstProc : public KdadPickfirstProc {
public:
    bool doAction(int action) override {
        Editor* editor = currentEditor();
        if (action != kDropSelection || editor == nullptr) return false;
        editor->pickFirst().clear();
        return true;
    }
};

}  // namespace
}  // namespace kdhost

KdadPickfirstProc::~KdadPickfirstProc() = default;

KdadPickfirstProc* kdadGetPickfirstProc() {
    static kdhost::PickfirstProc proc;
    return kdhost::currentEditor() == nullptr ? nullptr : &proc;
}
