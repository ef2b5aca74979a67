// The printer's context, a document and its pages.
#include "platform/print.h"

#include "support/scripted_process.h"

#include <gtest/gtest.h>

namespace zarn
{
namespace
{
bool bGoOn = true;

struct PrinterDc : testing::Test
{
    PrinterDc()
    {
        bGoOn = true;
        process.user.printer.bThere = true;
        EXPECT_TRUE(PrintDlgA(dialog));
        SetAbortProc(dialog.hDC, [](HDC, int32_t) { return bGoOn; });
    }
    ~PrinterDc() override { DeleteDC(dialog.hDC); }
    [[nodiscard]] VirtualPrinter& Printer() { return process.user.printer; }

    test::ScriptedProcess process;
    PRINTDLG dialog{.Flags = PD_RETURNDC | PD_RETURNDEFAULT};
    DOCINFO info{.lpszDocName = "Zarn"};
};
} // namespace

TEST_F(PrinterDc, TellsTheSizeOfTheSheetWithoutItsEdges)
{
    EXPECT_EQ(GetDeviceCaps(dialog.hDC, HORZRES), 2232);
    EXPECT_EQ(GetDeviceCaps(dialog.hDC, VERTRES), 3158);
}

TEST_F(PrinterDc, DrawsOnlyBetweenTheBeginningAndTheEndOfAPage)
{
    HDC const hdc = dialog.hDC;
    EXPECT_FALSE(Rectangle(hdc, 1, 2, 3, 4));
    ASSERT_GT(StartDocA(hdc, info), 0);
    EXPECT_FALSE(Rectangle(hdc, 1, 2, 3, 4));
    ASSERT_GT(StartPage(hdc), 0);
    EXPECT_TRUE(Rectangle(hdc, 1, 2, 3, 4));
    EXPECT_EQ(GetDeviceCaps(hdc, VERTRES), 3158);
    ASSERT_GT(EndPage(hdc), 0);
    EXPECT_FALSE(Rectangle(hdc, 1, 2, 3, 4));
    ASSERT_GT(EndDoc(hdc), 0);
    ASSERT_EQ(Printer().aPrinted.size(), 1U);
    EXPECT_EQ(Printer().aPrinted[0].sTitle, "Zarn");
    EXPECT_EQ(Printer().aPrinted[0].aPages.size(), 1U);
}

TEST_F(PrinterDc, StepsOutOfTheirOrderFail)
{
    EXPECT_LT(StartPage(dialog.hDC), 1);
    EXPECT_LT(EndPage(dialog.hDC), 1);
    EXPECT_LT(EndDoc(dialog.hDC), 1);
    ASSERT_GT(StartDocA(dialog.hDC, info), 0);
    EXPECT_LT(StartDocA(dialog.hDC, info), 1);
    EXPECT_LT(EndPage(dialog.hDC), 1);
    DeviceContext plain;
    EXPECT_LT(StartDocA(&plain, info), 1);
    EXPECT_LT(StartDocA(nullptr, info), 1);
    DeleteDC(nullptr);
}

TEST_F(PrinterDc, AJobThatIsCalledOffFailsFromThenOnAndPrintsNothing)
{
    ASSERT_GT(StartDocA(dialog.hDC, info), 0);
    ASSERT_GT(StartPage(dialog.hDC), 0);
    bGoOn = false;
    EXPECT_EQ(EndPage(dialog.hDC), SP_ERROR);
    bGoOn = true;
    EXPECT_LT(StartPage(dialog.hDC), 1);
    EXPECT_LT(EndDoc(dialog.hDC), 1);
    EXPECT_TRUE(Printer().aPrinted.empty());
    EXPECT_EQ(Printer().cOpen, 0);
    ASSERT_GT(StartDocA(dialog.hDC, info), 0);
    EXPECT_GT(EndDoc(dialog.hDC), 0) << "the next document begins afresh";
}

TEST_F(PrinterDc, AContextThatIsDeletedInAJobPrintsNothing)
{
    ASSERT_GT(StartDocA(dialog.hDC, info), 0);
    ASSERT_GT(StartPage(dialog.hDC), 0);
    DeleteDC(dialog.hDC);
    dialog.hDC = nullptr;
    EXPECT_EQ(Printer().cOpen, 0);
    EXPECT_TRUE(Printer().aPrinted.empty());
}

TEST_F(PrinterDc, ThePrintersWordsAreThoseOfTheLastDocument)
{
    Printer().fault = VirtualPrinter::Fault::ENDDOC;
    Printer().sWords = "out of paper";
    for (char const* const sWords : {"out of paper", ""})
    {
        ASSERT_GT(StartDocA(dialog.hDC, info), 0);
        ASSERT_GT(StartPage(dialog.hDC), 0);
        ASSERT_GT(EndPage(dialog.hDC), 0);
        (void)EndDoc(dialog.hDC);
        EXPECT_EQ(PrinterWords(dialog.hDC), sWords);
        Printer().fault = VirtualPrinter::Fault::NONE;
    }
}

TEST(PrinterDcNone, WithoutAPrinterThereIsNoContext)
{
    test::ScriptedProcess process;
    PRINTDLG dialog;
    EXPECT_FALSE(PrintDlgA(dialog));
    EXPECT_EQ(dialog.hDC, nullptr);
    EXPECT_EQ(PrinterPaper().size, sheetA4.size);
}
} // namespace zarn
