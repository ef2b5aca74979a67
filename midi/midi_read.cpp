// Reading Standard MIDI Files.
//
// The notes of a track go, event by event, through the placement that a recording uses. What a track says beside its
// notes, but for metre and key, is passed over.
#include "midi/midi_read.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert.h"
#include "edit/insert_run.h"
#include "layout/adjust.h"
#include "midi/midi_bytes.h"
#include "midi/place_notes.h"
#include "platform/types.h"
#include "render/geometry.h"

#include <algorithm>
#include <cstring>

namespace zarn
{
namespace
{
constexpr int32_t lMostTracks = 17;
constexpr int32_t cChannels = 16;
constexpr int32_t lTicksPerCrotchet = 48; ///< of the score
constexpr int32_t lSignHeight = 6;        ///< diatonic position
constexpr int32_t lBehindTrack = 200'000; ///< ticks of the file: at the end of a track all notes are over
constexpr int32_t lLatestTime = 999'000'000;
static_assert(lLatestTime + lBehindTrack < lStillHeld);
constexpr int32_t lHighestExponent = 30; ///< of a time signature's denominator

/// What the first track says, for the trace alone.
struct FileState
{
    int32_t lMidiTempo = 0;
    int32_t lMidiKey = 0;
    int32_t lMidiMode = 0;
    int32_t lMidiNum = 0;
    int32_t lMidiDen = 0;
    int32_t lMidiMetro = 0;
    int32_t lMidiNotated = 0;
};

/// Results of an event that are no running status and no error. Errors have numbers of their own, below 0.
constexpr int32_t lEndOfTrack = 0;
constexpr int32_t lNoStatusYet = 1; ///< of a meta event at the start of a track

class Reader
{
public:
    explicit Reader(HFILE hFile) : bytes(hFile) { std::fill(std::begin(alChannelStaff), std::end(alChannelStaff), -1); }

    int32_t Header()
    {
        uint8_t aHead[4];
        uint8_t aLength[4];
        uint8_t aFormat[2];
        uint8_t aTracks[2];
        uint8_t aDivision[2];
        if (!bytes.Read(aHead, sizeof aHead) || !bytes.Read(aLength, sizeof aLength) ||
            !bytes.Read(aFormat, sizeof aFormat) || !bytes.Read(aTracks, sizeof aTracks) ||
            !bytes.Read(aDivision, sizeof aDivision))
            return MIDI_FILE_SHORT;
        if (std::memcmp(aHead, "MThd", sizeof aHead) != 0)
            return MIDI_FILE_NOT_MIDI;
        if (MidiNumber(aLength) != 6)
            return MIDI_FILE_HEADER_LENGTH;
        lFormat = MidiNumber(aFormat);
        if (lFormat != 0 && lFormat != 1)
            return MIDI_FILE_FORMAT;
        cTracks = MidiNumber(aTracks);
        lDivision = MidiNumber(aDivision);
        bool const bFrames = aDivision[0] >= 0x80;
        if (bFrames || lDivision == 0)
        {
            Serious(bFrames ? "This MIDI file counts its time in frames of film, not in beats.  It can't be read."
                            : "This MIDI file doesn't say how long a beat is.  It can't be read.");
            return MIDI_FILE_DIVISION;
        }
        DebugLog(
            Format("MIDI file header: format %d, %d track(s), %d ticks per 1/4 note\r\n", lFormat, cTracks, lDivision));
        return MIDI_FILE_READ;
    }

    int32_t Tracks()
    {
        InsertRun const run;
        for (int32_t lTrack = 0; lTrack < std::min(cTracks, lMostTracks) && !placement.IsSpent(); ++lTrack)
        {
            if (int32_t const lError = Track(); lError != MIDI_FILE_READ)
                return lError;
            if (lTrack == 0 && lFormat == 1)
                DebugLog(Format("Tempo=%d, Key=%d %s, time %d/%d, metro %d, notated %d\r\n", state.lMidiTempo,
                                state.lMidiKey, state.lMidiMode ? "minor" : "major", state.lMidiNum, state.lMidiDen,
                                state.lMidiMetro, state.lMidiNotated));
        }
        return MIDI_FILE_READ;
    }

    [[nodiscard]] int32_t Parts() const { return lParts; }
    [[nodiscard]] bool IsCutShort() const { return placement.IsSpent(); }

private:
    int32_t Track()
    {
        uint8_t aHead[4];
        uint8_t aLength[4];
        if (!bytes.Read(aHead, sizeof aHead) || std::memcmp(aHead, "MTrk", sizeof aHead) != 0)
            return MIDI_FILE_NO_TRACK;
        if (!bytes.Read(aLength, sizeof aLength))
            return MIDI_FILE_TRACK_LENGTH;
        int64_t const lEnd =
            bytes.Place() + (int64_t{aLength[0]} << 24 | aLength[1] << 16 | aLength[2] << 8 | aLength[3]);
        int32_t lStatus = lNoStatusYet;
        lTime = 0;
        // A track without its end event ends where the next one begins; one that the file's end cuts off is an error.
        while (!placement.IsSpent() && (bytes.Place() < lEnd || bytes.AtEnd()))
        {
            lTime = static_cast<int32_t>(std::min<int64_t>(lTime + bytes.VarLen(), lLatestTime));
            lStatus = Event(lStatus);
            if (lStatus < 0)
                return lStatus;
            if (lStatus == lEndOfTrack)
                break;
        }
        PlaceNotes(placement, lTime + lBehindTrack, true);
        return MIDI_FILE_READ;
    }

