// Printing.
//
// There is one box for the whole job and no choice of a printer. While a job runs, the abort callback lets the messages
// in: the box's button works, and the main window, which is disabled, hears nothing but its size.
#include "shell/print.h"

#include "core/messages.h"
#include "layout/place.h"
#include "panels/dialogs.h"
#include "panels/forms.h"
#include "platform/print.h"
#include "render/font.h"
#include "render/geometry.h"
#include "render/pages.h"
#include "shell/command_numbers.h"
#include "shell/file_names.h"
#include "shell/main_window.h"
#include "shell/menu.h"

#include <string>
#include <utility>

namespace zarn
{
static HDLG hAbortDialog = nullptr; ///< "ABORTDLG", while a job runs

PrintRun::~PrintRun()
{
    if (--cRunning > 0)
        return;
    if (std::exchange(fResized, false))
    {
        RECT const client = GetClientRect(hwndMain);
        MainWindow_Resized({client.right, client.bottom});
    }
    InvalidateRect(hwndMain); // paints were passed over
}

static bool AbortProc(HDC, int32_t)
{
    DispatchMessages();
    return fPrintContinue;
}

/// Its only button, and whatever else closes it, calls the job off.
static void AbortDialogCommand(int32_t)
{
    fPrintContinue = false;
    SetDlgItemTextA(hAbortDialog, lAbortFile, "(Cancelling...  can take a little while)");
}

namespace
{
/// The pages of one copy.
class PaperSink : public PageSink
{
public:
    explicit PaperSink(HDC hdc) : hdc(hdc) {}

    HDC StartPage(int32_t) override
    {
        if (zarn::StartPage(hdc) > 0)
            return hdc;
        Serious("StartPage failed.");
        bGood = false;
        return nullptr;
    }

    bool EndPage(HDC) override
    {
        bGood = zarn::EndPage(hdc) > 0;
        if (fWaitEachPage)
            MessageBoxA(hwndMain, "Has page printed yet?", "Printing", MB_OK);
        if (!bGood && fPrintContinue)
            Serious("EndPage failed.");
        return bGood;
    }

    bool bGood = true; ///< false: no more copies

private:
    HDC hdc;
};
} // namespace

static void PrintCopies(HDC hdc, int32_t lCopies)
{
    int32_t const lTop = lScroll;
    PaperSink sink(hdc);
    for (int32_t lLeft = lCopies; lLeft > 0 && sink.bGood; --lLeft)
    {
        lScroll = lTop;
        DrawPagesFromView(sink, 0);
    }
}

static void PrintDocument(HDC hdc, int32_t lCopies)
{
    DOCINFO const info{.lpszDocName = "Zarn", .lpszOutput = nullptr, .lpszDatatype = "Zarn"};
    Font_BeginPrint();
    if (StartDocA(hdc, info) > 0)
        PrintCopies(hdc, lCopies);
    else
        Serious("Zarn Print STARTDOC failed");
    Font_EndPrint();
    if (EndDoc(hdc) > 0 || !fPrintContinue)
        return;
    std::string const sWords = PrinterWords(hdc);
    Serious(sWords.empty() ? "EndDoc failed." : "EndDoc failed.\n" + sWords);
}

static void PrintFromView(int32_t lCopies)
{
    PRINTDLG dialog{.Flags = PD_RETURNDC | PD_RETURNDEFAULT};
    if (!PrintDlgA(dialog))
    {
        Serious("Zarn Print: Couldn't get a printer DC.\nNo printer set up?  Try control panel.");
        return;
    }
    HDC const hdc = dialog.hDC;
    PrintRun const run;
    fPrintContinue = true;
    SetAbortProc(hdc, AbortProc);
    hAbortDialog =
        CreateDialogParamA(hwndMain, AbortForm(szFileName.empty() ? "(no name)" : szFileName), AbortDialogCommand);
    EnableWindow(hwndMain, false);
    BeginPrintUnits(GetDeviceCaps(hdc, HORZRES), GetDeviceCaps(hdc, VERTRES), true);
    PrintDocument(hdc, lCopies);
    EndPrintUnits();
    EnableWindow(hwndMain, true);
    DestroyWindow(hAbortDialog);
    hAbortDialog = nullptr;
    DeleteDC(hdc);
}

void PrintScore(int32_t lCopies)
{
    if (lScroll != 0)
    {
        int32_t const lAnswer = AskYesNoCancel("Really print from here?\n(No = print from top of score).");
        if (lAnswer < 0)
            return;
        if (lAnswer == 0)
        {
            lScroll = 0;
            SetScrollPos(hwndMain, 0);
            ReGrid();
            InvalidateRect(hwndMain);
        }
    }
    PrintFromView(lCopies);
}

void PrintFromTop()
{
    int32_t const lView = std::exchange(lScroll, 0);
    PrintFromView(1);
    lScroll = lView;
    ReGrid();
}

void PrintCommand()
{
    int32_t lCopies = 1;
    InputNumber(hwndMain, &lCopies, "Enter number of copies");
    PrintScore(lCopies);
}

void ToggleWaitEachPage()
{
    fWaitEachPage = !fWaitEachPage;
    Menu_Check(COMMAND_WAITEACHPAGE, fWaitEachPage);
}
} // namespace zarn
