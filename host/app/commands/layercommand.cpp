// The LAYER command.

#include "host/app/commands/layercommand.h"

#include <cwchar>

#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/opened.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

KdDbObjectId findLayer(KdDbDatabase& database, const std::wstring& name) {
    KdDbObjectId id;
    if (const Opened<KdDbLayerTable> layers(database.layerTableId()); layers) layers->getAt(name.c_str(), id);
    return id;
}

KdDbObjectId makeLayer(KdDbDatabase& database, const std::wstring& name) {
    const Opened<KdDbLayerTable> layers(database.layerTableId(), KdDb::kForWrite);
    auto record = std::make_unique<KdDbLayerTableRecord>();
    KdDbObjectId id;
    if (!layers || record->setName(name.c_str()) != Kdad::eOk || layers->add(id, record.get()) != Kdad::eOk) return id;
    record.release()->close();
    return id;
}

void noSuchLayer(const std::wstring& name) {
    commandLine().fail(L"There is no layer \"" + name + L"\".");
}

/// A layer that is there already is made current all the same.
void make(KdDbDatabase& database, const std::wstring& name) {
    KdDbObjectId id = findLayer(database, name);
    if (id.isNull()) id = makeLayer(database, name);
    if (id.isNull()) {
        commandLine().fail(L"The layer \"" + name + L"\" can't be made.");
    } else {
        database.setClayer(id);
    }
}

void setCurrent(KdDbDatabase& database, const std::wstring& name) {
    const KdDbObjectId id = findLayer(database, name);
    if (id.isNull()) {
        noSuchLayer(name);
    } else {
        database.setClayer(id);
    }
}

void setLocked(KdDbDatabase& database, const std::wstring& name, bool locked) {
    const Opened<KdDbLayerTableRecord> layer(findLayer(database, name), KdDb::kForWrite);
    if (layer) {
        layer->setIsLocked(locked);
    } else {
        noSuchLayer(name);
    }
}

struct Action {
    const wchar_t* word;
    void (*run)(KdDbDatabase& database, const std::wstring& name);
};

constexpr Action kActions[] = {
    {L"Make", make},
    {L"Set", setCurrent},
    {L"LOck", [](KdDbDatabase& database, const std::wstring& name) { setLocked(database, name, true); }},
    {L"Unlock", [](KdDbDatabase& database, const std::wstring& name) { setLocked(database, name, false); }},
};

}  // namespace

void editLayers() {
    KdDbDatabase& database = currentEditor()->database();
    wchar_t word[132];
    wchar_t name[1024];
    for (;;) {
        kdedInitGet(0, L"Make Set LOck Unlock");
        if (kdedGetKword(L"\n[Make/Set/LOck/Unlock]: ", word) != RTNORM) return;
        const Action* chosen = nullptr;
        for (const Action& action : kActions) {
            if (wcscasecmp(action.word, word) == 0) chosen = &action;
        }
        if (chosen == nullptr) {
            commandLine().fail(std::wstring(L"\"") + word + L"\" is none of Make, Set, LOck, Unlock.");
            return;
        }
        if (kdedGetString(1, L"\nName of the layer: ", name) != RTNORM) return;
        chosen->run(database, name);
    }
}

}  // namespace kdhost
