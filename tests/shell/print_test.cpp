// Printing, step by step, on a printer that keeps its pages as drawing calls.
#include "shell/print.h"

#include "layout/adjust.h"
#include "layout/place.h"
#include "platform/print.h"
#include "render/document_pages.h"
#include "shell/command_numbers.h"
#include "support/drawing.h"
#include "support/shell_fixture.h"

#include <gmock/gmock.h>

#include <set>

namespace zarn::test
{
namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

constexpr int32_t lLines = 24; ///< of music: they need several sheets

struct Printing : Shell
{
    void SetUp() override
    {
        Start();
        process.user.printer.bThere = true;
        WriteLines(lLines);
    }
    /// Each line of music has a word of its own.
    void WriteLines(int32_t c)
    {
        Write(1, "clef:1 key:1 time:4/4");
        for (int32_t n = 1; n <= c; ++n)
            Write(1, Format("text\"line%02d\" n4/48 n5/48 lyr\"la\" [n2/48 n6/48] n-3/24 n9/24 | nl", n));
        FullAdjust();
        Update();
    }
    /// Has the next job called off when its printer has begun that many pages.
    void CancelAtPage(int32_t cPages)
    {
        process.user.pOnDispatch = [this, cPages]
        {
            if (Printer().cPagesBegun == cPages && process.user.pDialog)
                process.user.pDialog->Press(IDCANCEL);
        };
    }
    void Print(int32_t lCopies)
    {
        PrintScore(lCopies);
        ExpectAllIsBack();
    }
    /// Nothing of the job is left.
    void ExpectAllIsBack()
    {
        EXPECT_FALSE(bPrinting);
        EXPECT_FALSE(bPrintScale);
        EXPECT_FALSE(PrintRun::IsOn());
        EXPECT_TRUE(Window().bEnabled);
        EXPECT_EQ(process.user.pDialog, nullptr);
        EXPECT_EQ(Printer().cOpen, 0);
    }
    [[nodiscard]] VirtualPrinter& Printer() { return process.user.printer; }
    [[nodiscard]] PrintedDocument const& Printed() { return Printer().aPrinted.at(0); }
    [[nodiscard]] std::string OnScreen()
    {
        RecordingSurface surface({1200, 800});
        Window().pSurface = &surface;
        Window().Invalidate();
        Update();
        Window().pSurface = nullptr;
        return surface.All();
    }
    /// The lines of music on a page, by their words.
    static std::vector<int32_t> LinesOn(std::string const& sPage)
    {
        std::vector<int32_t> aLines;
        for (int32_t n = 1; n <= lLines; ++n)
            if (sPage.find(Format("\"line%02d\"", n)) != sPage.npos)
                aLines.push_back(n);
        return aLines;
    }
    static std::vector<int32_t> LinesOf(PrintedDocument const& document)
    {
        std::vector<int32_t> aLines;
        for (std::string const& sPage : document.aPages)
            for (int32_t const n : LinesOn(sPage))
                aLines.push_back(n);
        return aLines;
    }
    static std::vector<int32_t> LinesFrom(int32_t lFirst)
    {
        std::vector<int32_t> aLines;
        for (int32_t n = lFirst; n <= lLines; ++n)
            aLines.push_back(n);
        return aLines;
    }
};

constexpr char const* sFromHere = "Really print from here?\n(No = print from top of score).";
constexpr char const* sNoPrinter = "Zarn Print: Couldn't get a printer DC.\nNo printer set up?  Try control panel.";
} // namespace

TEST_F(Printing, FromTheTopAsksNoQuestionAndPrintsEachLineOnce)
{
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre());
    ASSERT_EQ(Printer().aPrinted.size(), 1U);
    EXPECT_EQ(Printed().sTitle, "Zarn");
    EXPECT_GT(Printed().aPages.size(), 2U);
    EXPECT_EQ(LinesOf(Printed()), LinesFrom(1));
}

TEST_F(Printing, EachLineHasItsFiveStaffLinesOnOnePage)
{
    Print(1);
    int32_t cStaffLines = 0;
    for (std::string const& sPage : Printed().aPages)
        cStaffLines += Count(sPage, "box 0,");
    EXPECT_EQ(cStaffLines, 5 * lLines);
}

