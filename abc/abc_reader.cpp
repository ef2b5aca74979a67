// The ABC reader's main loop: a line at a time, a sign at a time.
//
// It is forgiving: what it doesn't know is kept as text, so that the writer can put it back, or told in the listing. It
// adds by the same calls as the keyboard, so whatever it reads is a score like any other.
#include "abc/abc_reader.h"

#include "abc/abc_bars.h"
#include "abc/abc_fields.h"
#include "abc/abc_index.h"
#include "abc/abc_listing.h"
#include "abc/abc_notes.h"
#include "abc/abc_state.h"
#include "core/messages.h"
#include "core/text.h"
#include "edit/current_symbol.h"
#include "edit/insert.h"
#include "edit/insert_run.h"
#include "edit/text.h"
#include "midi/repeats.h"

#include <cctype>

namespace zarn
{
namespace
{
constexpr char cEndOfText = 26;
constexpr int32_t lTuneEnds = -1; ///< instead of a position
constexpr int32_t lMostSymbols = 1000000;
constexpr int32_t lUpBow = 1;
constexpr int32_t lDownBow = 2;

/// How a tune came to its end.
enum class TuneEnd
{
    LINES,       ///< a blank line, the next tune or the end of the file
    END_OF_TEXT, ///< character 26: no listing is shown
};

// ---- signs ----

/// "..." is a harmony; without its closing sign it runs to the end of the line.
int32_t ReadGuitarChord(AbcLine const& line, int32_t i)
{
    std::string_view const sRest = line.From(i + 1);
    std::string_view const sText = sRest.substr(0, sRest.find('"'));
    auto const cch = static_cast<int32_t>(sText.size());
    Text_AddAtInsertPoint(sText, cch, CHORD, false);
    return i + cch + 2;
}

/// The whole line is kept from its second sign on, wherever in it the comment begins.
int32_t ReadComment(AbcLine const& line)
{
    Text_AddAtInsertPoint(line.From(1), line.Last(), LYRICS, abc.bTuneStarted);
    abc.bNoNewline = true;
    return line.End();
}

int32_t ReadBowing(int32_t i, int32_t lBow)
{
    CurrentSymbol_Set(BOWING, lBow);
    AddAtInsertPoint(lAbcAboveHeight, true);
    abc.bNoNewline = false;
    return i + 1;
}

int32_t ReadGraceStart(int32_t i)
{
    if (abc.bGrace)
        AbcLog("Nested grace notes i.e. { { ... } }not allowed");
    abc.bGrace = true;
    return i + 1;
}

int32_t ReadGraceEnd(int32_t i)
{
    if (!abc.bGrace)
        AbcLog("spurious '}'");
    abc.bGrace = false;
    return i + 1;
}

int32_t ReadSlurOrTuplet(AbcLine const& line, int32_t i)
{
    if (line.At(i + 1) >= '2' && line.At(i + 1) <= '9')
        return ReadTuplet(line, i);
    SlurOpen();
    return i + 1;
}

int32_t ReadUnexpected(AbcLine const& line, int32_t i)
{
    AbcLog(Format("Ignoring unexpected ABC symbol  \"%s\"", std::string(line.From(i)).c_str()));
    Text_AddAtInsertPoint(line.From(i).substr(0, 1), 1, ABC, abc.bTuneStarted);
    return i + 1;
}

int32_t ReadColon(AbcLine const& line, int32_t i)
{
    switch (line.At(i + 1))
    {
    case '|':
        return line.At(i + 2) == ':' ? ReadSpelledRepeatEndStart(i, 3) : ReadRepeatEnd(line, i);
    case '\\':
        if (i + 1 != line.Last())
            return ReadUnexpected(line, i);
        abc.bSplitRepeat = true;
        abc.bNoNewline = true;
        return i + 2;
    case ':':
        return ReadRepeatEndStart(line, i);
    default:
        return ReadUnexpected(line, i);
    }
}

int32_t ReadMusicNote(AbcLine const& line, int32_t i)
{
    i = ReadNote(line, i);
    abc.bNoNewline = false;
    return i;
}

int32_t ReadMusicRest(AbcLine const& line, int32_t i)
{
    i = ReadRest(line, i);
    abc.bNoNewline = false;
    return i;
}

int32_t ReadMusicKey(AbcLine const& line, int32_t i)
{
    i = ReadKey(line, i);
    abc.bNoNewline = true;
    return i;
}

/// Sets a flag of the reader, which is all that a sign does.
int32_t Note(bool& bFlag, int32_t i)
{
    bFlag = true;
    return i + 1;
}

int32_t StrayBroken(int32_t lBroken, int32_t i)
{
    abc.lBroken = lBroken;
    return i + 1;
}

/// One symbol of music. Gives the position behind it, or lTuneEnds at the end of the text.
int32_t ReadSymbol(AbcLine const& line, int32_t i)
{
    char const c = line.At(i);
    char const cNext = line.At(i + 1);
    if (c == 'K' && cNext == ':')
        return ReadMusicKey(line, i);
    if ((c >= 'a' && c <= 'g') || (c >= 'A' && c <= 'G'))
        return ReadMusicNote(line, i);
    switch (c)
    {
    case '"':
        return ReadGuitarChord(line, i);
    case '%':
        return ReadComment(line);
    case 'u':
        return ReadBowing(i, lUpBow);
    case 'v':
        return ReadBowing(i, lDownBow);
    case 'z':
        return ReadMusicRest(line, i);
    case ':':
        return ReadColon(line, i);
    case '{':
        return ReadGraceStart(i);
    case '}':
        return ReadGraceEnd(i);
    case '|':
        return ReadBarSign(line, i);
    case '^':
    case '=':
    case '_':
        return ReadAccidental(line, i);
    case ' ':
    case '*':
        return i + 1;
    case '\\':
        return Note(abc.bNoNewline, i);
    case '!':
        return Note(abc.bDropNewlines, i);
    case '-':
        return Note(abc.bPendTie, i);
    case '.':
        return Note(abc.bPendStaccato, i);
    case '~':
        return Note(abc.bPendOrnament, i);
    case 's':
        AbcLog("s meaning Slur is ignored - sorry");
        return i + 1;
    case '>':
        return StrayBroken(1, i);
    case '<':
        return StrayBroken(-1, i);
    case '(':
        return ReadSlurOrTuplet(line, i);
    case ')':
        SlurClose();
        return i + 1;
    case '+':
        return abc.chord == AbcChord::NONE ? ReadChordStart(line, i) : ReadChordEnd(i);
    case '[':
        return cNext == '|' ? ReadDoubleBar(line, i) : ReadChordStart(line, i);
    case ']':
        return ReadChordEnd(i);
    case cEndOfText:
        return lTuneEnds;
    default:
        return ReadUnexpected(line, i);
    }
}

// ---- lines ----

int32_t PassOver(AbcLine const& line)
{
    abc.bNoNewline = true;
    return line.End();
}

/// An X: line. It ends the wanted tune, unless it bears the wanted number again.
int32_t ReadIndex(AbcLine const& line, int32_t lWanted)
{
    abc.bTuneStarted = false;
    abc.bBodySeen = false;
    if (AbcReadNumber(line, SkipBlanksAndTabs(line, 2)).lValue == lWanted)
        abc.tune = TuneState::WANTED;
    else if (abc.tune == TuneState::WANTED)
        return lTuneEnds;
    else
        abc.tune = TuneState::OTHER;
    return line.End();
}

int32_t ReadVoiceField(AbcLine const& line)
{
    if (abc.bBodySeen)
    {
        ReadVoice(line);
        SlurReset();
    }
    return PassOver(line);
}

/// A line whose second sign is a colon.
int32_t BeginField(AbcLine const& line, int32_t lWanted)
{
    char const c = line.At(0);
    if (c == 'X')
        return ReadIndex(line, lWanted);
    if (abc.tune == TuneState::OTHER)
        return line.End();
    bool const bWanted = abc.tune == TuneState::WANTED;
    switch (c)
    {
    case 'M':
        abc.bNoNewline = true;
        return ReadMeter(line);
    case 'L':
        abc.bNoNewline = true;
        return ReadUnitLength(line);
    case 'Q':
        abc.bNoNewline = true;
        return ReadTempo(line);
    case 'V':
        return ReadVoiceField(line);
    case 'T':
        return bWanted ? ReadTitle(line) : line.End();
    case 'K':
        return 0;
    default:
        break;
    }
    if (!std::isalpha(static_cast<unsigned char>(c)))
        return 0;
    if (bWanted)
        ReadUnknownField(line);
    return PassOver(line);
}

/// What a new line is. Gives the position from which it goes on as music, behind its end when none of it does, or
/// lTuneEnds.
int32_t BeginLine(AbcLine const& line, int32_t lWanted)
{
    if (abc.tune == TuneState::WANTED)
        AbcListing_Copy(line);
    if (line.At(0) == '\\')
        return PassOver(line);
    if (abc.bSplitRepeat)
    {
        abc.bSplitRepeat = false;
        if (line.At(0) == ':')
            return ReadSpelledRepeatEndStart(0, 3);
        AbcLog("Line ended in \":\\\", next line did not start with \":\".\r\nThe \":\\\" was ignored");
    }
    if (line.At(1) == ':')
        return BeginField(line, lWanted);
    return abc.tune == TuneState::WANTED ? 0 : PassOver(line);
}

void EndSourceLine()
{
    bool const bNewline = abc.bTuneStarted && !abc.bNoNewline;
    if (bNewline)
        AbcAdd(lAbcSignHeight, NEWLINE);
    abc.bNoNewline = bNewline;
}

/// True while the tune may go on; when it can't, its user knows what is missing.
bool CountSymbol()
{
    if (++abc.cSymbols <= lMostSymbols)
        return true;
    Inform(Format(
        "The tune is too long.  Its first %d symbols have been read, and the rest left out.  The file is as it was.",
        lMostSymbols));
    return false;
}

TuneEnd ReadTuneLines(HFILE hFile, AbcLine& line, int32_t lWanted)
{
    int32_t i = line.End();
    for (;;)
    {
        if (line.Has(i))
        {
            AbcPlace(line, i);
            if (!CountSymbol())
                return TuneEnd::LINES;
            i = ReadSymbol(line, i);
            if (i == lTuneEnds)
                return TuneEnd::END_OF_TEXT;
            continue;
        }
        EndSourceLine();
        if (AbcReadLine(hFile, line) == lAbcEndOfFile)
            return TuneEnd::LINES;
        i = line.End();
        if (line.Last() < 0)
        {
            if (abc.bTuneStarted)
                return TuneEnd::LINES;
            continue; // blank lines ahead of the music
        }
        AbcPlace(line, 0);
        i = BeginLine(line, lWanted);
        if (i == lTuneEnds)
            return TuneEnd::LINES;
    }
}

/// Reads the tune of that number. The listing is closed at each of its ends, since only then is it in place.
void ReadAbcTune(HFILE hFile, int32_t lWanted)
{
    AbcListing_Open();
    SlurReset();
    AbcLine line;
    TuneEnd const end = ReadTuneLines(hFile, line, lWanted);
    AbcListing_Close(end == TuneEnd::LINES);
}

void DropNewlines()
{
    for (int32_t lStaff = 1; lStaff <= lHighestStaff; ++lStaff)
        for (Element* pel = StaffFirst(lStaff); pel;)
        {
            Element* const pelNext = Next(pel);
            if (pel->sort == NEWLINE)
                Element_Remove(pel);
            pel = pelNext;
        }
}

/// Reads the tune of a file whose list has been built, and tells where it came from.
int32_t ReadListed(HFILE hFile, int32_t lNumber, std::string* psTitle)
{
    {
        InsertRun const run;
        SelectInsertStaff(0); // what comes ahead of the first note is the tune's header, and belongs there
        abc = AbcState{};
        ReadAbcTune(hFile, lNumber);
    }
    Score_BalanceRepeats(false);
    if (abc.bDropNewlines)
        DropNewlines();
    if (psTitle)
        *psTitle = abc.sTitle;
    if (bAbcNoNumber || bAbcOutOfOrder)
        return 0;
    if (cAbcTunes <= 1)
        return ~lNumber;
    return lNumber < INT32_MAX ? lNumber + 1 : 0; // one that leaves no room above it can't be told, so isn't trusted
}
} // namespace

int32_t ReadAbc(HFILE hFile, HWND hwnd, std::string* psTitle)
{
    lAbcChosen = 0;
    int32_t const lNumber = Abc_ChooseTune(hFile, hwnd);
    if (lNumber >= 0)
        return ReadListed(hFile, lNumber, psTitle);
    if (psTitle)
        psTitle->clear();
    return 0;
}

int32_t ReadAbcNumbered(HFILE hFile, int32_t lNumber, std::string* psTitle)
{
    static_cast<void>(Abc_ListTunes(hFile)); // for its counts: they are part of the result
    return ReadListed(hFile, lNumber, psTitle);
}
} // namespace zarn
