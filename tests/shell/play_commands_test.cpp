// The commands that play and sound, and the options of the player.
#include "edit/current_symbol.h"
#include "edit/new_score.h"
#include "layout/adjust.h"
#include "midi/midi_setup.h"
#include "platform/headless/recording_surface.h"
#include "platform/headless/replay.h"
#include "render/play_marker.h"
#include "shell/play_commands.h"
#include "shell/play_marker.h"
#include "support/shell_fixture.h"
#include "support/sound_fixture.h"

#include <algorithm>
#include <cstdio>

namespace zarn::test
{
namespace
{
struct PlayCommands : Shell
{
    PlayCommands()
    {
        host.pSound = &sound;
        ResetPlayOptions();
        lPianoProgram = lPianoChannel = 1;
        bShowPlayed = true;
    }
    ~PlayCommands() override
    {
        ShutDownMidi(); // the output is sound's
        host.pSound = nullptr;
        ResetPlayOptions();
        bShowPlayed = true;
    }

    /// An editor with this on staff 1 and an output open.
    void Begin(std::string const& sScore)
    {
        Start();
        Write(1, sScore);
        FullAdjust();
        Command(COMMAND_INITMIDI);
        process.user.shown.clear();
        sound.sent.clear();
    }
    [[nodiscard]] std::string Sent() const
    {
        std::string s;
        for (SentMessage const& message : sound.sent)
            s += (s.empty() ? "" : " ") + MessageText(message.dwMessage);
        return s;
    }

