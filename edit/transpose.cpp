// Transposing.
//
// The walks run backward, so that a note is moved before the key ahead of it is: it sees the old one. Nothing ahead of
// a note has changed when its turn comes, so the key and the accidental that each note stands under are noted in one
// walk forward and used up from the end; asking at each note would cost a bar for the accidental, and for the key the
// staff.
#include "edit/transpose.h"

#include "core/messages.h"
#include "core/pitch.h"
#include "core/respell.h"
#include "core/signs_in_force.h"
#include "core/text.h"
#include "layout/clean_up.h"

#include <algorithm>
#include <string>
#include <vector>

namespace zarn
{
namespace
{
constexpr int32_t lOctave = 12; ///< semitones
constexpr int32_t lMostSharps = 6;

/// What a note stands under.
struct Signs
{
    int32_t lKey = 0;
    int32_t lAccid = 0;
};

/// What the notes of a list stand under, from its head to pelLast inclusive.
std::vector<Signs> SignsUpTo(Element const* pelLast)
{
    std::vector<Signs> aSigns;
    Element const* pel = pelLast;
    while (Prev(pel))
        pel = Prev(pel);
    Element const* const pelEnd = Next(pelLast);
    for (SignsInForce inForce; pel != pelEnd; pel = Next(pel))
    {
        if (pel->sort == NOTE)
            aSigns.push_back({inForce.Key(pel->lStaff), inForce.Accid(pel->lStaff, pel->lDiaPitch)});
        inForce.Pass(pel);
    }
    return aSigns;
}

Element* TransposeNoteUnder(Element* pel, int32_t lSemitones, Signs const& signs)
{
    int32_t const lMidi = MidiFromPitch(pel->lDiaPitch, signs.lKey, signs.lAccid, lSemitones);
    int32_t lDiaPitch = 0;
    int32_t lAccid = SpellMidi(lMidi, signs.lKey, &lDiaPitch);
    if (lAccid == 0 && KeyAccid(signs.lKey, lDiaPitch) != 0)
        lAccid = 2;
    pel->lDiaPitch = lDiaPitch;
    pel->lPitch = lMidi;
    AddAccidental(pel, lAccid, lDiaPitch, true);
    return Prev(pel);
}

/// The root of a chord name in semitones above A, and the bytes that it takes; none for a name without a root.
struct Root
{
    int32_t lSemitone = 0;
    size_t cch = 0;
};

Root ReadRoot(std::string_view sName)
{
    static constexpr int32_t aAboveA[] = {0, 2, 3, 5, 7, 8, 10}; // A to G
    if (sName.empty() || sName[0] < 'A' || sName[0] > 'G')
        return {};
    Root root{aAboveA[sName[0] - 'A'], 1};
    if (sName.size() > 1 && sName[1] == '#')
    {
        ++root.lSemitone;
        ++root.cch;
    }
    // The flat has always been looked for one place too far on: Bb7 is a B with b7 behind it, and F#b is an F.
    if (sName.size() > 2 && sName[2] == 'b')
    {
        --root.lSemitone;
        ++root.cch;
    }
    return root;
}

/// Transposes what is here on the walk back; gives the element ahead.
Element* TransposeElement(Element* pel, int32_t lSemitones, std::vector<Signs>& aSigns)
{
    Element* const pelAhead = Prev(pel);
    switch (pel->sort)
    {
    case NOTE:
        TransposeNoteUnder(pel, lSemitones, aSigns.back());
        aSigns.pop_back();
        break;
    case SHARP:
    case FLAT:
    case NATURAL:
        if (!pelAhead)
            break; // at the very start of a staff it stays
        Mark_StepOff(pel);
        Undo_StepOff(pelAhead); // the element ahead, and not the one that goes
        Element_Remove(pel);
        break;
    case CHORD:
        TransposeChordName(pel, lSemitones);
        break;
    case KEYSIG:
        TransposeKeySig(pel, lSemitones);
        break;
    default:
        break;
    }
    return pelAhead;
}
} // namespace

void TransposeMark(int32_t lSemitones)
{
    if (!pelMarkBegin)
    {
        Inform("Mark the section to transpose first");
        return;
    }
    bScoreDirty = true;
    bTimesValid = false;
    Element* pel = pelMarkEnd ? pelMarkEnd : pelMarkBegin;
    while (!pelMarkEnd && Next(pel))
        pel = Next(pel);
    std::vector<Signs> aSigns = SignsUpTo(pel);
    bool bGoOn = true;
    while (pel && bGoOn)
    {
        bGoOn = pel != pelMarkBegin;
        pel = TransposeElement(pel, lSemitones, aSigns);
    }
    if (pelMarkBegin)
        MakeStaffMatchKeySigs(pelMarkBegin->lStaff);
    RemoveSpuriousAccidentals();
}

void TransposeAll(int32_t lSemitones)
{
    bScoreDirty = true;
    bTimesValid = false;
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
    {
        Element* pel = StaffLast(lStaff);
        if (!pel)
            continue;
        std::vector<Signs> aSigns = SignsUpTo(pel);
        bool bGoOn = true;
        while (pel && bGoOn)
        {
            // A harmony that the mark begins with ends the walk of its staff, mark or no mark wanted.
            bGoOn = pel->sort != CHORD || pel != pelMarkBegin;
            pel = TransposeElement(pel, lSemitones, aSigns);
        }
        MakeStaffMatchKeySigs(lStaff);
    }
    RemoveSpuriousAccidentals();
}

Element* TransposeNote(Element* pel, int32_t lSemitones)
{
    return TransposeNoteUnder(pel, lSemitones, {KeyAt(pel), AccidStateAt(pel, pel->lDiaPitch)});
}

void TransposeKeySig(Element* pel, int32_t lSemitones)
{
    int64_t lKey = int64_t{pel->lA} + (lSemitones & ~1);
    if (lSemitones & 1)
        lKey += 7;
    if (lKey > lMostSharps)
        lKey -= (lKey + 5) / lOctave * lOctave;
    pel->lB = pel->lA;
    pel->lA = Clamp32(lKey);
}

void TransposeChordName(Element* pel, int32_t lSemitones)
{
    static constexpr char const* aName[] = {"A", "A#", "B", "C", "C#", "D", "D#", "E", "F", "F#", "G", "G#"};
    std::string sName(Element_Text(pel));
    Root const root = ReadRoot(sName);
    if (root.cch != 0)
    {
        int64_t const lMoved = (int64_t{root.lSemitone} + lSemitones) % lOctave;
        sName.replace(0, root.cch, aName[(lMoved + lOctave) % lOctave]);
        auto const cchRoom = static_cast<size_t>(std::max(pel->storage, cbPlainElement) - cbElementFixed);
        sName.resize(std::min(sName.size(), cchRoom));
        char* const pText = Element_TextBytes(pel);
        std::fill(sName.copy(pText, cchRoom) + pText, pText + cchRoom, '\0');
    }
    pel->lA = static_cast<int32_t>(sName.size());
}
} // namespace zarn
