/// The process of a conversion: the host without a window, what it shows told in the terminal, an empty Score.
#pragma once
#include "platform/headless/script_host.h"
#include "platform/registry.h"

namespace zarn
{
class HeadlessProcess
{
public:
    /// Settings are the built-in ones, so that a score comes out the same on every machine.
    /// @param lWidth, lHeight  the drawing area in pixels
    HeadlessProcess(int32_t lWidth, int32_t lHeight);
    ~HeadlessProcess();
    HeadlessProcess(HeadlessProcess const&) = delete;
    HeadlessProcess& operator=(HeadlessProcess const&) = delete;

    ScriptHost user;

private:
    MapStore settings;
};
} // namespace zarn
