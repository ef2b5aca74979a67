#include "platform/journal_host.h"

#include "platform/headless/replay.h"
#include "platform/journal.h"
#include "support/scripted_process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <utility>

using namespace zarn;

namespace
{
Event Command(int32_t lNumber) { return {.kind = EventKind::COMMAND, .lNumber = lNumber}; }

class JournalFile : public testing::Test
{
protected:
    void SetUp() override
    {
        testing::TestInfo const& info = *testing::UnitTest::GetInstance()->current_test_info();
        szPath = std::filesystem::temp_directory_path() / (std::string("zarn journ\xC3\xA4l ") + info.name());
        std::filesystem::remove(szPath);
        ASSERT_TRUE(journal.Open(szPath.string()));
    }
    void TearDown() override { std::filesystem::remove(szPath); }

    /// What stands in the file now, while it is still open: what a crash would leave.
    std::string Written() const
    {
        std::ostringstream s;
        s << std::ifstream(szPath, std::ios::binary).rdbuf();
        return s.str();
    }

    std::filesystem::path szPath;
    JournalWriter journal;
};

/// A program that does what the test says with each event.
struct Program : Door
{
    void Receive(Event const& event) override { act(event); }
    std::function<void(Event const&)> act = [](Event const&) {};
};
} // namespace

TEST_F(JournalFile, WhatEndedThePreviewIsWrittenAsAnAnswer)
{
    struct NoPages : PageSource
    {
        [[nodiscard]] int32_t Count() const override { return 0; }
        [[nodiscard]] Sheet Paper() const override { return sheetA4; }
        void Draw(int32_t, Surface&) override {}
    } pages;
    test::ScriptedProcess process;
    Program program;
    JournalHost recorder(process.user, program, journal);
    process.user.answers = {{.kind = Answer::OK}, {.kind = Answer::CANCEL}};
    program.act = [&](Event const&)
    {
        EXPECT_EQ(recorder.ShowPages(pages), IDOK);
        EXPECT_EQ(recorder.ShowPages(pages), IDCANCEL);
    };
    recorder.Receive(Command(16));
    EXPECT_EQ(Written(), "answer ok\nanswer cancel\ncommand 16\n");
}

TEST_F(JournalFile, AnEventIsWrittenBeforeItIsHandled)
{
    journal.BeginEvent(Command(1));
    EXPECT_EQ(Written(), "command 1\n");
    journal.EndEvent();
    journal.BeginEvent({.kind = EventKind::OPEN, .sText = "a b.abc"});
    EXPECT_EQ(Written(), "command 1\nopen a b.abc\n");
    EXPECT_FALSE(journal.HasFailed());
}

TEST_F(JournalFile, AnswersStandAheadOfTheEventThatAsked)
{
    journal.BeginEvent(Command(1));
    journal.EndEvent();
    journal.BeginEvent(Command(2));
    journal.WriteAnswer({.kind = Answer::NO});
    EXPECT_EQ(Written(), "command 1\nanswer no\ncommand 2\n");
    journal.WriteAnswer({.kind = Answer::TEXT, .sText = "The Silver Spear"});
    journal.EndEvent();
    journal.BeginEvent(Command(3));
    journal.EndEvent();
    EXPECT_EQ(Written(), "command 1\nanswer no\nanswer text The Silver Spear\ncommand 2\ncommand 3\n");
}

TEST_F(JournalFile, AnAnswerBeforeAnyEventComesFirst)
{
    journal.WriteAnswer({.kind = Answer::FIRST});
    journal.WriteAnswer({.kind = Answer::TEXT, .sText = "x"});
    journal.BeginEvent(Command(1));
    EXPECT_EQ(Written(), "answer first\nanswer text x\ncommand 1\n");
}

TEST_F(JournalFile, AnEventInsideAnotherStandsBehindItAndItsAnswersAheadOfBoth)
{
    journal.BeginEvent(Command(1));
    journal.BeginEvent(Command(2));
    journal.EndEvent();
    journal.WriteAnswer({.kind = Answer::OK});
    journal.EndEvent();
    journal.BeginEvent(Command(3));
    EXPECT_EQ(Written(), "answer ok\ncommand 1\ncommand 2\ncommand 3\n");
}

TEST(JournalWriter, AFileThatCantBeMadeIsToldOf)
{
    JournalWriter journal;
    EXPECT_FALSE(journal.Open(std::filesystem::temp_directory_path().string()));
}

TEST_F(JournalFile, AheadOfAMessageFromTheMidiInputStandsTheTimeThatHasPassed)
{
    test::ScriptedProcess process;
    Program program;
    process.user.lNowMs = 0xFFFFFFFF - 99;
    JournalHost keeper(process.user, program, journal);
    process.user.lNowMs += 300; // the clock wraps
    keeper.Receive(Command(1));
    keeper.Receive({.kind = EventKind::MIDI, .lNumber = 144, .x = 60, .y = 64});
    process.user.lNowMs += 480;
    keeper.Receive({.kind = EventKind::MIDI, .lNumber = 128, .x = 60, .y = 0});
    keeper.Receive({.kind = EventKind::MIDI, .lNumber = 144, .x = 62, .y = 64});
    EXPECT_EQ(Written(), "command 1\ntick 300\nmidi 144 60 64\ntick 480\nmidi 128 60 0\ntick 0\nmidi 144 62 64\n");
}

TEST_F(JournalFile, WhatWasWrittenPlaysBackToTheSameAnswers)
{
    std::vector<std::string> aGot;
    auto const askAll = [&](Event const& event)
    {
        aGot.push_back(Event_Format(event));
        aGot.push_back(std::to_string(MessageBoxA(nullptr, "Save?", "", MB_YESNOCANCEL)));
        MessageBoxA(nullptr, "a message takes no answer", "", MB_OK);
        Form prompt{.lId = 7001,
                    .sTitle = "Lyrics",
                    .sAnswer = "text",
                    .aControls = {{.kind = FormControl::MULTILINE, .lId = 7002, .sLabel = ""}}};
        aGot.push_back(std::to_string(DialogBoxParamA(nullptr, prompt)) + prompt.aControls[0].sText);
        FileDialog dialog{.aFilters = {{"Zarn files", "*.zrn"}, {"ABC files", "*.abc"}}};
        bool const bName = GetSaveFileNameA(nullptr, dialog);
        aGot.push_back(std::to_string(bName) + dialog.szFile + std::to_string(dialog.lFilter));
    };
    Program program;
    program.act = askAll;
    Event const aEvents[] = {Command(4), {.kind = EventKind::KEY, .fShift = true, .sText = "a"}, Command(5)};
    {
        test::ScriptedProcess process;
        JournalHost keeper(process.user, program, journal);
        host.pUser = &keeper;
        process.user.answers = {{.kind = Answer::YES},
                                {.kind = Answer::TEXT, .sText = "one\ntwo"},
                                {.kind = Answer::ROW, .lNumber = 1},
                                {.kind = Answer::TEXT, .sText = "a b.abc"},
                                {.kind = Answer::NO},
                                {.kind = Answer::CANCEL},
                                {.kind = Answer::TEXT, .sText = "plain.zrn"}};
        for (Event const& event : aEvents)
            keeper.Receive(event);
    }
    std::vector<std::string> const aFirst = std::exchange(aGot, {});
    ASSERT_EQ(aFirst.size(), 12u);
    test::ScriptedProcess process;
    host.pDoor = &program;
    EXPECT_EQ(Replay_Play(Written(), process.user, {}), 0);
    EXPECT_EQ(aGot, aFirst);
    EXPECT_TRUE(process.user.answers.empty());
}
