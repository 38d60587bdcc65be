// The application's services.

#include "host/ad/services.h"

#include "host/rx/faults.h"

namespace kdhost {

const KdCommandLineState* HostServices::commandLineState() const {
    return faults().noCommandLineState ? nullptr : &m_commandLineState;
}

bool HostServices::State::isOn() const {
    return !faults().commandLineOff;
}

}  // namespace kdhost
