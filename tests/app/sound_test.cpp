// Sound without a window: files of samples, and a play.
#include "app/command_line_fixture.h"

#include <algorithm>
#include <csignal>
#include <cstdint>

namespace zarn
{
namespace
{
/// Sound of a machine with no sound card and no servers; the font by its full path.
class SoundLine : public CommandLine
{
protected:
    void SetUp() override
    {
        if (!ZARN_HAS_SOUND)
            GTEST_SKIP() << "built without the sound module";
        setenv("ZARN_SOUND_FONT", "/usr/share/sounds/sf2/TimGM6mb.sf2", 1);
        setenv("ZARN_SOUND_DRIVER", "none", 1);
        setenv("JACK_DEFAULT_SERVER", "zarn-none", 1);
        setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
        Write(folder / "held.abc", "X:1\nT:Held\nQ:120\nL:1/4\nK:C\nC4|\n");
    }
    void TearDown() override
    {
        for (char const* szName : {"ZARN_SOUND_FONT", "ZARN_SOUND_DRIVER", "JACK_DEFAULT_SERVER", "ALSA_CONFIG_PATH"})
            unsetenv(szName);
    }
};

uint32_t Little(std::string const& s, size_t lAt, size_t cb)
{
    uint32_t n = 0;
    for (size_t l = 0; l < cb; ++l)
        n |= uint32_t{static_cast<unsigned char>(s.at(lAt + l))} << 8 * l;
    return n;
}

constexpr size_t cbHeader = 44;
constexpr double dBytesPerSecond = 44100 * 4;

/// The loudest sample between two moments, in seconds.
int32_t Peak(std::string const& sWave, double dFrom, double dTo)
{
    auto const byteAt = [](double dSecond)
    { return cbHeader + static_cast<size_t>(dSecond * dBytesPerSecond) / 4 * 4; };
    int32_t lPeak = 0;
    for (size_t l = byteAt(dFrom); l < std::min(byteAt(dTo), sWave.size() - 1); l += 2)
        lPeak = std::max(lPeak, std::abs(int32_t{static_cast<int16_t>(Little(sWave, l, 2))}));
    return lPeak;
}
} // namespace

TEST_F(SoundLine, AWaveFileIsWhatItsHeaderSays)
{
    ASSERT_EQ(Run("-o held.wav held.abc"), 0) << sErr;
    EXPECT_EQ(sErr, "");
    std::string const s = File("held.wav");
    ASSERT_GT(s.size(), cbHeader);
    EXPECT_EQ(s.substr(0, 4), "RIFF");
    EXPECT_EQ(Little(s, 4, 4), s.size() - 8);
    EXPECT_EQ(s.substr(8, 8), "WAVEfmt ");
    EXPECT_EQ(Little(s, 16, 4), 16u);
    EXPECT_EQ(Little(s, 20, 2), 1u) << "PCM";
    EXPECT_EQ(Little(s, 22, 2), 2u) << "channels";
    EXPECT_EQ(Little(s, 24, 4), 44100u) << "frames a second";
    EXPECT_EQ(Little(s, 28, 4), 176400u) << "bytes a second";
    EXPECT_EQ(Little(s, 32, 2), 4u) << "bytes a frame";
    EXPECT_EQ(Little(s, 34, 2), 16u) << "bits a sample";
    EXPECT_EQ(s.substr(36, 4), "data");
    EXPECT_EQ(Little(s, 40, 4), s.size() - cbHeader);
}

TEST_F(SoundLine, AWaveFileLastsAsLongAsTheTuneAndItsLastNotesDieAway)
{
    ASSERT_EQ(Run("-o held.wav held.abc"), 0) << sErr;
    std::string const s = File("held.wav");
    double const dSeconds = static_cast<double>(s.size() - cbHeader) / dBytesPerSecond;
    EXPECT_GT(dSeconds, 2.0);
    EXPECT_LE(dSeconds, 2.0 + 5.0);
    EXPECT_GT(Peak(s, 0, 0.5), 1000) << "the note begins at once";
    EXPECT_LE(Peak(s, dSeconds - 0.1, dSeconds), 16) << "silence at the end";
}

TEST_F(SoundLine, ATuneGivesTheSameBytesEachTime)
{
    ASSERT_EQ(Run("-o one.wav --tune 7 book.abc"), 0) << sErr;
    ASSERT_EQ(Run("-o two.wav --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(File("one.wav"), File("two.wav"));
    ASSERT_EQ(Run("-o other.wav --tune 1 book.abc"), 0) << sErr;
    EXPECT_NE(File("one.wav"), File("other.wav"));
}

TEST_F(SoundLine, EachTuneOfABookIsAFileOfItsOwn)
{
    ASSERT_EQ(Run("-o all.wav --tune all book.abc"), 0) << sErr;
    ASSERT_TRUE(Has("all-1-First.wav"));
    ASSERT_EQ(Run("-o one.wav --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(File("all-7-Second_one.wav"), File("one.wav")) << "whatever was played before";
}

TEST_F(SoundLine, ATuneWithoutNotesIsAShortSilence)
{
    Write(folder / "silent.abc", "X:1\nT:Silent\nK:C\n");
    ASSERT_EQ(Run("-o silent.wav silent.abc"), 0) << sErr;
    std::string const s = File("silent.wav");
    EXPECT_LE(s.size(), cbHeader + static_cast<size_t>(dBytesPerSecond));
    EXPECT_LE(Peak(s, 0, 1), 1);
}

TEST_F(SoundLine, ATuneOfManyHoursIsRefused)
{
    std::string sLong = "X:1\nT:Long\nQ:1\nL:1/1\nK:C\n";
    for (int32_t l = 0; l < 120; ++l)
        sLong += "C|C|C|C|\n";
    Write(folder / "long.abc", sLong);
    EXPECT_EQ(Run("-o long.wav long.abc"), 1);
    EXPECT_NE(sErr.find("too long for a .wav file"), std::string::npos) << sErr;
    EXPECT_FALSE(Has("long.wav"));
}

TEST_F(SoundLine, WithoutAFontTheOldWaveFileStays)
{
    Write(folder / "held.wav", "old");
    setenv("ZARN_SOUND_FONT", "/nowhere/no.sf2", 1);
    EXPECT_EQ(Run("-o held.wav held.abc"), 1);
    EXPECT_EQ(sErr, "zarn: held.wav: The sound font of the built-in synthesizer is missing, or is no sound font.\n");
    EXPECT_EQ(File("held.wav"), "old");
}

TEST_F(SoundLine, AFolderThatIsNotThereIsTold)
{
    EXPECT_EQ(Run("-o nowhere/held.wav held.abc"), 1);
    EXPECT_NE(sErr.find("the file can't be written there"), std::string::npos) << sErr;
}

TEST_F(SoundLine, NeitherAWaveFileNorAPlayLoadsTheWindow)
{
    setenv("LD_DEBUG", "files", 1); // the loader tells of each library on standard error
    EXPECT_EQ(Run("-o held.wav held.abc"), 0);
    std::string const sOfWave = sErr;
    EXPECT_EQ(Run("--version"), 0);
    unsetenv("LD_DEBUG");
    EXPECT_NE(sOfWave.find("libzarn_sound"), std::string::npos);
    EXPECT_EQ(sOfWave.find("libQt6"), std::string::npos);
    EXPECT_EQ(sErr.find("libzarn_sound"), std::string::npos) << "nor does the rest load sound";
}

TEST_F(SoundLine, APlayPlaysAndEnds)
{
    EXPECT_EQ(Run("--play --tune 7 book.abc"), 0) << sErr;
    EXPECT_EQ(sErr, "");
}

TEST_F(SoundLine, AnInterruptEndsAPlayAndTheProcess)
{
    Write(folder / "slow.abc", "X:1\nT:Slow\nQ:4\nL:1/1\nK:C\nC|C|C|C|C|C|C|C|C|C|\n"); // ten minutes
    // The shell waits until the player has a thread beside the synthesizer's, and then ends it.
    std::string const sCommand =
        "cd '" + folder.string() + "'; '" ZARN_PROGRAM "' --play slow.abc >out 2>err & p=$!; " +
        "n=0; until [ $(ls /proc/$p/task | wc -l) -ge 3 ] || [ $n -gt 10000 ]; do n=$((n + 1)); done; " +
        "kill $p; wait $p";
    int const lStatus = std::system(sCommand.c_str());
    ASSERT_TRUE(WIFEXITED(lStatus));
    EXPECT_EQ(WEXITSTATUS(lStatus), 128 + SIGTERM);
    EXPECT_EQ(File("err"), "");
}

TEST_F(SoundLine, NothingToPlayOnIsTold)
{
    setenv("ZARN_SOUND_DRIVER", "no-such-driver", 1);
    EXPECT_EQ(Run("--play held.abc"), 1);
    EXPECT_EQ(sErr, "zarn: held.abc: The built-in synthesizer finds no sound device: neither PulseAudio, ALSA nor JACK "
                    "plays here.\n");
}

TEST_F(SoundLine, AFileThatCanNotBeReadIsNotPlayed)
{
    EXPECT_EQ(Run("--play missing.abc"), 1);
    EXPECT_NE(sErr, "");
    EXPECT_EQ(Run("--play"), 2);
    EXPECT_EQ(Run("--play --tune all book.abc"), 2);
}
} // namespace zarn
