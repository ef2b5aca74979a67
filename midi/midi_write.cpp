// Writing Standard MIDI Files.
//
// The length of a track stands ahead of it and is known behind it, so a track is put together in memory.
#include "midi/midi_write.h"

#include "core/messages.h"
#include "core/score.h"
#include "midi/play_list.h"
#include "midi/score_times.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <vector>

namespace zarn
{
namespace
{
using MidiTrackBytes = std::vector<uint8_t>; ///< what stands behind the length of a track

constexpr int32_t lTicksPerCrotchet = 48;
constexpr int32_t lMicrosecondsAMinute = 60'000'000;
constexpr int32_t lLongestCrotchet = 0xFFFFFF; ///< microseconds: what the three bytes of a tempo hold
constexpr int32_t lUsualTempo = 120;           ///< beats a minute, of a score that has no tempo
constexpr int32_t lProgramChange = 0xC0;
constexpr int32_t lNoteOn = 0x90;

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

void Append(MidiTrackBytes& bytes, std::initializer_list<int32_t> lValues)
{
    for (int32_t const l : lValues)
        bytes.push_back(static_cast<uint8_t>(l));
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

void AppendEndOfTrack(MidiTrackBytes& bytes) { Append(bytes, {0, 0xFF, 0x2F, 0}); }

MidiTrackBytes ConductorTrack(StaffHeads const& heads)
{
    int32_t const lTempo = std::min(lMicrosecondsAMinute / heads.lTempo, lLongestCrotchet);
    MidiTrackBytes bytes;
    Append(bytes, {0, 0xFF, 0x58, 4, heads.lNum, DenominatorByte(heads.lDen), 48, 16});
    Append(bytes, {0, 0xFF, 0x59, 2, heads.lKey, 0});
    Append(bytes, {0, 0xFF, 0x51, 3, lTempo >> 16, lTempo >> 8, lTempo});
    AppendEndOfTrack(bytes);
    return bytes;
}

/// Bytes that are put one at a time: they go to the track in pieces.
class EventBytes
{
public:
    explicit EventBytes(MidiTrackBytes& track) : track(track) {}

    /// Makes room for one event.
    void Begin()
    {
        if (static_cast<size_t>(std::end(aPiece) - pNext) < cbLongestEvent)
            End();
    }
    void Put(int32_t lByte) { *pNext++ = static_cast<uint8_t>(lByte); }
    void PutVarLen(int32_t lValue) { pNext += WriteVarLen(pNext, lValue); }
    void End()
    {
        track.insert(track.end(), aPiece, pNext);
        pNext = aPiece;
    }

private:
    static constexpr size_t cbLongestEvent = cbLongestVarLen + 3;
    static constexpr size_t cbPiece = 4096;
    MidiTrackBytes& track;
    uint8_t aPiece[cbPiece];
    uint8_t* pNext = aPiece;
};

MidiTrackBytes StaffTrack(PlayRecords const& records)
{
    constexpr size_t cbUsualEvent = 3;
    MidiTrackBytes track;
    track.reserve(records.size() * (cbUsualEvent + 1));
    EventBytes bytes(track);
    int32_t lPrev = 0;
    bool fRunning = false; // a status byte for notes is in force
    for (PlayRecord const& record : records)
    {
        bytes.Begin();
        if (record.lProgram != -1)
        {
            // A program change comes as early as it can: with the event before it.
            bytes.Put(0);
            bytes.Put(lProgramChange + record.lChannel);
            bytes.Put(record.lProgram);
            fRunning = false;
        }
        else if (record.lTempo == -1 && record.lNote != -1)
        {
            bytes.PutVarLen(record.lTime - lPrev);
            lPrev = std::max(lPrev, record.lTime);
            if (!fRunning)
                bytes.Put(lNoteOn + record.lChannel);
            bytes.Put(record.lNote);
            bytes.Put(record.lVolume);
            fRunning = true;
        }
    }
    bytes.End();
    AppendEndOfTrack(track);
    return track;
}

bool WriteWhole(HFILE hFile, MidiTrackBytes const& bytes)
{
    auto const cb = static_cast<int32_t>(bytes.size());
    return _lwrite(hFile, bytes.data(), cb) == cb;
}

bool WriteHeader(HFILE hFile, int32_t cTracks)
{
    MidiTrackBytes bytes;
    Append(bytes, {'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1, 0, cTracks, 0, lTicksPerCrotchet});
    return WriteWhole(hFile, bytes);
}

bool WriteTrack(HFILE hFile, MidiTrackBytes const& track)
{
    auto const cb = static_cast<int32_t>(track.size());
    MidiTrackBytes head;
    Append(head, {'M', 'T', 'r', 'k', cb >> 24, cb >> 16, cb >> 8, cb});
    return WriteWhole(hFile, head) && WriteWhole(hFile, track);
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
    if (!WriteHeader(hFile, cTracks) || !WriteTrack(hFile, ConductorTrack(ScanStaffHeads())))
        return false;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        if (!IsWritten(lStaff))
            continue;
        int32_t afOne[lStaffLists] = {};
        afOne[lStaff] = 1;
        PlayRecords records;
        BuildPlayList(records, lHighestStaff, 0, style, afOne);
        if (!WriteTrack(hFile, StaffTrack(records)))
            return false;
    }
    return true;
}

int32_t WriteVarLen(uint8_t* pBytes, int32_t lValue)
{
    constexpr int32_t cbUnremarked = 3;
    auto const l = static_cast<uint32_t>(std::max(lValue, 0));
    int32_t cb = 1;
    while (cb < cbLongestVarLen && l >> 7 * cb != 0)
        ++cb;
    for (int32_t n = cb - 1; n > 0; --n)
        *pBytes++ = static_cast<uint8_t>(0x80 | (l >> 7 * n & 0x7F));
    *pBytes = static_cast<uint8_t>(l & 0x7F);
    if (cb > cbUnremarked)
        Serious("Length of timedelta > 3 bytes");
    return cb;
}
} // namespace zarn
