// When the toolbar shows: the one window, made on demand, and its life.

#include <QCoreApplication>
#include <memory>

#include "kd/db/table.h"
#include "kd/ed/resbuf.h"
#include "kd/ed/variables.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/toolbar/tableditminiframewnd.h"
#include "tvx/exports.h"

CVqTableditMiniFrameWnd* gpTableditMiniFrameWnd = nullptr;

namespace {

/// Keeps the window. One that the module has given up by its pointer goes when the module leaves memory; where the
/// program has come to its end before that, Qt can't destroy windows any more.
class WindowKeeper {
public:
    WindowKeeper() = default;
    ~WindowKeeper() {
        if (QCoreApplication::instance() == nullptr) (void)m_window.release();
    }
    WindowKeeper(const WindowKeeper&) = delete;
    WindowKeeper& operator=(const WindowKeeper&) = delete;

    void make() {
        m_window = std::make_unique<CVqTableditMiniFrameWnd>();
        gpTableditMiniFrameWnd = m_window.get();
    }
    void destroy() {
        gpTableditMiniFrameWnd = nullptr;
        m_window.reset();
    }

private:
    std::unique_ptr<CVqTableditMiniFrameWnd> m_window;
};

WindowKeeper& keeper() {
    static WindowKeeper instance;
    return instance;
}

/// True when the variable can be read and asks for no toolbar; it shows for 1 and 2.
bool isToolbarOff() {
    resbuf value{};
    const bool isRead = kdedGetVar(L"TABLETOOLBAR", &value) == RTNORM;
    return isRead && value.resval.rint != 1 && value.resval.rint != 2;
}

/// The window there is, or a new one where it is to show.
CVqTableditMiniFrameWnd* CreateTableditMiniFrameWnd(bool show) {
    if (gpTableditMiniFrameWnd == nullptr && show) keeper().make();
    return gpTableditMiniFrameWnd;
}

void showFor(KdDbObjectId table, CVqTableditMiniFrameWnd& window) {
    window.CalculateWindowSize();
    window.AddReactor(table);
    window.UpdateToolBar();
    window.ShowWindow(SW_SHOWNOACTIVATE);
    window.SetCursorAndLock(true);
}

void hide(CVqTableditMiniFrameWnd& window) {
    window.RemoveReactor();
    window.ShowWindow(SW_HIDE);
    window.SetCursorAndLock(false);
}

}  // namespace

CVqTableditMiniFrameWnd* GetTableditMiniFrameWnd() {
    return gpTableditMiniFrameWnd;
}

KdDbObjectId toolbarTable() {
    return gpTableditMiniFrameWnd == nullptr ? KdDbObjectId::kNull : gpTableditMiniFrameWnd->tableId();
}

bool CVqTableCommon::ShowTableToolbar(KdDbObjectId table, bool show) {
    const ResourceScope resources;
    const bool isOff = isToolbarOff();
    const bool shows = show && !isOff;
    CVqTableditMiniFrameWnd* window = CreateTableditMiniFrameWnd(shows);
    if (window == nullptr) return true;
    if (shows) {
        showFor(table, *window);
    } else {
        hide(*window);
        if (isOff) keeper().destroy();
    }
    return true;
}

bool CVqTableCommon::GetSelectRange(KdCellRange& range) {
    const KdDbObjectId id = toolbarTable();
    if (id.isNull()) return false;
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (table) range = table->getSubSelection();
    return static_cast<bool>(table);
}

bool showTableToolBar(KdDbObjectId table, bool show) {
    return CVqTableCommon::ShowTableToolbar(table, show);
}
