// Runs of EDITTABLECELL.

#include "tests/module/edit/commandrun.h"

#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/ed/resbuf.h"

namespace kdtest {

CommandRun::CommandRun() : m_source(kdhost::inputSource()) {
    kdhost::setInputSource(this);
}

CommandRun::~CommandRun() {
    kdhost::setInputSource(m_source);
}

KdDbObjectId CommandRun::add(std::unique_ptr<KdDbTable> table, const KdGePoint3d& position) {
    table->setDatabaseDefaults(&host.database());
    table->setTableStyle(host.database().tablestyle());
    table->setColumnWidth(20.0);
    table->setRowHeight(10.0);
    table->setPosition(position);
    return append(table.release());
}

KdDbObjectId CommandRun::addSelected(const KdCellRange& selected, const std::function<void(KdDbTable&)>& prepare) {
    const KdDbObjectId id = add(TableBuilder(4, 3).build());
    change(id, [&](KdDbTable& table) {
        if (prepare) prepare(table);
        table.setSubSelection(selected);
    });
    return id;
}

KdDbObjectId CommandRun::addLine(const KdGePoint3d& from, const KdGePoint3d& to) {
    return append(new KdDbLine(from, to));
}

void CommandRun::lockLayerOf(KdDbObjectId table) {
    KdDbObjectId id;
    {
        const OpenObject<KdDbLayerTable> layers(host.database().layerTableId(), KdDb::kForWrite);
        auto* const layer = new KdDbLayerTableRecord;
        layer->setName(L"Fixed");
        EXPECT_EQ(layers->add(id, layer), Kdad::eOk);
        layer->close();
    }
    change(table, [&](KdDbTable& open) { open.setLayer(id); });
    const OpenObject<KdDbLayerTableRecord> layer(id, KdDb::kForWrite);
    layer->setIsLocked(true);
}

void CommandRun::answers(std::vector<Step> steps) {
    m_steps.assign(steps.begin(), steps.end());
    prompts.clear();
    openAtPrompts.clear();
    m_unanswered = 0;
}

void CommandRun::expectAllAnswered() const {
    EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " answers were not asked for";
    EXPECT_EQ(m_unanswered, 0) << "prompts found no answer";
}

void CommandRun::runCommand(std::vector<Step> steps) {
    answers(std::move(steps));
    const ResourceScope resources;
    EditTableCellGUI().entry();
    expectAllAnswered();
}

void CommandRun::runCommandOn(const std::wstring& cells, std::vector<Step> steps) {
    steps.insert(steps.begin(), {Step(L"1,-1"), Step(cells)});
    runCommand(std::move(steps));
}

int CommandRun::runMenu(EditTableCellGUI& gui, Menu menu, KdDbObjectId table, std::vector<Step> steps) {
    answers(std::move(steps));
    const ResourceScope resources;
    const int status = (gui.*menu)(table);
    expectAllAnswered();
    return status;
}

int CommandRun::runMenu(Menu menu, KdDbObjectId table, std::vector<Step> steps) {
    EditTableCellGUI gui;
    return runMenu(gui, menu, table, std::move(steps));
}

int CommandRun::opensOf(Menu menu, KdDbObjectId table, std::vector<Step> steps) {
    constexpr int far = 1000000;
    steps.push_back(esc);
    kdhost::faults().failOpenNumber = far;
    EXPECT_EQ(runMenu(menu, table, std::move(steps)), RTNORM);
    return far - std::exchange(kdhost::faults().failOpenNumber, 0);
}

std::wstring CommandRun::text(unsigned number) const {
    const ResourceScope resources;
    const std::wstring loaded = loadText(number);
    EXPECT_FALSE(loaded.empty()) << number;
    return loaded;
}

void CommandRun::change(KdDbObjectId id, const std::function<void(KdDbTable&)>& what) {
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    ASSERT_TRUE(table);
    what(*table);
}

bool CommandRun::feed(kdhost::InputQueue& queue) {
    prompts.push_back(host.editor().promptText());
    openAtPrompts.push_back(kdhost::openObjects().size());
    while (!m_steps.empty()) {
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        if (!step.look) {
            queue.type(step.typed);
            return true;
        }
        step.look();
    }
    ++m_unanswered;
    return false;
}

}  // namespace kdtest
