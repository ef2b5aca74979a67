// samples/specimen.zrn: a score with every symbol, to look at. It is written anew when ZARN_WRITE_GOLDENS is set.
#include "core/score_check.h"
#include "file/native.h"
#include "layout/adjust.h"
#include "midi/refresh_pitches.h"
#include "render/geometry.h"
#include "support/drawing.h"
#include "support/score_text.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace zarn
{
using namespace test;

namespace
{
constexpr char const* sSpecimenPath = ZARN_SAMPLES_DIR "/specimen.zrn";

/// The staff, a line of music each: lengths, rests and beams; marks; bars; keys and clefs; texts.
constexpr char const* aLines[] = {
    "clef:1 time:4/4 title\"Every symbol\" n4/192 n4/144 n9/96 n4/72 n9/48 n4/36 n4/24 r24 n9/24 r24 n4/12 r12 n9/12 "
    "r12 "
    "n4/6 r6 n9/6 r6 n5/0 n4/48 nl",
    "r192 r144 r96 r72 r48 r36 r24 r12 r6 n4/32 n4/32 n4/32 r16 r16 r16 nl",
    "time:4/4 n0/24 n2/24 n4/24 n6/24 n11/24 n9/24 n8/24 n7/24 n2/12 n3/12 n4/12 n5/12 n9/6 n8/6 n7/6 n6/6 n4/36 n5/12 "
    "n1/16 n2/16 n3/16 nl",
    "[n0/48 n2/48 n4/48] [n7/24 n9/24 n11/24] r24 [n4/48 n5/48] [n-4/96 n0/96] n14/48 n-5/48 #4 n4/48 b5 n5/48 =6 "
    "n6/48 nl",
    "n4/48/flag=64 n9/48/flag=32 n4/48/flag=96 up n5/48 down n6/48 n4/48/flag=1 tie n4/48/flag=2 slur( n2/48 n3/48 "
    "n4/48 "
    "slur) slur( n9/48 n10/48 slur) arp( [n0/48 n4/48] arp) vol:19 n4/48 vol:124 n4/48 nl",
    "n4/48 | n4/48 || n4/48 |: n4/48 :: n4/48 1st n4/96 :| time:6/8 n4/72 n5/72 | time:2/2 n4/96 nl",
    "key:1 n4/48 key:4,1 n4/48 key:-3,4 n4/48 key:0,-3 n4/48 key:6 n4/48 key:-6,6 n4/48 nl",
    "clef:2 key:3 n-1/48 key:-3,3 n-1/48 clef:3 key:3,-3 n-6/48 key:-3,3 n-6/48 clef:4 key:3,-3 n-2/48 key:-3,3 n-2/48 "
    "nl",
    "clef:1 key:0,-3 chord\"Am\" lyr\"la\" n4/48 chord\"F#dim\" n5/48 lyr\"tra-\" n5/48 text\"text\" n6/48 "
    "annot\"note\" "
    "n4/48 "
    "tempo:120 inst:24 trans:-2 sp n4/96",
};

/// The height at which the editor places a symbol, in the treble frame; notes and accidentals stay where they are.
int32_t Height(Element const* pel)
{
    switch (pel->sort)
    {
    case BAR:
    case DOUBLEBAR:
    case REPEATSTART:
    case REPEATEND:
    case REPEATENDSTART:
    case ARPEGSTART:
    case ARPEGEND:
        return 2;
    case REPEATFIRST:
    case SLUR:
        return 12;
    case INSTRUMENT:
        return 16;
    case TEMPO:
    case BOWING:
        return 18;
    case TRANSPOSE:
        return -2;
    case CLEF:
        return pel->lA == 2 ? 2 : pel->lA == 3 ? 8 : 4;
    case CHORD:
        return -4;
    case TITLE:
        return 22;
    case LYRICS:
        return -7;
    case TEXT:
    case ANNOT:
        return 14;
    case REST:
        return pel->lDuration == 192 ? 8 : 6;
    default:
        return 6;
    }
}

void SetHeights()
{
    int32_t lClef = 1;
    for (Element* pel = StaffFirst(1); pel; pel = Next(pel))
    {
        if (pel->sort == CLEF)
            lClef = pel->lA;
        if (pel->sort != NOTE && pel->sort != TIE && !Sort_IsAccidental(pel->sort))
            pel->lDiaPitch = Height(pel) - ClefOffset(lClef);
    }
}

std::string Written()
{
    std::string s;
    HFILE const hFile = File_IntoString(&s);
    EXPECT_EQ(Native_Write(hFile), 1);
    _lclose(hFile);
    return s;
}
} // namespace

TEST(Specimen, IsTheSampleThatIsShipped)
{
    DrawingProcess process;
    for (char const* const sLine : aLines)
        Write(1, sLine);
    SetHeights();
    MiniAdjust();
    RefreshPitches(lHighestStaff);
    EXPECT_EQ(Score_Check(), std::vector<std::string>{});
    std::string const sBytes = Written();
    if (std::getenv("ZARN_WRITE_GOLDENS"))
        std::ofstream(sSpecimenPath, std::ios::binary) << sBytes;
    std::ifstream file(sSpecimenPath, std::ios::binary);
    ASSERT_TRUE(file);
    std::stringstream shipped;
    shipped << file.rdbuf();
    EXPECT_TRUE(shipped.str() == sBytes) << "Look at what changed, then write it anew with ZARN_WRITE_GOLDENS=1.";
}

TEST(Specimen, DrawsWithoutAComplaint)
{
    DrawingProcess process;
    HFILE const hFile = _lopen(sSpecimenPath);
    ASSERT_NE(hFile, nullptr);
    EXPECT_EQ(Native_Read(hFile, true), 1);
    _lclose(hFile);
    EXPECT_GT(Count(Drawn(), "polygon"), 100);
    EXPECT_EQ(process.user.Messages(), std::vector<std::string>{});
}
} // namespace zarn
