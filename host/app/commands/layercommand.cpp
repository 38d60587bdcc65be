// The LAYER command.

#include "host/app/commands/layercommand.h"

#include "host/app/commands/keywordmenu.h"
#include "host/app/commands/valueprompts.h"
#include "host/db/symbols.h"
#include "host/ed/editor.h"
#include "kd/db/database.h"

namespace kdhost {
namespace {

constexpr KeywordPrompt kMenu{
    {L"\n[Make/Set/LOck/Unlock/Plot/Noplot]: ", L"\n[新建(M)/置为当前(S)/锁定(LO)/解锁(U)/打印(P)/不打印(N)]: "},
    {L"Make Set LOck Unlock Plot Noplot _Make Set LOck Unlock Plot Noplot",
     L"新建(M) 置为当前(S) 锁定(LO) 解锁(U) 打印(P) 不打印(N) _Make Set LOck Unlock Plot Noplot"}};
constexpr Words kName{L"\nName of the layer: ", L"\n图层名: "};
constexpr Words kNoSuchLayer{L"There is no layer \"%1\".", L"没有图层“%1”。"};
constexpr Words kNotChanged{L"The layer \"%1\" can't be changed now.", L"现在无法修改图层“%1”。"};
constexpr Words kNotMade{L"The layer \"%1\" can't be made.", L"无法新建图层“%1”。"};

KdDbObjectId findLayer(const KdDbDatabase& database, const std::wstring& name) {
    return recordNamed(database.layerTableId(), name);
}

KdDbObjectId makeLayer(const KdDbDatabase& database, const std::wstring& name) {
    auto record = std::make_unique<KdDbLayerTableRecord>();
    if (record->setName(name.c_str()) != Kdad::eOk) return {};
    const Opened<KdDbLayerTableRecord> layer = addRecord(database.layerTableId(), std::move(record));
    return layer ? layer->objectId() : KdDbObjectId::kNull;
}

/// A layer that is there already is made current all the same.
void make(KdDbDatabase& database, const std::wstring& name) {
    KdDbObjectId id = findLayer(database, name);
    if (id.isNull()) id = makeLayer(database, name);
    if (id.isNull()) return commandLine().fail(kNotMade.with(name));
    database.setClayer(id);
}

void setCurrent(KdDbDatabase& database, const std::wstring& name) {
    const KdDbObjectId id = findLayer(database, name);
    if (id.isNull()) return commandLine().fail(kNoSuchLayer.with(name));
    database.setClayer(id);
}

/// Sets one of a layer's switches.
template <void (KdDbLayerTableRecord::*set)(bool), bool on>
void turn(KdDbDatabase& database, const std::wstring& name) {
    const KdDbObjectId id = findLayer(database, name);
    if (id.isNull()) return commandLine().fail(kNoSuchLayer.with(name));
    const Opened<KdDbLayerTableRecord> layer(id, KdDb::kForWrite);
    if (!layer) return commandLine().fail(kNotChanged.with(name));
    ((*layer).*set)(on);
}

struct Action {
    const wchar_t* word;
    void (*run)(KdDbDatabase& database, const std::wstring& name);
};

constexpr Action kActions[] = {
    {L"Make", make},
    {L"Set", setCurrent},
    {L"LOck", turn<&KdDbLayerTableRecord::setIsLocked, true>},
    {L"Unlock", turn<&KdDbLayerTableRecord::setIsLocked, false>},
    {L"Plot", turn<&KdDbLayerTableRecord::setIsPlottable, true>},
    {L"Noplot", turn<&KdDbLayerTableRecord::setIsPlottable, false>},
};

}  // namespace

void editLayers() {
    KdDbDatabase& database = currentEditor()->database();
    while (const Action* action = askForAction(kMenu, kActions)) {
        const std::optional<std::wstring> name = askForText(kName, true);
        if (!name) return;
        action->run(database, *name);
    }
}

}  // namespace kdhost
