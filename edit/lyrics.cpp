// Lyrics: from the staff into a text, and back.
//
// The slips told below are part of the behaviour. A syllable moves one note to the left with each editing where its
// '+' is lost on the way into the text.
#include "edit/lyrics.h"

#include "core/messages.h"
#include "core/text.h"
#include "edit/delete.h"
#include "edit/text.h"
#include "layout/adjust.h"
#include "panels/dialogs.h" // upward: the commands ask their user themselves
#include "render/geometry.h"

#include <algorithm>

namespace zarn
{
namespace
{
constexpr int32_t cchVerse = 10'000;      ///< the dialog of the command takes
constexpr int32_t cchVerseOfPopup = 1000; ///< the dialog of the pop-up takes
constexpr int32_t lLyricHeight = -7;      ///< diatonic position in the treble frame
constexpr char const* sDialogTitle = "Lyrics (Ctrl+Enter for new line)";
constexpr std::string_view sSkipped = "\r\n ";
constexpr std::string_view sEndsWord = " +-_";

/// A note that takes a syllable: neither tied from the one before, nor a later note of its chord.
bool TakesSyllable(Element const* pel) { return pel->sort == NOTE && (pel->lA & (fTiedFrom | fChordBefore)) == 0; }

/// A syllable as it stands in the text.
std::string Collected(std::string_view sSyllable)
{
    std::string s(sSyllable.substr(0, sSyllable.find_last_not_of(' ') + 1));
    std::replace(s.begin(), s.end(), ' ', '~');
    if (s.empty() || s.back() != '-')
        s += ' ';
    return s;
}

/// The text that is still to be dealt out.
class Verse
{
public:
    explicit Verse(std::string_view s) : sRest(s) {}

    [[nodiscard]] bool Done() const { return sRest.empty(); }
    [[nodiscard]] std::string_view Rest() const { return sRest; }
    void Skip() { sRest.remove_prefix(std::min(sRest.find_first_not_of(sSkipped), sRest.size())); }
    /// The next word with the blank or hyphen that ends it; empty when nothing but blanks is left.
    std::string TakeWord();

private:
    std::string_view sRest;
};

std::string Verse::TakeWord()
{
    Skip();
    size_t n = std::min(sRest.find_first_of(sEndsWord), sRest.size());
    if (n > 0 && n < sRest.size() && (sRest[n] == '_' || sRest[n] == '+'))
        --n; // these stay in the text: the one is a syllable, the other a note without one
    std::string sWord(sRest.substr(0, n + 1));
    sRest.remove_prefix(sWord.size());
    std::replace(sWord.begin(), sWord.end(), '~', ' ');
    return sWord;
}

/// A walk from note to note, with the clef in force where it stands.
class NoteWalk
{
public:
    explicit NoteWalk(Element* pelFrom) : pel(pelFrom), lClef(ClefAt(Prev(pelFrom))) {}

