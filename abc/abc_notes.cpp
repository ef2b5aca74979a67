// Notes, rests, accidentals, chords, broken rhythm and tuplets.
#include "abc/abc_notes.h"

#include "abc/abc_listing.h"
#include "abc/abc_state.h"
#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert.h"
#include "edit/insert_run.h"
#include "edit/modifiers.h"
#include "edit/ties.h"

#include <cstdlib>

namespace zarn
{
namespace
{
constexpr int32_t lOctave = 7;      ///< diatonic steps
constexpr int32_t lBogusPlace = 16; ///< of a letter that is no note

int32_t PlaceOfLetter(char c)
{
    static constexpr int32_t aPlace[7] = {5, 6, 0, 1, 2, 3, 4}; // A to G
    if (c >= 'A' && c <= 'G')
        return aPlace[c - 'A'];
    if (c >= 'a' && c <= 'g')
        return aPlace[c - 'a'] + lOctave;
    AbcLog("Bogus note (not A/a..G/g)");
    return lBogusPlace;
}

/// The octave marks behind a letter: ' up or , down; they don't mix.
int32_t ReadOctave(AbcLine const& line, int32_t i, int32_t* plPlace)
{
    char const cMark = line.At(i);
    if (cMark != '\'' && cMark != ',')
        return i;
    for (; line.At(i) == cMark; ++i)
        *plPlace += cMark == '\'' ? lOctave : -lOctave;
    return i;
}

/// The signs of broken rhythm behind a note, with blanks ahead of them.
int32_t AbcReadBroken(AbcLine const& line, int32_t i)
{
    i = SkipBlanks(line, i);
    for (; line.At(i) == '>'; ++i)
        ++abc.lBroken;
    for (; line.At(i) == '<'; ++i)
        --abc.lBroken;
    return i;
}

int32_t AbcTuplet(int32_t lDuration)
{
    if (abc.lTupletLeft <= 0)
        return lDuration;
    --abc.lTupletLeft;
    return Clamp32(int64_t{lDuration} * abc.lTupletRatio / lTupletParts);
}

/// Length and broken rhythm, which notes and rests have alike; *plDuration is before any tuplet.
int32_t ReadLength(AbcLine const& line, int32_t i, bool bNoTime, int32_t* plDuration)
{
    AbcFraction const fraction = AbcReadFraction(line, i);
    int32_t lDuration = bNoTime ? 0 : Clamp32(int64_t{abc.lUnit} * fraction.lNum / fraction.lDen);
    lDuration = AbcScale(lDuration, -abc.lBroken);
    abc.lBroken = 0;
    i = AbcReadBroken(line, fraction.lEnd);
    *plDuration = AbcScale(lDuration, abc.lBroken);
    return i;
}

void AddPendingAccidental(int32_t lPlace)
{
    int32_t const sort = abc.bPendSharp ? SHARP : abc.bPendFlat ? FLAT : abc.bPendNatural ? NATURAL : NOSORT;
    if (sort == NOSORT)
        return;
    CurrentSymbol_Set(sort);
    AddAtInsertPoint(lPlace, abc.chord != AbcChord::NONE);
}

void ClearAccidentals() { abc.bPendSharp = abc.bPendFlat = abc.bPendNatural = false; }

void AddNote(int32_t lPlace)
{
    if (abc.chord != AbcChord::NONE)
    {
        AddChordNote(lPlace, abc.chord == AbcChord::OPENED, InsertTail().MidiPitch(lPlace));
        abc.chord = AbcChord::FILLED;
        return;
    }
    AddAtInsertPoint(lPlace, false);
    if (abc.bPendTie)
        AddTieAtInsertPoint();
    abc.bPendTie = false;
}

/// Ornament and staccato go to the note at the insert point, and are used up by it.
void MarkNote()
{
    if (abc.bPendOrnament)
        SetOrnament();
    if (abc.bPendStaccato)
        SetStaccato();
    abc.bPendOrnament = abc.bPendStaccato = false;
}

int32_t ReadOneAccidental(AbcLine const& line, int32_t i, char cSign, bool* pbPending, char const* sBug)
{
    AbcExpect(line.At(i) == cSign, sBug);
    if (abc.bPendSharp || abc.bPendFlat || abc.bPendNatural)
        AbcLog("Excessive accidentals");
    ClearAccidentals();
    *pbPending = true;
    return i + 1;
}

/// 360ths of the written duration; 0 for a tuplet that isn't supported.
int32_t TupletRatio(int32_t lNotes)
{
    bool const bCompound = abc.lMeterNum % 3 == 0;
    switch (lNotes)
    {
    case 2:
        return 540; // 2 in the time of 3
    case 3:
        return 240; // 3 in 2
    case 4:
        return 270; // 4 in 3
    case 5:
        return bCompound ? 216 : 144; // 5 in 3, or in 2
    case 6:
        return 120; // 6 in 2
    case 8:
        return 135; // 8 in 3
    case 9:
        return bCompound ? 120 : 80; // 9 in 3, or in 2
    default:
        return 0;
    }
}
} // namespace

int32_t AbcScale(int32_t lDuration, int32_t k)
{
    int64_t lResult = lDuration;
    int64_t lHalf = lDuration;
    for (int32_t n = std::abs(k); n > 0; --n)
    {
        lHalf /= 2;
        lResult += k > 0 ? lHalf : -lHalf;
    }
    return Clamp32(lResult);
}

int32_t ReadNote(AbcLine const& line, int32_t i)
{
    AbcStartTune();
    int32_t lPlace = PlaceOfLetter(line.At(i));
    i = ReadOctave(line, i + 1, &lPlace);
    int32_t lDuration = 0;
    i = ReadLength(line, i, abc.bGrace, &lDuration);
    AddPendingAccidental(lPlace);
    CurrentSymbol_SetNote(AbcTuplet(lDuration));
    AddNote(lPlace);
    MarkNote();
    ClearAccidentals();
    return i;
}

int32_t ReadRest(AbcLine const& line, int32_t i)
{
    if (line.At(i) != 'z')
        AbcLog("Bogus call to ReadRest");
    AbcStartTune();
    int32_t lDuration = 0;
    i = ReadLength(line, i + 1, false, &lDuration);
    CurrentSymbol_SetRest(AbcTuplet(lDuration));
    AddAtInsertPoint(lAbcSignHeight, false);
    return i;
}

int32_t ReadSharp(AbcLine const& line, int32_t i)
{
    return ReadOneAccidental(line, i, '^', &abc.bPendSharp, "ABC sharp Bug");
}

int32_t ReadNatural(AbcLine const& line, int32_t i)
{
    return ReadOneAccidental(line, i, '=', &abc.bPendNatural, "ABC natural Bug");
}

int32_t ReadFlat(AbcLine const& line, int32_t i)
{
    return ReadOneAccidental(line, i, '_', &abc.bPendFlat, "ABC flat Bug");
}

int32_t ReadAccidental(AbcLine const& line, int32_t i)
{
    switch (line.At(i))
    {
    case '^':
        return ReadSharp(line, i);
    case '=':
        return ReadNatural(line, i);
    default:
        return ReadFlat(line, i);
    }
}

int32_t ReadTuplet(AbcLine const& line, int32_t i)
{
    char const cDigit = line.At(i + 1);
    int32_t const lDigit = cDigit >= '0' && cDigit <= '9' ? cDigit - '0' : 0;
    int32_t const lNotes = lDigit < 1 ? 3 : lDigit;
    abc.lTupletLeft = lNotes;
    if (int32_t const lRatio = TupletRatio(lNotes))
        abc.lTupletRatio = lRatio;
    else
        AbcLog("Unsupported tuplet length");
    return i + 2;
}

int32_t ReadChordStart(AbcLine const& line, int32_t i)
{
    if (abc.chord == AbcChord::NONE)
        abc.chord = AbcChord::OPENED;
    else if (line.At(i) == '[')
        AbcLog("Nested chord start i.e. [...[");
    return i + 1;
}

int32_t ReadChordEnd(int32_t i)
{
    if (abc.chord == AbcChord::NONE)
    {
        AbcLog("Excess chord end symbol ']' found outside chord");
        return i + 1;
    }
    CloseChord();
    // An empty chord closes the one before it again. What a second tie at the same place would find is known, and its
    // search back from there is spared: it can be long.
    if (abc.bPendTie && pelInsertPoint != abc.pelTied)
    {
        AddTieAtInsertPoint();
        abc.pelTied = pelInsertPoint;
    }
    abc.bPendTie = false;
    abc.chord = AbcChord::NONE;
    return i + 1;
}
} // namespace zarn
