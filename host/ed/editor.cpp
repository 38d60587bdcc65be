// Reading of answers.

#include "host/ed/editor.h"

#include <utility>

#include "host/db/currentspace.h"
#include "host/ed/commandline.h"
#include "kd/db/database.h"

namespace kdhost {
namespace {

Editor* activeEditor = nullptr;
InputSource* source = nullptr;
PromptListener* promptListener = nullptr;

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

void setPromptListener(PromptListener* listener) {
    promptListener = listener;
}

Editor::Editor(KdDbDatabase& database) : m_database(database), m_pickFirst(database) {}

KdGeMatrix3d Editor::ucs() const {
    const KdDbDatabase& db = m_database;
    const bool model = db.tilemode();
    const KdGeVector3d x = model ? db.ucsxdir() : db.pucsxdir();
    const KdGeVector3d y = model ? db.ucsydir() : db.pucsydir();
    return KdGeMatrix3d::alignToWorld(model ? db.ucsorg() : db.pucsorg(), x, y, x.crossProduct(y));
}

bool Editor::setUcs(const KdGeMatrix3d& ucs) {
    const KdGePoint3d origin = ucs * KdGePoint3d();
    const KdGeVector3d x = ucs * KdGeVector3d::kXAxis;
    const KdGeVector3d y = ucs * KdGeVector3d::kYAxis;
    return (m_database.tilemode() ? m_database.setUcs(origin, x, y) : m_database.setPucs(origin, x, y)) == Kdad::eOk;
}

void Editor::zoomToDrawing() {
    const KdDbExtents box = extentsOfCurrentSpace(m_database);
    if (box.isValid()) {
        m_view.zoomTo(box);
    } else {
        m_view.zoomToSheet();
    }
}

Editor::Announcement Editor::takeAnnouncement() {
    return std::exchange(m_announcement, {});
}

class Editor::Asking {
public:
    Asking(Editor& editor, Prompt prompt)
        : m_editor(editor), m_outer(std::exchange(editor.m_prompt, std::move(prompt))) {
        ++m_editor.m_asking;
        tell();
    }
    ~Asking() {
        if (--m_editor.m_asking == 0) return;
        m_editor.m_prompt = std::move(m_outer);
        tell();
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    void tell() const {
        if (promptListener != nullptr) promptListener->prompted(m_editor);
    }

    Editor& m_editor;
    Prompt m_outer;
};

Answer Editor::ask(PromptKind kind, const std::wstring& prompt, bool takesBlanks) {
    const Asking asking(*this, {kind, prompt, takesBlanks});
    return readAnswer();
}

Answer Editor::readAnswer() {
    const auto [kind, text, takesBlanks] = m_prompt;
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
            case InputItem::Kind::Move:
                if (kind != PromptKind::Drag) break;
                return {Answer::Kind::Move, {}, item->point, {}};
            case InputItem::Kind::Cells:
                if (kind != PromptKind::Cells && kind != PromptKind::Command) break;
                return {Answer::Kind::Cells, {}, {}, item->cells};
        }
    }
    // Characters without an end at the end of all input were never entered.
    return {Answer::Kind::End, {}, {}};
}

}  // namespace kdhost