TEST_F(Printing, FromFurtherDownAsksAndCancelStops)
{
    lScroll = SystemHeight();
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre(sFromHere));
    EXPECT_EQ(process.user.shown[0].lFlags, MB_YESNOCANCEL | MB_ICONQUESTION);
    EXPECT_EQ(Printer().cDocuments, 0);
    EXPECT_EQ(lScroll, SystemHeight());
}

TEST_F(Printing, YesBeginsAtTheViewsTopAndLosesNoLine)
{
    for (int32_t const lSystems : {1, 5, 11, lLines - 1})
    {
        lScroll = lSystems * SystemHeight();
        Answers(Answer::YES);
        Print(1);
        EXPECT_EQ(LinesOf(Printer().aPrinted.back()), LinesFrom(lSystems + 1));
        EXPECT_EQ(lScroll, lSystems * SystemHeight());
    }
}

TEST_F(Printing, ALineThatTheViewCutsIsPrintedWhole)
{
    for (int32_t lRows = 1; lRows < 3 * SystemHeight(); ++lRows)
    {
        lScroll = lRows;
        Answers(Answer::YES);
        Print(1);
        std::string const& sFirst = Printer().aPrinted.back().aPages[0];
        EXPECT_THAT(sFirst, testing::Not(HasSubstr("box 0,-"))) << lRows;
        std::vector<int32_t> const aLines = LinesOf(Printer().aPrinted.back());
        EXPECT_EQ(aLines, LinesFrom(aLines.at(0))) << lRows;
        EXPECT_EQ(lScroll, lRows);
    }
}

TEST_F(Printing, NoPrintsFromTheTopWhereTheViewThenStays)
{
    lScroll = 5 * SystemHeight();
    Answers(Answer::NO);
    Print(1);
    EXPECT_EQ(LinesOf(Printed()), LinesFrom(1));
    EXPECT_EQ(lScroll, 0);
    EXPECT_EQ(Window().lScrollPlace, 0);
}

TEST_F(Printing, AViewBeyondTheScorePrintsAnEmptyPage)
{
    lScroll = 1000 * SystemHeight();
    Answers(Answer::YES);
    Print(1);
    EXPECT_THAT(Printed().aPages, ElementsAre(""));
}

TEST_F(Printing, WithoutAPrinterTheUserIsTold)
{
    Printer().bThere = false;
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre(sNoPrinter));
    EXPECT_EQ(process.user.shown[0].lFlags, MB_OK | MB_ICONSTOP);
}

TEST_F(Printing, NoCopiesOpenAndCloseTheJobWithNoPage)
{
    for (int32_t const lCopies : {0, -3})
    {
        Print(lCopies);
        EXPECT_THAT(Messages(), ElementsAre());
        EXPECT_EQ(Printer().cPagesBegun, 0);
    }
    EXPECT_EQ(Printer().cDocuments, 2);
    EXPECT_EQ(Printer().aPrinted.size(), 0U);
}

TEST_F(Printing, ThreeCopiesEachBeginAtTheSameScroll)
{
    lScroll = 4 * SystemHeight();
    Answers(Answer::YES);
    Print(3);
    std::vector<std::string> const& aPages = Printed().aPages;
    size_t const cOne = aPages.size() / 3;
    ASSERT_EQ(aPages.size(), cOne * 3);
    EXPECT_GT(cOne, 1U);
    for (size_t n = 0; n < aPages.size(); ++n)
        EXPECT_EQ(aPages[n], aPages[n % cOne]);
    EXPECT_EQ(lScroll, 4 * SystemHeight());
}

TEST_F(Printing, TheViewMovesDownByWholeSystemsBeforeAPageEnds)
{
    std::vector<int32_t> aScroll;
    process.user.pOnDispatch = [&aScroll] { aScroll.push_back(lScroll); };
    Print(1);
    ASSERT_EQ(aScroll.size(), Printed().aPages.size() + 1); // once for the document's end
    int32_t lShown = 0;
    for (size_t n = 0; n + 1 < Printed().aPages.size(); ++n)
    {
        lShown += static_cast<int32_t>(LinesOn(Printed().aPages[n]).size());
        EXPECT_EQ(aScroll[n], lShown * SystemHeight());
    }
    EXPECT_EQ(lPageEnd, lEndOfScore);
}

