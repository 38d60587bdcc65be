// Result buffers and the texts in them. Every text that the host hands out is an array of its own.

#include "kd/ed/resbuf.h"

#include <algorithm>
#include <cwchar>
#include <memory>

resbuf* kdutNewRb(int type) {
    auto buffer = std::make_unique<resbuf>();
    buffer->restype = static_cast<short>(type);
    return buffer.release();
}

int kdutRelRb(resbuf* chain) {
    while (chain != nullptr) {
        std::unique_ptr<resbuf> buffer(chain);
        chain = buffer->rbnext;
        if (buffer->restype == RTSTR) kdutDelBuffer(buffer->resval.rstring);
    }
    return RTNORM;
}

int kdutNewString(const wchar_t* text, wchar_t*& copy) {
    if (text == nullptr) return RTERROR;
    const std::size_t size = std::wcslen(text) + 1;
    auto characters = std::make_unique<wchar_t[]>(size);
    std::copy_n(text, size, characters.get());
    copy = characters.release();
    return RTNORM;
}

wchar_t* kdutNewString(const wchar_t* text) {
    wchar_t* copy = nullptr;
    kdutNewString(text, copy);
    return copy;
}

void kdutDelBuffer(wchar_t*& text) {
    delete[] text;
    text = nullptr;
}
