/// What the ABC reader knows between two symbols.
#pragma once
#include "abc/abc_lines.h"

#include <cstdint>
#include <string>

namespace zarn
{
/// Whose lines are being read.
enum class TuneState
{
    BEFORE, ///< ahead of any X:
    OTHER,  ///< in another tune
    WANTED
};

/// Where the reader stands in a [ ] chord.
enum class AbcChord
{
    NONE,
    OPENED, ///< no note of it yet
    FILLED
};

constexpr int32_t lTupletParts = 360; ///< a tuplet's ratio is in these

struct AbcState
{
    int32_t lMeterNum = 4;
    int32_t lMeterDen = 4;
    int32_t lUnit = 0;   ///< ticks of the unit note length; 0 not set yet
    int32_t lKey = 0;    ///< sharps above 0; -5 to 6
    int32_t lTempo = 0;  ///< of a Q: field ahead of the body, in units a minute
    int32_t lBroken = 0; ///< from > and <: what the note before owes this one
    int32_t lVoice = 1;  ///< staff being filled
    bool bPendSharp = false;
    bool bPendFlat = false;
    bool bPendNatural = false;
    bool bPendStaccato = false;
    bool bPendOrnament = false;
    bool bPendTie = false;
    bool bTuneStarted = false; ///< the staff header has been built for the voice
    bool bBodySeen = false;    ///< some voice has had its header built since X:
    bool bNoNewline = true;    ///< the end of this source line adds no NEWLINE
    bool bGrace = false;       ///< inside { }
    bool bTitleSeen = false;
    bool bSplitRepeat = false; ///< the last line ended in ":\"
    AbcChord chord = AbcChord::NONE;
    int32_t lTupletLeft = 0;
    int32_t lTupletRatio = lTupletParts;
    bool bDropNewlines = false; ///< a ! was seen
    TuneState tune = TuneState::BEFORE;
    std::string sTitle;
    int32_t cSymbols = 0;          ///< symbols read so far
    void const* pelTied = nullptr; ///< the insert point at the last tie that closed a chord
};

/// The reader's state. Made anew by each read; main thread.
inline AbcState abc;

/// Builds the header of the voice's staff, once: title, clef, key, meter and tempo.
void AbcStartTune();

/// Makes a symbol the current one and adds it at the insert point.
void AbcAdd(int32_t lDiaPitch, int32_t sort, int32_t lA = 0, int32_t lB = 0);

/// The readers' check of their own place: a message when bRight is false, which isn't kept from being heard again.
void AbcExpect(bool bRight, char const* sBug);

constexpr int32_t lAbcSignHeight = 6;   ///< diatonic position of a key, a meter, a rest, a line's end
constexpr int32_t lAbcAboveHeight = 18; ///< of a tempo and a bowing
} // namespace zarn
