/// One symbol on one staff: the record, its kinds, and what its fields mean.
///
/// Ticks are 1/192 of a semibreve; a crotchet is 48. A duration's odd part is a complete statement of its form: 3
/// plain, 9 dotted, 1 triplet. There is no tuplet field. A column (lStrX) counts along one endless staff; a diatonic
/// position (lDiaPitch) counts 7 to the octave with 0 at middle C, sounding, the same in every clef.
#pragma once
#include "core/list.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace zarn
{
/// The kinds of symbol; the values are part of the file format.
enum Sort : int32_t
{
    NOSORT = 0,
    NOTE = 1, ///< lA note flags, lB volume 0..127
    BAR = 2,
    DOUBLEBAR = 3,
    CLEF = 4,   ///< lA 1 treble, 2 alto, 3 bass, 4 tenor
    KEYSIG = 5, ///< lA sharps above 0, flats below; lB the key it replaces
    REST = 6,
    NEWLINE = 7,
    SHARP = 8, ///< an accidental stands ahead of its note, at its lDiaPitch
    FLAT = 9,
    NATURAL = 10,
    TIMESIG = 11, ///< lA numerator, lB denominator
    SPACE = 12,
    CHORD = 13, ///< a harmony such as Am7; lA length of the text, as in all text sorts
    LYRICS = 14,
    REPEATSTART = 15, ///< lA bit 64: added by Score_BalanceRepeats
    REPEATEND = 16,   ///< likewise
    REPEATENDSTART = 17,
    TIE = 18,
    INSTRUMENT = 19, ///< lA MIDI program, 0..127
    TEMPO = 20,      ///< lA beats a minute
    TRANSPOSE = 21,  ///< lA semitones, added at playing
    SORT22 = 22,     ///< never made; a file may hold it
    VOLUME = 23,     ///< lA level
    REPEATFIRST = 24,
    MARKBEGIN = 25, ///< in elCurrent only
    MARKEND = 26,   ///< in elCurrent only
    ABC = 27,       ///< ABC text kept verbatim; lB not 0 when it stood behind the header
    TITLE = 28,
    ARPEGSTART = 29,
    ARPEGEND = 30,
    TEXT = 31,
    ANNOT = 32,
    SLUR = 33,   ///< lA 0 start, 1 end; pelPartner the other one; lB is 0
    BOWING = 34, ///< lA 1 up bow, 2 down bow
};
constexpr int32_t lHighestSort = BOWING;

/// The bits of lA in a NOTE.
constexpr int32_t fTiedOn = 1;      ///< tied to the following note of the same pitch
constexpr int32_t fTiedFrom = 2;    ///< tied from the preceding note of the same pitch
constexpr int32_t fChordMore = 4;   ///< a further note of the same chord follows
constexpr int32_t fChordBefore = 8; ///< a note of the same chord precedes
constexpr int32_t fChordBits = 12;  ///< 0 single note, 4 first of its chord, 12 middle, 8 last
constexpr int32_t fOrnament = 32;
constexpr int32_t fStaccato = 64;
constexpr int32_t fFretEntrySign = 128;     ///< in elCurrent only
constexpr int32_t fFingeringStored = 0x100; ///< lString and lFret stand in the file behind the record
constexpr int32_t fAddedRepeat = 64;        ///< in lA of a repeat sign

/// The beam field of a NOTE.
enum Beam : int32_t
{
    BEAM_NONE = 0,
    BEAM_FIRST = 1,
    BEAM_LAST = 2,
    BEAM_INSIDE = 3
};

/// Bits of fOverBar.
constexpr int32_t fOverruns = 1;   ///< the symbol runs over its bar
constexpr int32_t fUnplayable = 2; ///< the fingering search found no way to play it

constexpr int32_t cbPlainElement = 100;  ///< storage of an Element without further text
constexpr int32_t cbElementFixed = 92;   ///< of which all but the text
constexpr int32_t cchLongestText = 1000; ///< bytes in one text

/// One symbol. Sizes in `storage` are accounted ones: 100 for a plain Element, more with text (see list.h).
struct Element
{
    int32_t storage = cbPlainElement;
    int32_t inx = 0;       ///< running number of the last dump; kept in files, read by nothing
    int32_t lStrX = 0;     ///< column along the endless staff
    int32_t lWidth = 0;    ///< columns taken
    int32_t lDuration = 0; ///< ticks; NOTE and REST only
    int32_t lTime = 0;     ///< ticks from the start of the staff; derived
    int32_t lPitch = 64;   ///< MIDI note as it sounds, 60 at middle C; derived
    int32_t lStaff = 1;    ///< 0 to 8
    int32_t lX = 0;        ///< device pixels; derived
    int32_t lY = 0;        ///< device pixels; derived
    int32_t lDiaPitch = 2; ///< diatonic position; every symbol has one, for its height on the page
    int32_t lString = 0;   ///< tablature: from 1; 0 none
    int32_t lFret = -1;
    int32_t lFinger = 0; ///< 1 to 4; 0 none
    int32_t lA = 0;      ///< by sort
    int32_t lB = 0;      ///< by sort
    int32_t sort = NOSORT;
    Element* pelPrevNote = nullptr; ///< fingering search only
    List listFingers = nullptr;     ///< fingering search only
    Element* pelPartner = nullptr;  ///< of a SLUR: the other end; null when it has none
    int32_t beam = BEAM_NONE;
    int32_t up = 1;       ///< 1 stem up, 0 stem down
    int32_t fOverBar = 0; ///< not 0: shown in a warning colour
    int32_t fHidden = 0;  ///< not 0: neither drawn nor hit; only a file can set it
    char text[8] = {};    ///< NUL-ended, to the end of the record
};
static_assert(std::is_trivially_copyable_v<Element>);
static_assert(sizeof(Element) - offsetof(Element, text) == cbPlainElement - cbElementFixed, "the text ends the record");

/// An Element with room for the longest text; the template of the next add.
struct RoomyElement : Element
{
    char aMoreText[cchLongestText + 8] = {};
};
static_assert(sizeof(RoomyElement) >= sizeof(Element) + cchLongestText);

/// Sets the defaults that stand beside the fields. What lies behind the eighth byte of text is left alone.
void Element_Init(Element* pel);

/// The text's bytes, up to its NUL or the end of the record.
[[nodiscard]] std::string_view Element_Text(Element const* pel);
/// The first byte of text, for writing: storage - 92 bytes are there.
[[nodiscard]] char* Element_TextBytes(Element* pel);
[[nodiscard]] char const* Element_TextBytes(Element const* pel);

/// The name in the score dump; "UNKNOWNSORT" for a sort that has none.
[[nodiscard]] char const* Sort_Name(int32_t sort, int32_t lA);
/// CHORD, LYRICS, ABC, TITLE, TEXT and ANNOT.
[[nodiscard]] bool Sort_BearsText(int32_t sort);
/// BAR, DOUBLEBAR, REPEATEND, REPEATSTART or REPEATENDSTART.
[[nodiscard]] bool Sort_IsBarLike(int32_t sort);
/// SHARP, FLAT or NATURAL.
[[nodiscard]] bool Sort_IsAccidental(int32_t sort);

/// Dotted: the duration's odd part is 9. 3 ticks are not dotted, nor is 0.
[[nodiscard]] bool IsDotted(int32_t lDuration);
/// One of 2, 4, 8, 16, 32, 64 and 128 ticks.
[[nodiscard]] bool IsTriplet(int32_t lDuration);
/// The duration without dot or triplet; 0 stays 0. Any other shows a message and gives the message box's 1.
[[nodiscard]] int32_t BaseDuration(int32_t lDuration);
/// The odd part of a duration: 3 plain, 9 dotted, 1 triplet; 0 for 0.
[[nodiscard]] int32_t OddPart(int32_t lDuration);
} // namespace zarn
