// The toolbar window: how it comes and goes, and how it follows a table.

#include "module/edit/toolbar/tableditminiframewnd.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QToolBar>
#include <QWindow>

#include "kd/ad/appinterface.h"
#include "kd/ad/mainapp.h"
#include "kd/db/table.h"
#include "module/controls/wiring.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/edit/tableditmenu.h"

namespace {

constexpr unsigned kTitleText = 2246;

/// No buttons in the frame but a title: the toolbar hides by itself.
constexpr unsigned kFlagsKept = 0xF7FF3FFF;
constexpr unsigned kFlagsSet = 0x2001003;
constexpr auto kTakesInputMethods = static_cast<Qt::WidgetAttribute>(14);
static_assert(kTakesInputMethods == Qt::WA_InputMethodEnabled);

constexpr int kKeyPress = 6;  ///< the application interface's code

/// The host's dump of a run tells by this property which table the toolbar stands for.
constexpr const char* kTableProperty = "tableId";

/// A table, erased ones too: a reactor outlives the erasing of its table, which may come back.
template <class Act>
void withTable(KdDbObjectId id, Act act) {
    KdDbObject* object = nullptr;
    if (kddbOpenObject(object, id, KdDb::kForRead, true, KdDbTable::desc()) != Kdad::eOk) return;
    act(*object);
    object->close();
}

}  // namespace

CVqTableditMiniFrameWnd::CVqTableditMiniFrameWnd() : m_reactor(std::make_unique<VqTableObjectReactor>()) {
    const ResourceScope resources;
    setWindowFlags(Qt::WindowFlags((unsigned(windowFlags()) & kFlagsKept) | kFlagsSet));
    setAttribute(kTakesInputMethods);
    setFocusPolicy(Qt::StrongFocus);
    if (!buildTree(*this, "IDD_TABLEDIT_DIALOG")) return;
    CVqTableditMiniFrameWnd::CreateToolBar(nullptr, KdString(loadText(kTitleText)));
}

CVqTableditMiniFrameWnd::~CVqTableditMiniFrameWnd() {
    RemoveReactor();
}

void CVqTableditMiniFrameWnd::keyPressEvent(QKeyEvent* event) {
    KdadApplicationInterface* application = kdadApplicationInterface();
    if (application != nullptr) application->sendKey(kKeyPress, event);
    event->accept();
}

void CVqTableditMiniFrameWnd::AddReactor(KdDbObjectId id) {
    if (id == m_tableId) return;
    RemoveReactor();
    withTable(id, [&](KdDbObject& table) { table.addReactor(m_reactor.get()); });
    m_tableId = id;
    setProperty(kTableProperty, static_cast<qulonglong>(id.asInteger()));
}

void CVqTableditMiniFrameWnd::RemoveReactor() {
    withTable(m_tableId, [&](KdDbObject& table) { table.removeReactor(m_reactor.get()); });
    m_tableId.setNull();
    setProperty(kTableProperty, 0ULL);
}

void CVqTableditMiniFrameWnd::CalculateWindowSize() {
    if (m_toolBar == nullptr) return;
    // Over the main window, where the screen has windows over each other, although it is nobody's child.
    const QWidget* main = kfsw_kdadMainWnd();
    winId();
    if (main != nullptr && main->windowHandle() != nullptr) windowHandle()->setTransientParent(main->windowHandle());
    setFixedSize(sizeHint());
}

void CVqTableditMiniFrameWnd::SetCursorAndLock(bool lock) {
    KdadApplicationInterface* application = kdadApplicationInterface();
    if (application == nullptr) return;
    if (lock) {
        m_savedCursorState = application->cursorState();
        application->setCursorState(0, true);
    } else {
        application->setCursorState(m_savedCursorState, false);
    }
}

void CVqTableditMiniFrameWnd::giveKeysBack() {
    setFocus(Qt::OtherFocusReason);
}
