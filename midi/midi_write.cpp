// Writing Standard MIDI Files.
//
// The length of a track stands ahead of it and is known behind it, so it is patched.
#include "midi/midi_write.h"

#include "core/messages.h"
#include "core/score.h"
#include "midi/play_list.h"
#include "midi/score_times.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>

namespace zarn
{
namespace
{
constexpr int32_t lTicksPerCrotchet = 48;
constexpr int32_t lMicrosecondsAMinute = 60'000'000;
constexpr int32_t lLongestCrotchet = 0xFFFFFF; ///< microseconds: what the three bytes of a tempo hold
constexpr int32_t lUsualTempo = 120;           ///< beats a minute, of a score that has no tempo
constexpr int32_t lProgramChange = 0xC0;
constexpr int32_t lNoteOn = 0x90;
constexpr int32_t cbTrackLength = 4;

/// What the staffs say first.
struct StaffHeads
{
    int32_t lTempo = 0; ///< beats a minute
    int32_t lNum = 0;
    int32_t lDen = 0;
    int32_t lKey = 0;
};

bool IsWritten(int32_t lStaff) { return afPlay[lStaff] && StaffFirst(lStaff); }

/// From staffs 1 to 8 in order; a value once found is kept. A tempo of nothing is none.
StaffHeads ScanStaffHeads()
{
    StaffHeads heads;
    bool bTime = false;
    bool bKey = false;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsWritten(lStaff))
            continue;
        for (Element const* pel = StaffFirst(lStaff); pel && !(heads.lTempo && bTime && bKey); pel = Next(pel))
        {
            if (pel->sort == TEMPO && heads.lTempo == 0)
                heads.lTempo = std::max(pel->lA, 0);
            else if (pel->sort == TIMESIG && !bTime)
            {
                heads.lNum = pel->lA;
                heads.lDen = pel->lB;
                bTime = true;
            }
            else if (pel->sort == KEYSIG && !bKey)
            {
                heads.lKey = pel->lA;
                bKey = true;
            }
        }
    }
    if (heads.lTempo == 0)
        heads.lTempo = lUsualTempo;
    return heads;
}

int32_t WriteBytes(HFILE hFile, std::initializer_list<int32_t> bytes)
{
    constexpr size_t cbMost = 32;
    uint8_t aBytes[cbMost] = {};
    size_t cb = 0;
    for (int32_t const lByte : bytes)
        if (cb < cbMost)
            aBytes[cb++] = static_cast<uint8_t>(lByte);
    return _lwrite(hFile, aBytes, static_cast<int32_t>(cb));
}

/// The exponent of the denominator for the denominators that tunes have; any other is written as a half.
int32_t DenominatorByte(int32_t lDen)
{
    switch (lDen)
    {
    case 1:
        return 0;
    case 4:
        return 2;
    case 8:
        return 3;
    case 16:
        return 4;
    default:
        return 1;
    }
}

void WriteHeader(HFILE hFile, int32_t cTracks)
{
    WriteBytes(hFile, {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, cTracks, 0, lTicksPerCrotchet});
}

void WriteConductorTrack(HFILE hFile, StaffHeads const& heads)
{
    int32_t const lTempo = std::min(lMicrosecondsAMinute / heads.lTempo, lLongestCrotchet);
    WriteBytes(hFile, {'M', 'T', 'r', 'k', 0, 0, 0, 25});
    WriteBytes(hFile, {0, 0xFF, 0x58, 4, heads.lNum, DenominatorByte(heads.lDen), 48, 16});
    WriteBytes(hFile, {0, 0xFF, 0x59, 2, heads.lKey, 0});
    WriteBytes(hFile, {0, 0xFF, 0x51, 3, lTempo >> 16, lTempo >> 8, lTempo});
    WriteBytes(hFile, {0, 0xFF, 0x2F, 0});
}

/// The events of a staff; gives how many bytes they take.
int32_t WriteEvents(HFILE hFile, PlayRecords const& records)
{
    int32_t cb = 0;
    int32_t lPrev = 0;
    bool fRunning = false; // a status byte for notes is in force
    for (PlayRecord const& record : records)
    {
        if (record.lProgram != -1)
        {
            // A program change comes as early as it can: with the event before it.
            cb += WriteBytes(hFile, {0, lProgramChange + record.lChannel, record.lProgram});
            fRunning = false;
        }
        else if (record.lTempo == -1 && record.lNote != -1)
        {
            cb += WriteVarLen(hFile, record.lTime - lPrev);
            lPrev = std::max(lPrev, record.lTime);
            if (!fRunning)
                cb += WriteBytes(hFile, {lNoteOn + record.lChannel});
            cb += WriteBytes(hFile, {record.lNote, record.lVolume});
            fRunning = true;
        }
    }
    return cb;
}

/// False when the length can't be patched.
bool WriteStaffTrack(HFILE hFile, PlayRecords const& records)
{
    WriteBytes(hFile, {'M', 'T', 'r', 'k', 0, 0, 0, 0});
    int32_t cb = WriteEvents(hFile, records);
    cb += WriteBytes(hFile, {0, 0xFF, 0x2F, 0});
    if (_llseek(hFile, -(cb + cbTrackLength), FILE_CURRENT) < 0)
        return false;
    return WriteBytes(hFile, {cb >> 24, cb >> 16, cb >> 8, cb}) == cbTrackLength &&
           _llseek(hFile, cb, FILE_CURRENT) >= 0;
}
} // namespace

bool SaveMidiFile(HFILE hFile, bool fBarnDance, int32_t lSwing, bool fDetach)
{
    if (!bTimesValid)
        Score_SetTimes();
    TuneMetrics const metrics = ScoreBarInfo();
    PlayStyle const style{metrics.lPulse, metrics.lPickup, lSwing, fBarnDance, fDetach};
    int32_t cTracks = 1;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        cTracks += IsWritten(lStaff);
    WriteHeader(hFile, cTracks);
    WriteConductorTrack(hFile, ScanStaffHeads());
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsWritten(lStaff))
            continue;
        int32_t afOne[lStaffLists] = {};
        afOne[lStaff] = 1;
        PlayRecords records;
        BuildPlayList(records, lHighestStaff, 0, style, afOne);
        if (!WriteStaffTrack(hFile, records))
            return false;
    }
    return true;
}

int32_t WriteVarLen(HFILE hFile, int32_t lValue)
{
    constexpr int32_t cbMost = 5; // of 32 bits, 7 to a byte
    constexpr int32_t cbUnremarked = 3;
    uint8_t aBytes[cbMost];
    uint8_t* pFirst = std::end(aBytes);
    auto l = static_cast<uint32_t>(std::max(lValue, 0));
    *--pFirst = l & 0x7F;
    while ((l >>= 7) != 0)
        *--pFirst = static_cast<uint8_t>(0x80 | (l & 0x7F));
    auto const cb = static_cast<int32_t>(std::end(aBytes) - pFirst);
    int32_t const cbWritten = _lwrite(hFile, pFirst, cb);
    if (cb > cbUnremarked)
        Serious("Length of timedelta > 3 bytes");
    return cbWritten;
}
} // namespace zarn
