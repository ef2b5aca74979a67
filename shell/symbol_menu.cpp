// The symbols: every one that the palette hasn't, too.
#include "shell/menu_parts.h"

namespace zarn
{
static std::vector<MenuItem> NoteMenu()
{
    return {{COMMAND_NOTE, "&Brieve\t1", true},
            {COMMAND_NOTE + 1, "&Semibreve\t2"},
            {COMMAND_NOTE + 2, "&Minim\t3"},
            {COMMAND_NOTE + 3, "&Crotchet\t4"},
            {COMMAND_NOTE + 4, "&Quaver\t5"},
            {COMMAND_NOTE + 5, "S&emiquaver\t6"},
            {COMMAND_DEMISEMIQUAVER, "&Demisemiquaver\t7"},
            {COMMAND_GRACENOTE, "&Gracenote\t8"},
            {},
            {COMMAND_DOT, "D&otted or not\t."},
            {COMMAND_TRIPLET, "&Triplet or not\t;"},
            {COMMAND_STACCATO, "St&accato or not\t,"},
            {COMMAND_ORNAMENT, "Or&nament or not\t~"}};
}

static std::vector<MenuItem> RestMenu()
{
    return {{COMMAND_REST, "&Brieve rest\tShift+1", true},
            {COMMAND_REST + 1, "&Semibreve rest\tShift+2"},
            {COMMAND_REST + 2, "&Minim rest\tShift+3"},
            {COMMAND_REST + 3, "&Crotchet rest\tShift+4"},
            {COMMAND_REST + 4, "&Quaver rest\tShift+5"},
            {COMMAND_REST + 5, "S&emiquaver rest\tShift+6"},
            {COMMAND_DEMISEMIQUAVERREST, "&Demisemiquaver rest\tShift+7"}};
}

static std::vector<MenuItem> BarMenu()
{
    return {{COMMAND_BAR, "&Bar\t/"},
            {COMMAND_DOUBLEBAR, "&Double Bar\t|"},
            {},
            {COMMAND_REPEATSTART, "Repeat &Start\t{"},
            {COMMAND_REPEATEND, "Repeat &End\t}"},
            {COMMAND_REPEATENDSTART, "Repeat &Both End+Start\tR"},
            {COMMAND_REPEATFIRST, "Repeat &First Time Only"}};
}

static std::vector<MenuItem> ClefMenu()
{
    return {{COMMAND_TREBLECLEF, "&Treble clef"},
            {COMMAND_ALTOCLEF, "&Alto clef"},
            {COMMAND_BASSCLEF, "&Bass clef"},
            {COMMAND_TENORCLEF, "Te&nor clef"}};
}

static std::vector<MenuItem> KeyKeepingTextMenu()
{
    return {{125, "Gb (6 flats)"}, {126, "Db (5 flats)"}, {127, "Ab (4 flats)"}, {128, "Eb (3 flats)"},
            {129, "Bb (2 flats)"}, {130, "F (1 flat)"},   {131, "C (open)"},     {132, "G (1 sharp)"},
            {133, "D (2 sharps)"}, {134, "A (3 sharps)"}, {135, "E (4 sharps)"}, {136, "B (5 sharps)"},
            {137, "F# (6 sharps)"}};
}

static std::vector<MenuItem> KeyKeepingPitchMenu()
{
    return {{165, "Gb (6 flats)"}, {166, "Db (5 flats)"}, {167, "Ab (4 flats)"}, {168, "Eb (3 flats)"},
            {169, "Bb (2 flats)"}, {170, "F (1 flat)"},   {171, "C (open)"},     {172, "G (1 sharp)"},
            {173, "D (2 sharps)"}, {174, "A (3 sharps)"}, {175, "E (4 sharps)"}, {176, "B (5 sharps)"},
            {177, "F# (6 sharps)"}};
}

static std::vector<MenuItem> TimeMenu()
{
    return {{COMMAND_TIME12, "1/2"},     {COMMAND_TIME12 + 1, "2/2"},  {COMMAND_TIME12 + 2, "3/2"},
            {COMMAND_TIME12 + 3, "4/2"}, {COMMAND_TIME24, "2/4"},      {COMMAND_TIME24 + 1, "3/4"},
            {COMMAND_TIME24 + 2, "4/4"}, {COMMAND_TIME24 + 3, "6/4"},  {COMMAND_TIME24 + 4, "6/8"},
            {COMMAND_TIME24 + 5, "9/8"}, {COMMAND_TIME24 + 6, "12/8"}, {COMMAND_OTHERTIME, "Other..."}};
}

static std::vector<MenuItem> VolumeMenu()
{
    return {{COMMAND_VOLUME, "ppp (4)"},     {COMMAND_VOLUME + 1, "pp (19)"},  {COMMAND_VOLUME + 2, "p (34)"},
            {COMMAND_VOLUME + 3, "mp (49)"}, {COMMAND_VOLUME + 4, "(64)"},     {COMMAND_VOLUME + 5, "mf (79)"},
            {COMMAND_VOLUME + 6, "f (94)"},  {COMMAND_VOLUME + 7, "ff (109)"}, {COMMAND_VOLUME + 8, "fff (124)"}};
}

static std::vector<MenuItem> PlayTransposedMenu()
{
    return {{3148, "Up 4 octaves"},     {3136, "Up 3 octaves"},      {3124, "Up 2 octaves"},
            {3112, "Up an octave"},     {3111, "Up 11 semitones"},   {3110, "Up 10 semitones"},
            {3109, "Up 9 semitones"},   {3108, "Up 8 semitones"},    {3107, "Up 7 semitones"},
            {3106, "Up 6 semitones"},   {3105, "Up 5 semitones"},    {3104, "Up 4 semitones"},
            {3103, "Up 3 semitones"},   {3102, "Up 2 semitones"},    {3101, "Up 1 semitone"},
            {3100, "Normal pitch"},     {3099, "Down 1 semitone"},   {3098, "Down 2 semitones"},
            {3097, "Down 3 semitones"}, {3096, "Down 4 semitones"},  {3095, "Down 5 semitones"},
            {3094, "Down 6 semitones"}, {3093, "Down 7 semitones"},  {3092, "Down 8 semitones"},
            {3091, "Down 9 semitones"}, {3090, "Down 10 semitones"}, {3089, "Down 11 semitones"},
            {3088, "Down an octave"},   {3076, "Down 2 octaves"},    {3064, "Down 3 octaves"},
            {3052, "Down 4 octaves"}};
}

static std::vector<MenuItem> TextMenu()
{
    return {{COMMAND_TITLE, "&Title"},      {COMMAND_HARMONY, "&Harmony\tH"}, {COMMAND_WORD, "&Word\tW"},
            {COMMAND_LYRICS, "&Lyrics\tL"}, {COMMAND_TEXT, "&Text"},          {COMMAND_ANNOTATION, "&Annotation"}};
}

std::vector<MenuItem> SymbolMenu()
{
    return {{0, "&Notes", false, NoteMenu()},
            {0, "&Rests", false, RestMenu()},
            {COMMAND_TIE, "T&ie notes\tt"},
            {COMMAND_SHARP, "Sharp\t#"},
            {COMMAND_NATURAL, "Natural\t="},
            {COMMAND_FLAT, "Flat\tb"},
            {},
            {0, "&Bars and repeats", false, BarMenu()},
            {0, "&Clefs", false, ClefMenu()},
            {0, "&Key signatures, notes stay as written", false, KeyKeepingTextMenu()},
            {0, "Key signatures, notes sound as before", false, KeyKeepingPitchMenu()},
            {0, "Ti&me signatures", false, TimeMenu()},
            {},
            {COMMAND_UPBOW, "&Upbow / upstrum\tu"},
            {COMMAND_DOWNBOW, "&Downbow / downstrum\td"},
            {COMMAND_ARPEGGIOSTART, "Mark arpeggio start\t["},
            {COMMAND_ARPEGGIOEND, "Mark arpeggio end\t]"},
            {0, "T&ext", false, TextMenu()},
            {0, "&Volume", false, VolumeMenu()},
            {0, "P&lay Transposed", false, PlayTransposedMenu()},
            {},
            {COMMAND_SPACE, "&Space\tspace"},
            {COMMAND_NEWLINE, "&Newline\tn"}};
}

std::vector<MenuItem> TransposeMarkMenu()
{
    return {{4112, "Up an octave"},      {4111, "Up 11 semitones"},   {4110, "Up 10 semitones"},
            {4109, "Up 9 semitones"},    {4108, "Up 8 semitones"},    {4107, "Up 7 semitones"},
            {4106, "Up 6 semitones"},    {4105, "Up 5 semitones"},    {4104, "Up 4 semitones"},
            {4103, "Up 3 semitones"},    {4102, "Up 2 semitones"},    {4101, "Up 1 semitone"},
            {4099, "Down 1 semitone"},   {4098, "Down 2 semitones"},  {4097, "Down 3 semitones"},
            {4096, "Down 4 semitones"},  {4095, "Down 5 semitones"},  {4094, "Down 6 semitones"},
            {4093, "Down 7 semitones"},  {4092, "Down 8 semitones"},  {4091, "Down 9 semitones"},
            {4090, "Down 10 semitones"}, {4089, "Down 11 semitones"}, {4088, "Down an octave"}};
}

std::vector<MenuItem> TransposeAllMenu()
{
    return {{4312, "Up an octave"},      {4311, "Up 11 semitones"},   {4310, "Up 10 semitones"},
            {4309, "Up 9 semitones"},    {4308, "Up 8 semitones"},    {4307, "Up 7 semitones"},
            {4306, "Up 6 semitones"},    {4305, "Up 5 semitones"},    {4304, "Up 4 semitones"},
            {4303, "Up 3 semitones"},    {4302, "Up 2 semitones"},    {4301, "Up 1 semitone"},
            {4299, "Down 1 semitone"},   {4298, "Down 2 semitones"},  {4297, "Down 3 semitones"},
            {4296, "Down 4 semitones"},  {4295, "Down 5 semitones"},  {4294, "Down 6 semitones"},
            {4293, "Down 7 semitones"},  {4292, "Down 8 semitones"},  {4291, "Down 9 semitones"},
            {4290, "Down 10 semitones"}, {4289, "Down 11 semitones"}, {4288, "Down an octave"}};
}
} // namespace zarn
