// Asking for a file name.

#include "host/ed/filedialog.h"

#include "host/ed/nulltext.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

FileDialog* fileDialog = nullptr;
constexpr int kForWriting = 1;

}  // namespace

void setFileDialog(FileDialog* dialog) {
    fileDialog = dialog;
}

}  // namespace kdhost

int kdedGetFileNavDialog(const wchar_t* title, const wchar_t* defaultName, const wchar_t* extension, const wchar_t*,
                         int flags, resbuf** result) {
    using namespace kdhost;
    if (result == nullptr) return RTERROR;
    *result = nullptr;
    if (fileDialog == nullptr) return RTCAN;
    const FileDialogRequest request{orEmpty(title), orEmpty(defaultName), orEmpty(extension),
                                    (flags & kForWriting) != 0, flags};
    const std::optional<std::wstring> path = fileDialog->ask(request);
    if (!path) return RTCAN;
    *result = kdutNewRb(RTSTR);
    (*result)->resval.rstring = kdutNewString(path->c_str());
    return RTNORM;
}
