// A drawing, a jig and a user with a mouse.
#pragma once

#include <functional>
#include <memory>

#include "host/db/keptobject.h"
#include "host/db/objectstate.h"
#include "host/ed/display.h"
#include "host/ed/inputqueue.h"
#include "module/create/tablejig.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {

/// The resources are in place as while a command runs. Where the input is at its end, the drag is cancelled.
class TableJig : public TableEdits, protected kdhost::InputSource {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        m_resources = std::make_unique<ResourceScope>();
        m_source = kdhost::inputSource();
        kdhost::setInputSource(this);
        jig = std::make_unique<CVqTableJig>(&host.database());
        jig->setTableStyleId({});
        jig->setTableColumns(3);
        jig->setTableDataRows(3);
        jig->setTableRowHeight(1);
        jig->setTableColumnWidth(30.0);
        jig->setFirstCellText(L"_TITLE");
        jig->setSecondCellText(L"_HEADER");
        jig->setOtherCellText(L"_DATA");
    }
    void TearDown() override {
        kdhost::setInputSource(m_source);
        m_resources.reset();
        TableEdits::TearDown();
    }

    void move(double x, double y) { host.editor().input().put(kdhost::InputItem::Kind::Move, {x, y, 0.0}); }
    void pick(double x, double y) { host.editor().input().put(kdhost::InputItem::Kind::Pick, {x, y, 0.0}); }
    void escape() { host.editor().input().put(kdhost::InputItem::Kind::Escape); }
    void enter() { host.type(L"\n"); }
    /// Looks at the table under the cursor when everything before was done.
    void look(std::function<void(const KdDbTable&)> atTable) { m_looks.push_back(std::move(atTable)); }
    using TableEdits::look;

    /// Drags a window between two points; the table that lies in the drawing then.
    const KdDbTable& dragWindow(const KdGePoint3d& from, const KdGePoint3d& to) {
        pick(from.x, from.y);
        pick(to.x, to.y);
        return place();
    }
    const KdDbTable& place(const KdDbTable* source = nullptr) {
        EXPECT_EQ(jig->doJig(source), 1);
        dropSent();
        return *static_cast<const KdDbTable*>(jig->entity());
    }
    /// What was sent to the command line.
    std::wstring sent() {
        std::wstring text;
        while (const auto item = host.editor().input().next(nullptr)) text += item->character;
        return text;
    }
    void dropSent() { host.editor().input().clear(); }

    /// Expires when the table goes.
    static std::weak_ptr<const void> holdBy(const KdDbTable& table) {
        auto held = std::make_shared<const kdhost::ForeignTags>();
        const std::weak_ptr<const void> seen = held;
        KdDbObjectAccess::stateForMaker(const_cast<KdDbTable&>(table)).foreign = std::move(held);
        return seen;
    }

    std::unique_ptr<CVqTableJig> jig;

private:
    bool feed(kdhost::InputQueue&) override {
        if (m_looks.empty()) return false;
        const auto atTable = std::move(m_looks.front());
        m_looks.pop_front();
        const auto* table = dynamic_cast<const KdDbTable*>(kdhost::draggedEntity());
        EXPECT_NE(table, nullptr);
        if (table != nullptr) atTable(*table);
        return true;
    }

    std::unique_ptr<ResourceScope> m_resources;
    kdhost::InputSource* m_source = nullptr;
    std::deque<std::function<void(const KdDbTable&)>> m_looks;
};

/// One pick places a table of fixed size.
class PlaceAtPoint : public TableJig {
protected:
    const KdDbTable& placeAtOrigin() {
        pick(0, 0);
        return place();
    }
    void SetUp() override {
        TableJig::SetUp();
        jig->setPointMode(true);
    }
};

}  // namespace kdtest
