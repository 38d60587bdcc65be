// The file dialog as a window. Every run of the program has it, one without a display too, so that people and
// scripts use the same.
#pragma once

#include "host/ed/filedialog.h"

namespace kdhost {

/// Asks by a dialog named "FileDialog". It stands in for the editor's file dialog as long as it lives.
class WindowFileDialog : public FileDialog {
public:
    WindowFileDialog();
    ~WindowFileDialog() override;
    WindowFileDialog(const WindowFileDialog&) = delete;
    WindowFileDialog& operator=(const WindowFileDialog&) = delete;

    std::optional<std::wstring> ask(const FileDialogRequest& request) override;
};

}  // namespace kdhost
