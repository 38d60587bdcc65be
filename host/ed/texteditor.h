// The in-place editor as the editor of a document knows it: something above shows one, or answers in its place.
#pragma once

class KdDbMText;

namespace kdhost {

class TextEditor {
public:
    virtual ~TextEditor() = default;
    /// As invokeMTextEditorForTable, on a text that is there.
    virtual int edit(KdDbMText& text, int& key, int mode) = 0;
};

/// Null for none, as where there is no user: every edit is then cancelled. The editor stays the caller's.
void setTextEditor(TextEditor* editor);

}  // namespace kdhost