    /// One event; gives the running status behind it, lEndOfTrack, or an error.
    int32_t Event(int32_t lRunning)
    {
        int32_t const lNext = bytes.Peek();
        if (lNext < 0)
            return -1;
        int32_t const lStatus = lNext >= 0x80 ? bytes.Next() : lRunning;
        uint8_t aData[2];
        switch (lStatus & 0xF0)
        {
        case 0x80:
        case 0x90:
            if (!bytes.Read(aData, 2))
                return -12;
            NoteEvent(lStatus & 0x0F, aData[0], lStatus < 0x90 ? 0 : aData[1]);
            return lStatus;
        case 0xA0:
            return bytes.Skip(2) ? lStatus : -13;
        case 0xB0:
            return bytes.Skip(2) ? lStatus : -14;
        case 0xC0:
            return bytes.Skip(1) ? lStatus : -15;
        case 0xD0:
            return bytes.Skip(1) ? lStatus : -16;
        case 0xE0:
            return bytes.Skip(2) ? lStatus : -17;
        case 0xF0:
            // The length is taken as one byte, whatever its top bit says.
            if (!bytes.Read(aData, 2))
                return -2;
            if (lStatus != 0xFF)
                return bytes.Skip(aData[1]) ? lRunning : -12;
            return MetaEvent(aData[0], aData[1], lRunning);
        default:
            Serious("Invalid MIDI statuis byte");
            return -18;
        }
    }

    /// A metre or a key goes behind the insert point, wherever the notes of its track go.
    int32_t MetaEvent(int32_t lType, int32_t cb, int32_t lRunning)
    {
        constexpr int32_t lMetaEnd = 47;
        constexpr int32_t lMetaTempo = 81;
        constexpr int32_t lMetaTime = 88;
        constexpr int32_t lMetaKey = 89;
        uint8_t aTempo[3];
        uint8_t aTime[4];
        uint8_t aKey[2];
        switch (lType)
        {
        case lMetaEnd:
            return cb == 0 ? lEndOfTrack : -9;
        case lMetaTempo:
            if (cb != 3)
                return -3;
            if (!bytes.Read(aTempo, 3))
                return -4;
            state.lMidiTempo = MidiNumber(aTempo);
            return lRunning;
        case lMetaTime:
            if (cb != 4)
                return -7;
            if (!bytes.Read(aTime, 4))
                return -8;
            state.lMidiNum = aTime[0];
            state.lMidiDen = aTime[1] <= lHighestExponent ? 1 << aTime[1] : 0;
            state.lMidiMetro = aTime[2];
            state.lMidiNotated = aTime[3];
            CurrentSymbol_Set(TIMESIG, state.lMidiNum, state.lMidiDen);
            Placement_Add(placement, lSignHeight, false);
            return lRunning;
        case lMetaKey:
            if (cb != 2)
                return -5;
            if (!bytes.Read(aKey, 2))
                return -6;
            state.lMidiKey = static_cast<int8_t>(aKey[0]);
            state.lMidiMode = aKey[1];
            CurrentSymbol_Set(KEYSIG, state.lMidiKey);
            Placement_Add(placement, lSignHeight, false);
            return lRunning;
        default:
            return bytes.Skip(cb) ? lRunning : -11;
        }
    }

    /// The staff of a channel; -1 when all are taken.
    int32_t StaffOf(int32_t lChannel)
    {
        int32_t& lStaff = alChannelStaff[lChannel];
        if (lStaff != -1)
            return lStaff;
        if (lParts < lHighestStaff)
            lStaff = ++lParts;
        else
            Serious("This MIDI file appears to have more than 8 parts.");
        return lStaff;
    }

    void NoteEvent(int32_t lChannel, int32_t lNote, int32_t lVelocity)
    {
        int32_t const lStaff = StaffOf(lChannel);
        if (lStaff == -1)
            return;
        if (lVelocity > 0)
        {
            HeldNote note;
            note.lBeat = MulDiv(lTime, lTicksPerCrotchet, lDivision);
            note.fRate = static_cast<float>(lTicksPerCrotchet) / static_cast<float>(lDivision);
            note.lOn = lTime;
            note.lNote = lNote;
            note.lStaff = lStaff;
            placement.listHeld.push_back(note);
            PlaceNotes(placement, lTime, false);
            return;
        }
        placement.cVisitsLeft -= static_cast<int64_t>(placement.listHeld.size());
        for (HeldNote& note : placement.listHeld)
            if (note.lNote == lNote && note.lStaff == lStaff)
            {
                note.lOff = lTime;
                note.fEnded = true;
                return;
            }
    }

    MidiBytes bytes;
    Placement placement;
    FileState state;
    int32_t alChannelStaff[cChannels];
    int32_t lParts = 0;
    int32_t lFormat = 0;
    int32_t cTracks = 0;
    int32_t lDivision = 0;
    int32_t lTime = 0; ///< ticks of the file from the start of the track
};
} // namespace

int32_t ReadMidiFile(HFILE hFile)
{
    Reader reader(hFile);
    if (int32_t const lError = reader.Header(); lError != MIDI_FILE_READ)
        return lError;
    if (!pelInsertPoint)
        SelectInsertStaff(1);
    int32_t const lError = reader.Tracks();
    if (reader.IsCutShort())
    {
        Serious_Rearm(); // a note too long has been told by then, in such files
        Serious("This MIDI file is too long for Zarn: what lies beyond 200,000 symbols, or behind too many notes at "
                "once, was left out.");
    }
    // What a damaged file gave is laid out as well, so that it can be seen.
    SetStaffCount(std::max(reader.Parts(), 1));
    FullAdjust();
    return lError;
}
} // namespace zarn
