/// What comes from outside: one small plain record for each key, button, command, answer, tick.
///
/// Everything that a user or a device does reaches the program as one of these, through one function. A host can write
/// them to a journal, a line each, and the headless host can play a journal back.
#pragma once
#include <cstdint>
#include <string>

namespace zarn
{
enum class EventKind : int32_t
{
    SIZE,    ///< the main window's client area becomes x by y pixels
    OPEN,    ///< a file is dropped on the window; sText is its path
    COMMAND, ///< lNumber
    KEY,     ///< a key goes down; sText its name, fShift, fCtrl, fAlt
    MOVE,    ///< the pointer moves to x, y in client pixels of the main window
    LEFTDOWN,
    LEFTUP,
    RIGHTDOWN,
    RIGHTUP,
    PALETTE, ///< a click at x, y of that panel's own client pixels
    PIANO,
    SCROLL, ///< lNumber is a ScrollAction; for THUMB, x is the place
    TICK,   ///< the virtual clock goes on by lNumber milliseconds
    MIDI,   ///< a message from the MIDI input: lNumber status, x data 1, y data 2
    CLOSE,  ///< the window's close button
};

enum class ScrollAction : int32_t
{
    LINEUP,
    LINEDOWN,
    PAGEUP,
    PAGEDOWN,
    THUMB,
    STRETCH, ///< the wheel with Ctrl: symbols wider apart, or closer
    SQUEEZE
};

struct Event
{
    EventKind kind = EventKind::TICK;
    int32_t lNumber = 0;
    int32_t x = 0;
    int32_t y = 0;
    bool fShift = false;
    bool fCtrl = false;
    bool fAlt = false;
    std::string sText = {}; ///< a path, or a key's name: left right up down home end pageup pagedown enter esc space
                            ///< backspace delete tab 0-9 a-z f1-f12, or one sign
    friend bool operator==(Event const&, Event const&) = default;
};

/// What the program owes its host. The host calls it on the main thread.
class Door
{
public:
    virtual ~Door() = default;
    virtual void Receive(Event const& event) = 0;
    /// A key that stands for a command, whichever window has the keys.
    [[nodiscard]] virtual bool IsAccelerator(Event const&) const { return false; }
};
} // namespace zarn
