// Runs of EDITTABLECELL and of its menus with a user who answers one prompt after another.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/ed/inputqueue.h"
#include "module/edit/edittablecell.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {

/// The user's answer by the Esc key.
inline const std::wstring esc = L"\x1b";

/// What the user does at one prompt.
struct Step {
    Step(const wchar_t* line) : typed(line == esc ? esc : std::wstring(line) + L"\n") {}
    Step(const std::wstring& line) : Step(line.c_str()) {}
    /// Looks at the drawing while the prompt waits; the next step answers it.
    Step(std::function<void()> atPrompt) : look(std::move(atPrompt)) {}

    std::wstring typed;
    std::function<void()> look;
};

/// A drawing with tables, and a user. A prompt that finds no answer, and an answer that no prompt asks for, fail the
/// test.
class CommandRun : public TableEdits, protected kdhost::InputSource {
protected:
    CommandRun();
    ~CommandRun() override;

    /// Adds a table of columns of 20 and rows of 10, its upper left corner at the point. Closed.
    KdDbObjectId add(std::unique_ptr<KdDbTable> table, const KdGePoint3d& position = {0.0, 0.0, 0.0});
    /// Adds a table of 4 rows and 3 columns with that selection, after that change.
    KdDbObjectId addSelected(const KdCellRange& selected, const std::function<void(KdDbTable&)>& prepare = {});
    KdDbObjectId addLine(const KdGePoint3d& from, const KdGePoint3d& to);
    /// Makes a layer with the table on it and locks that.
    void lockLayerOf(KdDbObjectId table);

    void answers(std::vector<Step> steps);
    /// The whole command, with these answers; its handler's resources in place.
    void runCommand(std::vector<Step> steps);
    /// A table at the origin is picked and these cells are named; the steps begin at the main menu.
    void runCommandOn(const std::wstring& cells, std::vector<Step> steps);

    using Menu = int (EditTableCellGUI::*)(KdDbObjectId);
    /// One menu of a run, with these answers.
    int runMenu(EditTableCellGUI& gui, Menu menu, KdDbObjectId table, std::vector<Step> steps);
    int runMenu(Menu menu, KdDbObjectId table, std::vector<Step> steps);
    /// How many opens a menu makes until these answers are carried out and it is left by Esc.
    int opensOf(Menu menu, KdDbObjectId table, std::vector<Step> steps);

    /// A text of the resource module.
    std::wstring text(unsigned number) const;
    static std::string describeTable(KdDbObjectId id) { return describe(look(id)); }
    static void change(KdDbObjectId id, const std::function<void(KdDbTable&)>& what);

    /// The prompts so far, with the number of objects open at each.
    std::vector<std::wstring> prompts;
    std::vector<std::size_t> openAtPrompts;

private:
    bool feed(kdhost::InputQueue& queue) override;
    void expectAllAnswered() const;

    kdhost::InputSource* m_source;
    std::deque<Step> m_steps;
    int m_unanswered = 0;
};

}  // namespace kdtest
