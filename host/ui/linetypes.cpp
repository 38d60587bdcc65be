// Reading and loading line types.

#include "host/ui/linetypes.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/symbols.h"
#include "host/db/walk.h"
#include "host/ui/hosttexts.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"

namespace kdhost {
namespace {

LinetypeEntry entryOf(const KdDbLinetypeTableRecord& record, KdDbObjectId id) {
    LinetypeEntry entry;
    record.getName(entry.name);
    entry.comments = record.comments();
    entry.dashes = record.dashes();
    entry.id = id;
    return entry;
}

/// By layer comes first, by block next.
int rank(const LinetypeEntry& entry, const KdDbDatabase& database) {
    if (entry.id == database.byLayerLinetype()) return 0;
    return entry.id == database.byBlockLinetype() ? 1 : 2;
}

}  // namespace

std::vector<LinetypeEntry> linetypesOf(KdDbDatabase* database) {
    std::vector<LinetypeEntry> entries;
    if (database == nullptr) return entries;
    for (const KdDbObjectId id : recordsOf(database->linetypeTableId())) {
        if (const auto* record = peek<KdDbLinetypeTableRecord>(id)) entries.push_back(entryOf(*record, id));
    }
    std::stable_sort(entries.begin(), entries.end(), [&](const LinetypeEntry& a, const LinetypeEntry& b) {
        return rank(a, *database) < rank(b, *database);
    });
    return entries;
}

std::wstring shownName(const LinetypeEntry& entry, const KdDbDatabase& database) {
    switch (rank(entry, database)) {
        case 0:
            return hostText(HostText::ByLayer).toStdWString();
        case 1:
            return hostText(HostText::ByBlock).toStdWString();
        default:
            return entry.name;
    }
}

const std::vector<LinetypeEntry>& standardLinetypes() {
    static const std::vector<LinetypeEntry> patterns = {
        {L"BORDER", L"__ __ . __ __ .", {12.7, -6.35, 12.7, -6.35, 0.0, -6.35}, {}},
        {L"CENTER", L"____ _ ____ _", {31.75, -6.35, 6.35, -6.35}, {}},
        {L"DASHDOT", L"__ . __ . __", {12.7, -6.35, 0.0, -6.35}, {}},
        {L"DASHED", L"__ __ __ __", {12.7, -6.35}, {}},
        {L"DIVIDE", L"____ . . ____", {12.7, -6.35, 0.0, -6.35, 0.0, -6.35}, {}},
        {L"DOT", L". . . . . . .", {0.0, -6.35}, {}},
        {L"HIDDEN", L"_ _ _ _ _ _ _", {6.35, -3.175}, {}},
        {L"PHANTOM", L"____ _ _ ____", {31.75, -6.35, 6.35, -6.35, 6.35, -6.35}, {}},
    };
    return patterns;
}

KdDbObjectId loadLinetype(KdDbDatabase& database, const LinetypeEntry& pattern) {
    const KdDbObjectId present = recordNamed(database.linetypeTableId(), pattern.name);
    if (!present.isNull()) return present;
    auto record = std::make_unique<KdDbLinetypeTableRecord>();
    record->setName(pattern.name.c_str());
    record->setComments(pattern.comments.c_str());
    record->setDashes(pattern.dashes);
    const Opened<KdDbLinetypeTableRecord> added = addRecord(database.linetypeTableId(), std::move(record));
    return added ? added->objectId() : KdDbObjectId::kNull;
}

}  // namespace kdhost
