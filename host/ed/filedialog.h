// The file dialog as the editor knows it: something above shows one, or answers in its place.
#pragma once

#include <optional>
#include <string>

namespace kdhost {

struct FileDialogRequest {
    std::wstring title;
    std::wstring defaultName;
    std::wstring extension;  ///< without its dot
    bool forWriting = false;
    int flags = 0;
};

class FileDialog {
public:
    virtual ~FileDialog() = default;
    /// The path chosen; none when the user cancels.
    virtual std::optional<std::wstring> ask(const FileDialogRequest& request) = 0;
};

/// Null for none, as where there is no user. The dialog stays the caller's.
void setFileDialog(FileDialog* dialog);

}  // namespace kdhost
