// The beat follower. The only floating point arithmetic on music: single precision, as the stored rates are.
#include "midi/track_key.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "midi/quantise.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t lNoTime = -1;
constexpr int32_t lUsualBeat = 48; ///< ticks: a crotchet

int32_t Reset()
{
    gltStart = 0;
    sBeatRate = 0;
    snNotes = 0;
    lLastKeyTime = 0;
    lLastBeat = 0;
    lBeatLength = elCurrent.sort == NOTE && elCurrent.lDuration != 0 ? elCurrent.lDuration : lUsualBeat;
    return lNoTime;
}

/// Half a beat's milliseconds from this key on, again and again.
void StartMetronome(int32_t lTime, int32_t lDelta, int32_t lBeat)
{
    int32_t const lPeriod =
        Truncate(static_cast<float>(lBeatLength) / (static_cast<float>(lDingsPerBeat) * sBeatRate) + 0.5);
    MetronomeStart const start = Metronome_Restart(lTime, lPeriod);
    DebugLog(Format("%d Delta= %d Beat=%d Rate= %g Setting timer for %d mSec, gTimer=%d\r\n", lTime, lDelta, lBeat,
                    sBeatRate, start.lDelay, static_cast<int32_t>(start.gTimer)));
}

/// What a length of so many ticks in so many milliseconds says of the speed goes into the average.
void Average(int32_t lTicks, int32_t lDelta)
{
    ++snNotes;
    float const sInstRate = static_cast<float>(lTicks) / static_cast<float>(lDelta);
    sBeatRate = (static_cast<float>(snNotes - 1) * sBeatRate + sInstRate) / static_cast<float>(snNotes);
    DebugLog(Format("InstRate=%g BeatRate=%g snNotes=%d\r\n", sInstRate, sBeatRate, snNotes));
    // Only now: the newest interval never weighs less than a fifth, nor more once there are four.
    snNotes = std::min(snNotes, snMaxNotes);
}

/// The beat of the second key-down defines the speed.
int32_t SecondBeat(int32_t lTime)
{
    lLastKeyTime = lTime;
    snNotes = 1;
    sBeatRate = static_cast<float>(lBeatLength) / static_cast<float>(lTime);
    lLastBeat = lBeatLength;
    DebugLog(Format("%d Second note == %d beats rate=%g\r\n", lTime, lLastBeat, sBeatRate));
    return lLastBeat;
}

/// The beat of a key-down behind the first.
int32_t FollowBeat(int32_t lTime)
{
    if (sBeatRate == 0)
        return SecondBeat(lTime);
    int32_t const lDelta = Wrap_Sub(lTime, lLastKeyTime);
    float const sTicks = static_cast<float>(lDelta) * sBeatRate;
    DebugLog(Format("Delta=%d sBeatRate=%g D*r=%g\r\n", lDelta, sBeatRate, sTicks));
    int32_t const lTicks = Quantise(Truncate(sTicks + 0.5));
    int32_t const lBeat = Clamp32(int64_t{lLastBeat} + lTicks);
    if (lTicks == 0)
    {
        DebugLog(Format("%d Delta= %d Beat=%d Glitch or grace\r\n", lTime, lDelta, lBeat));
        return lBeat;
    }
    Average(lTicks, lDelta);
    lLastKeyTime = lTime;
    lLastBeat = lBeat;
    if (int64_t{lBeat} % lBeatLength == 0)
        StartMetronome(lTime, lDelta, lBeat);
    else
        DebugLog(Format("%d Delta= %d Beat=%d Rate= %g\r\n", lTime, lDelta, lBeat, sBeatRate));
    return lBeat;
}

int32_t Hold(int32_t lNote, int32_t lBeat, int32_t lTime, std::vector<HeldNote>& listHeld)
{
    if (listHeld.size() >= cMostHeld)
        return lNoTime;
    HeldNote note;
    note.lBeat = lBeat;
    note.fRate = sBeatRate;
    note.lOn = lTime;
    note.lNote = lNote;
    listHeld.push_back(note);
    return lTime;
}

/// The ended flag stays as it is: a take leaves its notes held, and none is placed.
int32_t Release(int32_t lNote, int32_t lTime, std::vector<HeldNote>& listHeld)
{
    auto const it =
        std::find_if(listHeld.begin(), listHeld.end(), [lNote](HeldNote const& note) { return note.lNote == lNote; });
    if (it == listHeld.end())
        return lNoTime;
    it->lOff = lTime;
    if (it->fRate != 0)
        return lNoTime;
    // A note that ends in the millisecond of its beginning counts as one millisecond.
    auto const sLength = static_cast<float>(std::max<int64_t>(int64_t{lTime} - it->lOn, 1));
    if (sBeatRate != 0)
        it->fRate = sBeatRate;
    else if (lBeatLength != 0)
        it->fRate = static_cast<float>(lBeatLength) / sLength;
    else
    {
        Serious("What are we doing here???  Tell Odrian!");
        it->fRate = static_cast<float>(lUsualBeat) / sLength;
    }
    return lNoTime;
}
} // namespace

int32_t TrackKey(int32_t lNote, int32_t lVelocity, std::vector<HeldNote>& listHeld, int32_t lTime)
{
    if (lVelocity == lResetVelocity)
        return Reset();
    bool const bDown = lVelocity > 0;
    int32_t lBeat = 0;
    if (gltStart == 0)
    {
        if (!bDown)
            return lNoTime;
        gltStart = lTime;
        DebugLog(Format("First key down.  gltStart=%d\r\n", lTime));
        lTime = 0;
    }
    else if (bDown && lTime >= 1)
        lBeat = FollowBeat(lTime);
    if (lNote < 0 || lNote > lHighestTrackedNote)
        return lNoTime;
    return bDown ? Hold(lNote, lBeat, lTime, listHeld) : Release(lNote, lTime, listHeld);
}
} // namespace zarn
