// The preview and the PDF. Both are what the printer would get, on its sheet.
#include "shell/paper.h"

#include "core/messages.h"
#include "platform/commdlg.h"
#include "platform/files.h"
#include "platform/print.h"
#include "render/document_pages.h"
#include "shell/file_names.h"
#include "shell/print.h"

#include <limits>

namespace zarn
{
namespace
{
PageFormat FormatOf(Sheet const& sheet, int32_t lOnlyPage)
{
    SIZE const size = sheet.BoxSize();
    return {size.cx, size.cy, true, lOnlyPage};
}

/// Hands one page to a surface, and ends.
class OnePage : public PageSink
{
public:
    explicit OnePage(Surface* pSurface) { dc.pSurface = pSurface; }
    HDC StartPage(int32_t) override { return &dc; }
    bool EndPage(HDC) override { return false; }

private:
    DeviceContext dc;
};

class ScorePages : public PageSource
{
public:
    ScorePages() : paper(PrinterPaper())
    {
        constexpr int32_t lNoPage = std::numeric_limits<int32_t>::max();
        PrintRun const run;
        OnePage nowhere(nullptr);
        cPages = DrawPages(nowhere, FormatOf(paper, lNoPage));
    }
    [[nodiscard]] int32_t Count() const override { return cPages; }
    [[nodiscard]] Sheet Paper() const override { return paper; }
    void Draw(int32_t lPage, Surface& surface) override
    {
        PrintRun const run;
        OnePage page(&surface);
        DrawPages(page, FormatOf(paper, lPage));
    }

private:
    Sheet paper;
    int32_t cPages = 0;
};
} // namespace

void PreviewCommand()
{
    ScorePages pages;
    if (ShowPages(pages) == IDOK)
        PrintFromTop();
}

/// The name that is offered: that of the score.
static std::string PdfNameOf(std::string const& szName)
{
    return szName.empty() ? szName : szName.substr(0, szName.size() - Extension(szName).size()) + ".pdf";
}

static bool IsThere(std::string const& szName)
{
    HFILE const hFile = _lopen(szName);
    if (hFile)
        _lclose(hFile);
    return hFile != nullptr;
}

/// Empty when the user doesn't want it.
static std::string AskPdfName()
{
    FileDialog dialog;
    dialog.sTitle = "Save as PDF";
    dialog.sDefaultExtension = ".pdf";
    dialog.aFilters = {{"PDF files", "*.pdf"}};
    dialog.szFile = PdfNameOf(szFileName.empty() ? szAbcFile : szFileName);
    if (!GetSaveFileNameA(hwndMain, dialog))
        return {};
    std::string szName = dialog.szFile;
    if (!SameExtension(szName, ".pdf")) // a score must not become a PDF by a slip
        szName += ".pdf";
    bool const bMay =
        !IsThere(szName) || AskOkCancel("There is a file of that name already.  Write the PDF over it?", 0);
    return bMay ? szName : std::string();
}

void SavePdfCommand()
{
    std::string const szName = AskPdfName();
    if (szName.empty())
        return;
    Sheet const paper = PrinterPaper();
    auto const pDocument = CreatePdf(ShortName(szName), paper);
    if (!pDocument)
    {
        Serious("The PDF can't be made.");
        return;
    }
    {
        PrintRun const run;
        DrawDocument(*pDocument, FormatOf(paper, 0));
    }
    std::string sBytes;
    if (!pDocument->Finish(sBytes))
    {
        Serious(sBytes);
        return;
    }
    switch (File_WriteWhole(szName, sBytes))
    {
    case FileWritten::NOT_OPENED:
        Serious("The PDF can't be written there - NOT saved!");
        break;
    case FileWritten::FAILED:
        Serious("Writing the PDF failed - NOT saved!  What stood there before is as it was.");
        break;
    case FileWritten::WHOLE:
        break;
    }
}
} // namespace zarn
