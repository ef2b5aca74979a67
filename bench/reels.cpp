// A melody that walks about in the scale, comes home at the end of each part, and leaps by the chord on the beat.
#include "reels.h"

#include <algorithm>
#include <iterator>

namespace zarn::bench
{
namespace
{
constexpr int32_t lBarsAPart = 8;
constexpr int32_t lBarsALine = 4;
constexpr int32_t lBeatsABar = 4; ///< of two quavers each
constexpr int32_t lHome = 1;      ///< the D above middle C, in steps of the scale
constexpr int32_t lLowest = -3;
constexpr int32_t lHighest = 12;

class Reels
{
public:
    /// Gives notes enough: a last bar is filled, so a few more than lNotes can come.
    std::string Voice(int32_t lNotes)
    {
        sText.clear();
        lNotesLeft = lNotes;
        while (lNotesLeft > 0)
            Part();
        return sText;
    }

private:
    /// The same numbers on every machine, which the distributions of the standard library don't promise.
    uint32_t Chance(uint32_t lBelow)
    {
        lState = lState * 6364136223846793005u + 1442695040888963407u;
        return static_cast<uint32_t>(lState >> 33) % lBelow;
    }

    void Part()
    {
        sText += "|:";
        lStep = lHome;
        for (int32_t lBar = 0; lBar < lBarsAPart && lNotesLeft > 0; ++lBar)
        {
            bool const bLast = lBar == lBarsAPart - 1 || lNotesLeft <= 2 * lBeatsABar;
            Bar(bLast);
            if (bLast)
                break;
            sText += (lBar + 1) % lBarsALine == 0 ? "|\n" : "|";
        }
        sText += ":|\n";
    }

    void Bar(bool bLast)
    {
        static constexpr char const* aHarmonies[] = {"D", "G", "A7", "Bm", "Em"};
        sText += '"';
        sText += bLast ? "D" : aHarmonies[Chance(std::size(aHarmonies))];
        sText += '"';
        for (int32_t lBeat = 0; lBeat < lBeatsABar - (bLast ? 1 : 0); ++lBeat)
        {
            Beat();
            if (lBeat % 2 == 1)
                sText += ' ';
        }
        if (!bLast)
            return;
        sText += "[DA]2";
        lNotesLeft -= 2;
    }

    void Beat()
    {
        switch (Chance(16))
        {
        case 0: // a triplet
            sText += "(3";
            for (int32_t n = 0; n < 3; ++n)
                Note();
            break;
        case 1: // a roll
            sText += '~';
            Note();
            sText += '2';
            break;
        case 2: // a slurred pair
            sText += '(';
            Note();
            Note();
            sText += ')';
            break;
        case 3: // a passing accidental
            Note();
            sText += '^';
            Note();
            break;
        case 4: // two strings at once
            sText += '[';
            Pitch(std::max(lStep - 2, lLowest));
            Note();
            sText += ']';
            --lNotesLeft;
            Note();
            break;
        default:
            Note();
            Note();
        }
    }

    void Note()
    {
        static constexpr int32_t aMove[] = {-2, -1, -1, 1, 1, 2, 4, -4};
        Pitch(lStep);
        --lNotesLeft;
        lStep = std::clamp(lStep + aMove[Chance(std::size(aMove))], lLowest, lHighest);
    }

    /// Steps from C: "C" to "B", "c" to "b", a comma or an apostrophe beyond.
    void Pitch(int32_t l)
    {
        static constexpr char const sLow[] = "CDEFGAB";
        static constexpr char const sHigh[] = "cdefgab";
        if (l < 0)
            (sText += sLow[l + 7]) += ',';
        else if (l < 7)
            sText += sLow[l];
        else if (l < 14)
            sText += sHigh[l - 7];
    }

    std::string sText;
    uint64_t lState = 1;
    int32_t lNotesLeft = 0;
    int32_t lStep = lHome;
};
} // namespace

std::string MakeReels(int32_t lNotes, int32_t lStaffs)
{
    std::string sTune = "X:1\nT:Reels by Rule\nM:4/4\nL:1/8\nQ:1/4=180\nK:D\n";
    Reels reels;
    for (int32_t lStaff = 1; lStaff <= lStaffs; ++lStaff)
    {
        if (lStaffs > 1)
            sTune += "V:" + std::to_string(lStaff) + "\n";
        sTune += reels.Voice(lNotes / lStaffs);
    }
    return sTune;
}
} // namespace zarn::bench
