// The scope in which previews show line weights.
#pragma once

#include <optional>

/// Sets the variable "LWDISPLAY" to 1 and puts it back as it was, on every way out. A variable that can't be read isn't
/// touched, since it couldn't be put back.
class LineWeightsShown {
public:
    LineWeightsShown();
    ~LineWeightsShown();
    LineWeightsShown(const LineWeightsShown&) = delete;
    LineWeightsShown& operator=(const LineWeightsShown&) = delete;

private:
    std::optional<short> m_kept;
};
