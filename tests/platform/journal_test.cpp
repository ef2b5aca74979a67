#include "platform/journal.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

using namespace zarn;

TEST(Journal, EachLineReadsBackToItself)
{
    for (char const* const sLine : {"size 1024 768",
                                    "open /home/a b/The  Irish Washerwoman.abc",
                                    "open C:\\music\\tune.abc",
                                    "open C:\\\\new\\\\reel.abc",
                                    "command 305",
                                    "key left",
                                    "key pagedown shift",
                                    "key f12 ctrl alt",
                                    "key a shift ctrl alt",
                                    "key 7 shift",
                                    "key #",
                                    "key \xC3\xB6",
                                    "move -3 20000",
                                    "left down 10 20",
                                    "left up 10 -20",
                                    "right down 0 0",
                                    "right up 1 2",
                                    "palette 3 4",
                                    "piano 5 6",
                                    "scroll lineup",
                                    "scroll linedown",
                                    "scroll pageup",
                                    "scroll pagedown",
                                    "scroll thumb 17",
                                    "tick 2500",
                                    "midi 144 60 127",
                                    "close",
                                    "answer yes",
                                    "answer no",
                                    "answer cancel",
                                    "answer ok",
                                    "answer first",
                                    "answer second",
                                    "answer text  The Blarney  Pilgrim ",
                                    "answer text",
                                    "answer text one\\ntwo",
                                    "answer number -4",
                                    "answer row 12",
                                    "answer form clef=2 key=-3 time=6/8 tablature=1 ok",
                                    "answer form strings=6 top=76 interval2=5 cancel",
                                    "expect Not yet saved as ZRN file.  Save Now?"})
    {
        std::optional<JournalLine> const line = Journal_ParseLine(sLine);
        ASSERT_TRUE(line) << sLine;
        EXPECT_EQ(Journal_Format(*line), sLine);
    }
}

TEST(Journal, WordsBecomeTheRecordsFields)
{
    EXPECT_EQ(Journal_ParseLine("size 3 4")->event, (Event{.kind = EventKind::SIZE, .x = 3, .y = 4}));
    EXPECT_EQ(Journal_ParseLine("command 7")->event, (Event{.kind = EventKind::COMMAND, .lNumber = 7}));
    EXPECT_EQ(Journal_ParseLine("midi 144 60 99")->event,
              (Event{.kind = EventKind::MIDI, .lNumber = 144, .x = 60, .y = 99}));
    EXPECT_EQ(Journal_ParseLine("scroll thumb 9")->event,
              (Event{.kind = EventKind::SCROLL, .lNumber = static_cast<int32_t>(ScrollAction::THUMB), .x = 9}));
    EXPECT_EQ(Journal_ParseLine("key enter ctrl")->event,
              (Event{.kind = EventKind::KEY, .fCtrl = true, .sText = "enter"}));
    EXPECT_EQ(Journal_ParseLine("open a b ")->event, (Event{.kind = EventKind::OPEN, .sText = "a b "}));
    EXPECT_EQ(Journal_ParseLine("answer text a\\nb")->answer, (Answer{.kind = Answer::TEXT, .sText = "a\nb"}));
}

TEST(Journal, BlanksBetweenWordsDontMatter)
{
    EXPECT_EQ(Journal_ParseLine("  left   down\t 1   2 ")->event, (Event{.kind = EventKind::LEFTDOWN, .x = 1, .y = 2}));
    EXPECT_EQ(Journal_ParseLine("answer  number   5 ")->answer, (Answer{.kind = Answer::NUMBER, .lNumber = 5}));
    EXPECT_EQ(Journal_ParseLine("key a alt ctrl shift")->event, Journal_ParseLine("key a shift ctrl alt")->event);
}

TEST(Journal, EmptyLinesAndCommentsSayNothing)
{
    for (char const* const sLine : {"", "   ", "# left sideways", "  #"})
        EXPECT_EQ(Journal_ParseLine(sLine), JournalLine{}) << sLine;
}

TEST(Journal, WhatCantBeReadIsRefused)
{
    for (char const* const sLine : {"jump",
                                    "size 3",
                                    "size 0 4",
                                    "size 3 4 5",
                                    "size a b",
                                    "open",
                                    "command",
                                    "command -1",
                                    "command 1x",
                                    "command 99999999999",
                                    "key",
                                    "key A",
                                    "key hop",
                                    "key ab",
                                    "key a meta",
                                    "key \x01",
                                    "left",
                                    "left 1 2",
                                    "left sideways 1 2",
                                    "left down 1",
                                    "scroll",
                                    "scroll up",
                                    "scroll lineup 3",
                                    "scroll thumb",
                                    "scroll thumb x",
                                    "tick -1",
                                    "midi 256 0 0",
                                    "midi 1 2",
                                    "close 1",
                                    "answer",
                                    "answer maybe",
                                    "answer yes no",
                                    "expectation"})
        EXPECT_FALSE(Journal_ParseLine(sLine)) << sLine;
}

TEST(Journal, ABadLineIsToldWithItsNumber)
{
    std::vector<std::string> aComplaints;
    std::vector<JournalLine> const aLines =
        Journal_Parse("# a journal\n\ncommand 1\nleft sideways 3\r\ncommand 2\nhop", aComplaints);
    EXPECT_EQ(aLines.size(), 2u);
    EXPECT_EQ(aComplaints, (std::vector<std::string>{"Line 4 of the journal can't be read: left sideways 3",
                                                     "Line 6 of the journal can't be read: hop"}));
}

TEST(Journal, EitherKindOfLineEndWillDo)
{
    std::vector<std::string> aComplaints;
    EXPECT_EQ(Journal_Parse("open a b.abc\r\n\r\nanswer text x\r\n", aComplaints),
              Journal_Parse("open a b.abc\n\nanswer text x", aComplaints));
    EXPECT_TRUE(aComplaints.empty());
}

TEST(Journal, WhateverReadsIsWrittenSoThatItReadsTheSame)
{
    char const* const aPieces[] = {"answer", "text",  "form",   "number", "open", "key", "left", "down",
                                   "scroll", "thumb", "expect", "tick",   "size", "a",   "7",    "-3",
                                   " ",      "  ",    "\t",     "\\",     "\\n",  "\"",  "=",    "#",
                                   "\xC3",   "\x80",  "shift",  "ok",     "midi", "\x01"};
    std::mt19937 random(20);
    int32_t cRead = 0;
    for (int32_t l = 0; l < 20000; ++l)
    {
        std::string sLine;
        for (uint32_t cPieces = random() % 7; cPieces > 0; --cPieces)
            sLine += std::string(aPieces[random() % std::size(aPieces)]) + (random() % 2 ? " " : "");
        std::optional<JournalLine> const line = Journal_ParseLine(sLine);
        if (!line || line->kind == JournalLine::NOTHING)
            continue;
        ++cRead;
        std::string const sAgain = Journal_Format(*line);
        EXPECT_EQ(Journal_ParseLine(sAgain), line) << sLine;
        EXPECT_EQ(Journal_Format(*Journal_ParseLine(sAgain)), sAgain) << sLine;
    }
    EXPECT_GT(cRead, 500);
}
