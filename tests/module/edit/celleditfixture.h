// A user who edits cells one after another in the in-place editor.
#pragma once

#include "module/core/resources.h"
#include "module/edit/celledit.h"
#include "tests/module/edit/commandrun.h"
#include "tests/module/edit/typist.h"

namespace kdtest {

class CellEdit : public CommandRun {
protected:
    Typist typist;

    static std::string textsOf(KdDbObjectId id) { return texts(look(id)); }

    bool edit(KdDbObjectId id, int row, int column, const KdString& prefill = {}) {
        const ResourceScope resources;
        return editTable(id, row, column, false, prefill);
    }

    /// With a cell selected before, and what the host sends for the user's first key.
    bool typeOver(KdDbObjectId id, const char* cell, const std::wstring& sent) {
        host.editor().pickFirst().selectCells(id, cells(cell));
        const KdCellRange at = cells(cell);
        answers({Step(sent)});
        const ResourceScope resources;
        return editTable(id, at.m_topRow, at.m_leftColumn, true, {});
    }

    /// The command itself, with these answers to its prompts.
    void runTableEdit(std::vector<Step> steps) {
        answers(std::move(steps));
        const ResourceScope resources;
        tableEditEntry();
    }

    std::vector<std::wstring> openedWith() const {
        std::vector<std::wstring> contents;
        for (const Opened& opened : typist.opened) contents.push_back(opened.contents);
        return contents;
    }
};

using Words = std::vector<std::wstring>;

}  // namespace kdtest
