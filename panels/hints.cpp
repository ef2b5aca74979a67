// The hints. Their words, slips included, are those that users know.
#include "panels/hints.h"

#include <array>

namespace zarn
{
namespace
{
constexpr uint32_t lMsPerHint = 123;

constexpr std::array<std::string_view, lHints> aHint = {
    "Many menu items show keyboard shortcuts to the right",
    "Typing ; with the cursor on a note turns it into or back from being a triplet",
    "Typing / enters a bar line - useful for the very first one in the piece",
    "Typing | enters a double bar line.",
    "You can have a short bar after a double bar line",
    "Typing } enters an end-of-repeat sign",
    "Typing [ starts an arpeggio sequence for tablature generation",
    "Typing Ctrl+Enter will enter an explicit newline in the score or lyrics",
    "< and > are the keyboard shortcuts for marking a section",
    "Type Alt+Em to unmark a section",
    "Ctrl+Z will undo the last alteration to the score",
    "Accidentals (sharps, flats and naturals) only last to the end of the bar",
    "Typing g will generate the tablature or hide it if it is already showing",
    "You can alter the amount of room for leger lines above or below the staff",
    "You can change the relative size of the fontused for text",
    "To change the MIDI instrument enter an instrument symbol in the score",
    "Tunes in ABC files must start with X:",
    "In keyboard mode the cursor always looks like +",
    "The symbols menu has many more symbols than the palette",
    "There are no key signatures in the palette, only in the symbols menu",
    "To enter a dotted note from the keyboard, enter the basic note and type . (a dot)",
    "Working inkeyboard mode is usually quicker than mouse mode",
    "Here are some of the guitar chords zarn recognises:\nA G7 Em Dm7 FDim B+ C#0 Bb-",
    "G6 has the same notes in it as Em7",
    "X as a guitar chord means silence",
    "/ as a guitar chord means repeat the previous chord",
    "Settings in the Settings sub-menu of the Options menu are permanent\nthey will still be there next time you use "
    "Zarn",
    "Typing + spreads the notes out, - pulls them together\nAlt++ spreads them vertically Alt+- collapses them "
    "vertically",
    "Editing in right justified mode can be painful, but printing that way can look nice",
    "You can set top, bottom, left and right margins in the Settings in Options menu",
    "You can give Zarn to a friend.  Give them Zarn.exe and Zarn.hlp (and as much music as possible!)",
    "'Toggle' means turn it on if it's off or off if it's on.",
    "The English call half notes 'minims' and quarter notes 'crotchets'",
    "You can generate bass tablature by setting 4 strings, treble at pitch 55,\n 5 semitones between each",
    "Expert guitarists should reduce the Wrist position weighting for tablature generation",
    "Altering a piece with tablature showing will only create the most obvious fingering\nTo have it fully reworked, "
    "type r",
    "To copy in music from a different file, Append the other file,\nMark, Copy and Paste the part you want then Mark "
    "and Cut the rest away",
    "If you need to see exactly where the cursor 'hot spot' is,\nhit Esc to go to keyboard mode.  Mouse operations "
    "will still work. ",
    "You may want to turn off the 'Adjust continuously' option\nif you are making lots of alterations."};

constexpr bool AllWithinRoom()
{
    constexpr size_t cchMost = 150;
    for (std::string_view const sHint : aHint)
        if (sHint.empty() || sHint.size() > cchMost)
            return false;
    return true;
}
static_assert(AllWithinRoom());
} // namespace

std::string_view Hint(int32_t n) { return aHint[static_cast<size_t>(n)]; }

std::string_view HintAt(uint32_t lMs) { return Hint(static_cast<int32_t>(lMs / lMsPerHint % lHints)); }
} // namespace zarn
