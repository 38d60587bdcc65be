// What every drawing has from the start: the symbol tables with their records, the two spaces, the
// dictionaries, the table style "Standard".

#include <utility>

#include "host/db/databasecontents.h"
#include "host/db/dictionarystate.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "kd/db/dictionary.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"

namespace kdhost {
namespace {

struct Pattern {
    const wchar_t* name;
    const wchar_t* comments;
    std::vector<double> dashes;  ///< millimetres
};

const std::vector<Pattern>& patterns() {
    static const std::vector<Pattern> all = {
        {L"ByBlock", L"", {}},
        {L"ByLayer", L"", {}},
        {L"Continuous", L"Solid line", {}},
        {L"DASHED", L"Dashed __ __ __ __", {12.7, -6.35}},
        {L"HIDDEN", L"Hidden _ _ _ _ _ _", {6.35, -3.175}},
        {L"CENTER", L"Center ____ _ ____ _", {31.75, -6.35, 6.35, -6.35}},
        {L"DOT", L"Dot . . . . . .", {0.0, -6.35}},
        {L"DASHDOT", L"Dash dot __ . __ .", {12.7, -6.35, 0.0, -6.35}},
    };
    return all;
}

/// Builds one database; nothing is open meanwhile, and nobody listens yet.
class Builder {
public:
    explicit Builder(KdDbDatabase& database)
        : m_database(database), m_contents(KdDbDatabaseAccess::contents(database)) {}

    void build() {
        buildLinetypes();
        buildLayers();
        buildTextStyles();
        buildBlocks();
        buildDictionaries();
    }

private:
    template <class T>
    KdDbObjectId make(KdDbObjectId owner = KdDbObjectId::kNull) {
        return require(KdDbDatabaseAccess::insert(m_database, std::make_unique<T>(), owner));
    }

    KdDbObjectId require(KdDbObjectId id) {
        m_contents.required.insert(id);
        return id;
    }

    template <class State>
    static State& state(KdDbObjectId id) {
        return static_cast<State&>(KdDbObjectAccess::stateForMaker(*findObject(id)));
    }

    KdDbObjectId record(KdDbObjectId table, std::unique_ptr<KdDbSymbolTableRecord> made, const wchar_t* name) {
        made->setName(name);
        const KdDbObjectId id = KdDbDatabaseAccess::insert(m_database, std::move(made), table);
        state<KdDbSymbolTableState>(table).records.push_back(id);
        return id;
    }

    KdDbObjectId entry(KdDbObjectId dictionary, std::unique_ptr<KdDbObject> made, const wchar_t* name) {
        const KdDbObjectId id = KdDbDatabaseAccess::insert(m_database, std::move(made), dictionary);
        state<KdDbDictionaryState>(dictionary).put(name, id);
        return id;
    }

    void buildLinetypes() {
        DatabaseRoots& roots = m_contents.roots;
        roots.linetypeTable = make<KdDbLinetypeTable>();
        for (const Pattern& pattern : patterns()) {
            auto linetype = std::make_unique<KdDbLinetypeTableRecord>();
            linetype->setComments(pattern.comments);
            linetype->setDashes(pattern.dashes);
            record(roots.linetypeTable, std::move(linetype), pattern.name);
        }
        const std::vector<KdDbObjectId>& made = state<KdDbSymbolTableState>(roots.linetypeTable).records;
        roots.byBlock = require(made[0]);
        roots.byLayer = require(made[1]);
        roots.continuous = require(made[2]);
        m_contents.current.linetype = roots.byLayer;
    }

    void buildLayers() {
        DatabaseRoots& roots = m_contents.roots;
        roots.layerTable = make<KdDbLayerTable>();
        auto layer = std::make_unique<KdDbLayerTableRecord>();
        layer->setLinetypeObjectId(roots.continuous);
        roots.layerZero = require(record(roots.layerTable, std::move(layer), L"0"));
        m_contents.current.layer = roots.layerZero;
    }

    void buildTextStyles() {
        const KdDbObjectId table = m_contents.roots.textStyleTable = make<KdDbTextStyleTable>();
        m_contents.current.textStyle =
            require(record(table, std::make_unique<KdDbTextStyleTableRecord>(), L"Standard"));
    }

    void buildBlocks() {
        DatabaseRoots& roots = m_contents.roots;
        roots.blockTable = make<KdDbBlockTable>();
        const auto space = [&](const wchar_t* name) {
            return require(record(roots.blockTable, std::make_unique<KdDbBlockTableRecord>(), name));
        };
        roots.modelSpace = space(KDDB_MODEL_SPACE);
        roots.paperSpace = space(KDDB_PAPER_SPACE);
    }

    void buildDictionaries() {
        DatabaseRoots& roots = m_contents.roots;
        roots.namedObjects = make<KdDbDictionary>();
        require(entry(roots.namedObjects, std::make_unique<KdDbDictionary>(), L"ACAD_GROUP"));
        roots.tableStyles = require(entry(roots.namedObjects, std::make_unique<KdDbDictionary>(), L"ACAD_TABLESTYLE"));
        auto standard = std::make_unique<KdDbTableStyle>();
        for (const wchar_t* cellStyle : {L"_TITLE", L"_HEADER", L"_DATA"}) {
            standard->setTextStyle(m_contents.current.textStyle, cellStyle);
        }
        m_contents.current.tableStyle = require(entry(roots.tableStyles, std::move(standard), L"Standard"));
    }

    KdDbDatabase& m_database;
    DatabaseContents& m_contents;
};

}  // namespace

void buildDefaults(KdDbDatabase& database) {
    Builder(database).build();
}

}  // namespace kdhost
