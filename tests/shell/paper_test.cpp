// The preview and the PDF: what the printer would get.
#include "shell/paper.h"

#include "layout/adjust.h"
#include "platform/files.h"
#include "render/pages.h"
#include "shell/command_numbers.h"
#include "shell/print.h"
#include "support/shell_fixture.h"

#include <gmock/gmock.h>

namespace zarn::test
{
namespace
{
using testing::ElementsAre;

struct Paper : Shell
{
    void SetUp() override
    {
        Start();
        Write(1, "clef:1 time:4/4");
        for (int32_t n = 0; n < 24; ++n)
            Write(1, "n4/48 n5/48 n6/48 n7/48 | nl");
        FullAdjust();
        Update();
    }
    [[nodiscard]] VirtualPrinter& Printer() { return process.user.printer; }
};
} // namespace

TEST_F(Paper, ThePreviewShowsThePagesThatArePrinted)
{
    Printer().bThere = true;
    Command(COMMAND_PREVIEW);
    EXPECT_EQ(Printer().cDocuments, 0) << "it was closed";
    Command(COMMAND_PRINTONE);
    ASSERT_EQ(Printer().aPrinted.size(), 1U);
    EXPECT_GT(process.user.aShownPages.size(), 2U);
    EXPECT_EQ(process.user.aShownPages, Printer().aPrinted[0].aPages);
}

TEST_F(Paper, ThePreviewPrintsAllThatItShowsWhateverTheViewShows)
{
    Printer().bThere = true;
    lScroll = 5 * SystemHeight();
    Answers(Answer::OK);
    Command(COMMAND_PREVIEW);
    ASSERT_EQ(Printer().aPrinted.size(), 1U);
    EXPECT_EQ(process.user.aShownPages, Printer().aPrinted[0].aPages);
    EXPECT_EQ(lScroll, 5 * SystemHeight());
    EXPECT_THAT(Messages(), ElementsAre("Print preview")) << "and no question where to begin";
}

TEST_F(Paper, WithoutAPrinterThePreviewHasA4)
{
    Command(COMMAND_PREVIEW);
    size_t const cA4 = process.user.aShownPages.size();
    Printer().bThere = true;
    Printer().paper = SheetOf({1748, 2480}); // half of it, turned
    Command(COMMAND_PREVIEW);
    EXPECT_EQ(process.user.aShownPages.size(), cA4) << "the same shape";
    Printer().paper = SheetOf({2480, 1748});
    Command(COMMAND_PREVIEW);
    EXPECT_GT(process.user.aShownPages.size(), cA4);
}

TEST_F(Paper, LookingAtPagesLeavesUnitsAndScrollAsTheyWere)
{
    lScroll = 40;
    int32_t const x = xunit;
    int32_t const y = yunit;
    Command(COMMAND_PREVIEW);
    EXPECT_EQ(lScroll, 40);
    EXPECT_EQ(xunit, x);
    EXPECT_EQ(yunit, y);
    EXPECT_FALSE(bPrinting);
    EXPECT_FALSE(PrintRun::IsOn());
    EXPECT_TRUE(Window().bRepaintOwed);
}

TEST_F(Paper, ThePdfHoldsThePagesThatArePrinted)
{
    Printer().bThere = process.user.bPdfWorks = true;
    AnswersText(Path("tune.pdf"));
    Command(COMMAND_SAVEPDF);
    Command(COMMAND_PRINTONE);
    std::string sPages;
    for (std::string const& sPage : Printer().aPrinted.at(0).aPages)
        sPages += "page\n" + sPage;
    EXPECT_EQ(Bytes(Path("tune.pdf")), sPages);
    EXPECT_THAT(Messages(), ElementsAre("Save as PDF"));
}

TEST_F(Paper, ThePdfIsOfferedTheNameOfTheScore)
{
    process.user.bPdfWorks = true;
    szFileName = Path("tune.zrn");
    Answers(Answer::OK);
    Command(COMMAND_SAVEPDF);
    EXPECT_NE(Bytes(Path("tune.pdf")), "");
    EXPECT_EQ(szFileName, Path("tune.zrn")) << "which stays the file that Save writes";
}

TEST_F(Paper, ANameWithoutTheEndingGetsItSoThatNoScoreIsOverwritten)
{
    process.user.bPdfWorks = true;
    MakeFile("tune.zrn", "a score");
    AnswersText(Path("tune.zrn"));
    Command(COMMAND_SAVEPDF);
    EXPECT_EQ(Bytes(Path("tune.zrn")), "a score");
    EXPECT_NE(Bytes(Path("tune.zrn.pdf")), "");
    AnswersText(Path("Loud.PDF"));
    Command(COMMAND_SAVEPDF);
    EXPECT_NE(Bytes(Path("Loud.PDF")), "");
}

TEST_F(Paper, AFileThatIsThereIsOverwrittenOnlyWhenTheUserSaysSo)
{
    process.user.bPdfWorks = true;
    MakeFile("tune.pdf", "old");
    AnswersText(Path("tune.pdf"));
    Command(COMMAND_SAVEPDF);
    EXPECT_EQ(Bytes(Path("tune.pdf")), "old");
    EXPECT_THAT(Messages(),
                ElementsAre("Save as PDF", "There is a file of that name already.  Write the PDF over it?"));
    AnswersText(Path("tune.pdf"));
    Answers(Answer::OK);
    Command(COMMAND_SAVEPDF);
    EXPECT_NE(Bytes(Path("tune.pdf")), "old");
}

TEST_F(Paper, APdfThatFailsIsToldAndLeavesWhatWasThere)
{
    MakeFile("tune.pdf", "old");
    auto const Save = [this]
    {
        process.user.shown.clear();
        AnswersText(Path("tune.pdf"));
        Answers(Answer::OK);
        Command(COMMAND_SAVEPDF);
        EXPECT_EQ(Bytes(Path("tune.pdf")), "old");
        return Messages().back();
    };
    EXPECT_EQ(Save(), "The PDF can't be made.");
    process.user.bPdfWorks = true;
    Printer().fault = VirtualPrinter::Fault::ENDDOC;
    Printer().sWords = "The PDF could not be made.";
    EXPECT_EQ(Save(), "The PDF could not be made.");
    Printer().fault = VirtualPrinter::Fault::NONE;
    cbDiskLeft = 10;
    EXPECT_EQ(Save(), "Writing the PDF failed - NOT saved!  What stood there before is as it was.");
    cbDiskLeft = -1;
    AnswersText(Path("no/such/folder.pdf"));
    Command(COMMAND_SAVEPDF);
    EXPECT_EQ(Messages().back(), "The PDF can't be written there - NOT saved!");
}

TEST_F(Paper, CancelSavesNoPdf)
{
    process.user.bPdfWorks = true;
    Command(COMMAND_SAVEPDF);
    EXPECT_EQ(Printer().cDocuments, 0);
}
} // namespace zarn::test
