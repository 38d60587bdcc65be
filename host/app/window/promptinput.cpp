// The mouse as input of prompts.

#include "host/app/window/promptinput.h"

#include "host/ed/editor.h"

namespace kdhost {

void PromptInput::press(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr) return;
    const bool adds = (point.modifiers & Qt::ShiftModifier) != 0;
    editor->input().put(adds ? InputItem::Kind::AddPick : InputItem::Kind::Pick, point.world);
}

void PromptInput::move(const ViewPoint& point) {
    Editor* editor = currentEditor();
    if (editor == nullptr || editor->promptKind() != PromptKind::Drag || !editor->isAsking()) return;
    // A place that the cursor has left meanwhile is of no use to a drag that is slow to follow.
    if (!editor->input().isEmpty()) return;
    editor->input().put(InputItem::Kind::Move, point.world);
}

void PromptInput::context(const ViewPoint&) {
    Editor* editor = currentEditor();
    if (editor != nullptr && editor->promptKind() != PromptKind::Command) editor->input().type(L"\n");
}

}  // namespace kdhost
