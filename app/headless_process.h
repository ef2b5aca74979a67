/// The process of a conversion: the host without a window, what it shows told in the terminal, an empty Score. One in a
/// process: what the Score holds stays until that ends.
#pragma once
#include "platform/headless/script_host.h"
#include "platform/headless/virtual_sound.h"
#include "platform/registry.h"

namespace zarn
{
class HeadlessProcess
{
public:
    /// Settings are the built-in ones, so that a score comes out the same on every machine.
    HeadlessProcess();
    ~HeadlessProcess();
    HeadlessProcess(HeadlessProcess const&) = delete;
    HeadlessProcess& operator=(HeadlessProcess const&) = delete;

    /// Makes the empty Score of a conversion; an editor that is played back makes its own.
    /// @param lWidth, lHeight  the drawing area in pixels
    void BeginConversion(int32_t lWidth, int32_t lHeight);

    ScriptHost user;
    VirtualSound sound{user}; ///< of the editor that is played back; a conversion is given none

private:
    MapStore settings;
};
} // namespace zarn
