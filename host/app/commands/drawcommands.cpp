// LINE, ERASE and LIST.

#include "host/app/commands/drawcommands.h"

#include <cstdarg>
#include <vector>

#include "host/app/commands/append.h"
#include "host/db/access.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/opened.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "mfc/stdstr.h"

namespace kdhost {
namespace {

/// What is selected, or else what the user picks; nothing when that is cancelled.
std::vector<KdDbObjectId> chosenObjects() {
    kded_name set;
    std::vector<KdDbObjectId> ids;
    if (kdedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM &&
        kdedSSGet(nullptr, nullptr, nullptr, nullptr, set) != RTNORM) {
        return ids;
    }
    int length = 0;
    kdedSSLength(set, &length);
    for (int i = 0; i < length; ++i) {
        kded_name name;
        KdDbObjectId id;
        if (kdedSSName(set, i, name) == RTNORM && kddbGetObjectId(id, name) == Kdad::eOk) ids.push_back(id);
    }
    kdedSSFree(set);
    return ids;
}

bool isOnLockedLayer(KdDbObjectId id) {
    const auto* entity = peek<KdDbEntity>(id);
    const auto* layer = entity == nullptr ? nullptr : peek<KdDbLayerTableRecord>(entity->layerId());
    return layer != nullptr && layer->isLocked();
}

bool erase(KdDbObjectId id) {
    if (isOnLockedLayer(id)) return false;
    const Opened<KdDbEntity> entity(id, KdDb::kForWrite);
    return entity && entity->erase() == Kdad::eOk;
}

std::wstring layerName(const KdDbEntity& entity) {
    std::wstring name;
    if (const auto* layer = peek<KdDbLayerTableRecord>(entity.layerId())) layer->getName(name);
    return name;
}

CStdStr<wchar_t> formatted(const wchar_t* pattern, ...) {
    va_list arguments;
    va_start(arguments, pattern);
    CStdStr<wchar_t> text(kdFormatV(pattern, arguments));
    va_end(arguments);
    return text;
}

void list(const KdDbEntity& entity) {
    std::wstring text = formatted(L"%ls, handle %llX, layer %ls", entity.isA()->name(),
                                  static_cast<unsigned long long>(entity.handle()), layerName(entity).c_str());
    if (entity.isKindOf(KdDbTable::desc())) {
        const auto& table = static_cast<const KdDbTable&>(entity);
        text += formatted(L", %d rows, %d columns", table.numRows(), table.numColumns());
    }
    if (const KdDbExtents box = entity.getGeomExtents(); box.isValid()) {
        text +=
            formatted(L", from %g,%g to %g,%g", box.minPoint().x, box.minPoint().y, box.maxPoint().x, box.maxPoint().y);
    }
    kdedPrompt((L"\n" + text).c_str());
}

}  // namespace

void drawLines() {
    Editor& editor = *currentEditor();
    KdGePoint3d from;
    if (kdedGetPoint(nullptr, L"\nFirst point: ", from) != RTNORM) return;
    KdGePoint3d to;
    while (kdedGetPoint(&from, L"\nNext point: ", to) == RTNORM) {
        auto line = std::make_unique<KdDbLine>(editor.toWorld(from), editor.toWorld(to));
        line->setDatabaseDefaults(&editor.database());
        if (!appendToCurrentSpace(editor.database(), std::move(line))) {
            commandLine().fail(L"The drawing can't be written now.");
            return;
        }
        from = to;
    }
}

void eraseObjects() {
    const std::vector<KdDbObjectId> ids = chosenObjects();
    if (ids.empty()) return;
    int erased = 0;
    for (KdDbObjectId id : ids) erased += erase(id) ? 1 : 0;
    const int kept = static_cast<int>(ids.size()) - erased;
    kdutPrintf(L"\n%d erased.", erased);
    if (kept > 0) kdutPrintf(L"\n%d on locked layers or in use kept.", kept);
    currentEditor()->pickFirst().clear();
}

void listObjects() {
    for (KdDbObjectId id : chosenObjects()) {
        if (const Opened<KdDbEntity> entity(id); entity) list(*entity);
    }
}

}  // namespace kdhost
