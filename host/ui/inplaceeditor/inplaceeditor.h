// The in-place editor of the program.
#pragma once

#include <memory>

namespace kdhost {

class EditorPanel;

/// From now on texts are edited by the user, until the returned object goes.
class InPlaceEditor;
struct UninstallInPlaceEditor {
    void operator()(InPlaceEditor* editor) const;
};
using InstalledInPlaceEditor = std::unique_ptr<InPlaceEditor, UninstallInPlaceEditor>;
[[nodiscard]] InstalledInPlaceEditor installInPlaceEditor();

/// The editor that is open; null for none.
EditorPanel* openInPlaceEditor();

}  // namespace kdhost
