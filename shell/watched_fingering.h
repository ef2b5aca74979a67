/// A search for a fingering that its user can watch.
#pragma once

namespace zarn
{
/// A watched search runs: the score is not painted, since painting gives notes a fingering too. Main thread.
inline bool bFingeringRuns = false;

/// While one stands, a search that takes long shows how far it has come and can be called off.
class WatchedFingering
{
public:
    WatchedFingering();
    ~WatchedFingering();
    WatchedFingering(WatchedFingering const&) = delete;
    WatchedFingering& operator=(WatchedFingering const&) = delete;
};
} // namespace zarn
