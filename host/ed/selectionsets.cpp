// Selection sets by number, and the prompt that gathers one.

#include <algorithm>
#include <cwchar>
#include <map>
#include <vector>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/names.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"
#include "kd/db/database.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"

namespace kdhost {
namespace {

using Ids = std::vector<KdDbObjectId>;

constexpr Words kSelect{L"\nSelect objects: ", L"\n选择对象: "};
constexpr Words kWords{L"ALL Last _ALL Last", L"全部(ALL) 上一个(L) _ALL Last"};
constexpr Words kObjectsNeeded{L"\nPick objects, or type the coordinates of a point on one, All or Last.",
                               L"\n请拾取对象，或输入其上一点的坐标、全部(ALL) 或上一个(L)。"};
constexpr Words kNothingThere{L"\nNothing lies there.", L"\n该处没有对象。"};

struct SelectionSets {
    std::map<std::int64_t, Ids> sets;
    std::int64_t lastNumber = 0;
};

SelectionSets& selectionSets() {
    static SelectionSets instance;
    return instance;
}

/// Null for a name that is no set.
Ids* findSet(const kded_name name) {
    if (!isName(name, NameKind::SelectionSet)) return nullptr;
    const auto found = selectionSets().sets.find(name[0]);
    return found == selectionSets().sets.end() ? nullptr : &found->second;
}

void makeSet(Ids ids, kded_name name) {
    const std::int64_t number = ++selectionSets().lastNumber;
    selectionSets().sets.emplace(number, std::move(ids));
    writeName(name, NameKind::SelectionSet, number);
}

void addOnce(Ids& ids, KdDbObjectId id) {
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(id);
}

/// What one answer adds; false, with the user told, when it adds nothing.
bool addAnswer(Editor& editor, const Answer& answer, Ids& ids) {
    const KeywordList words(kWords.text());
    const std::wstring word = answer.isPick() ? L"" : words.matchEither(answer.text).value_or(L"");
    if (!word.empty()) {
        Ids all = entitiesOfCurrentSpace(editor.database());
        if (word == L"Last" && !all.empty()) all = {all.back()};
        for (KdDbObjectId id : all) addOnce(ids, id);
        return true;
    }
    std::optional<KdGePoint3d> point = answer.point;
    if (!answer.isPick()) {
        point = parsePoint(answer.text, editor.lastPoint());
        if (point) point = editor.toWorld(*point);
    }
    if (!point) {
        commandLine().write(kObjectsNeeded.text());
        return false;
    }
    const Ids hit = pickAt(editor, *point);
    if (hit.empty()) {
        commandLine().write(kNothingThere.text());
        return false;
    }
    addOnce(ids, hit.front());
    return true;
}

int askForObjects(Editor& editor, Ids& ids) {
    editor.takeAnnouncement();
    for (;;) {
        const Answer answer = editor.ask(PromptKind::Objects, kSelect.text());
        if (answer.isCancel()) return RTCAN;
        if (!answer.isPick() && answer.text.empty()) return ids.empty() ? RTERROR : RTNORM;
        addAnswer(editor, answer, ids);
    }
}

}  // namespace
}  // namespace kdhost

int kdedSSGet(const wchar_t* mode, const void*, const void*, const resbuf* filter, kded_name set) {
    using namespace kdhost;
    Editor* editor = currentEditor();
    if (editor == nullptr || set == nullptr || filter != nullptr) return RTERROR;
    Ids ids;
    int status = RTERROR;
    if (mode == nullptr) {
        status = askForObjects(*editor, ids);
    } else if (wcscasecmp(mode, L"_I") == 0) {
        ids = editor->pickFirst().objects();
        status = ids.empty() ? RTERROR : RTNORM;
    }
    if (status == RTNORM) makeSet(std::move(ids), set);
    return status;
}

int kdedSSFree(kded_name set) {
    if (kdhost::findSet(set) == nullptr) return RTERROR;
    kdhost::selectionSets().sets.erase(set[0]);
    return RTNORM;
}

int kdedSSLength(const kded_name set, int* length) {
    const kdhost::Ids* ids = kdhost::findSet(set);
    if (ids == nullptr || length == nullptr) return RTERROR;
    *length = static_cast<int>(ids->size());
    return RTNORM;
}

int kdedSSName(const kded_name set, int index, kded_name entity) {
    const kdhost::Ids* ids = kdhost::findSet(set);
    if (ids == nullptr || entity == nullptr || index < 0 || static_cast<std::size_t>(index) >= ids->size()) {
        return RTERROR;
    }
    kdhost::writeName(entity, kdhost::NameKind::Entity, (*ids)[static_cast<std::size_t>(index)].asInteger());
    return RTNORM;
}

int kdedSSAdd(const kded_name entity, const kded_name set, kded_name result) {
    using namespace kdhost;
    if (result == nullptr) return RTERROR;
    const KdDbObjectId id = entityOfName(entity);
    if (entity != nullptr && peekObject(id) == nullptr) return RTERROR;
    if (set == nullptr) {
        makeSet(id.isNull() ? Ids() : Ids{id}, result);
        return RTNORM;
    }
    Ids* ids = findSet(set);
    if (ids == nullptr) return RTERROR;
    if (!id.isNull()) addOnce(*ids, id);
    writeName(result, NameKind::SelectionSet, set[0]);
    return RTNORM;
}

int kdedSSSetFirst(const kded_name set, const kded_name) {
    using namespace kdhost;
    Editor* editor = currentEditor();
    if (editor == nullptr) return RTERROR;
    const Ids* ids = findSet(set);
    if (set != nullptr && ids == nullptr) return RTERROR;
    editor->pickFirst().set(ids == nullptr ? Ids() : *ids);
    return RTNORM;
}
