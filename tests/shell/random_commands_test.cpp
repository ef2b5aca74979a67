// Any commands in any order, with any numbers typed, leave a score that is whole.
#include "core/score_check.h"
#include "midi/record.h"
#include "support/shell_fixture.h"
#include "support/sound_fixture.h"

#include <random>

namespace zarn::test
{
namespace
{
struct RandomCommands : Shell
{
    RandomCommands()
    {
        host.pSound = &sound;
        ResetPlayOptions();
    }
    ~RandomCommands() override
    {
        StopRecording(nullptr);
        ShutDownMidi();
        host.pSound = nullptr;
        ResetPlayOptions();
    }

    VirtualSound sound{process.user};
    std::mt19937 random{20261121};

    int32_t Among(std::initializer_list<int32_t> values) { return values.begin()[random() % values.size()]; }
    int32_t AnyNumber() { return Among({INT32_MIN, -100000, -50, -1, 0, 1, 5, 20, 60, 99, 120, 100000, INT32_MAX}); }
};
} // namespace

TEST_F(RandomCommands, LeaveTheScoreWhole)
{
    Start();
    for (int32_t n = 0; n < 20; ++n)
        Write(
            1,
            "clef:1 key:2 time:4/4 n0/48 #3 [n2/24 n4/24] n6/24 r48 nl n3/48 chord\"Am\" n5/72 n1/24 time:3/4 key:-3");
    Write(2, "clef:3 n-7/96 n-9/96 lyr\"a long syllable\" n-7/192");
    for (int32_t n = 0; n < 400; ++n)
    {
        process.user.answers.clear();
        AnswersNumber(AnyNumber());
        switch (random() % 5)
        {
        case 0:
            Send(EventKind::SIZE, 0, Among({0, 1, 100, 1200, 30000}), Among({0, 1, 100, 800, 30000}));
            break;
        case 1:
            Send(EventKind::SCROLL, Among({0, 1, 2, 3, 4}), Among({-1, 0, 100, 5000}));
            break;
        case 2:
            Send(EventKind::MIDI, Among({144, 144, 144, 128, 159, 0xF0, 0xF7, 0, 255}),
                 Among({0, 60, 60, 64, 127, 255}), Among({0, 64, 64, 255}));
            break;
        default:
            sound.sent.clear();
            Command(
                Among({207, 204, 205, 209, 210, 211, 212, 213, 214, 217, 219, 221, 228, 311, 312, 313, 314,  400,
                       401, 402, 403, 404, 511, 512, 518, 610, 201, 202, 203, 215, 216, 220, 222, 227, 229,  230,
                       231, 232, 233, 234, 235, 236, 237, 301, 302, 303, 304, 309, 310, 315, 316, 317, 319,  321,
                       336, 501, 502, 503, 508, 701, 704, 706, 710, 711, 712, 713, 714, 723, 783, 790, 9100, 9124}));
            break;
        }
        Update();
        ASSERT_EQ(Score_Check(), std::vector<std::string>()) << "step " << n;
        ASSERT_GE(lScroll, 0);
    }
}
} // namespace zarn::test
