#include "app/options.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
struct Parsed
{
    bool bGood = false;
    Options options;
    std::string sError;
};

Parsed Parse(std::vector<std::string> const& aWords)
{
    Parsed parsed;
    parsed.bGood = Options_Parse(aWords, &parsed.options, &parsed.sError);
    return parsed;
}
} // namespace

TEST(Options, APlayTakesAFileATuneAndATransposition)
{
    Parsed const p = Parse({"--play", "--tune", "7", "--transpose", "2", "a.abc"});
    EXPECT_TRUE(p.bGood) << p.sError;
    EXPECT_EQ(p.options.task, Task::PLAY);
    EXPECT_EQ(p.options.lTune, 7);
    EXPECT_EQ(p.options.lTranspose, 2);
}

TEST(Options, NoWordsOpenTheEditor)
{
    Parsed const p = Parse({});
    EXPECT_TRUE(p.bGood);
    EXPECT_EQ(p.options.task, Task::EDIT);
    EXPECT_EQ(p.options.lWidth, 1200);
    EXPECT_EQ(p.options.lHeight, 800);
}

TEST(Options, AnOutputMakesAConversionWhateverTheOrder)
{
    for (auto const& aWords : std::vector<std::vector<std::string>>{
             {"-o", "x.svg", "a.abc"}, {"a.abc", "--export", "x.svg"}, {"--tune", "3", "a.abc", "-o", "x.SVG"}})
    {
        Parsed const p = Parse(aWords);
        EXPECT_TRUE(p.bGood) << p.sError;
        EXPECT_EQ(p.options.task, Task::EXPORT);
        EXPECT_EQ(p.options.aFiles, std::vector<std::string>{"a.abc"});
    }
}

TEST(Options, EveryOptionReachesItsField)
{
    Parsed const p = Parse({"-o", "x.png", "--tune", "12", "--adjust", "--mini-adjust", "--size", "640x480", "--page",
                            "2", "-r", "300", "-q", "a.abc"});
    ASSERT_TRUE(p.bGood) << p.sError;
    EXPECT_EQ(p.options.lTune, 12);
    EXPECT_TRUE(p.options.bAdjust);
    EXPECT_TRUE(p.options.bMiniAdjust);
    EXPECT_EQ(p.options.lWidth, 640);
    EXPECT_EQ(p.options.lHeight, 480);
    EXPECT_EQ(p.options.lPage, 2);
    EXPECT_EQ(p.options.lDpi, 300);
    EXPECT_TRUE(p.options.bQuiet);
}

TEST(Options, TransposingTakesSemitonesUpAndDownAndGoesWithATaskThatReads)
{
    for (int32_t const lSemitones : {-60, -3, 0, 12, 60})
    {
        Parsed const p = Parse({"-o", "x.svg", "--transpose", std::to_string(lSemitones), "a.abc"});
        ASSERT_TRUE(p.bGood) << p.sError;
        EXPECT_EQ(p.options.lTranspose, lSemitones);
    }
    EXPECT_EQ(Parse({"--dump", "a.abc"}).options.lTranspose, std::nullopt);
    EXPECT_TRUE(Parse({"--dump", "--transpose", "2", "a.abc"}).bGood);
    EXPECT_TRUE(Parse({"--check", "--transpose", "2", "a.abc"}).bGood);
    for (char const* const sWrong : {"61", "-61", "x", "2.5", ""})
    {
        Parsed const p = Parse({"--dump", "--transpose", sWrong, "a.abc"});
        EXPECT_FALSE(p.bGood) << sWrong;
        EXPECT_NE(p.sError.find("--transpose takes a number from -60 to 60"), std::string::npos) << p.sError;
    }
    for (auto const& aWords : std::vector<std::vector<std::string>>{{"--transpose", "2", "a.abc"},
                                                                    {"--list", "--transpose", "2", "a.abc"},
                                                                    {"--replay", "j", "--transpose", "2"}})
    {
        Parsed const p = Parse(aWords);
        EXPECT_FALSE(p.bGood);
        EXPECT_EQ(p.sError, "--transpose goes with -o, --check, --dump, --fingering or --play");
    }
}

TEST(Options, AReplayMayWriteAFile)
{
    Parsed const p = Parse({"--replay", "j", "-o", "x.zrn", "a.zrn"});
    ASSERT_TRUE(p.bGood) << p.sError;
    EXPECT_EQ(p.options.task, Task::REPLAY);
    EXPECT_EQ(p.options.sJournal, "j");
    EXPECT_EQ(p.options.sOutput, "x.zrn");
}

TEST(Options, WrongWordsAreRefusedWithASentence)
{
    std::vector<std::vector<std::string>> const aWrong = {
        {"--nonsense"},
        {"-o"},
        {"-o", "x.svg"},
        {"-o", "x.xyz", "a.abc"},
        {"-o", "x", "a.abc"},
        {"-o", "x.svg", "a.abc", "b.abc"},
        {"a.abc", "b.abc"},
        {"--tune", "three", "-o", "x.svg", "a.abc"},
        {"--tune", "-3", "-o", "x.svg", "a.abc"},
        {"--size", "640", "-o", "x.svg", "a.abc"},
        {"--size", "0x10", "-o", "x.svg", "a.abc"},
        {"--size", "99999x10", "-o", "x.svg", "a.abc"},
        {"--page", "0", "-o", "x.svg", "a.abc"},
        {"--dpi", "1", "-o", "x.svg", "a.abc"},
        {"--check"},
        {"--dump"},
        {"--list", "a.abc", "b.abc"},
        {"--check", "--dump", "a.abc"},
        {"--journal", "j", "--check", "a.abc"},
        {"--tune", "all", "--dump", "a.abc"},
        {"--fingering"},
        {"--fingering", "a.abc", "b.abc"},
        {"--fingering", "-o", "x.zrn", "a.abc"},
        {"--play"},
        {"--play", "a.abc", "b.abc"},
        {"--play", "--tune", "all", "a.abc"},
        {"--play", "-o", "x.wav", "a.abc"},
        {"--tablature", "a.abc"},
        {"--tablature", "--fingering", "a.abc"},
    };
    for (auto const& aWords : aWrong)
    {
        Parsed const p = Parse(aWords);
        EXPECT_FALSE(p.bGood) << testing::PrintToString(aWords);
        EXPECT_FALSE(p.sError.empty()) << testing::PrintToString(aWords);
    }
}

TEST(Options, AFileWhoseNameBeginsWithADashStandsBehindTwoDashes)
{
    Parsed const p = Parse({"--check", "--", "-o"});
    ASSERT_TRUE(p.bGood) << p.sError;
    EXPECT_EQ(p.options.aFiles, std::vector<std::string>{"-o"});
}

TEST(FileEnding, IsTheLowerCaseEndingOfTheNameAlone)
{
    EXPECT_EQ(FileEnding("a/b.c/Tune.ABC"), ".abc");
    EXPECT_EQ(FileEnding("a/b.c/tune"), "");
    EXPECT_EQ(FileEnding("tune.tar.svg"), ".svg");
    EXPECT_EQ(FileEnding(""), "");
}
} // namespace zarn
