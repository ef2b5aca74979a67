#include "platform/utf8.h"

#include <gtest/gtest.h>

using namespace zarn;

TEST(Utf8, WhatIsWrittenReadsBack)
{
    for (int32_t const lCharacter : {0x0, 0x41, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF})
    {
        std::string s;
        Utf8_Append(s, lCharacter);
        size_t lAt = 0;
        EXPECT_EQ(Utf8_Next(s, lAt), lCharacter);
        EXPECT_EQ(lAt, s.size());
        for (size_t cb = 1; cb < s.size(); ++cb)
            EXPECT_FALSE(Utf8_IsValid(std::string_view(s).substr(0, cb))) << "cut off: " << lCharacter;
    }
}

TEST(Utf8, WhatIsIllFormedIsRefused)
{
    struct
    {
        char const* sWhat;
        std::string_view sBytes;
    } const aCase[] = {{"a lone continuation", "\x80"},
                       {"a start in place of a continuation", "\xC3\x41"},
                       {"two bytes for A", "\xC1\x81"},
                       {"three bytes for e acute", "\xE0\x83\xA9"},
                       {"four bytes for a flat", "\xF0\x82\x99\xAD"},
                       {"a surrogate", "\xED\xA0\x80"},
                       {"beyond the last", "\xF4\x90\x80\x80"},
                       {"no such start", "\xFF\xBF\xBF\xBF\xBF"},
                       {"a fifth byte's start", "\xF8\x88\x80\x80\x80"}};
    for (auto const& c : aCase)
    {
        size_t lAt = 0;
        EXPECT_EQ(Utf8_Next(c.sBytes, lAt), -1) << c.sWhat;
        EXPECT_EQ(lAt, 0u) << c.sWhat;
        EXPECT_FALSE(Utf8_IsValid(c.sBytes)) << c.sWhat;
    }
    size_t lAt = 1;
    EXPECT_EQ(Utf8_Next("a", lAt), -1) << "the end of the text";
}

TEST(Utf8, APrefixCutsNoCharacterInTwo)
{
    std::string_view const sText = "a\xC3\xA9\xE2\x99\xAF"; // 1, 2 and 3 bytes
    size_t const aWhole[] = {0, 1, 1, 3, 3, 3, 6, 6};
    for (size_t cb = 0; cb < std::size(aWhole); ++cb)
        EXPECT_EQ(Utf8_Prefix(sText, cb).size(), aWhole[cb]) << cb;
    EXPECT_EQ(Utf8_Prefix("a\x80\x80", 2).size(), 2u) << "bytes that form no character are cut anywhere";
}
