// The Score unfolded into timed events.
//
// A staff is walked once for each pass of its repeats; a repeat inside a repeat is a section inside a section. The walk
// keeps count of its own work, since nested repeats double it each time: a play list has an end, and a pitch refresh
// goes on in plain order where the count runs out.
#include "midi/play_list.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/settings.h"
#include "core/text.h"
#include "midi/ornaments.h"
#include "midi/play_order.h"
#include "midi/refresh_pitches.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace zarn
{
namespace
{
constexpr int32_t lGraceLength = 4; ///< ticks that a grace note sounds, and the shortest of any note
constexpr int32_t lMillisecondsAMinute = 60000;
constexpr int32_t lProgramAtStart = 1;
constexpr int32_t lTempoAtStart = 500;      ///< milliseconds a crotchet
constexpr int64_t lNeverStarts = 0x7FFFFFF; ///< a start point behind everything: length without sound

/// Symbols that one play may visit: beyond what a list of the longest length needs.
constexpr int64_t cMostSteps = int64_t{4} * cMostPlayRecords;
/// A repeat inside so many others is passed more often than cMostSteps allows, so going deeper would change nothing.
constexpr int32_t lDeepestRepeat = 24;
static_assert(int64_t{1} << lDeepestRepeat > cMostSteps);

enum class Pass : int32_t
{
    OUTSIDE = 0,
    FIRST = 1,
    SECOND = 2
};

/// What is in force at a place of a section.
struct Section
{
    Element* pel = nullptr;
    int32_t lKey = 0;
    AccidentalSet aSharps;
    AccidentalSet aFlats;
    AccidentalSet aNaturals;
    int64_t lBaseTime = 0; ///< output ticks at the section's head, and at its end once it has been built
    int32_t lTranspose = 0;
};

class Builder
{
public:
    Builder(PlayStyle const& style, PlayRecords* pRecords, int64_t cMostSteps)
        : style(style), pRecords(pRecords), cStepsLeft(cMostSteps)
    {
    }

    void Staff(int32_t lStaff, int64_t lStart)
    {
        Section section;
        section.pel = StaffFirst(lStaff);
        Build(section, Pass::OUTSIDE, lStart, 0);
    }

    /// The whole staff for its pitches: what ends a play, a repeat's end that has no start, doesn't end the notes.
    void WholeStaff(int32_t lStaff)
    {
        Section section;
        section.pel = StaffFirst(lStaff);
        Build(section, Pass::OUTSIDE, 0, 0);
        // A repeat end that nothing opened ends the play. What stands behind it has pitches all the same, but its
        // chords must not become the last ones heard.
        PitchesFrom(section, section.pel ? Next(section.pel) : nullptr);
    }

    /// Pitches alone, each symbol once and in order.
    static void StaffOnce(int32_t lStaff)
    {
        Section section;
        PitchesFrom(section, StaffFirst(lStaff));
    }

    [[nodiscard]] bool IsTooLong() const { return bTooLong; }

private:
    bool Spend()
    {
        if (--cStepsLeft < 0 || (pRecords && pRecords->size() >= static_cast<size_t>(cMostPlayRecords)))
            bTooLong = true;
        return !bTooLong;
    }

    void Emit(PlayRecord const& record)
    {
        if (pRecords)
            AddPlayRecord(*pRecords, record);
    }

    /// The channel of what stands on a staff; a record from a file may claim any staff.
    static int32_t Channel(Element const* pel) { return std::clamp(pel->lStaff, 0, lHighestStaff); }

    static int32_t Midi(Section const& section, int32_t lDiaPitch)
    {
        return MidiAtPosition(lDiaPitch, section.lTranspose, section.lKey, section.aSharps, section.aNaturals,
                              section.aFlats);
    }

    static void ForgetAccidentals(Section& section)
    {
        section.aSharps = section.aFlats = section.aNaturals = AccidentalSet{};
    }

    static void PitchesFrom(Section& section, Element* pelFirst)
    {
        for (Element* pel = pelFirst; pel; pel = Next(pel))
        {
            if (pel->sort == NOTE)
                pel->lPitch = Midi(section, pel->lDiaPitch);
            else
                Accidentals(section, pel);
        }
    }

    /// What a symbol that makes no sound does to the notes behind it.
    static void Accidentals(Section& section, Element const* pel)
    {
        int32_t const lDiaPitch = pel->lDiaPitch;
        switch (pel->sort)
        {
        case BAR:
            ForgetAccidentals(section);
            break;
        case KEYSIG:
            ForgetAccidentals(section);
            section.lKey = pel->lA;
            break;
        case SHARP:
        case FLAT:
        case NATURAL:
            section.aSharps.Clear(lDiaPitch);
            section.aFlats.Clear(lDiaPitch);
            section.aNaturals.Clear(lDiaPitch);
            (pel->sort == SHARP  ? section.aSharps
             : pel->sort == FLAT ? section.aFlats
                                 : section.aNaturals)
                .Set(lDiaPitch);
            break;
        case TRANSPOSE:
            section.lTranspose = pel->lA;
            break;
        default:
            break;
        }
    }

    void Build(Section& section, Pass pass, int64_t lStart, int32_t lDepth)
    {
        int64_t lOffset = section.pel ? section.lBaseTime - section.pel->lTime : 0;
        int64_t lGrace = 0; // grace notes of this section that are still to push the next note
        while (section.pel && Spend())
        {
            Element* const pel = section.pel;
            int64_t const lTime = pel->lTime - lStart + lOffset;
            switch (pel->sort)
            {
            case NOTE:
                Note(section, pel, lTime, lGrace);
                break;
            case REST:
                if (lTime >= 1)
                    Emit(Marker(pel, lTime));
                break;
            case CHORD:
                Chord(section, pel, lTime + lGrace);
                break;
            case INSTRUMENT:
                Program(pel, std::max<int64_t>(lTime, 0));
                break;
            case TEMPO:
                Tempo(pel, std::max<int64_t>(lTime, 0));
                break;
            case REPEATEND:
            case REPEATENDSTART:
                section.lBaseTime = pel->lTime + lOffset;
                return;
            case REPEATSTART:
                if (!Repeats(section, lStart, lOffset, lDepth))
                    return;
                break;
            case REPEATFIRST:
                if (pass == Pass::OUTSIDE)
                    Serious("First time only outside repeat");
                else if (pass == Pass::SECOND)
                {
                    section.lBaseTime = pel->lTime + lOffset;
                    section.pel = NextRepeatEnd(pel);
                    return;
                }
                else if (pass != Pass::FIRST)
                    Serious("Bogus Repeat value");
                break;
            default:
                Accidentals(section, pel);
                break;
            }
            section.pel = Next(section.pel);
        }
    }

    /// The repeats that begin at section.pel, one behind the other. False when the section ends here.
    bool Repeats(Section& section, int64_t lStart, int64_t& lOffset, int32_t lDepth)
    {
        if (lDepth >= lDeepestRepeat)
        {
            bTooLong = true;
            return false;
        }
        while (section.pel->sort == REPEATSTART || section.pel->sort == REPEATENDSTART)
        {
            section.pel = Next(section.pel);
            if (!section.pel)
                return false;
            Element* const pelFirst = section.pel;
            Section first = section;
            first.lBaseTime = pelFirst->lTime + lOffset;
            Build(first, Pass::FIRST, lStart, lDepth + 1);

            // A start point behind the first pass lies behind the repeat: the second pass has its length and no sound.
            int64_t const lSectionBase = first.lBaseTime;
            int64_t const lOwnBase = section.lBaseTime;
            section.lBaseTime = lSectionBase;
            Build(section, Pass::SECOND, lSectionBase > lStart ? lStart : lNeverStarts, lDepth + 1);
            int64_t const lEnd = section.lBaseTime;
            section.lBaseTime = lOwnBase;
            if (bTooLong)
                return false;
            if (!section.pel)
            {
                Serious("Missing end-repeat");
                section.pel = pelFirst;
            }
            lOffset = lEnd - section.pel->lTime;
            if (!Spend())
                return false;
        }
        return true;
    }

    void Note(Section& section, Element* pel, int64_t lTime, int64_t& lGrace)
    {
        int64_t const lTimeNote = lTime + lGrace;
        pel->lPitch = Midi(section, pel->lDiaPitch);
        int64_t lLength = pel->lDuration;
        if (lLength == 0)
        {
            lLength = lGraceLength;
            lGrace += lGraceLength;
        }
        else
            lGrace = 0;
        if (!pRecords)
            return;
        lLength = std::max<int64_t>(lLength, lGraceLength);
        if (pel->lA & fStaccato)
            lLength /= 3;
        int64_t const lOnset = lTimeNote + SwingShift(pel, lTimeNote);
        if (style.fDetach)
        {
            bool const bShort = style.fBarnDance && style.lPulse > 0 && lTimeNote % style.lPulse != style.lPickup;
            lLength = bShort ? lLength * 2 / 4 - 1 : lLength - 1;
        }
        if (lOnset < 0)
            return;
        PlayRecord record;
        record.lTime = Clamp32(lOnset);
        record.lVolume = std::clamp(pel->lB, 0, lHighestMidiValue);
        record.lNote = pel->lPitch;
        record.lChannel = Channel(pel);
        record.lColumn = pel->lStrX;
        if (pel->lA & fOrnament)
            AddOrnament(*pRecords, record, lOrnamentStyle, Clamp32(lLength - (lOnset - lTimeNote)),
                        Midi(section, Wrap_Add(pel->lDiaPitch, 1)), Midi(section, Wrap_Sub(pel->lDiaPitch, 1)));
        else if ((pel->lA & fTiedFrom) == 0)
            Emit(record);
        if (pel->lA & fTiedOn)
            return;
        record.lTime = Clamp32(lTimeNote + lLength);
        record.lVolume = 0;
        Emit(record);
    }

    /// A long enough note off the beat sounds a third of the swing later; its end stays where it was.
    [[nodiscard]] int64_t SwingShift(Element const* pel, int64_t lTimeNote) const
    {
        if (style.lSwing <= 1 || style.lPulse <= 0 || pel->lDuration < style.lSwing)
            return 0;
        int64_t const lInBeat = (style.lPulse + lTimeNote - style.lPickup) % style.lPulse % (2 * style.lSwing);
        return lInBeat == style.lSwing ? style.lSwing / 3 : 0;
    }

    static PlayRecord Marker(Element const* pel, int64_t lTime)
    {
        PlayRecord record;
        record.lTime = Clamp32(lTime);
        record.lChannel = Channel(pel);
        record.lColumn = pel->lStrX;
        return record;
    }

    /// A chord ahead of the start is parsed too, so that a later "/" knows it.
    void Chord(Section const& section, Element const* pel, int64_t lTime)
    {
        if (!fPlayChords)
            return;
        int32_t lRoot = -1;
        int32_t lKind = -1;
        ParseGuitarChord(Element_Text(pel), &lRoot, &lKind, section.lTranspose);
        if (lTime >= 0 && pRecords)
            PlayGuitarChord(*pRecords, Marker(pel, lTime), voices, lRoot, lKind);
    }

    void Program(Element const* pel, int64_t lTime)
    {
        PlayRecord record = Marker(pel, lTime);
        record.lProgram = std::clamp(pel->lA, 0, lHighestMidiValue);
        record.lVolume = -1;
        Emit(record);
    }

    void Tempo(Element const* pel, int64_t lTime)
    {
        if (pel->lA <= 0)
            return;
        PlayRecord record = Marker(pel, lTime);
        record.lVolume = -1;
        record.lTempo = lMillisecondsAMinute / pel->lA;
        Emit(record);
    }

    PlayStyle style;
    PlayRecords* pRecords; ///< null: pitches alone
    ChordVoices voices;
    int64_t cStepsLeft;
    bool bTooLong = false;
};

void AddPreamble(PlayRecords& records, int32_t lStaff, int32_t lProgram)
{
    PlayRecord record;
    record.lTime = -1;
    record.lVolume = -1;
    record.lChannel = lStaff;
    record.lProgram = lProgram;
    AddPlayRecord(records, record);
    record.lProgram = -1;
    record.lTempo = lTempoAtStart;
    AddPlayRecord(records, record);
}
} // namespace

int32_t MidiAtPosition(int32_t lDiaPitch, int32_t lTranspose, int32_t lKey, AccidentalSet const& aSharps,
                       AccidentalSet const& aNaturals, AccidentalSet const& aFlats)
{
    int32_t const lAcc = aSharps.Has(lDiaPitch) ? 1 : aFlats.Has(lDiaPitch) ? -1 : aNaturals.Has(lDiaPitch) ? 2 : 0;
    return MidiFromPitch(lDiaPitch, lKey, lAcc, lTranspose);
}

void BuildPlayList(PlayRecords& listPlay, int32_t lLastStaff, int32_t lStart, PlayStyle const& style,
                   int32_t const* afPlayed)
{
    std::vector<size_t> aRuns = {0, listPlay.size()};
    int32_t lProgram = lProgramAtStart;
    (void)LoadSetting(&lProgram, sDefaultInstrument);
    lProgram = std::clamp(lProgram, 0, lHighestMidiValue);
    auto const bPlayed = [&](int32_t lStaff) { return afPlayed[lStaff] && StaffFirst(lStaff); };
    lLastStaff = std::min(lLastStaff, lHighestStaff);
    int64_t cSymbols = 0;
    for (int32_t lStaff = 0; lStaff <= lLastStaff; ++lStaff)
        if (bPlayed(lStaff))
        {
            AddPreamble(listPlay, lStaff, lProgram);
            cSymbols += List_Card(aStaffList[lStaff]);
        }
    aRuns.push_back(listPlay.size());
    // Room for most tunes, repeats and chords and all: moving the records would take longer than building them.
    constexpr int64_t cRecordsASymbol = 8;
    listPlay.reserve(listPlay.size() +
                     static_cast<size_t>(std::min<int64_t>(cSymbols * cRecordsASymbol, cMostPlayRecords)));
    Builder builder(style, &listPlay, cMostSteps);
    for (int32_t lStaff = 0; lStaff <= lLastStaff && !builder.IsTooLong(); ++lStaff)
    {
        if (!bPlayed(lStaff))
            continue;
        builder.Staff(lStaff, lStart);
        SortPlayRun(listPlay, aRuns.back());
        aRuns.push_back(listPlay.size());
    }
    MergePlayRuns(listPlay, std::move(aRuns));
    if (builder.IsTooLong())
        Serious("The repeats in this score make it too long: what lies beyond 2,000,000 events is left out.");
}

/// The same walk over one staff with no records, whatever its repeats are.
static void RefreshStaffPitches(int32_t lStaff)
{
    // Every repeat is walked twice, one inside another four times, one without an end thrice; what goes beyond that
    // many visits is no music, and its notes are told their pitches in plain order.
    constexpr int64_t lVisits = 64;
    Builder builder(PlayStyle{}, nullptr, lVisits * (List_Card(aStaffList[lStaff]) + 1));
    builder.WholeStaff(lStaff);
    if (builder.IsTooLong())
        Builder::StaffOnce(lStaff);
}

void RefreshPitches(int32_t lLastStaff)
{
    for (int32_t lStaff = 0; lStaff <= std::min(lLastStaff, lHighestStaff); ++lStaff)
        RefreshStaffPitches(lStaff);
}
} // namespace zarn
