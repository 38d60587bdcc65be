// The in-place editor's sheet: it lies over the drawing with the text's box in it, and takes the keys and the mouse
// until the editing ends.
#pragma once

#include <QEventLoop>
#include <QGraphicsScene>
#include <QGraphicsView>

#include "host/ed/viewwidget.h"
#include "host/ui/inplaceeditor/editorbox.h"
#include "host/ui/inplaceeditor/editorplace.h"
#include "host/ui/inplaceeditor/fieldtext.h"

class KdDbMText;

namespace kdhost {

class FormatBar;

class EditorPanel : public QGraphicsView, private ViewFollower {
public:
    EditorPanel(KdDbMText& text, const EditorPlace& place);
    ~EditorPanel() override;

    /// Runs the editor; as invokeMTextEditorForTable.
    int run(int& key, int mode);

    TextItem& text() { return m_box->text(); }
    FormatBar& bar() { return *m_bar; }
    /// What is in the editor, as it is read.
    std::wstring plainText() const { return m_document.plainText(); }
    /// The box in pixels of the panel.
    QRectF box() const { return m_box->sceneBoundingRect(); }
    /// A place of the panel that is outside of the text and the bar.
    QPoint placeOutside() const;
    void focusText();
    bool hasEnded() const { return m_ended; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void viewMoved() override;
    void lieOverDrawing();
    void standAlone();
    void open(int mode);
    void place();
    void placeBar();
    void press(QKeyEvent& event);
    bool isPressedOutside(const QObject& object, const QEvent& event) const;
    bool isOnBox(const QPoint& place) const;
    /// Ends the editing by the code of a key.
    void end(int key, Qt::KeyboardModifiers modifiers);
    int finish();

    KdDbMText& m_text;
    EditorPlace m_place;
    FieldText m_fields;
    TextLooks m_looks;
    RichDocument m_document;
    std::vector<text::Piece> m_before;
    QGraphicsScene m_scene;
    EditorBox* m_box;  ///< the scene's
    FormatBar* m_bar;  ///< the panel's
    QEventLoop m_loop;
    int m_key;
    bool m_ended = false;
    bool m_placing = false;
};

}  // namespace kdhost
