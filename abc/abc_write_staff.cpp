// A staff's elements as ABC text.
//
// The forms are those that the reader takes back: every bar is a line of text whose end is escaped by a backslash, so
// that a plain line end stands only where the score has one. Where the symbol behind decides the form, one look ahead
// tells.
#include "abc/abc_write_staff.h"

#include "abc/abc_note_text.h"
#include "abc/abc_write.h"
#include "core/pitch.h"
#include "core/score.h"
#include "core/text.h"
#include "midi/play_list.h"

namespace zarn
{
namespace
{
constexpr int32_t lTreble = 1;
constexpr int32_t lUpBow = 1;
constexpr int32_t lDownBow = 2;
constexpr int32_t fSlurEnd = 1;
constexpr int32_t fBeamGoesOn = 1; ///< in the beam field
constexpr char const* sEscape = "\\";

/// The text can't hold everything: the score stays marked as modified.
void AbcNotSaved() { bScoreDirty = true; }

bool Is(Element const* pel, int32_t sort) { return pel && pel->sort == sort; }

class StaffText
{
public:
    StaffText(HFILE hFile, int32_t lKey, int32_t lMeterNum, int32_t lMeterDen)
        : hFile(hFile), lKeyNow(lKey), lMeterNumNow(lMeterNum), lMeterDenNow(lMeterDen)
    {
    }

    void Write(List list)
    {
        for (auto const* pel = List_FirstAs<Element const>(list); pel;)
        {
            auto const* const pelNext = List_NextAs(pel);
            bool const bTookNext = Add(*pel, pelNext);
            pel = bTookNext ? List_NextAs(pelNext) : pelNext;
        }
    }

    bool bAtLineStart = true;

private:
    /// True when the next element is written as well.
    bool Add(Element const& el, Element const* pelNext)
    {
        switch (el.sort)
        {
        case NOTE:
            Note(el);
            break;
        case REST:
            Put((bInGrace ? "}" : "") + AbcRest(el.lDuration));
            bInGrace = false;
            bAtLineStart = false;
            break;
        case SHARP:
        case FLAT:
        case NATURAL:
            Accidental(el);
            break;
        case BAR:
            Bar(pelNext);
            break;
        case DOUBLEBAR:
            DoubleBar(pelNext);
            break;
        case NEWLINE:
            if (!bAtLineStart)
                Line("");
            break;
        case REPEATSTART:
            if (bNoteWritten)
                Put("|: ");
            bAfterRepeatFirst = false;
            break;
        case REPEATEND:
            return RepeatEnd(pelNext);
        case REPEATENDSTART:
            PutInLine(":: ");
            bAfterRepeatFirst = false;
            break;
        case REPEATFIRST:
            PutInLine("|1 ");
            bAfterRepeatFirst = true;
            break;
        default:
            AddOther(el);
        }
        return false;
    }

    /// What is neither a note nor a bar.
    void AddOther(Element const& el)
    {
        switch (el.sort)
        {
        case KEYSIG:
            Key(el.lA);
            break;
        case TIMESIG:
            Meter(el.lA, el.lB);
            break;
        case TEMPO:
            OwnLine("", Format("Q:%d", Wrap_Mul(2, el.lA)));
            break;
        case CHORD:
            Harmony(el);
            break;
        case LYRICS:
        case TEXT:
        case ANNOT:
            OwnLine(sEscape, "%" + AbcOneLine(Element_Text(&el)));
            break;
        case ABC:
            OwnLine(sEscape, AbcOneLine(Element_Text(&el)));
            break;
        case TITLE:
            Title();
            break;
        case SLUR:
            Put(el.lA & fSlurEnd ? ")" : "(");
            break;
        case BOWING:
            Put(el.lA == lUpBow ? "u" : el.lA == lDownBow ? "v" : "");
            break;
        case TIE: // the sign behind its note tells it
            break;
        case INSTRUMENT:
            Omitted("instrument change");
            break;
        case TRANSPOSE:
            Omitted("transpose");
            break;
        case VOLUME:
            Omitted("volume");
            break;
        case CLEF:
            if (el.lA != lTreble)
                AbcNotSaved();
            break;
        default:
            AbcNotSaved();
        }
    }

    void Note(Element const& el)
    {
        std::string s;
        bool const bGrace = el.lDuration == 0;
        if (bGrace != bInGrace)
            s += bGrace ? '{' : '}';
        bInGrace = bGrace;
        if ((el.lA & fChordBits) == fChordMore)
            s += '[';
        if (el.lA & fOrnament)
            s += '~';
        if (el.lA & fStaccato)
            s += '.';
        if (aSharp.Has(el.lDiaPitch))
            s += '^';
        else if (aFlat.Has(el.lDiaPitch))
            s += '_';
        else if (aNatural.Has(el.lDiaPitch))
            s += '=';
        s += AbcNoteName(el.lDiaPitch);
        s += AbcNoteLength(el.lDuration);
        if ((el.lA & fChordBits) == fChordBefore)
            s += ']';
        if (!(el.beam & fBeamGoesOn)) // the gap between beams is all that tells of them
            s += ' ';
        if (el.lA & fTiedOn)
            s += '-';
        PutInLine(s);
        bNoteWritten = true;
    }

