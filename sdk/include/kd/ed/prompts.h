// Prompts: what a command asks the user on the command line and in the drawing view.
//
// Every prompt reads the one input queue that keys, macros, strings sent to the document and scripts feed.
// A blank or a line end finishes an answer, except where a prompt takes blanks.
#pragma once

#include "kd/db/objectid.h"
#include "kd/ed/resbuf.h"
#include "kd/ge/point3d.h"
#include "kd/rx/errorstatus.h"

/// Announces keywords for the next prompt: "local words _GLOBAL words". The capitals of a word must be
/// typed; the letters before them may be left out, and more of its letters may follow. `flags` bit 1
/// refuses an empty answer. Always RTNORM.
int kdedInitGet(int flags, const wchar_t* keywords);

/// RTNORM with the global word on a match and with the text as typed on none; RTREJ on an empty answer,
/// RTCAN on Esc. `reply` takes 132 characters at most, as the host cuts longer words.
int kdedGetKword(const wchar_t* prompt, wchar_t* reply);
/// Reads a word, or with `allowSpaces` a line, of at most 1023 characters. RTNORM also for an empty answer;
/// RTCAN on Esc. `prompt` may be null.
int kdedGetString(int allowSpaces, const wchar_t* prompt, wchar_t* reply);
/// The point is in user coordinates. RTNORM; RTKWORD where the answer is an announced keyword, to be had by
/// kdedGetInput; RTREJ on an empty answer, RTCAN on Esc. Text that is neither is told to the user, who is
/// asked again.
int kdedGetPoint(const KdGePoint3d* base, const wchar_t* prompt, KdGePoint3d& point);
/// The word of the last prompt that ended with RTKWORD.
int kdedGetInput(wchar_t* reply);
/// Lets the user pick one entity; `point` is the picked point in user coordinates. RTERROR when nothing
/// lies there or the answer is empty, RTCAN on Esc.
int kdedEntSel(const wchar_t* prompt, kded_name name, kded_point point);
Kdad::ErrorStatus kddbGetObjectId(KdDbObjectId& id, const kded_name name);
Kdad::ErrorStatus kddbGetKfsName(kded_name name, const KdDbObjectId& id);

/// Writes to the command line.
int kdedPrompt(const wchar_t* text);
int kdutPrintf(const wchar_t* format, ...);

/// Asks for a file name in the host's file dialog. Bit 1 of `flags` asks for a name to write to; other bits
/// are the dialog's own. On RTNORM `result` holds a text (RTSTR) and is to be released with kdutRelRb; RTCAN
/// when the user cancels, with `result` null.
int kdedGetFileNavDialog(const wchar_t* title, const wchar_t* defaultName, const wchar_t* extension,
                         const wchar_t* dialogName, int flags, resbuf** result);

/// Brings the drawing view up to date.
void kdedUpdateDisplay();
