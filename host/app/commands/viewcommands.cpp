// ZOOM and REGEN.

#include "host/app/commands/viewcommands.h"

#include <charconv>
#include <cwchar>

#include "host/db/access.h"
#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/rx/encoding.h"
#include "kd/db/entity.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

KdDbExtents extentsOfDrawing(const Editor& editor) {
    KdDbExtents box;
    for (KdDbObjectId id : entitiesOfCurrentSpace(editor.database())) {
        if (const auto* entity = peek<KdDbEntity>(id)) box.addExt(entity->getGeomExtents());
    }
    return box;
}

void zoomWindow(Editor& editor) {
    KdGePoint3d first;
    KdGePoint3d second;
    if (kdedGetPoint(nullptr, L"\nFirst corner: ", first) != RTNORM) return;
    if (kdedGetPoint(&first, L"\nOther corner: ", second) != RTNORM) return;
    editor.view().zoomTo({editor.toWorld(first), editor.toWorld(second)});
}

/// False for a text that is no positive number.
bool zoomFactor(Editor& editor, std::string text) {
    if (!text.empty() && (text.back() == 'x' || text.back() == 'X')) text.pop_back();
    double factor = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), factor);
    if (error != std::errc() || end != text.data() + text.size() || !(factor > 0.0)) return false;
    editor.view().zoomBy(factor);
    return true;
}

}  // namespace

void zoom() {
    Editor& editor = *currentEditor();
    wchar_t word[132];
    kdedInitGet(0, L"All Extents Window");
    if (kdedGetKword(L"\n[All/Extents/Window] or a factor: ", word) != RTNORM) return;
    if (wcscmp(word, L"Window") == 0) {
        zoomWindow(editor);
    } else if (wcscmp(word, L"All") == 0 || wcscmp(word, L"Extents") == 0) {
        editor.view().zoomTo(extentsOfDrawing(editor));
    } else if (!zoomFactor(editor, toUtf8(word))) {
        commandLine().fail(std::wstring(L"\"") + word + L"\" is no factor to zoom by.");
    }
    queueAllForRedraw();
}

void regenerate() {
    queueAllForRedraw();
    updateDisplay();
}

}  // namespace kdhost
