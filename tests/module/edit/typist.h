// A user at the in-place editor: answers one edit after another, and keeps what each was asked with.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/ed/texteditor.h"
#include "host/win32/keystate.h"
#include "kd/db/mtext.h"
#include "kd/ed/inplaceeditor.h"

namespace kdtest {

/// One edit: the text left behind, if it is changed, and the key that ends it.
struct Typed {
    std::optional<std::wstring> text;
    int key = kMTextEditorTab;
    std::function<void(KdDbMText& text)> change = {};  ///< what else the user does
};

inline Typed leave(int key) {
    return {std::nullopt, key};
}

/// What the editor was opened with.
struct Opened {
    std::wstring contents;
    int mode = 0;
};

class Typist : public kdhost::TextEditor {
public:
    Typist() { kdhost::setTextEditor(this); }
    ~Typist() override { kdhost::setTextEditor(nullptr); }
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    /// Behind the last answer every edit ends with Esc.
    void types(std::vector<Typed> answers) { m_answers.assign(answers.begin(), answers.end()); }
    std::size_t left() const { return m_answers.size(); }

    std::vector<Opened> opened;
    std::function<void(KdDbMText& text)> look;  ///< called for each edit before it is answered

    int edit(KdDbMText& text, int& key, int mode) override {
        opened.push_back({text.contents(), mode});
        if (look) look(text);
        Typed answer = leave(kMTextEditorEscape);
        if (!m_answers.empty()) {
            answer = m_answers.front();
            m_answers.pop_front();
        }
        key = answer.key;
        if (key == kMTextEditorEscape) return RTCAN;
        if (answer.text) text.setContents(answer.text->c_str());
        if (answer.change) answer.change(text);
        return RTNORM;
    }

private:
    std::deque<Typed> m_answers;
};

}  // namespace kdtest
