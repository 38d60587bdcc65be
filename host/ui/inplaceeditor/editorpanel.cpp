// The life of the in-place editor.

#include "host/ui/inplaceeditor/editorpanel.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QHideEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "host/ui/dialogs/hostdialog.h"
#include "host/ui/inplaceeditor/formatbar.h"
#include "host/win32/keystate.h"
#include "kd/db/mtext.h"
#include "kd/ed/inplaceeditor.h"

namespace kdhost {
namespace {

/// Between the box and the bar.
constexpr int kBarGap = 6;

bool isPress(const QEvent& event) {
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

}  // namespace

EditorPanel::EditorPanel(KdDbMText& text, const EditorPlace& place)
    : QGraphicsView(place.widget()),
      m_text(text),
      m_place(place),
      m_fields(text),
      m_looks(text, place.paper()),
      m_document(m_looks, [this](wchar_t field) { return m_fields.shown(field); }),
      m_before(text::pieces(m_fields.contents(), m_looks.base())),
      m_box(new EditorBox(text, m_document)),
      m_bar(nullptr),
      m_key(kMTextEditorEscape) {
    nameControl(this, "InPlaceEditor", hostText(HostText::EditorTitle));
    setWindowTitle(hostText(HostText::EditorTitle));
    m_document.load(m_before);
    m_scene.addItem(m_box);
    setScene(&m_scene);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    m_bar = new FormatBar(
        text, m_document, m_box->text(), m_fields, [this] { focusText(); }, this);
    const auto* layout = m_document.document().documentLayout();
    connect(layout, &QAbstractTextDocumentLayout::documentSizeChanged, this, [this] { this->place(); });
    connect(&m_document.document(), &QTextDocument::contentsChanged, this, [this] { this->place(); });
}

EditorPanel::~EditorPanel() {
    m_document.document().disconnect(this);
    m_document.document().documentLayout()->disconnect(this);
    delete m_bar;
}

int EditorPanel::run(int& key, int mode) {
    if (m_place.widget() != nullptr) {
        lieOverDrawing();
    } else {
        standAlone();
    }
    open(mode);
    m_loop.exec();
    if (ViewWidget* view = viewWidget()) {
        view->removeFollower(this);
        view->widget().setFocus(Qt::OtherFocusReason);
    }
    qApp->removeEventFilter(this);
    hide();
    key = m_key;
    return finish();
}

/// The drawing shows through where nothing is edited.
void EditorPanel::lieOverDrawing() {
    viewport()->setAutoFillBackground(false);
    viewWidget()->addFollower(this);
    setGeometry(m_place.widget()->rect());
}

void EditorPanel::standAlone() {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setWindowModality(Qt::ApplicationModal);
    setBackgroundBrush(m_place.paper());
    resize(m_place.size());
}

void EditorPanel::open(int mode) {
    qApp->installEventFilter(this);
    place();
    show();
    if (!isWindow()) raise();
    focusText();
    if (mode == kMTextEditorCaretAtEnd) {
        text().moveToEnd();
    } else {
        text().selectAll();
    }
    m_bar->refresh();
}

int EditorPanel::finish() {
    if (m_key == kMTextEditorEscape) return RTCAN;
    // A text that reads as before keeps its codes as they were written.
    const std::vector<text::Piece> after = m_document.pieces();
    if (after != m_before) m_fields.putBack(text::write(after, m_looks.base()));
    return RTNORM;
}

void EditorPanel::end(int key, Qt::KeyboardModifiers modifiers) {
    m_key = key;
    m_ended = true;
    keepKeyState(modifiers);
    m_loop.quit();
}

void EditorPanel::focusText() {
    // Where a dialog has just ended, nobody else makes the window active again at once.
    QApplication::setActiveWindow(window());
    setFocus(Qt::OtherFocusReason);
    m_scene.setFocusItem(&text());
}

void EditorPanel::place() {
    // Taking a place gives the document another width, which tells of its new size.
    if (m_bar == nullptr || m_placing) return;
    const QScopedValueRollback<bool> placing(m_placing, true);
    m_scene.setSceneRect(QRectF(QPointF(), QSizeF(size())));
    m_box->place(m_place, m_scene.sceneRect(), logicalDpiX());
    placeBar();
}

/// Above the box, below it where there is no room.
void EditorPanel::placeBar() {
    const QRect box = this->box().toAlignedRect();
    const QSize bar = m_bar->sizeHint();
    const int above = box.top() - kBarGap - bar.height();
    const int y = above >= 0 ? above : box.bottom() + kBarGap;
    const int rightmost = width() - bar.width();
    m_bar->move(std::max(0, std::min(box.left(), rightmost)), std::max(0, std::min(y, height() - bar.height())));
}

void EditorPanel::viewMoved() {
    setGeometry(m_place.widget()->rect());
    place();
}

void EditorPanel::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    place();
}

bool EditorPanel::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::ShortcutOverride:
            // While a text is edited no key means anything else.
            event->accept();
            return true;
        case QEvent::KeyPress:
            press(static_cast<QKeyEvent&>(*event));
            return true;
        default:
            return QGraphicsView::event(event);
    }
}

void EditorPanel::press(QKeyEvent& event) {
    event.accept();
    if (text().isComposing()) return;
    if (const auto key = text().endingKey(event)) {
        end(*key, event.modifiers());
    } else if (event.key() == Qt::Key_F10) {
        m_bar->takeFocus();
    } else if (!m_bar->takeShortcut(event)) {
        text().press(event);
        event.accept();
        m_bar->refresh();
    }
}

bool EditorPanel::isOnBox(const QPoint& place) const {
    return m_box->contains(m_box->mapFromScene(mapToScene(place)));
}

QPoint EditorPanel::placeOutside() const {
    for (const QPoint& corner : {rect().bottomRight(), rect().bottomLeft(), rect().topRight(), rect().topLeft()}) {
        if (!isOnBox(corner) && childAt(corner) == viewport()) return corner;
    }
    return rect().center();
}

void EditorPanel::mousePressEvent(QMouseEvent* event) {
    if (!isOnBox(event->pos())) {
        end(kMTextEditorOutside, event->modifiers());
        return;
    }
    focusText();
    QGraphicsView::mousePressEvent(event);
}

void EditorPanel::mouseReleaseEvent(QMouseEvent* event) {
    QGraphicsView::mouseReleaseEvent(event);
    m_bar->refresh();
}

bool EditorPanel::isPressedOutside(const QObject& object, const QEvent& event) const {
    if (!isPress(event) || !object.isWidgetType()) return false;
    const auto& widget = static_cast<const QWidget&>(object);
    if (&widget == this || isAncestorOf(&widget)) return false;
    // Dialogs and lists that the editor has opened are part of it.
    const QWidget* modal = QApplication::activeModalWidget();
    return QApplication::activePopupWidget() == nullptr && (modal == nullptr || modal == this);
}

bool EditorPanel::eventFilter(QObject* object, QEvent* event) {
    if (!isPressedOutside(*object, *event)) return QGraphicsView::eventFilter(object, event);
    // The press ends the editing and does nothing more.
    end(kMTextEditorOutside, static_cast<QMouseEvent&>(*event).modifiers());
    return true;
}

void EditorPanel::hideEvent(QHideEvent* event) {
    QGraphicsView::hideEvent(event);
    // Closed, or its window is; one that is put away as an icon comes back.
    if (!m_ended && !event->spontaneous()) end(kMTextEditorEscape, Qt::NoModifier);
}

}  // namespace kdhost