    VirtualSound sound{process.user};
};
} // namespace

TEST_F(PlayCommands, PlayedFlagsAreToggledAndChecked)
{
    Start();
    struct
    {
        int32_t lCommand;
        bool (*pIsOn)();
    } const aCase[] = {{COMMAND_DOUBLESPEED, [] { return fDoubleSpeed; }},
                       {COMMAND_ENDLESSREPEAT, [] { return fEndlessRepeat.load(); }},
                       {COMMAND_BARNDANCE, [] { return fBarnDance; }}};
    for (auto const& c : aCase)
    {
        Command(c.lCommand);
        EXPECT_TRUE(c.pIsOn() && Checked(c.lCommand)) << c.lCommand;
        Command(c.lCommand);
        EXPECT_FALSE(c.pIsOn() || Checked(c.lCommand)) << c.lCommand;
    }
}

TEST_F(PlayCommands, OneLiltTakesTheOthersPlaceAndGoesWithItsOwnCommand)
{
    Start();
    Command(COMMAND_DOTTEDCROTCHET);
    EXPECT_EQ(lSwing, 48);
    EXPECT_TRUE(Checked(COMMAND_DOTTEDCROTCHET));
    Command(COMMAND_DOTTEDQUAVER);
    EXPECT_EQ(lSwing, 24);
    EXPECT_TRUE(Checked(COMMAND_DOTTEDQUAVER));
    EXPECT_FALSE(Checked(COMMAND_DOTTEDCROTCHET));
    Command(COMMAND_DOTTEDQUAVER);
    EXPECT_EQ(lSwing, 0);
    EXPECT_FALSE(Checked(COMMAND_DOTTEDQUAVER));
}

TEST_F(PlayCommands, OrnamentsHaveOneStyleOrNone)
{
    Start();
    EXPECT_TRUE(Checked(COMMAND_DIATONICROLLS)) << "at start";
    Command(COMMAND_SEMITONEROLLS);
    EXPECT_EQ(lOrnamentStyle, ORNAMENT_SEMITONE);
    EXPECT_TRUE(Checked(COMMAND_SEMITONEROLLS));
    EXPECT_FALSE(Checked(COMMAND_DIATONICROLLS));
    Command(COMMAND_BOWEDTRIPLETS);
    EXPECT_EQ(lOrnamentStyle, ORNAMENT_BOWED);
    Command(COMMAND_DIATONICROLLS);
    EXPECT_EQ(lOrnamentStyle, ORNAMENT_DIATONIC);
    Command(COMMAND_DIATONICROLLS);
    EXPECT_EQ(lOrnamentStyle, ORNAMENT_NONE);
    for (int32_t const lCommand : {COMMAND_SEMITONEROLLS, COMMAND_BOWEDTRIPLETS, COMMAND_DIATONICROLLS})
        EXPECT_FALSE(Checked(lCommand)) << lCommand;
}

TEST_F(PlayCommands, PlayingChordSymbolsIsStored)
{
    Start();
    EXPECT_TRUE(Checked(COMMAND_PLAYCHORDS));
    Command(COMMAND_PLAYCHORDS);
    EXPECT_FALSE(Checked(COMMAND_PLAYCHORDS));
    EXPECT_EQ(process.settings.values["Play guitar chords"], 0);
    Command(COMMAND_PLAYCHORDS);
    EXPECT_EQ(process.settings.values["Play guitar chords"], 1);
}

TEST_F(PlayCommands, AStaffIsSwitchedOffAndOnAndANewTunePlaysAll)
{
    Start();
    Write(3, "n0/48");
    FullAdjust();
    for (int32_t lStaff = 1; lStaff <= 8; ++lStaff)
        EXPECT_TRUE(Checked(COMMAND_PLAYSTAFF + lStaff)) << lStaff;
    Command(COMMAND_PLAYSTAFF + 3);
    EXPECT_EQ(afPlay[3], 0);
    EXPECT_FALSE(Checked(COMMAND_PLAYSTAFF + 3));
    EXPECT_FALSE(bTimesValid) << "a staff that was off has no times";
    AnswersNewTune();
    Command(COMMAND_NEW);
    EXPECT_EQ(afPlay[3], 1);
    EXPECT_TRUE(Checked(COMMAND_PLAYSTAFF + 3));
}

TEST_F(PlayCommands, AStaffThatComesBackHasItsTimes)
{
    Begin("n0/48 n1/48");
    Command(COMMAND_PLAYSTAFF + 1);
    StaffLast(1)->lTime = 9999;
    Command(COMMAND_FULLADJUST);
    Command(COMMAND_PLAYSTAFF + 1);
    Command(COMMAND_PLAY);
    EXPECT_EQ(Sent(), "P1 60 -60 62 -62");
    EXPECT_LT(process.user.lNowMs, 1000u + 1000u);
}

TEST_F(PlayCommands, TheDefaultInstrumentIsAskedForAndStoredWhateverTheAnswer)
{
    Start();
    AnswersText("73");
    Command(COMMAND_DEFAULTINSTRUMENT);
    EXPECT_EQ(process.settings.values["Default Instrument"], 73);
    EXPECT_EQ(process.user.shown.back().sText, "Default instrument number");
    process.settings.values["Default Instrument"] = 12;
    Command(COMMAND_DEFAULTINSTRUMENT); // cancelled
    EXPECT_EQ(process.settings.values["Default Instrument"], 12);
    process.settings.values.erase("Default Instrument");
    Command(COMMAND_DEFAULTINSTRUMENT);
    EXPECT_EQ(process.settings.values["Default Instrument"], 0) << "what was shown";
}

TEST_F(PlayCommands, TheKeyPPlaysTheScore)
{
    Begin("n0/48 n1/48");
    Press("p");
    EXPECT_EQ(Sent(), "P1 60 -60 62 -62");
    EXPECT_TRUE(Messages().empty());
}

TEST_F(PlayCommands, ThePlayOptionsReachThePlay)
{
    Begin("tempo:120 time:4/4 n0/24 n1/24");
    Command(COMMAND_DOTTEDQUAVER);
    uint32_t const lBeginMs = process.user.lNowMs;
    Command(COMMAND_PLAY);
    ASSERT_EQ(sound.sent.size(), 5u);
    // Ticks 23 and 32: 239 and 93 milliseconds of steps.
    EXPECT_EQ(sound.sent[2].lMs - lBeginMs, 239u);
    EXPECT_EQ(sound.sent[3].lMs - lBeginMs, 239u + 93u);
}

TEST_F(PlayCommands, AMissingRepeatStartIsPutInForThePlayAlone)
{
    Begin("clef:1 time:4/4 n0/192 :| n1/192");
    std::string const sBefore = Read(1);
    Command(COMMAND_PLAY);
    EXPECT_EQ(Sent(), "P1 60 -60 60 -60 62 -62");
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_TRUE(Messages().empty());
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(PlayCommands, APlayBeginsAtTheMark)
{
    Begin("n0/48 n1/48 n2/48");
    pelMarkBegin = At(1, 2); // behind the clef that an adjust puts in
    Command(COMMAND_PLAY);
    EXPECT_EQ(Sent(), "P1 62 -62 64 -64");
}

TEST_F(PlayCommands, UndoMidiClosesTheOutputAndTheNextPlayOpensItAgain)
{
    Begin("n0/48");
    Command(COMMAND_UNDOMIDI);
    EXPECT_EQ(sound.lOutOpen, -1);
    EXPECT_EQ(sound.sent.size(), 1143u);
    Command(COMMAND_PLAY);
    EXPECT_EQ(Messages(), std::vector<std::string>{"Using device 'Virtual synthesizer' (only device available)."});
    Command(COMMAND_PLAY);
    EXPECT_EQ(Messages().size(), 1u) << "each time it is opened, not each play";
}

TEST_F(PlayCommands, LeavingTheProgramClosesTheOutputWithoutSilencingIt)
{
    Begin("n0/48");
    bScoreDirty = false;
    Command(COMMAND_EXIT);
    EXPECT_TRUE(process.user.bQuit);
    EXPECT_EQ(sound.lOutOpen, -1);
    EXPECT_TRUE(sound.sent.empty());
}

TEST_F(PlayCommands, ProgramsAndChannelsAreTriedOutAndHeldInRange)
{
    Begin("");
    Command(COMMAND_NEXTPROGRAM);
    EXPECT_EQ(lPianoProgram, 2);
    EXPECT_EQ(sound.sent.at(0).dwMessage, 0x02C1u);
    EXPECT_EQ(sound.sent.at(1).dwMessage, 0x403C91u);
    EXPECT_EQ(sound.sent.at(2).dwMessage, 0x403C81u);
    for (int32_t n = 0; n < 3; ++n)
        Command(COMMAND_PREVIOUSPROGRAM);
    EXPECT_EQ(lPianoProgram, 0);
    lPianoProgram = 127;
    Command(COMMAND_NEXTPROGRAM);
    EXPECT_EQ(lPianoProgram, 127);
    lPianoChannel = 15;
    Command(COMMAND_NEXTCHANNEL);
    EXPECT_EQ(lPianoChannel, 15);
    for (int32_t n = 0; n < 17; ++n)
        Command(COMMAND_PREVIOUSCHANNEL);
    EXPECT_EQ(lPianoChannel, 0);
    sound.sent.clear();
    Command(COMMAND_SOUNDPROGRAM);
    EXPECT_EQ(sound.sent.at(1).dwMessage, 0x403C90u);
    EXPECT_EQ(sound.sent.at(2).dwMessage, 0x403C81u) << "its end goes to channel 1";
}

TEST_F(PlayCommands, TheTraceOfMessagesIsSwitchedByAHiddenNumber)
{
    Begin("n0/48");
    Command(COMMAND_MIDITRACE);
    EXPECT_TRUE(fMidiTrace);
    Command(COMMAND_MIDITRACE);
    EXPECT_FALSE(fMidiTrace);
}

TEST_F(PlayCommands, AnAddedNoteSoundsForAnEighthOfASecond)
{
    Begin("clef:1");
    Press("esc"); // keyboard mode
    uint32_t const lBeginMs = process.user.lNowMs;
    Press("4");
    ASSERT_EQ(sound.sent.size(), 3u);
    uint32_t const lNote = static_cast<uint32_t>(NextNote(StaffFirst(1))->lPitch);
    EXPECT_EQ(sound.sent[0], (SentMessage{lBeginMs, 0x01C1}));
    EXPECT_EQ(sound.sent[1], (SentMessage{lBeginMs, 0x400091 | lNote << 8}));
    EXPECT_EQ(sound.sent[2], (SentMessage{lBeginMs + 125, 0x400081 | lNote << 8}));
}

TEST_F(PlayCommands, WithoutAnOpenOutputAnAddedNoteIsSilentAndOpensNone)
{
    Start();
    Press("esc");
    uint32_t const lBeginMs = process.user.lNowMs;
    Press("4");
    EXPECT_TRUE(sound.sent.empty());
    EXPECT_EQ(sound.lOutOpen, -1);
    EXPECT_EQ(process.user.lNowMs, lBeginMs);
}

TEST_F(PlayCommands, AJournalPlaysOnTheVirtualClock)
{
    Start();
    host.pDoor = &door;
    EXPECT_EQ(Replay_Play("key esc\ncommand 103\ncommand 311\nexpect only device available\n", process.user, {}), 0);
    host.pDoor = nullptr;
    EXPECT_EQ(sound.sent.size(), 16u + 3u);
}

namespace
{
struct PlayMarker : PlayCommands
{
    /// Gives what a paint at that many milliseconds of a play of the score draws as its marker; "" for none.
    std::vector<std::string> MarkersAt(std::vector<uint32_t> const& aMs)
    {
        std::vector<std::string> aMarkers;
        int32_t lTimer = 100;
        for (uint32_t const lAtMs : aMs)
        {
            ++lTimer;
            process.user.SetTimer(lTimer, lAtMs,
                                  [this, lTimer, &aMarkers]
                                  {
                                      process.user.KillTimer(lTimer);
                                      aMarkers.push_back(Marker());
                                  });
        }
        Command(COMMAND_PLAY);
        return aMarkers;
    }
    std::string Marker()
    {
        RecordingSurface surface(Window().ClientSize());
        Window().pSurface = &surface;
        Window().Invalidate();
        Window().Update();
        Window().pSurface = nullptr;
        for (std::string const& sLine : surface.aLines)
            if (sLine.starts_with("fill ") && sLine.ends_with(sAmber))
                return sLine;
        return "";
    }
    /// The middle of that marker.
    static int32_t MiddleOf(std::string const& sMarker)
    {
        int32_t lLeft = 0;
        int32_t lTop = 0;
        int32_t lRight = 0;
        EXPECT_EQ(std::sscanf(sMarker.c_str(), "fill %d,%d %d", &lLeft, &lTop, &lRight), 3) << sMarker;
        return (lLeft + lRight) / 2;
    }
    static constexpr char const* sAmber = "#ffe68c";
};
} // namespace

TEST_F(PlayMarker, StandsAtTheNoteThatSoundsAndGoesWithTheEnd)
{
    Begin("clef:1 time:4/4 n0/48 n1/48 r48 n2/48");
    auto const aMarkers = MarkersAt({200, 700, 1200, 1700});
    ASSERT_EQ(aMarkers.size(), 4u);
    for (int32_t n = 0; n < 4; ++n)
        EXPECT_EQ(MiddleOf(aMarkers[static_cast<size_t>(n)]), At(1, 2 + n)->lX) << n;
    EXPECT_EQ(Marker(), "") << "at the end it has gone";
    EXPECT_TRUE(Window().bRepaintOwed || Window().cPaints > 0);
}

TEST_F(PlayMarker, CanBeTurnedOffWhichIsStored)
{
    Begin("clef:1 time:4/4 n0/48 n1/48");
    EXPECT_TRUE(Checked(COMMAND_SHOWPLAYED));
    Command(COMMAND_SHOWPLAYED);
    EXPECT_FALSE(Checked(COMMAND_SHOWPLAYED));
    EXPECT_EQ(process.settings.values["Show place being played"], 0);
    EXPECT_EQ(MarkersAt({200}), std::vector<std::string>{""});
}

TEST_F(PlayMarker, IsNeverPartOfTheScore)
{
    Begin("clef:1 time:4/4 n0/48 n1/48 n2/48 n3/48");
    std::string const sBefore = Read(1);
    MarkersAt({200});
    EXPECT_EQ(Read(1), sBefore);
    EXPECT_FALSE(bScoreDirty);
}

TEST_F(PlayMarker, TheViewFollowsItToALineBelowAndBack)
{
    std::string sTune = "clef:1 time:4/4";
    for (int32_t n = 0; n < 60; ++n)
        sTune += " n0/48 n1/48 n2/48 n3/48";
    Begin(sTune);
    Window().Resize({800, 300});
    Send(EventKind::SIZE, 0, 800, 300);
    Command(COMMAND_MINIADJUST);
    int32_t lMost = 0;
    process.user.SetTimer(100, 50,
                          [&]
                          {
                              lMost = std::max(lMost, lScroll);
                              RECT const box = PlayMarker_Box(Player_Column());
                              EXPECT_TRUE(Player_Column() == lNoPlace || (box.top >= 0 && box.bottom <= 300))
                                  << process.user.lNowMs;
                          });
    Command(COMMAND_PLAY);
    process.user.KillTimer(100);
    EXPECT_GT(lMost, 0);
    Command(COMMAND_PLAY);
    EXPECT_EQ(Marker(), "");
}

TEST_F(PlayMarker, GoesWhenAnotherScoreComesIn)
{
    Begin("clef:1 time:4/4 n0/48 n1/48 n2/48 n3/48");
    process.user.SetTimer(99, 300,
                          [this]
                          {
                              process.user.KillTimer(99);
                              Score_New();
                              Write(1, "n0/48");
                          });
    EXPECT_EQ(MarkersAt({200, 400}).at(1), "");
}

TEST_F(PlayMarker, AnEditDuringAPlayMayTakeTheNoteAway)
{
    Begin("clef:1 time:4/4 n0/48 n1/48 n2/48 n3/48");
    process.user.SetTimer(99, 600,
                          [this]
                          {
                              process.user.KillTimer(99);
                              while (Element* const pel = StaffLast(1))
                                  Element_Remove(pel);
                          });
    EXPECT_NE(MarkersAt({700}).at(0), "") << "it stands at the column then";
}
} // namespace zarn::test
