/// A process for one test: a scripted host, a map of settings, empty staffs, and every shared value as at start.
#pragma once
#include "platform/headless/script_host.h"

namespace zarn::test
{
/// Makes a ScriptHost with a map of settings the host of the process for as long as it lives, creates the Score's lists
/// and puts the Score's and the geometry's state to its defaults; destroys the lists at the end.
class ScriptedProcess
{
public:
    ScriptedProcess();
    ~ScriptedProcess();
    ScriptedProcess(ScriptedProcess const&) = delete;
    ScriptedProcess& operator=(ScriptedProcess const&) = delete;

    ScriptHost user;
    MapStore settings;

private:
    Host previous;
};
} // namespace zarn::test