    /// A sign holds to the end of its bar, and every note of its place there bears it: the reader needs no more.
    void Accidental(Element const& el)
    {
        for (AccidentalSet* const pSet : {&aSharp, &aFlat, &aNatural})
            pSet->Clear(el.lDiaPitch);
        (el.sort == SHARP ? aSharp : el.sort == FLAT ? aFlat : aNatural).Set(el.lDiaPitch);
        bAtLineStart = false;
    }

    void ForgetAccidentals() { aSharp = aFlat = aNatural = AccidentalSet{}; }

    void Bar(Element const* pelNext)
    {
        ForgetAccidentals();
        if (!pelNext)
            Line("|");
        else if (Is(pelNext, REPEATFIRST)) // which brings its own
            Line(sEscape);
        else if (bAtLineStart)
            PutInLine("| ");
        else if (Is(pelNext, NEWLINE))
            PutInLine("|");
        else
            Line("|\\");
    }

    /// Unlike a bar it leaves the accidentals in force, and a line at its start.
    void DoubleBar(Element const* pelNext)
    {
        if (!pelNext)
            Line("||");
        else if (Is(pelNext, NEWLINE))
            PutInLine("||");
        else if (bAtLineStart)
            Put("||");
        else
            Line("||\\");
    }

    /// True when it took the start of the next repeat with it.
    bool RepeatEnd(Element const* pelNext)
    {
        if (bAfterRepeatFirst)
            Line(":|2\\");
        else if (!pelNext || Is(pelNext, NEWLINE))
            Line(":|");
        else if (Is(pelNext, REPEATSTART))
        {
            Line("::\\");
            return true;
        }
        else
            Line(":|\\");
        return false;
    }

    void Key(int32_t lKey)
    {
        ForgetAccidentals();
        if (lKey != lKeyNow)
            OwnLine("", Format("K:%s", KeyName(lKey)));
        lKeyNow = lKey;
    }

    void Meter(int32_t lNum, int32_t lDen)
    {
        if (lNum != lMeterNumNow || lDen != lMeterDenNow)
            OwnLine(sEscape, Format("M:%d/%d", lNum, lDen));
        lMeterNumNow = lNum;
        lMeterDenNow = lDen;
    }

    void Harmony(Element const& el)
    {
        std::string const sText = AbcOneLine(Element_Text(&el));
        if (sText.starts_with('/'))
            AbcNotSaved();
        else
            Put("\"" + sText + "\"");
        bAtLineStart = false;
    }

    /// The tune's title stands in its header. The bracket for a further one is of long standing, and is kept.
    void Title()
    {
        if (bTitleSeen)
        {
            AbcNotSaved();
            Put("(");
        }
        bTitleSeen = true;
    }

    /// A line that begins with a backslash is passed over by the reader, and one within a line begins a comment there;
    /// the last one keeps the line's end from counting.
    void Omitted(char const* sWhat)
    {
        AbcNotSaved();
        Line(Format("\\%%%s omitted!\\", sWhat));
    }

    void Put(std::string_view sText)
    {
        AbcPut(hFile, sText);
        bLineEmpty = bLineEmpty && sText.empty();
    }

    /// Text that leaves the line begun.
    void PutInLine(std::string_view sText)
    {
        Put(sText);
        bAtLineStart = false;
    }

    /// Text that ends its line.
    void Line(std::string_view sText)
    {
        EndLine(sText);
        bAtLineStart = true;
    }

    /// A line for itself: one that has been begun ends first, in sEnd.
    void OwnLine(char const* sEnd, std::string const& sText)
    {
        if (!bAtLineStart)
            EndLine(sEnd);
        Line(sText);
    }

    /// A line that holds nothing ends the tune to every reader: what stands behind it is not saved. It comes about
    /// where a sign alone stands ahead of a symbol that begins a line.
    void EndLine(std::string_view sText)
    {
        Put(sText);
        if (bLineEmpty)
            AbcNotSaved();
        AbcPut(hFile, AbcLineEnd());
        bLineEmpty = true;
    }

    HFILE hFile;
    int32_t lKeyNow;
    int32_t lMeterNumNow;
    int32_t lMeterDenNow;
    AccidentalSet aSharp; ///< of this bar
    AccidentalSet aFlat;
    AccidentalSet aNatural;
    bool bInGrace = false;
    bool bAfterRepeatFirst = false;
    bool bNoteWritten = false;
    bool bTitleSeen = false;
    bool bLineEmpty = true; ///< nothing has been written since the last line end
};
} // namespace

bool AbcWriteStaff(HFILE hFile, List list, int32_t lKey, int32_t lMeterNum, int32_t lMeterDen)
{
    StaffText text(hFile, lKey, lMeterNum, lMeterDen);
    text.Write(list);
    return text.bAtLineStart;
}

std::string_view AbcLineEnd() { return bUseCrlf ? "\r\n" : "\n"; }

std::string AbcOneLine(std::string_view sText)
{
    std::string sLine;
    for (size_t n = 0; n < sText.size(); ++n)
    {
        bool const bCrLf = sText[n] == '\r' && n + 1 < sText.size() && sText[n + 1] == '\n';
        sLine += sText[n] == '\r' || sText[n] == '\n' ? ' ' : sText[n];
        n += bCrLf;
    }
    return sLine;
}

bool AbcPut(HFILE hFile, std::string_view sText)
{
    auto const cb = static_cast<int32_t>(sText.size());
    return _lwrite(hFile, sText.data(), cb) == cb;
}
} // namespace zarn
