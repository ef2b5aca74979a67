/// What the desktop module hands to the program: windows, the user's settings, PDF and picture documents.
///
/// The module is loaded late, so that a conversion starts in a few milliseconds. It calls the program by virtual calls
/// alone and shares no variable with it: `host` of the module isn't the program's. So the program hands the door in.
#pragma once
#include "platform/host.h"
#include "platform/paged_surface.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace zarn
{
class DesktopHost : public UserHost
{
public:
    /// Where events go. Before the main window is made; it must outlive Run.
    virtual void SetDoor(Door* pDoor) = 0;
    /// The message loop; gives the code handed to Quit.
    virtual int32_t Run() = 0;
    /// Hands a file to a window of this user's that stands on the same display already. True when that one has taken
    /// it; false when there is none, it is busy with a question, or doesn't answer in time.
    virtual bool HandOver(std::string_view szPath) = 0;
    /// Takes files that later starts hand over: each reaches the door as if dropped on the window. Where another window
    /// takes them already, nothing happens.
    virtual void TakeHandedOver() = 0;
    /// The user's stored settings; as long as the host.
    virtual SettingsStore* Settings() = 0;
    /// A PNG picture, one page. size is the drawing's, in pixels of 1/96 inch; the picture has lDpi pixels to the inch.
    /// Null when it can't be made (too large).
    virtual std::unique_ptr<PagedSurface> NewPng(SIZE size, int32_t lDpi) = 0;
};

/// Makes the one host of the process; it lives to the end. fWindow false: pictures and documents alone, without a
/// display. argc and argv are main's and must stay. Null when there is no display.
extern "C" DesktopHost* zarn_desktop_host(int argc, char** argv, bool fWindow);

/// The name under which the module exports it.
constexpr char const* sDesktopEntry = "zarn_desktop_host";
using DesktopEntry = decltype(&zarn_desktop_host);
} // namespace zarn