TEST_F(Printing, CommandFiveAsksForTheNumberOfCopies)
{
    AnswersNumber(2);
    Press("p", false, true);
    ASSERT_EQ(process.user.shown.size(), 1U);
    EXPECT_EQ(process.user.shown[0].sCaption, "Enter number of copies");
    size_t const cTwo = Printed().aPages.size();
    Answers(Answer::CANCEL);
    Command(COMMAND_PRINT); // Cancel prints the number that was shown, one
    EXPECT_EQ(Printer().aPrinted.at(1).aPages.size() * 2, cTwo);
    EXPECT_EQ(process.settings.values.count("Enter number of copies"), 0U);
}

TEST_F(Printing, CommandFifteenPrintsOneCopy)
{
    Command(COMMAND_PRINTONE);
    EXPECT_THAT(Messages(), ElementsAre());
    EXPECT_EQ(LinesOf(Printed()), LinesFrom(1));
}

TEST_F(Printing, WaitingForEachPageStopsAfterEveryOne)
{
    Command(COMMAND_WAITEACHPAGE);
    EXPECT_TRUE(Checked(COMMAND_WAITEACHPAGE));
    Print(2);
    ASSERT_EQ(process.user.shown.size(), Printed().aPages.size());
    for (Shown const& box : process.user.shown)
    {
        EXPECT_EQ(box.sText, "Has page printed yet?");
        EXPECT_EQ(box.sCaption, "Printing");
        EXPECT_EQ(box.lFlags, MB_OK);
    }
    Command(COMMAND_WAITEACHPAGE);
    EXPECT_FALSE(Checked(COMMAND_WAITEACHPAGE));
    EXPECT_EQ(process.settings.values.count("Wait for each page"), 0U) << "it is not stored";
}

TEST_F(Shell, WaitingForEachPageIsReadAtTheStart)
{
    process.settings.values["Wait for each page"] = 1;
    Start();
    EXPECT_EQ(fWaitEachPage, 1);
    EXPECT_TRUE(Checked(COMMAND_WAITEACHPAGE));
}

TEST_F(Printing, TheBoxSaysWhatIsPrintedAndTheWindowIsDisabledMeanwhile)
{
    for (char const* const szName : {"", "tunes/kesh.zrn"})
    {
        szFileName = szName;
        int32_t cLooks = 0;
        process.user.pOnDispatch = [&]
        {
            ++cLooks;
            ASSERT_NE(process.user.pDialog, nullptr);
            Form const& form = process.user.pDialog->form;
            EXPECT_EQ(form.sTitle, "Printing...");
            ASSERT_EQ(form.aControls.size(), 3U);
            EXPECT_EQ(form.aControls[0].sLabel, "Now Printing: ");
            EXPECT_EQ(form.aControls[1].sLabel, *szName ? szName : "(no name)");
            EXPECT_EQ(form.aControls[2].sLabel, "Cancel");
            EXPECT_FALSE(Window().bEnabled);
            EXPECT_TRUE(fPrintContinue);
        };
        Print(1);
        EXPECT_GT(cLooks, 2);
    }
    EXPECT_THAT(Messages(), ElementsAre());
}

TEST_F(Printing, CancelPrintsNothingAndSaysSoInTheBoxAlone)
{
    std::string sLine;
    process.user.pOnDispatch = [&]
    {
        if (Printer().cPagesBegun != 2)
            return;
        process.user.pDialog->Press(IDCANCEL);
        sLine = process.user.pDialog->form.aControls[1].sLabel;
    };
    Print(5);
    EXPECT_EQ(sLine, "(Cancelling...  can take a little while)");
    EXPECT_THAT(Messages(), ElementsAre());
    EXPECT_EQ(Printer().cPagesBegun, 2);
    EXPECT_TRUE(Printer().aPrinted.empty());
    process.user.pOnDispatch = nullptr;
    Print(1);
    EXPECT_EQ(Printer().aPrinted.size(), 1U) << "the next job is none the worse";
}

