// Opening the in-place editor, and the keys that were down when it ended.

#include "host/ui/inplaceeditor/inplaceeditor.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include "host/ed/editor.h"
#include "host/ed/texteditor.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/win32/keystate.h"
#include "kd/ed/inplaceeditor.h"

namespace kdhost {
namespace {

EditorPanel* openPanel = nullptr;

}  // namespace

class InPlaceEditor : public QObject, private TextEditor {
public:
    InPlaceEditor() {
        setTextEditor(this);
        QCoreApplication::instance()->installEventFilter(this);
    }
    ~InPlaceEditor() override {
        setTextEditor(nullptr);
        releaseKeyState();
    }

private:
    int edit(KdDbMText& text, int& key, int mode) override {
        key = kMTextEditorEscape;
        const Editor* editor = currentEditor();
        if (editor == nullptr || openPanel != nullptr) return RTCAN;
        EditorPanel panel(text, EditorPlace(&editor->view()));
        openPanel = &panel;
        const int result = panel.run(key, mode);
        openPanel = nullptr;
        return result;
    }

    /// The state that the last key left is kept until the next one.
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) releaseKeyState();
        return QObject::eventFilter(object, event);
    }
};

void UninstallInPlaceEditor::operator()(InPlaceEditor* editor) const {
    delete editor;
}

InstalledInPlaceEditor installInPlaceEditor() {
    return InstalledInPlaceEditor(new InPlaceEditor);
}

EditorPanel* openInPlaceEditor() {
    return openPanel;
}

}  // namespace kdhost
