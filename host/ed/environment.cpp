// The environment that the program was started in.

#include "kd/ed/environment.h"

#include <cstdlib>
#include <cwchar>

#include "host/rx/encoding.h"
#include "kd/ed/resbuf.h"

int kdedGetEnv(const wchar_t* name, wchar_t* value, int size) {
    if (name == nullptr || value == nullptr) return RTERROR;
    const char* found = std::getenv(kdhost::toUtf8(name).c_str());
    if (found == nullptr) return RTERROR;
    const std::wstring text = kdhost::fromUtf8(found);
    if (size <= 0 || text.size() >= static_cast<std::size_t>(size)) return RTERROR;
    std::wmemcpy(value, text.c_str(), text.size() + 1);
    return RTNORM;
}