TEST_F(Printing, CancelAfterTheLastPageIsInTime)
{
    int32_t cAsked = 0;
    process.user.pOnDispatch = [&]
    {
        if (++cAsked > Printer().cPagesBegun)
            process.user.pDialog->Press(IDCANCEL);
    };
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre());
    EXPECT_TRUE(Printer().aPrinted.empty());
}

TEST_F(Printing, EachFailureIsToldOnceAndPrintsNothing)
{
    using Fault = VirtualPrinter::Fault;
    struct
    {
        Fault fault;
        int32_t lPage;
        char const* sSaid;
        char const* sMessage;
        int32_t cPagesBegun;
    } const aCase[] = {{Fault::STARTDOC, 1, "", "Zarn Print STARTDOC failed", 0},
                       {Fault::STARTPAGE, 1, "", "StartPage failed.", 0},
                       {Fault::STARTPAGE, 3, "", "StartPage failed.", 2},
                       {Fault::ENDPAGE, 1, "", "EndPage failed.", 1},
                       {Fault::ENDPAGE, 2, "", "EndPage failed.", 2},
                       {Fault::ENDDOC, 1, "", "EndDoc failed.", 8},
                       {Fault::ENDDOC, 1, "lp: no", "EndDoc failed.\nlp: no", 8}};
    std::string const sBefore = OnScreen();
    for (auto const& c : aCase)
    {
        Printer() = {.bThere = true, .fault = c.fault, .lFaultPage = c.lPage, .sWords = c.sSaid};
        process.user.shown.clear();
        Command(COMMAND_PRINT); // Cancel: one copy, through the door, which arms the message
        process.user.shown.erase(process.user.shown.begin());
        Serious_Rearm();
        EXPECT_THAT(Messages(), ElementsAre(c.sMessage));
        Printer().cPagesBegun = 0;
        process.user.shown.clear();
        Print(2);
        EXPECT_LE(Printer().cPagesBegun, c.cPagesBegun) << c.sMessage;
        EXPECT_TRUE(Printer().aPrinted.empty()) << c.sMessage;
        EXPECT_EQ(OnScreen(), sBefore) << c.sMessage;
    }
}

TEST_F(Printing, AFailureOfACancelledJobIsSilent)
{
    Printer().fault = VirtualPrinter::Fault::ENDPAGE;
    Printer().lFaultPage = 2;
    CancelAtPage(2);
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre());
}

TEST_F(Printing, WithoutABoxTheJobGoesOn)
{
    process.user.bFormsWork = false;
    Print(1);
    EXPECT_EQ(Printer().aPrinted.size(), 1U);
}

TEST_F(Printing, LeavesUnitsScoreFontAndScreenAsTheyWere)
{
    for (bool const bJustified : {false, true})
    {
        bRightJustified = bJustified;
        lFontScale = bJustified ? 90 : -1;
        FullAdjust();
        Font_Renew();
        std::string const sBefore = OnScreen();
        auto const Everything = []
        {
            std::string s =
                Format("%d %d %d %d %d %d %d %d %d %d %d", lPageWidth, lPageHeight, lRowsPerPage, lColsPerLine,
                       lLeftMarginPx, lTopMarginPx, xunit, yunit, lBlobX, lStemLength, lScroll);
            for (Element const* pel = StaffFirst(1); pel; pel = Next(pel))
                s +=
                    Format("\n%d %d %d %d %d %d %d %d", static_cast<int32_t>(pel->sort), pel->lStrX, pel->lX, pel->lY,
                           pel->lWidth, pel->lDiaPitch, static_cast<int32_t>(pel->beam), static_cast<int32_t>(pel->up));
            return s;
        };
        ReGrid();
        std::string const sState = Everything();
        int32_t const cObjects = cGdiObjects;
        Print(2);
        Print(1);
        ReGrid();
        EXPECT_EQ(Everything(), sState);
        EXPECT_EQ(OnScreen(), sBefore);
        EXPECT_LE(cGdiObjects, cObjects + 1) << "the print font alone is kept";
    }
    bRightJustified = false;
}

TEST_F(Printing, TheFontIsThatOfThePrintersUnits)
{
    lFontScale = 100;
    Font_Renew();
    std::string const sScreen = OnScreen();
    Print(1);
    // Rows of 12 pixels on the paper and of 7 on the screen: cells of 48 and 28.
    EXPECT_THAT(sScreen, HasSubstr("em 24.05 "));
    EXPECT_THAT(Printed().aPages[0], HasSubstr("em 41.23 "));
    EXPECT_EQ(OnScreen(), sScreen);
}

