// How the drawing is painted, by the host's variables.

#include "host/ed/drawingoptions.h"

#include "host/ed/variables.h"

namespace kdhost {

draw::Options drawingOptions() {
    draw::Options options;
    const auto value = readVariable(*findVariable(L"LWDISPLAY"));
    options.lineWeights = value && std::get<std::int32_t>(*value) == 1;
    return options;
}

}  // namespace kdhost
