// The application as windows see it that float over the drawing: the cursor there, keys that belong to the drawing,
// and macros.
#pragma once

#include <cstdint>

class QKeyEvent;

class KdadApplicationInterface {
public:
    virtual ~KdadApplicationInterface();

    /// How the cursor stands over the drawing while no command asks: 1 the cross, as at first, 0 the plain arrow. While
    /// it is locked this is still the state from before the lock.
    virtual std::int64_t cursorState() const = 0;
    /// With `lock` the state holds until the lock ends, however often it is set; without, the lock ends and the state
    /// is kept. Numbers other than 0 stand for the cross.
    virtual void setCursorState(std::int64_t state, bool lock) = 0;

    /// Hands on a key that a window has no use for: it goes where it would go had it been pressed over the drawing.
    /// `code` is the kind of the event, 6 a key that goes down; nothing is done for other kinds. False when nobody
    /// takes the key.
    virtual bool sendKey(int code, QKeyEvent* event) = 0;
};

/// The host's one interface; null before the host has started.
KdadApplicationInterface* kdadApplicationInterface();

/// Types a macro at the current document's prompts, with an Enter behind it; each "^C" in it cancels what runs, and
/// leaves selected cells selected. It runs once the prompt that waits looks, ahead of what was typed before. With
/// `echo` 1 the command line shows it. `reserved` is for hosts that have more than one command line. False without a
/// document or a text.
bool VqExecuteCommand(const wchar_t* macro, int reserved = -1, int echo = 1);
