#include "platform/font_metrics.h"

#include <gtest/gtest.h>

using namespace zarn;

TEST(FontMetrics, AdvancesAreTheFacesOwn)
{
    struct
    {
        char const* sText;
        int64_t lRegular;
        int64_t lBold;
    } const aCase[] = {{"A", 1401, 1585},
                       {" ", 651, 713},
                       {"\xC3\xA9", 1260, 1389},
                       {"\xE2\x99\xAF", 991, 991},
                       {"\xE2\x80\x94", 2048, 2048},
                       {"Allegro ma non troppo", 22997, 25974},
                       {"", 0, 0}};
    for (auto const& c : aCase)
    {
        EXPECT_EQ(Face_Advance(c.sText, false), c.lRegular) << c.sText;
        EXPECT_EQ(Face_Advance(c.sText, true), c.lBold) << c.sText;
    }
}

TEST(FontMetrics, ACharacterOutsideTheTableCountsAsTheWidestLetter)
{
    int64_t lWidest = 0;
    for (int32_t l = 0x20; l < 0x2000; ++l)
    {
        std::string s;
        if (l < 0x80)
            s = static_cast<char>(l);
        else if (l < 0x800)
            s = {static_cast<char>(0xC0 | (l >> 6)), static_cast<char>(0x80 | (l & 0x3F))};
        else
            s = {static_cast<char>(0xE0 | (l >> 12)), static_cast<char>(0x80 | ((l >> 6) & 0x3F)),
                 static_cast<char>(0x80 | (l & 0x3F))};
        lWidest = std::max(lWidest, Face_Advance(s, false));
    }
    EXPECT_EQ(Face_Advance("\xE9\x9F\xB3", false), lWidest);     // a Chinese character
    EXPECT_EQ(Face_Advance("\xF0\x9D\x84\x9E", false), lWidest); // the treble clef sign
}

TEST(FontMetrics, EveryLetterOfTheLatinAlphabetsIsInTheTable)
{
    int64_t const lOutside = Face_Advance("\xE9\x9F\xB3", true);
    for (int32_t l = 0xA0; l < 0x180; ++l)
    {
        std::string const s{static_cast<char>(0xC0 | (l >> 6)), static_cast<char>(0x80 | (l & 0x3F))};
        EXPECT_GT(Face_Advance(s, true), 0) << l;
        EXPECT_LT(Face_Advance(s, true), lOutside) << l;
    }
}

TEST(FontMetrics, CharactersThatAreNeverDrawnHaveNoWidth)
{
    EXPECT_EQ(Face_Advance("a\tb\r\n", false), Face_Advance("ab", false));
    EXPECT_EQ(Face_Advance("e\xCC\x81", false), Face_Advance("e", false)); // a combining acute accent
}

TEST(FontMetrics, BytesThatArentUtf8CountAsLatin1)
{
    EXPECT_EQ(Face_Advance("caf\xE9", false), Face_Advance("caf\xC3\xA9", false));
    EXPECT_EQ(Face_Advance("\xC3\xA9 caf\xE9", false), Face_Advance("\xC3\x83\xC2\xA9 caf\xC3\xA9", false))
        << "one bad byte makes the whole text Latin-1";
    EXPECT_EQ(Utf8OrLatin1("caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(Utf8OrLatin1("caf\xC3\xA9"), "caf\xC3\xA9");
}

TEST(FontMetrics, TheAverageIsThatOfTheLettersInBothCases)
{
    EXPECT_EQ(Face_AverageAdvance(false), 1266);
    EXPECT_EQ(Face_AverageAdvance(true), 1424);
}

TEST(FontMetrics, LayoutWidthsAreTwelvePixelTextRoundedToTheNearestPixel)
{
    EXPECT_EQ(LayoutTextPixels(""), 0);
    EXPECT_EQ(LayoutTextPixels(" "), 4);                       // 3.81
    EXPECT_EQ(LayoutTextPixels("A"), 8);                       // 8.21
    EXPECT_EQ(LayoutTextPixels("Allegro ma non troppo"), 135); // 134.75
}
