// Which glyphs a symbol is drawn with.
#include "render/symbols.h"

#include "core/messages.h"
#include "core/score.h"
#include "core/text.h"
#include "render/accidental_glyphs.h"
#include "render/bar_glyphs.h"
#include "render/clef_glyphs.h"
#include "render/first_time_bar.h"
#include "render/geometry.h"
#include "render/key_signature.h"
#include "render/legers.h"
#include "render/note_glyphs.h"
#include "render/pages.h"
#include "render/rest_glyphs.h"
#include "render/ruling.h"
#include "render/slurs.h"
#include "render/strokes.h"
#include "render/tab_glyphs.h"
#include "render/text_symbols.h"
#include "render/ties.h"
#include "tab/fingering.h" // a note without a fingering gets one when it is drawn
#include "tab/tuning.h"

namespace zarn
{
namespace
{
constexpr int32_t lCursorLineLength = 16; ///< pixels of a line that only a cursor shows
} // namespace

/// From the stem's foot in its chord to the other end, so that the heads of a flagged chord share one stem.
static void JoinChord(HDC hdc, Element* pel)
{
    constexpr int32_t lStemPerCent = 15;
    constexpr int32_t lCrotchet = 48;
    if (BaseDuration(pel->lDuration) >= lCrotchet)
        return;
    int32_t const lChord = pel->lA & fChordBits;
    Element* pelOther = nullptr;
    if (pel->up && lChord == fChordMore)
        pelOther = ChordLast(pel);
    else if (!pel->up && lChord == fChordBefore)
        pelOther = ChordFirst(pel);
    if (pelOther && IsOnPage(pelOther) && !(OffPage(pel->lY) && OffPage(pelOther->lY)))
        VLine(hdc, pel->up ? pel->lX + (lBlobX >> 1) : pel->lX - (lBlobX >> 1), pel->lY, pelOther->lY, lStemPerCent);
}

/// Tablature stands on the page, never in a cursor.
static bool ShowsTablature(HWND hwnd) { return bTabShowing && (hwnd || bPrinting); }

/// The place on the staff that stands above a string.
static POINT PlaceAboveString(Element const* pel, int32_t lString)
{
    POINT place;
    Draw_Fold(pel->lStrX, AboveString(lString), pel->lStaff, 1, &place.x, &place.y);
    return place;
}

static int32_t DrawFret(HDC hdc, Element* pel)
{
    Tab_FingerMissing(pel);
    if (pel->lString == 0)
        return 0; // there is no way to play it
    POINT const place = PlaceAboveString(pel, pel->lString);
    return FretNumber(hdc, place.x, place.y, pel->lFret);
}

static int32_t DrawNoteSymbol(HDC hdc, HWND hwnd, Element* pel, int32_t lClef)
{
    int32_t const lFretDrawn = ShowsTablature(hwnd) ? DrawFret(hdc, pel) : 0;
    NoteLook look;
    look.bUp = pel->up != 0;
    look.lBeam = pel->beam;
    look.lDuration = pel->lDuration;
    look.bFlagged = (pel->lA & (look.bUp ? fChordMore : fChordBefore)) == 0;
    look.bMarked = (pel->lA & (look.bUp ? fChordBefore : fChordMore)) == 0;
    look.bDotted = IsDotted(pel->lDuration);
    look.bStaccato = (pel->lA & fStaccato) != 0;
    look.bOrnament = (pel->lA & fOrnament) != 0;
    int32_t const r = DrawNote(hdc, pel->lX, pel->lY, look);
    JoinChord(hdc, pel);
    return lFretDrawn | r | DrawLegers(hdc, pel->lX, pel->lStrX, pel->lStaff, pel->lDiaPitch, lClef);
}

static int32_t DrawBarSymbol(HDC hdc, HWND hwnd, Element const* pel)
{
    int32_t const r = BarGlyph(hdc, pel->lX, pel->lY, pel->lStaff);
    if (!ShowsTablature(hwnd))
        return r;
    POINT const place = PlaceAboveString(pel, Tab_UsedStrings());
    return TabBarGlyph(hdc, place.x, place.y);
}

static int32_t DrawRestSymbol(HDC hdc, Element const* pel, bool bCursor)
{
    constexpr int32_t lShortestBlock = 49;
    int32_t const r = DrawRest(hdc, pel->lX, pel->lY, pel->lDuration, IsDotted(pel->lDuration));
    if (bCursor && pel->lDuration >= lShortestBlock)
    {
        // A staff line to hang from or to sit on.
        LegerLine(hdc, pel->lX, pel->lY);
        LegerLine(hdc, pel->lX + lCursorLineLength, pel->lY);
    }
    return r;
}

static char const* VolumeName(int32_t lLevel)
{
    struct Step
    {
        int32_t lBelow;
        char const* sName;
    };
    static constexpr Step aSteps[] = {{11, "ppp"}, {26, "pp "}, {41, "p  "},  {56, "mp "},
                                      {71, "m  "}, {86, "mf "}, {101, "f  "}, {116, "ff "}};
    for (Step const& step : aSteps)
        if (lLevel < step.lBelow)
            return step.sName;
    return "fff";
}

/// Signs for the player of the file, not for the reader of the page.
static int32_t DrawLayoutSign(HDC hdc, Element const* pel, char const* sFormat)
{
    if (!bShowLayout && bPrinting)
        return 0;
    std::string sText(sFormat);
    if (pel->sort != NEWLINE)
        sText += Format("%d", pel->lA);
    return DrawText(hdc, pel->lX, pel->lY, sText, false);
}

static int32_t DrawSlurSymbol(HDC hdc, Element* pel, bool bCursor)
{
    if (!bCursor)
        return DrawSlur(hdc, pel);
    Serious("Tell Odrian: Attempt to draw SLUR into cursor.  (OK to carry on).");
    return 0;
}

/// The key that a key signature replaces, without the flag that it may carry on its way into the score. A flat key is a
/// negative number, which has that bit set by nature.
static int32_t OldKey(Element const* pel)
{
    constexpr int32_t fPreservePitch = 64;
    return pel->lB < 0 ? pel->lB : pel->lB & ~fPreservePitch;
}

/// The report: 0 when nothing was drawn.
static int32_t DrawBySort(HDC hdc, HWND hwnd, Element* pel, int32_t lClef, bool bCursor)
{
    int32_t const x = pel->lX;
    int32_t const y = pel->lY;
    switch (pel->sort)
    {
    case NOSORT:
    case ABC:
        return 0;
    case NOTE:
        return DrawNoteSymbol(hdc, hwnd, pel, lClef);
    case BAR:
        return DrawBarSymbol(hdc, hwnd, pel);
    case DOUBLEBAR:
        return DoubleBarGlyph(hdc, x, y, pel->lStaff);
    case CLEF:
        return DrawClef(hdc, x, y, lClef);
    case KEYSIG:
        return OffPage(y) ? 0 : DrawKeySig(hdc, x, y, pel->lA, OldKey(pel), lClef, bCursor);
    case REST:
        return DrawRestSymbol(hdc, pel, bCursor);
    case NEWLINE:
        return DrawLayoutSign(hdc, pel, "/");
    case SHARP:
        return SharpGlyph(hdc, x, y);
    case FLAT:
        return FlatGlyph(hdc, x, y);
    case NATURAL:
        return NaturalGlyph(hdc, x, y);
    case TIMESIG:
        return TimeSigGlyph(hdc, x, y, pel->lA, pel->lB);
    case SPACE:
        return bCursor ? DrawText(hdc, x, y, "*", false) : bShowLayout ? DrawText(hdc, x, y, ",", false) : 0;
    case CHORD:
    case LYRICS:
    case TITLE:
    case TEXT:
    case ANNOT:
        return DrawTextSymbol(hdc, pel, bCursor);
    case REPEATSTART:
        return RepeatStartGlyph(hdc, x, y, pel->lStaff);
    case REPEATEND:
        return RepeatEndGlyph(hdc, x, y, pel->lStaff);
    case REPEATENDSTART:
        return RepeatEndStartGlyph(hdc, x, y, pel->lStaff);
    case TIE:
        return bCursor ? TieCurve(hdc, {x, y}, {x + lCursorLineLength, y}, true) : DrawTies(hdc, pel);
    case INSTRUMENT:
        return DrawLayoutSign(hdc, pel, "I");
    case TEMPO:
        return DrawLayoutSign(hdc, pel, "T");
    case TRANSPOSE:
        return DrawLayoutSign(hdc, pel, "X");
    case VOLUME:
        return DrawText(hdc, x, y, VolumeName(pel->lA), false);
    case REPEATFIRST:
        return bCursor ? 0 : DrawFirstTimeBar(hdc, pel);
    case MARKBEGIN:
    case MARKEND:
        DrawText(hdc, x, y, pel->sort == MARKBEGIN ? "<" : ">", false);
        return 0;
    case ARPEGSTART:
    case ARPEGEND:
        return bShowArpeggio ? ArpeggioBracket(hdc, x, y, pel->sort == ARPEGSTART) : 0;
    case SLUR:
        return DrawSlurSymbol(hdc, pel, bCursor);
    case BOWING:
        return BowGlyph(hdc, x, y, pel->lA);
    default:
        Serious("draw symbol of a sort NYI");
        return 0;
    }
}

int32_t DrawSymbol(HDC hdc, HWND hwnd, Element* pel, int32_t lClef, bool bCursor)
{
    if (pel->fHidden || TooFar(pel->lX))
        return 1;
    if (DrawBySort(hdc, hwnd, pel, lClef, bCursor) && !bCursor)
        RuleLine(hdc, hwnd, pel->lStrX);
    return 1;
}
} // namespace zarn