TEST_F(Printing, WordsWithoutAScaleKeepTheirShareOfTheLine)
{
    Print(1);
    EXPECT_THAT(OnScreen(), HasSubstr("em 13 "));
    EXPECT_THAT(Printed().aPages[0], HasSubstr("em 24.18 ")); // 2232 pixels across, and 1200 on the screen
}

TEST_F(Printing, WhatComesFromOutsideMeanwhileIsNotHeard)
{
    process.user.pOnDispatch = [this]
    {
        Command(COMMAND_NEW);
        Command(COMMAND_PRINTONE);
        Press("a");
        Send(EventKind::LEFTDOWN, 0, 100, 100);
        Send(EventKind::CLOSE);
        Window().Update();
    };
    std::string const sScore = Read(1);
    Print(1);
    EXPECT_THAT(Messages(), ElementsAre());
    EXPECT_EQ(Printer().aPrinted.size(), 1U);
    EXPECT_EQ(Read(1), sScore);
    EXPECT_TRUE(Window().bRepaintOwed) << "what was not painted is painted now";
}

TEST_F(Printing, AWindowThatIsResizedMeanwhileIsToldAfterwards)
{
    Print(1);
    PrintedDocument const before = Printed();
    process.user.pOnDispatch = [this]
    {
        Window().Resize({900, 600});
        Send(EventKind::SIZE, 0, 900, 600);
    };
    Print(1);
    EXPECT_EQ(Printer().aPrinted.at(1).aPages, before.aPages);
    EXPECT_EQ(lPageWidth, 900);
    EXPECT_EQ(lPageHeight, 600);
}

TEST_F(Printing, MarginsAreShareOfThePage)
{
    lMarginLeft = 10;
    lMarginTop = 20;
    Print(1);
    EXPECT_GE(Count(Printed().aPages[0], "box 223,"), 5);
    EXPECT_EQ(Count(Printed().aPages[0], "box 0,"), 0);
    lMarginLeft = lMarginTop = 0;
}

TEST_F(Printing, LegersAndTheStaffsShownAreThoseOfTheScreen)
{
    Print(1);
    size_t const cOneStaff = Printed().aPages.size();
    Command(COMMAND_SHOWSTAFF + 2);
    Print(1);
    EXPECT_GT(Printer().aPrinted.at(1).aPages.size(), cOneStaff);
    int32_t cStaffLines = 0;
    for (std::string const& sPage : Printer().aPrinted.at(1).aPages)
        cStaffLines += Count(sPage, "box 0,");
    EXPECT_EQ(cStaffLines, 10 * lLines);
}

TEST_F(Printing, TablatureIsPrintedWithTheStaff)
{
    Command(COMMAND_OPTIMISEDTABLATURE);
    Update();
    Print(1);
    int32_t cLong = 0;
    for (std::string const& sPage : Printed().aPages)
        cLong += Count(sPage, "box 0,");
    EXPECT_GE(cLong, (5 + 6) * lLines);
}

TEST_F(Printing, TheMarkAndInvisibleSignsStayOnTheScreen)
{
    Write(1, "inst:5 tempo:90");
    FullAdjust();
    pelMarkBegin = StaffFirst(1);
    pelMarkEnd = StaffLast(1);
    Print(1);
    for (std::string const& sPage : Printed().aPages)
    {
        EXPECT_THAT(sPage, testing::Not(HasSubstr("#ff0000")));
        EXPECT_THAT(sPage, testing::Not(HasSubstr("\"T90\"")));
    }
    EXPECT_THAT(OnScreen(), HasSubstr("#ff0000"));
    pelMarkBegin = pelMarkEnd = nullptr;
}

TEST_F(Printing, AnEmptyScorePrintsItsRuledStaff)
{
    List_Clear(aStaffList[1]);
    Print(1);
    ASSERT_EQ(Printed().aPages.size(), 1U);
    EXPECT_EQ(Count(Printed().aPages[0], "box 0,"), 5);
}
} // namespace zarn::test
