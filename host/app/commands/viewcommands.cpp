// ZOOM and REGEN.

#include "host/app/commands/viewcommands.h"

#include "host/app/commands/keywordmenu.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/rx/numbertext.h"

namespace kdhost {
namespace {

constexpr KeywordPrompt kMenu{
    {L"\n[All/Extents/Window] or a factor: ", L"\n[全部(A)/范围(E)/窗口(W)] 或比例: "},
    {L"All Extents Window _All Extents Window", L"全部(A) 范围(E) 窗口(W) _All Extents Window"}};
constexpr Words kFirstCorner{L"\nFirst corner: ", L"\n第一个角点: "};
constexpr Words kOtherCorner{L"\nOther corner: ", L"\n对角点: "};
constexpr Words kNoFactor{L"\"%1\" is no factor to zoom by.", L"“%1”不是缩放比例。"};

void zoomAll(Editor& editor) {
    editor.zoomToDrawing();
}

void zoomWindow(Editor& editor) {
    KdGePoint3d first;
    KdGePoint3d second;
    if (kdedGetPoint(nullptr, kFirstCorner.text(), first) != RTNORM) return;
    if (kdedGetPoint(&first, kOtherCorner.text(), second) != RTNORM) return;
    editor.view().zoomTo({editor.toWorld(first), editor.toWorld(second)});
}

/// "2" or "2x".
void zoomByFactor(Editor& editor, const std::wstring& text) {
    const bool marked = !text.empty() && (text.back() == L'x' || text.back() == L'X');
    const std::optional<double> factor = numberFrom(text.substr(0, text.size() - (marked ? 1 : 0)));
    if (!factor || !(*factor > 0.0)) return commandLine().fail(kNoFactor.with(text));
    editor.view().zoomBy(*factor);
}

struct Action {
    const wchar_t* word;
    void (*run)(Editor& editor);
};
constexpr Action kActions[] = {{L"All", zoomAll}, {L"Extents", zoomAll}, {L"Window", zoomWindow}};

}  // namespace

void zoom() {
    Editor& editor = *currentEditor();
    wchar_t answer[132];
    kdedInitGet(0, kMenu.words.text());
    if (kdedGetKword(kMenu.prompt.text(), answer) != RTNORM) return;
    if (const Action* action = actionOf(kMenu, kActions, answer)) {
        action->run(editor);
    } else {
        zoomByFactor(editor, answer);
    }
    queueAllForRedraw();
}

void regenerate() {
    queueAllForRedraw();
    updateDisplay();
}

}  // namespace kdhost
