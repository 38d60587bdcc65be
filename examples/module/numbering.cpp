// A module of one command: NUMBERROWS writes 1, 2, 3 ... into the first column of a table, beside its rows of data.

#include <array>
#include <cstdint>
#include <string>

#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/rx/commandstack.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"
#include "win32/module.h"

namespace {

/// Numbers of the texts in NumberingRes.dll.
enum Text : unsigned { kLocalName = 1, kSelectTable, kNoTable, kNotNow, kDone };

constexpr const wchar_t* kGroup = L"NUMBERING_COMMANDS";

HINSTANCE resources = nullptr;

/// Empty when the resource module or the text is missing.
std::wstring text(Text number) {
    std::array<wchar_t, 256> buffer{};
    LoadStringW(resources, number, buffer.data(), static_cast<int>(buffer.size()));
    return buffer.data();
}

/// How many rows got a number.
int numberRows(KdDbTable& table) {
    int numbered = 0;
    for (int row = 0; row < table.numRows(); ++row) {
        if (table.rowType(row) != KdDb::kDataRow) continue;
        table.setTextString(row, 0, std::to_wstring(++numbered).c_str());
    }
    return numbered;
}

/// The command. What it changes is one step of undo.
void numberRowsCommand() {
    kded_name name = {};
    kded_point point = {};
    KdDbObjectId id;
    if (kdedEntSel(text(kSelectTable).c_str(), name, point) != RTNORM) return;
    if (kddbGetObjectId(id, name) != Kdad::eOk) return;

    // The class is asked for with the open: an object of another one stays closed.
    KdDbObject* object = nullptr;
    const Kdad::ErrorStatus status = kddbOpenObject(object, id, KdDb::kForWrite, false, KdDbTable::desc());
    if (status != Kdad::eOk) {
        kdedPrompt(text(status == Kdad::eNotThatKindOfClass ? kNoTable : kNotNow).c_str());
        return;
    }
    const int numbered = numberRows(*static_cast<KdDbTable*>(object));
    object->close();
    kdutPrintf(text(kDone).c_str(), numbered);
}

template <class T>
T* registryEntry(const wchar_t* name) {
    return KdRxObject::cast<T>(kdrxSysRegistry()->at(name));
}

void begin(void* applicationId) {
    resources = LoadResourceDll(L"NumberingRes.dll");
    auto* const linker = registryEntry<KdRxDynamicLinker>(L"DynamicLinker");
    linker->allowUnload(applicationId);
    linker->declareDocumentAware(applicationId);
    registryEntry<KdEdCommandStack>(L"KDAD_REGISTERED_COMMANDS")
        ->addCommand(kGroup, L"NUMBERROWS", text(kLocalName).c_str(), KdEdCommandFlag::kModal, numberRowsCommand,
                     nullptr, -1, resources, nullptr);
}

/// What was registered is withdrawn: the code is gone afterwards.
void end() {
    registryEntry<KdEdCommandStack>(L"KDAD_REGISTERED_COMMANDS")->removeGroup(kGroup);
    FreeLibrary(resources);
    resources = nullptr;
}

}  // namespace

#define MODULE_EXPORT extern "C" __attribute__((visibility("default")))

MODULE_EXPORT std::intptr_t kdrxEntryPoint(std::uint32_t message, void* argument) {
    if (message == KdRx::kInitAppMsg) begin(argument);
    if (message == KdRx::kUnloadAppMsg) end();
    return 0;
}

/// The year in the upper 16 bits, the revision in the lower.
MODULE_EXPORT std::uint32_t kdrxGetApiVersion() {
    return 2021u << 16;
}
