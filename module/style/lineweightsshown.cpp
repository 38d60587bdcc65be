// The variable behind the display of line weights.

#include "module/style/lineweightsshown.h"

#include "kd/ed/variables.h"

namespace {

constexpr const wchar_t* kVariable = L"LWDISPLAY";

void set(short value) {
    resbuf buffer;
    buffer.restype = RTSHORT;
    buffer.resval.rint = value;
    kdedSetVar(kVariable, &buffer);
}

}  // namespace

LineWeightsShown::LineWeightsShown() {
    resbuf buffer;
    if (kdedGetVar(kVariable, &buffer) != RTNORM) return;
    m_kept = buffer.resval.rint;
    set(1);
}

LineWeightsShown::~LineWeightsShown() {
    if (m_kept) set(*m_kept);
}