    /// Moves on to the next note that takes a syllable, from here inclusive; null at the end of the staff.
    Element* Find()
    {
        while (pel && !TakesSyllable(pel))
            Step();
        return pel;
    }
    /// Moves on behind the element here.
    void Step()
    {
        if (pel->sort == CLEF)
            lClef = pel->lA;
        pelLast = pel;
        pel = Next(pel);
    }
    [[nodiscard]] bool Done() const { return !pel; }
    [[nodiscard]] int32_t Clef() const { return lClef; }    ///< ahead of the element here
    [[nodiscard]] Element* Last() const { return pelLast; } ///< the element that was left behind last, or null

private:
    Element* pel;
    Element* pelLast = nullptr;
    int32_t lClef;
};

/// Deletes the lyrics from pelFrom to the end of its staff; gives where the notes for new ones begin.
Element* ClearLyrics(HDC hdc, HWND hwnd, Element* pelFrom)
{
    int32_t const lStaff = pelFrom->lStaff;
    for (Element* pel = StaffLast(lStaff); pel;)
    {
        Element* const pelAhead = Prev(pel);
        bool const bLast = pel == pelFrom;
        bool const bLyric = pel->sort == LYRICS;
        if (bLyric)
            DeleteElement(hdc, hwnd, pel, false);
        if (bLast && !bLyric)
            return pelFrom;
        if (bLast)
        {
            // At the head of a staff there is nothing ahead to ask for what follows: the list says so, and the words
            // go to the end.
            auto* const pelNext = static_cast<Element*>(List_Next(pelAhead));
            return pelNext ? pelNext : pelAhead ? pelAhead : StaffLast(lStaff);
        }
        pel = pelAhead;
    }
    return nullptr;
}

int32_t Length(std::string_view s) { return Clamp32(std::ssize(s)); }

void AddSyllable(std::string_view sWord) { Text_AddAtInsertPoint(sWord, Length(sWord), LYRICS, false); }

/// What is left goes to the insert point, which no word of this verse may have moved: a click may have put it on
/// another staff than the last sequential add.
void AddRest(std::string_view sRest)
{
    if (pelInsertPoint)
        lInsertStaff = pelInsertPoint->lStaff;
    AddSyllable(sRest);
}

void EditVerse(HWND hwnd, HDC hdc, Element* pelFrom, int32_t cchMost)
{
    std::string sText;
    Lyrics_Collect(sText, pelFrom);
    InputLyrics(hwnd, &sText, sDialogTitle, cchMost);
    PutLyrics(hdc, hwnd, sText, pelFrom);
    FullAdjust();
    InvalidateRect(hwnd);
}
} // namespace

Element* FirstLyricPlace(int32_t x, int32_t y)
{
    int32_t lStrX = 0;
    int32_t lDiaPitch = 0;
    int32_t lStaff = 0;
    Draw_Straighten(x, y, &lStrX, &lDiaPitch, &lStaff, 1);
    Element* pel = FindPlace(lStrX, lLyricHeight, lStaff, LYRICS);
    while (pel && pel->sort != NOTE && (pel->lA & fChordBefore) != 0)
        pel = Next(pel);
    return pel;
}

void Lyrics_Collect(std::string& sOut, Element* pelFrom)
{
    int32_t lSince = 0; // notes since the last syllable
    for (Element const* pel = pelFrom; pel; pel = Next(pel))
    {
        if (pel->sort == LYRICS)
        {
            sOut += Collected(Element_Text(pel));
            lSince = 0;
        }
        else if (pel->sort == NEWLINE)
            sOut += "\r\n";
        else if (TakesSyllable(pel) && ++lSince >= 2)
            sOut += '+';
    }
    sOut.erase(sOut.find_last_not_of("+ \r\n") + 1);
}

void PutLyrics(HDC hdc, HWND hwnd, std::string_view sText, Element* pelFrom)
{
    if (!pelFrom)
        return;
    int32_t const lStaff = pelFrom->lStaff;
    Score_Dump("PutLyrics\n");
    NoteWalk walk(ClearLyrics(hdc, hwnd, pelFrom));
    Verse verse(sText);
    std::string sInHand; // the word that has found no note yet
    while (!verse.Done() && !walk.Done())
    {
        sInHand = verse.TakeWord();
        Element* const pelNote = walk.Find();
        if (!pelNote)
            break;
        if (sInHand.empty() || sInHand[0] != '+')
        {
            pelInsertPoint = Prev(pelNote);
            lInsertStaff = lStaff;
            Text_AddUnderClef(sInHand, Length(sInHand), LYRICS, false, walk.Clef());
        }
        walk.Step();
        sInHand.clear();
    }
    verse.Skip();
    if (!sInHand.empty())
    {
        pelInsertPoint = walk.Last();
        lInsertStaff = lStaff;
        AddSyllable(sInHand + ' ');
    }
    // Only the first sign is looked at: one '+' takes all that is left with it.
    if (!verse.Done() && verse.Rest()[0] != '+')
        AddRest(verse.Rest());
    Score_Dump("End of PutLyrics");
}

void Lyrics_Edit(HWND hwnd, HDC hdc, int32_t x, int32_t y)
{
    Element* const pelFrom = FirstLyricPlace(x, y);
    if (!pelFrom)
    {
        Inform("Lyrics are placed under the notes.  To work at all there has to be at least one note following the "
               "insert point.  There isn't.");
        return;
    }
    EditVerse(hwnd, hdc, pelFrom, cchVerse);
}

void Lyrics_EditFrom(HWND hwnd, HDC hdc, Element* pelFrom) { EditVerse(hwnd, hdc, pelFrom, cchVerseOfPopup); }
} // namespace zarn
