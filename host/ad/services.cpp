// The application's services.

#include "host/ad/services.h"

#include <QDir>
#include <cwchar>

#include "host/rx/faults.h"

namespace kdhost {

const KdCommandLineState* HostServices::commandLineState() const {
    return faults().noCommandLineState ? nullptr : &m_commandLineState;
}

bool HostServices::getTempFolder(wchar_t* folder, int length) const {
    // Empty where the environment names a folder that isn't there.
    const std::wstring path = QDir::tempPath().toStdWString();
    if (path.empty() || folder == nullptr || length <= 0 || path.size() >= static_cast<std::size_t>(length)) {
        return false;
    }
    std::wmemcpy(folder, path.c_str(), path.size() + 1);
    return true;
}

bool HostServices::State::isOn() const {
    return !faults().commandLineOff;
}

}  // namespace kdhost
