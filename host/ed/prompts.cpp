// The prompts that commands ask with.

#include "kd/ed/prompts.h"

#include <algorithm>
#include <cwchar>

#include "host/db/access.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/names.h"
#include "host/ed/nulltext.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"

namespace {

using kdhost::Answer;
using kdhost::Editor;
using kdhost::orEmpty;
using kdhost::PromptKind;

// Sizes of the buffers that callers give, the ending zero included.
constexpr std::size_t kKeywordSize = 132;
constexpr std::size_t kStringSize = 1024;

void copyCut(wchar_t* out, std::size_t size, const std::wstring& text) {
    const std::size_t count = std::min(text.size(), size - 1);
    std::wmemcpy(out, text.c_str(), count);
    out[count] = L'\0';
}

/// The word goes to kdedGetInput.
bool chooseKeyword(Editor& editor, const Editor::Announcement& announced, const std::wstring& text) {
    const std::optional<std::wstring> word = announced.keywords.match(text);
    if (word) editor.chosenKeyword() = *word;
    return word.has_value();
}

constexpr kdhost::Words kAnswerNeeded{L"\nAn answer is needed.", L"\n需要输入。"};
constexpr kdhost::Words kEntityNeeded{L"\nPick an entity, or type the coordinates of a point on it.",
                                      L"\n请拾取对象，或输入其上一点的坐标。"};

void tell(const kdhost::Words& message) {
    kdhost::commandLine().write(message.text());
}

}  // namespace

int kdedInitGet(int flags, const wchar_t* keywords) {
    if (Editor* editor = kdhost::currentEditor()) editor->announce(flags, orEmpty(keywords));
    return RTNORM;
}

int kdedGetKword(const wchar_t* prompt, wchar_t* reply) {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || reply == nullptr) return RTERROR;
    const Editor::Announcement announced = editor->takeAnnouncement();
    for (;;) {
        const Answer answer = editor->ask(PromptKind::Keyword, orEmpty(prompt));
        if (answer.isCancel()) return RTCAN;
        if (!answer.text.empty()) {
            copyCut(reply, kKeywordSize, announced.keywords.match(answer.text).value_or(answer.text));
            return RTNORM;
        }
        if (!announced.refusesEnter()) return RTREJ;
        tell(kAnswerNeeded);
    }
}

int kdedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* reply) {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || reply == nullptr) return RTERROR;
    const Editor::Announcement announced = editor->takeAnnouncement();
    for (;;) {
        const Answer answer = editor->ask(PromptKind::Text, orEmpty(prompt), allowSpaces != 0);
        if (answer.isCancel()) return RTCAN;
        if (!answer.text.empty() || !announced.refusesEnter()) {
            copyCut(reply, kStringSize, answer.text);
            return RTNORM;
        }
        tell(kAnswerNeeded);
    }
}

int kdedGetPoint(const KdGePoint3d* base, const wchar_t* prompt, KdGePoint3d& point) {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return RTERROR;
    const Editor::Announcement announced = editor->takeAnnouncement();
    const auto accept = [&](const KdGePoint3d& entered) {
        editor->lastPoint() = point = entered;
        return RTNORM;
    };
    for (;;) {
        const Answer answer = editor->ask(PromptKind::Point, orEmpty(prompt));
        if (answer.isCancel()) return RTCAN;
        if (answer.isPick()) return accept(editor->toUser(answer.point));
        if (answer.text.empty() && !announced.refusesEnter()) return RTREJ;
        if (chooseKeyword(*editor, announced, answer.text)) return RTKWORD;
        const auto entered = kdhost::parsePoint(answer.text, base == nullptr ? editor->lastPoint() : *base);
        if (entered) return accept(*entered);
        tell(kdhost::kPointNeeded);
    }
}

int kdedGetInput(wchar_t* reply) {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || reply == nullptr) return RTERROR;
    copyCut(reply, kKeywordSize, editor->chosenKeyword());
    return RTNORM;
}

int kdedEntSel(const wchar_t* prompt, kded_name name, kded_point point) {
    Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || name == nullptr || point == nullptr) return RTERROR;
    const Editor::Announcement announced = editor->takeAnnouncement();
    for (;;) {
        const Answer answer = editor->ask(PromptKind::Entity, orEmpty(prompt));
        if (answer.isCancel()) return RTCAN;
        if (!answer.isPick() && answer.text.empty()) return RTERROR;
        if (!answer.isPick() && chooseKeyword(*editor, announced, answer.text)) return RTKWORD;
        std::optional<KdGePoint3d> picked = answer.point;
        if (!answer.isPick()) picked = kdhost::parsePoint(answer.text, editor->lastPoint());
        if (!picked) {
            tell(kEntityNeeded);
            continue;
        }
        const KdGePoint3d world = answer.isPick() ? *picked : editor->toWorld(*picked);
        const KdGePoint3d user = editor->toUser(world);
        const std::vector<KdDbObjectId> hit = kdhost::pickAt(*editor, world);
        if (hit.empty()) return RTERROR;
        kddbGetKfsName(name, hit.front());
        point[0] = user.x;
        point[1] = user.y;
        point[2] = user.z;
        return RTNORM;
    }
}

Kdad::ErrorStatus kddbGetObjectId(KdDbObjectId& id, const kded_name name) {
    id = kdhost::entityOfName(name);
    if (id.isNull()) return Kdad::eInvalidInput;
    if (kdhost::peekObject(id, true) != nullptr) return Kdad::eOk;
    id.setNull();
    return Kdad::eUnknownId;
}

Kdad::ErrorStatus kddbGetKfsName(kded_name name, const KdDbObjectId& id) {
    if (name == nullptr) return Kdad::eInvalidInput;
    if (id.isNull()) return Kdad::eNullObjectId;
    if (kdhost::peekObject(id, true) == nullptr) return Kdad::eUnknownId;
    kdhost::writeName(name, kdhost::NameKind::Entity, id.asInteger());
    return Kdad::eOk;
}
