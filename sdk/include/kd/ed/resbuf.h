// Result buffers: typed values in a chain, as host variables and dialogs hand them around.
#pragma once

#include <cstdint>

/// Types of a result buffer's value.
enum KdResultType : short {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,
    RTSHORT = 5003,
    RTANG = 5004,
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007,
    RT3DPOINT = 5009,
    RTLONG = 5010,
};

/// Status values of prompts and of most functions of the editor.
enum KdEditorStatus : int {
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTFAIL = -5004,
    RTKWORD = -5005,
};

/// The editor's name of an entity or of a selection set.
using kded_name = std::int64_t[2];
using kded_point = double[3];

struct resbuf {
    resbuf* rbnext = nullptr;
    short restype = RTNONE;
    union Value {
        double rreal;
        double rpoint[3];
        short rint;
        std::int32_t rlong;
        wchar_t* rstring;
        std::int64_t rlname[2];
    } resval{};
};

/// A new buffer of that type, to be released with kdutRelRb.
resbuf* kdutNewRb(int type);
/// Releases a chain and the texts in it. Null is harmless. Returns RTNORM.
int kdutRelRb(resbuf* chain);
/// Copies a text into a new buffer; on success `copy` is to be freed with kdutDelBuffer. RTERROR for null.
int kdutNewString(const wchar_t* text, wchar_t*& copy);
wchar_t* kdutNewString(const wchar_t* text);
/// Frees a text that the host handed out and sets the pointer to null. Null is harmless.
void kdutDelBuffer(wchar_t*& text);
