// A text in the in-place editor, and a user at its keys.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>

#include "host/ui/automation/realinput.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/ui/inplaceeditor/formatbar.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"
#include "host/win32/keystate.h"
#include "kd/db/mtext.h"
#include "kd/ed/inplaceeditor.h"
#include "tests/support/application.h"

namespace kdtest {

/// How an edit ended.
struct Ended {
    int status = 0;
    int key = -1;

    friend bool operator==(const Ended&, const Ended&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Ended& ended) {
    return out << "status " << ended.status << ", key " << ended.key;
}

/// A text that isn't yet in the drawing, as the one over a cell: 60 wide, 20 high, capitals of 4.
class InPlaceEditorTest : public ApplicationTest {
protected:
    InPlaceEditorTest() {
        text.setDatabaseDefaults(&host.database());
        text.setTextStyle(host.database().textstyle());
        text.setLocation({100.0, 150.0, 0.0});
        text.setWidth(60.0);
        text.setHeight(20.0);
        text.setTextHeight(4.0);
    }
    ~InPlaceEditorTest() override { kdhost::releaseKeyState(); }

    using User = std::function<void(kdhost::EditorPanel&)>;

    /// Opens the editor on the text. A user who doesn't end the editor fails the test.
    Ended edit(const User& user, int mode = kMTextEditorSelectAll) {
        QTimer::singleShot(0, qApp, [&user] {
            kdhost::EditorPanel* panel = kdhost::openInPlaceEditor();
            ASSERT_NE(panel, nullptr);
            // The window is told by and by that it has the keyboard.
            QApplication::processEvents();
            user(*panel);
            if (panel->hasEnded()) return;
            ADD_FAILURE() << "the editor did not end";
            panel->close();
        });
        Ended ended;
        KdDbMText* edited = &text;
        ended.status = invokeMTextEditorForTable(edited, ended.key, mode);
        return ended;
    }
    /// Types, and leaves with Tab.
    Ended type(const QString& typed, int mode = kMTextEditorSelectAll) {
        return edit(
            [&](kdhost::EditorPanel&) {
                kdhost::typeKeys(typed);
                tab();
            },
            mode);
    }

    static void tab() { kdhost::pressKey(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t")); }
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
        kdhost::pressKey(key, modifiers, isEnter ? QStringLiteral("\r") : QString());
    }
    /// A control of the format bar.
    template <class Control>
    static Control& in(kdhost::EditorPanel& panel, const char* name) {
        auto* control = panel.bar().findChild<Control*>(QString::fromLatin1(name));
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }
    static void select(kdhost::EditorPanel& panel, int from, int to) {
        QTextCursor caret = panel.text().textCursor();
        caret.setPosition(from);
        caret.setPosition(to, QTextCursor::KeepAnchor);
        panel.text().setTextCursor(caret);
    }

    std::wstring contents() const { return text.contents(); }

    KdDbMText text;
    const kdhost::InstalledInPlaceEditor installed = kdhost::installInPlaceEditor();
};

}  // namespace kdtest
