// The listing zarn.lst, in the current directory.
#include "abc/abc_listing.h"

#include "abc_fixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace zarn
{
namespace
{
class AbcListing : public test::AbcTest
{
protected:
    AbcListing() : before(std::filesystem::current_path())
    {
        folder = std::filesystem::temp_directory_path() / ("zarn-listing-" + std::to_string(getpid()));
        std::filesystem::create_directory(folder);
        std::filesystem::current_path(folder);
        bAbcListing = true;
        bAbcLogged = false;
    }
    ~AbcListing() override
    {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(folder);
    }
    [[nodiscard]] static std::string Listing()
    {
        std::ifstream file("zarn.lst", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path before, folder;
};

TEST_F(AbcListing, HoldsTheTunesLinesAndEachComplaintBehindItsOwn)
{
    ReadText("X:1\nT:Tune\nK:C\nA?\nB\nX:2\nT:Two\n");
    EXPECT_EQ(Listing(), "Zarn abc input error listing\r\n"
                         "T:Tune\r\nK:C\r\nA?\r\n"
                         "\r\n>>> Ignoring unexpected ABC symbol  \"?\"\r\n\r\n"
                         "B\r\nX:2\r\n");
    EXPECT_EQ(process.user.aEdited, std::vector<std::string>{"zarn.lst"});
}

TEST_F(AbcListing, IsWrittenForEveryReadAndShownOnlyOnceSomethingWasLogged)
{
    ReadText("X:1\nK:C\nA\n");
    EXPECT_EQ(Listing(), "Zarn abc input error listing\r\nK:C\r\nA\r\n");
    EXPECT_TRUE(process.user.aEdited.empty());
    ReadText("X:1\nK:C\n?\n");
    ReadText("X:1\nK:C\nA\n");
    EXPECT_EQ(process.user.aEdited.size(), 2u) << "once logged, it opens after each later read of the process";
}

TEST_F(AbcListing, IsNotShownWhenTheTextEndsAtCharacterTwentySix)
{
    ReadText("X:1\nK:C\n?\x1A\n");
    EXPECT_FALSE(Listing().empty());
    EXPECT_TRUE(process.user.aEdited.empty());
}

TEST_F(AbcListing, IsLeftAloneWhenComplaintsAreMessages)
{
    bAbcListing = false;
    ReadText("X:1\nK:C\n?\n");
    EXPECT_FALSE(std::filesystem::exists("zarn.lst"));
    EXPECT_TRUE(process.user.aEdited.empty());
    EXPECT_EQ(aComplaints.size(), 1u);
}

TEST_F(AbcListing, ThatCannotBeWrittenIsToldOnlyWhenItIsMissed)
{
    std::filesystem::create_directory("zarn.lst");
    ReadText("X:1\nK:C\nA\n");
    EXPECT_TRUE(process.user.shown.empty());
    ReadText("X:1\nK:C\n?\n");
    EXPECT_EQ(process.user.Messages(),
              std::vector<std::string>{"Some of the ABC text was not understood, and zarn.lst, which tells what, could "
                                       "not be written here.  The tune has been read."});
    EXPECT_TRUE(process.user.aEdited.empty());
}
} // namespace
} // namespace zarn
