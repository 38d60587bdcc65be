// The dump of a drawing.

#include "host/app/dump/dump.h"

#include <QSaveFile>
#include <sstream>

#include "host/ad/documents.h"
#include "host/app/dump/tables.h"
#include "host/app/dump/toolbar.h"
#include "host/app/dump/values.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/undo.h"
#include "host/db/walk.h"
#include "host/ed/pickfirst.h"
#include "host/ed/variables.h"
#include "host/rx/encoding.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"

namespace kdhost {
namespace {

using dump::Json;

Json variables() {
    Json values = Json::object();
    for (const VariableRecord& variable : variableRecords()) {
        const std::optional<VariableValue> value = readVariable(variable);
        Json& json = values[toUtf8(variable.name)];
        if (!value) continue;
        if (const auto* text = std::get_if<std::wstring>(&*value)) {
            json = toUtf8(*text);
        } else if (const auto* number = std::get_if<double>(&*value)) {
            json = *number;
        } else {
            json = std::get<std::int32_t>(*value);
        }
    }
    return values;
}

/// Calls `visit` with each record of a symbol table that is of the class.
template <class Record, class Visit>
void forEachRecord(KdDbObjectId tableId, Visit visit) {
    for (const KdDbObjectId id : recordsOf(tableId)) {
        if (const auto* record = peek<Record>(id)) visit(*record);
    }
}

Json layers(const KdDbDatabase& database) {
    Json list = Json::array();
    forEachRecord<KdDbLayerTableRecord>(database.layerTableId(), [&](const KdDbLayerTableRecord& layer) {
        list.push_back({{"name", dump::recordName(layer.objectId())},
                        {"color", dump::color(layer.color())},
                        {"locked", layer.isLocked()}});
    });
    return list;
}

/// The spaces that every drawing has are no blocks of the user's.
Json blocks(const KdDbDatabase& database) {
    Json names = Json::array();
    forEachRecord<KdDbBlockTableRecord>(database.blockTableId(), [&](const KdDbBlockTableRecord& block) {
        if (!block.isLayout()) names.push_back(dump::recordName(block.objectId()));
    });
    return names;
}

Json entities(const std::vector<KdDbObjectId>& ids) {
    Json list = Json::array();
    for (KdDbObjectId id : ids) {
        const auto* entity = peek<KdDbEntity>(id);
        if (entity == nullptr) continue;
        list.push_back({{"handle", dump::handle(entity->handle())},
                        {"class", toUtf8(entity->isA()->name())},
                        {"layer", dump::recordName(entity->layerId())},
                        {"extents", dump::extents(entity->getGeomExtents())}});
    }
    return list;
}

void writeTables(std::ostream& out, const std::vector<KdDbObjectId>& ids) {
    const char* separator = "";
    for (KdDbObjectId id : ids) {
        const auto* table = peek<KdDbTable>(id);
        if (table == nullptr) continue;
        out << separator;
        dump::writeTable(out, *table);
        separator = ",\n";
    }
}

/// The oldest first.
Json undoSteps(KdDbDatabase& database) {
    Json names = Json::array();
    if (const auto history = undoHistory(database)) {
        for (const std::wstring& name : history->undoSteps()) names.push_back(toUtf8(name));
    }
    return names;
}

Json open() {
    Json handles = Json::array();
    for (const OpenObject& object : openObjects()) handles.push_back(dump::handle(object.handle));
    return handles;
}

}  // namespace

void writeDump(std::ostream& out, Document& document) {
    const KdDbDatabase& database = *document.database();
    const std::vector<KdDbObjectId> ids = entitiesOfCurrentSpace(database);
    const auto write = [&](const char* key, const Json& value) { out << '"' << key << "\":" << value.dump() << ",\n"; };
    out << '{';
    write("variables", variables());
    write("styles", dump::tableStyles(database));
    write("layers", layers(database));
    write("blocks", blocks(database));
    write("entities", entities(ids));
    out << "\"tables\":[";
    writeTables(out, ids);
    out << "],\n";
    write("toolbar", dump::toolbar());
    write("undoSteps", undoSteps(*document.database()));
    out << "\"open\":" << open().dump() << "}\n";
}

std::string writeDumpFile(const std::string& path, Document& document) {
    std::ostringstream text;
    writeDump(text, document);
    const std::string bytes = text.str();
    QSaveFile file(QString::fromStdString(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size || !file.commit()) {
        return path + ": " + file.errorString().toStdString();
    }
    return {};
}

}  // namespace kdhost
