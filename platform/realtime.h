/// Threads that must be on time.
#pragma once
#include <chrono>

namespace zarn
{
/// The calling thread gets the highest priority that the user may have. A system that refuses leaves it as it was: then
/// it is late now and then on a busy machine, and nothing else changes.
void Thread_RaisePriority();

/// Sleeps to a moment of the clock, so that what the call itself takes adds nothing.
void Thread_SleepUntil(std::chrono::steady_clock::time_point moment);

/// Sleeping is as exact as a millisecond between the two calls; they may be nested.
void Clock_BeginFine();
void Clock_EndFine();
} // namespace zarn
