// The frame that every edit of a table stands in: the main application service, the mark that makes it one step
// of undo, the table open for write, the work, and the display.
//
// A table that can't be opened is passed over without a word: the mark is made and the display updated all the
// same, and the edit counts as done. Only without the service nothing happens at all.
#pragma once

#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/selectedcells.h"

class KdadMainAppService;

/// How an edit is marked.
struct EditMark {
    const wchar_t* name = nullptr;  ///< fixed keyword; names the step of undo
    unsigned titleText = 0;         ///< number of the text that the user reads
    bool updatesDisplay = true;
};

/// One mark: begun here, ended with its scope. The module's resources are in place meanwhile, since edits are
/// also called from menus and the toolbar, where they aren't.
class CommandMark {
public:
    explicit CommandMark(const EditMark& mark);
    ~CommandMark();
    CommandMark(const CommandMark&) = delete;
    CommandMark& operator=(const CommandMark&) = delete;

    /// False without the main application service; then nothing was begun.
    explicit operator bool() const { return m_service != nullptr; }

private:
    ResourceScope m_resources;
    KdadMainAppService* m_service;
};

/// Carries out `work()` within the mark. False, with nothing done, without the main application service.
template <class Work>
bool markedEdit(const EditMark& mark, Work work) {
    {
        const CommandMark scope(mark);
        if (!scope) return false;
        work();
    }
    if (mark.updatesDisplay) kdedUpdateDisplay();
    return true;
}

/// The same with `work(KdDbTable&)` on the table open for write.
template <class Work>
bool markedTableEdit(KdDbObjectId table, const EditMark& mark, Work work) {
    return markedEdit(mark, [&] {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        if (open) work(*open);
    });
}

/// The same with `work(KdDbTable&, const SelectedCells&)`; passed over when nothing is selected.
template <class Work>
bool editSelection(KdDbObjectId table, const EditMark& mark, Work work) {
    return markedTableEdit(table, mark, [&](KdDbTable& open) {
        if (const std::optional<SelectedCells> cells = selectedCells(open)) work(open, *cells);
    });
}
