// Chord symbols: what the letters mean, and which notes they sound.
#include "midi/guitar_chords.h"

#include "core/pitch.h"
#include "core/text.h"

namespace zarn
{
constexpr int32_t lVoices = 4;
constexpr int32_t lChordVolume = 48;
constexpr int32_t lChordChannel = 1;
constexpr int32_t lHighestKind = 9;

/// What stands behind the root, in the order in which it is looked for; case counts, so that "Dim" is a plain major.
static int32_t KindOf(std::string_view s)
{
    if (s.starts_with("m"))
    {
        s.remove_prefix(1);
        if (s.starts_with("7") || s.starts_with("in7"))
            return 4;
        return s.starts_with("aj7") ? 9 : 2;
    }
    struct Spelling
    {
        std::string_view sSpelled;
        int32_t lKind;
    };
    static constexpr Spelling aSpellings[] = {{"7", 3}, {"-", 5},   {"0", 5}, {"dim", 5},
                                              {"+", 6}, {"aug", 6}, {"!", 7}, {"6", 8}};
    for (Spelling const& spelling : aSpellings)
        if (s.starts_with(spelling.sSpelled))
            return spelling.lKind;
    return 1;
}

void ParseGuitarChord(std::string_view sText, int32_t* plRoot, int32_t* plKind, int32_t lTranspose)
{
    static constexpr int32_t aRoot[] = {45, 47, 48, 50, 52, 53, 55}; // A to G, the octave below middle C
    char const c = sText.empty() ? '\0' : sText[0];
    int32_t lRoot = -1;
    int32_t lKind = -1;
    if (c == '/')
    {
        lRoot = lLastChordRoot;
        lKind = lLastChordKind;
    }
    else if (c >= 'A' && c <= 'G')
    {
        lRoot = aRoot[c - 'A'];
        sText.remove_prefix(1);
        if (sText.starts_with("#") || sText.starts_with("b"))
        {
            lRoot += sText[0] == '#' ? 1 : -1;
            sText.remove_prefix(1);
        }
        lKind = KindOf(sText);
    }
    // A "/" starts from a root that has been adjusted before, and sinks further each time. It always has.
    if (fClarinetTranspose)
        lRoot = Wrap_Sub(lRoot, 2);
    else if (fGuitarTranspose)
        lRoot = Wrap_Sub(lRoot, 12);
    lRoot = Wrap_Add(lRoot, lTranspose);
    *plRoot = lLastChordRoot = lRoot;
    *plKind = lLastChordKind = lKind;
}

void PlayGuitarChord(PlayRecords& records, PlayRecord record, ChordVoices& voices, int32_t lRoot, int32_t lKind)
{
    static constexpr int32_t aShape[lHighestKind][lVoices] = {{0, 4, 7, -1},   {0, 3, 7, -1}, {0, 4, 7, 10},
                                                              {0, 3, 7, 10},   {0, 3, 6, 9},  {0, 4, 8, -1},
                                                              {0, -1, -1, -1}, {0, 4, 7, 9},  {0, 4, 7, 11}};
    record.lChannel = lChordChannel;
    record.lVolume = 0;
    for (int32_t& lNote : voices.alChordNotes)
    {
        if (lNote == -1)
            continue;
        record.lNote = lNote;
        AddPlayRecord(records, record);
        lNote = -1;
    }
    if (lKind < 1 || lKind > lHighestKind)
        return;
    record.lVolume = lChordVolume;
    for (int32_t lVoice = 0; lVoice < lVoices; ++lVoice)
    {
        int32_t const lAbove = aShape[lKind - 1][lVoice];
        if (lAbove < 0)
            continue;
        record.lNote = voices.alChordNotes[lVoice] = Wrap_Add(lRoot, lAbove);
        AddPlayRecord(records, record);
    }
}
} // namespace zarn
