// The roads by which a user gets at tables, each a table of actions. What an action opens (a prompt, a window) is
// answered by those who know prompts and windows, so that an action tells only how it begins.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/ed/editor.h"
#include "tests/endurance/stand.h"
#include "tests/support/random.h"

namespace endurance {

/// A line that is given while a prompt of that kind waits. When another one does, the rest of the lines is dropped.
struct Line {
    kdhost::PromptKind at = kdhost::PromptKind::Command;
    std::wstring text;  ///< as in a script: "@..." acts, anything else is typed
};
using Lines = std::vector<Line>;

/// What is done while nothing runs, and until nothing runs again.
struct Action {
    const char* name;
    int weight;                 ///< how often, against the other actions
    bool (*may)(const Stand&);  ///< whether it would be valid now; null for always
    Lines (*begin)(Random&, const Stand&);
};

struct Road {
    const char* name;
    std::span<const Action> actions;
};

extern const Road cellsRoad;
extern const Road clipboardRoad;
extern const Road toolbarRoad;
extern const Road contextMenuRoad;
extern const Road commandLineRoad;
extern const Road dialogsRoad;
extern const Road filesRoad;
extern const Road drawingRoad;
extern const Road undoRoad;

std::span<const Road* const> roads();

// What many actions ask and say.

inline bool hasTable(const Stand& stand) {
    return !stand.tables().empty();
}
inline bool hasSelectedCells(const Stand& stand) {
    return stand.tableOfSelectedCells() != nullptr;
}

inline Line command(const std::wstring& text) {
    return {kdhost::PromptKind::Command, text};
}
inline Line keyword(const std::wstring& text) {
    return {kdhost::PromptKind::Keyword, text};
}
inline Line text(const std::wstring& text) {
    return {kdhost::PromptKind::Text, text};
}
inline Line point(const std::wstring& text) {
    return {kdhost::PromptKind::Point, text};
}
inline Line entity(const std::wstring& text) {
    return {kdhost::PromptKind::Entity, text};
}
inline Line objects(const std::wstring& text) {
    return {kdhost::PromptKind::Objects, text};
}

const KdDbTable& someTable(Random& random, const Stand& stand);
/// "@cells #N REF" of any table.
Line selectSomeCells(Random& random, const Stand& stand);

}  // namespace endurance
