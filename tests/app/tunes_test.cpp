#include "app/tunes.h"

#include <gtest/gtest.h>

namespace zarn
{
TEST(TuneOutputPath, HasNumberAndTitleAheadOfTheEnding)
{
    EXPECT_EQ(Tune_OutputPath("out/book.pdf", {12, "Soldier's Joy"}), "out/book-12-Soldier's Joy.pdf");
}

TEST(TuneOutputPath, NoTitleLeavesTheFolder)
{
    EXPECT_EQ(Tune_OutputPath("book.svg", {1, "../../etc/x"}), "book-1-_.._etc_x.svg");
    EXPECT_EQ(Tune_OutputPath("book.svg", {1, "a/b\nc"}), "book-1-a_b_c.svg");
}

TEST(TuneOutputPath, AnEmptyTitleIsCalledUntitled)
{
    EXPECT_EQ(Tune_OutputPath("book.svg", {3, ""}), "book-3-untitled.svg");
    EXPECT_EQ(Tune_OutputPath("book.svg", {3, " .. "}), "book-3-untitled.svg");
}

TEST(TuneOutputPath, ALongTitleIsCutBetweenCharacters)
{
    std::string sTitle(79, 'a');
    sTitle += "\xC3\xA9tude";
    EXPECT_EQ(Tune_OutputPath("b.svg", {1, sTitle}), "b-1-" + std::string(79, 'a') + ".svg");
}
} // namespace zarn
