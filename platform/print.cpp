// A print job, from the printer's context to the end of its document.
#include "platform/print.h"

#include "platform/host.h"

namespace zarn
{
/// What a printer's context has besides what is selected on it.
struct PrinterContext
{
    DeviceContext dc;
    std::unique_ptr<Printer> pPrinter;
    std::unique_ptr<PagedSurface> pJob; ///< null when no document is open
    ABORTPROC pAbortProc = nullptr;
    int32_t cPages = 0;
    bool bCalledOff = false;
    std::string sWords;

    [[nodiscard]] bool MayGoOn() { return !pAbortProc || pAbortProc(&dc, 0); }
    int32_t CallOff()
    {
        bCalledOff = true;
        pJob.reset();
        return SP_ERROR;
    }
};

static PrinterContext* Context(HDC hdc) { return hdc ? hdc->pPrinter : nullptr; }

bool PrintDlgA(PRINTDLG& dialog)
{
    std::unique_ptr<Printer> pPrinter = host.pUser ? host.pUser->DefaultPrinter() : nullptr;
    if (!pPrinter)
        return false;
    auto* const pContext = new PrinterContext;
    pContext->dc.pPrinter = pContext;
    pContext->dc.pageSize = pPrinter->Paper().BoxSize();
    pContext->pPrinter = std::move(pPrinter);
    dialog.hDC = &pContext->dc;
    return true;
}

int32_t SetAbortProc(HDC hdc, ABORTPROC pAbortProc)
{
    PrinterContext* const pContext = Context(hdc);
    if (!pContext)
        return SP_ERROR;
    pContext->pAbortProc = pAbortProc;
    return 1;
}

int32_t StartDocA(HDC hdc, DOCINFO const& info)
{
    PrinterContext* const pContext = Context(hdc);
    if (!pContext || pContext->pJob)
        return SP_ERROR;
    pContext->bCalledOff = false;
    pContext->cPages = 0;
    pContext->sWords.clear();
    pContext->pJob = pContext->pPrinter->StartDoc(info.lpszDocName, [pContext] { return pContext->MayGoOn(); });
    return pContext->pJob ? 1 : pContext->CallOff();
}

int32_t StartPage(HDC hdc)
{
    PrinterContext* const pContext = Context(hdc);
    if (!pContext || !pContext->pJob)
        return SP_ERROR;
    hdc->pSurface = pContext->pJob->StartPage();
    return hdc->pSurface ? ++pContext->cPages : pContext->CallOff();
}

int32_t EndPage(HDC hdc)
{
    PrinterContext* const pContext = Context(hdc);
    if (!pContext || !hdc->pSurface)
        return SP_ERROR;
    hdc->pSurface = nullptr;
    bool const bGood = pContext->pJob->EndPage();
    return pContext->MayGoOn() && bGood ? 1 : pContext->CallOff();
}

int32_t EndDoc(HDC hdc)
{
    PrinterContext* const pContext = Context(hdc);
    if (!pContext || !pContext->pJob || !pContext->MayGoOn())
        return pContext ? pContext->CallOff() : SP_ERROR;
    std::string sSaid;
    bool const bGood = pContext->cPages == 0 || pContext->pJob->Finish(sSaid);
    pContext->pJob.reset();
    if (!bGood)
        pContext->sWords = sSaid;
    return bGood ? 1 : SP_ERROR;
}

std::string PrinterWords(HDC hdc)
{
    PrinterContext const* const pContext = Context(hdc);
    return pContext ? pContext->sWords : std::string();
}

void DeleteDC(HDC hdc) { delete Context(hdc); }

int32_t ShowPages(PageSource& pages) { return host.pUser ? host.pUser->ShowPages(pages) : IDCANCEL; }

std::unique_ptr<PagedSurface> CreatePdf(std::string_view sTitle, Sheet const& sheet)
{
    return host.pUser ? host.pUser->NewPdf(sTitle, sheet) : nullptr;
}

Sheet PrinterPaper()
{
    std::unique_ptr<Printer> const pPrinter = host.pUser ? host.pUser->DefaultPrinter() : nullptr;
    return pPrinter ? pPrinter->Paper() : sheetA4;
}
} // namespace zarn
