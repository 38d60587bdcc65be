// What the linker's test module tells its test: it finds the log in the system registry.
#pragma once

#include <cstdint>

#include "kd/rx/object.h"

namespace kdtest {

inline constexpr const wchar_t* kProbeLogName = L"TEST_PROBE_LOG";

/// Told of every message that the test module gets. What the answer is, the entry point answers; an exception
/// that leaves here leaves the entry point.
class ProbeLog : public KdRxObject {
public:
    virtual std::intptr_t received(std::uint32_t message, void* argument) = 0;
};

}  // namespace kdtest
