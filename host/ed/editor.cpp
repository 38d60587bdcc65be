// Reading of answers.

#include "host/ed/editor.h"

#include <utility>

#include "host/ed/commandline.h"

namespace kdhost {
namespace {

Editor* activeEditor = nullptr;
InputSource* source = nullptr;

bool takesPicks(PromptKind kind) {
    return kind != PromptKind::Keyword && kind != PromptKind::Text;
}

bool endsAnswer(wchar_t character, bool takesBlanks) {
    return character == L'\n' || (character == L' ' && !takesBlanks);
}

/// Control characters that stand for Esc in text that is sent.
bool isEscape(wchar_t character) {
    return character == L'\x1b' || character == L'\x03';
}

}  // namespace

Editor* currentEditor() {
    return activeEditor;
}

void setCurrentEditor(Editor* editor) {
    activeEditor = editor;
}

InputSource* inputSource() {
    return source;
}

void setInputSource(InputSource* newSource) {
    source = newSource;
}

Editor::Editor(KdDbDatabase& database) : m_database(database), m_pickFirst(database) {}

Editor::Announcement Editor::takeAnnouncement() {
    return std::exchange(m_announcement, {});
}

Answer Editor::ask(PromptKind kind, const std::wstring& prompt, bool takesBlanks) {
    m_promptKind = kind;
    m_promptText = prompt;
    Answer answer;
    while (const std::optional<InputItem> item = m_input.next(source)) {
        switch (item->kind) {
            case InputItem::Kind::Character:
                if (isEscape(item->character)) return {Answer::Kind::Cancel, {}, {}};
                if (endsAnswer(item->character, takesBlanks)) return answer;
                answer.text += item->character;
                break;
            case InputItem::Kind::Cancel:
                return {Answer::Kind::Cancel, {}, {}};
            case InputItem::Kind::Escape:
                return {Answer::Kind::Escape, {}, {}};
            case InputItem::Kind::Pick:
            case InputItem::Kind::AddPick:
                if (!takesPicks(kind)) break;
                return {
                    item->kind == InputItem::Kind::Pick ? Answer::Kind::Pick : Answer::Kind::AddPick, {}, item->point};
            case InputItem::Kind::Cells:
                if (kind != PromptKind::Cells && kind != PromptKind::Command) break;
                return {Answer::Kind::Cells, {}, {}, item->cells};
        }
    }
    // Characters without an end at the end of all input were never entered.
    return {Answer::Kind::End, {}, {}};
}

}  // namespace kdhost
