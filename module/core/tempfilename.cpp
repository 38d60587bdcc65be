// Names of temporary files.

#include <array>

#include "kd/db/database.h"
#include "module/core/tablecommon.h"
#include "win32/tempfile.h"

namespace {

constexpr int noReason = 53;
using FolderText = std::array<wchar_t, 1024>;

/// The host's folder for temporary files.
bool askForFolder(FolderText& folder) {
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    return services != nullptr && services->getTempFolder(folder.data(), static_cast<int>(folder.size()));
}

}  // namespace

/// Where the platform tells why it failed, the host's translation of that reason counts, and the host translates
/// every one of them to 0.
int CVqTableCommon::GetVqcadTmpFileName(const wchar_t* prefix, const wchar_t* directory, wchar_t* out) {
    FolderText folder{};
    if (directory == nullptr && !askForFolder(folder)) return noReason;
    const wchar_t* place = directory != nullptr ? directory : folder.data();
    if (GetTempFileNameW(place, prefix, 0, out) != 0) return 0;
    const DWORD reason = GetLastError();
    return reason == LAST_NO_ERROR ? noReason : getKdadErrorFromWinErr(reason);
}
