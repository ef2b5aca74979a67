// Outputs of a conversion.
//
// Everything is drawn in memory and written in one piece, so that a failure half way leaves no half-written file.
#include "app/export.h"

#include "app/export_abc.h"
#include "app/export_wave.h"
#include "app/options.h"
#include "app/terminal.h"
#include "core/text.h"
#include "file/native.h"
#include "midi/midi_write.h"
#include "midi/play_list.h"
#include "platform/files.h"
#include "platform/headless/headless_window.h"
#include "platform/svg.h"
#include "render/geometry.h"
#include "render/pages.h"
#include "tab/tab_text.h"
#include "tab/tablature.h"

#include <algorithm>
#include <memory>

namespace zarn
{
namespace
{
/// A4 at 300 dots to the inch: a hair line of one unit, doubled, is as wide as an engraved line.
constexpr SIZE sizeA4{2480, 3508};

/// Room at the edges of paper that the user gave none: printers don't reach there.
class PaperMargins
{
public:
    PaperMargins() : lLeft(lMarginLeft), lRight(lMarginRight), lTop(lMarginTop), lBottom(lMarginBottom)
    {
        constexpr int32_t lPerCent = 5;
        if (lLeft == 0 && lRight == 0 && lTop == 0 && lBottom == 0)
            lMarginLeft = lMarginRight = lMarginTop = lMarginBottom = lPerCent;
    }
    ~PaperMargins()
    {
        lMarginLeft = lLeft;
        lMarginRight = lRight;
        lMarginTop = lTop;
        lMarginBottom = lBottom;
    }
    PaperMargins(PaperMargins const&) = delete;
    PaperMargins& operator=(PaperMargins const&) = delete;
    [[nodiscard]] static int32_t WidthLeft(int32_t lWidth) { return lWidth * (100 - lMarginLeft - lMarginRight) / 100; }

private:
    int32_t lLeft;
    int32_t lRight;
    int32_t lTop;
    int32_t lBottom;
};

/// Hands the pages of the Score to a document.
class DocumentSink : public PageSink
{
public:
    /// dEm: of a text whose font asks for no size; 0 leaves it to the document.
    explicit DocumentSink(PagedSurface& document, double dEm) : document(document), dEm(dEm) {}

    HDC StartPage(int32_t) override
    {
        dc = DeviceContext{};
        dc.pSurface = document.StartPage();
        dc.defaultEm = dEm;
        return dc.pSurface ? &dc : nullptr;
    }
    void EndPage(HDC) override { document.EndPage(); }

private:
    PagedSurface& document;
    double dEm;
    DeviceContext dc;
};

bool WriteBytes(std::string const& szPath, std::string const& sBytes)
{
    HFILE const hFile = _lcreat(szPath);
    if (!hFile)
    {
        Terminal_Error("the file can't be written there");
        return false;
    }
    bool bGood = true;
    for (size_t lDone = 0; bGood && lDone < sBytes.size();)
    {
        auto const cb = static_cast<int32_t>(std::min<size_t>(sBytes.size() - lDone, 1 << 24));
        bGood = _lwrite(hFile, sBytes.data() + lDone, cb) == cb;
        lDone += static_cast<size_t>(cb);
    }
    if (!_lclose(hFile) || !bGood)
    {
        Terminal_Error("writing failed; what stood there before is unchanged");
        return false;
    }
    return true;
}

void TellNoSuchPage(int32_t lPage, int32_t cPages)
{
    Terminal_Error(Format("there is no page %d; the last one is %d", lPage, cPages));
}

/// Draws into the document and writes its bytes; the number of pages that the whole score has, 0 on failure.
int32_t WriteDocument(std::string const& szPath, PagedSurface& document, PageFormat const& format, double dEm)
{
    DocumentSink sink(document, dEm);
    int32_t const cPages = DrawPages(sink, format);
    if (format.lOnlyPage > cPages)
    {
        TellNoSuchPage(format.lOnlyPage, cPages);
        return 0;
    }
    std::string sBytes;
    if (!document.Finish(sBytes))
    {
        Terminal_Error(sBytes);
        return 0;
    }
    return WriteBytes(szPath, sBytes) ? cPages : 0;
}

/// A file that a writer of the program fills.
bool WriteFile(std::string const& szPath, bool (*pWrite)(HFILE hFile))
{
    HFILE const hFile = _lcreat(szPath);
    if (!hFile)
    {
        Terminal_Error("the file can't be written there");
        return false;
    }
    bool const bWritten = pWrite(hFile);
    if (!_lclose(hFile) || !bWritten)
    {
        Terminal_Error("writing failed; what stood there before is unchanged");
        return false;
    }
    return true;
}

bool WriteMidi(std::string const& szPath, bool bExchange)
{
    return WriteFile(
        szPath, bExchange ? [](HFILE hFile) { return SaveMidiFile(hFile, false, 0, false); }
                          : [](HFILE hFile) { return SaveMidiFile(hFile, fBarnDance, lSwing, true); });
}

bool WriteTab(std::string const& szPath)
{
    if (!Tab_IsShown())
    {
        Terminal_Error("tablature is written with --tablature; NOT yet saved");
        return false;
    }
    return WriteFile(szPath, Tab_SaveText);
}

/// tune.png, page 2: tune-2.png.
std::string PagePath(std::string const& szPath, int32_t lPage)
{
    size_t const cchStem = szPath.size() - FileEnding(szPath).size();
    return szPath.substr(0, cchStem) + Format("-%d", lPage) + szPath.substr(cchStem);
}

/// Each page a picture of its own, written as soon as it is drawn.
class PictureSink : public PageSink
{
public:
    PictureSink(std::string const& szPath, ExportFormat const& format, DesktopHost& desktop)
        : szPath(szPath), format(format), desktop(desktop)
    {
    }

    HDC StartPage(int32_t lPage) override
    {
        szPage = lPage == 1 || format.lPage ? szPath : PagePath(szPath, lPage);
        pDocument = desktop.NewPng({format.lWidth, format.lHeight}, format.lDpi);
        dc = DeviceContext{};
        dc.pSurface = pDocument ? pDocument->StartPage() : nullptr;
        if (!dc.pSurface)
            Fail("the picture would be too large");
        return bGood ? &dc : nullptr;
    }

    void EndPage(HDC) override
    {
        pDocument->EndPage();
        std::string sBytes;
        if (!pDocument->Finish(sBytes))
            Fail(sBytes);
        else
            bGood = WriteBytes(szPage, sBytes);
        ++cWritten;
    }

    bool bGood = true;
    int32_t cWritten = 0;

private:
    void Fail(std::string const& sText)
    {
        Terminal_Error(sText);
        bGood = false;
    }

    std::string const& szPath;
    ExportFormat const& format;
    DesktopHost& desktop;
    std::string szPage;
    std::unique_ptr<PagedSurface> pDocument;
    DeviceContext dc;
};

bool WritePictures(std::string const& szPath, ExportFormat const& format, DesktopHost& desktop)
{
    PictureSink sink(szPath, format, desktop);
    int32_t const cPages = DrawPages(sink, {format.lWidth, format.lHeight, false, format.lPage});
    if (sink.bGood && format.lPage > cPages)
    {
        TellNoSuchPage(format.lPage, cPages);
        return false;
    }
    if (sink.bGood && sink.cWritten > 1)
        Terminal_Note(Format("%d pages: the others are %s to %s", cPages, PagePath(szPath, 2).c_str(),
                             PagePath(szPath, cPages).c_str()));
    return sink.bGood;
}
} // namespace

bool Export_Write(std::string const& szPath, ExportFormat const& format, DocumentMaker pMaker)
{
    szTerminalFile = szPath;
    std::string const sEnding = FileEnding(szPath);
    if (sEnding == ".zrn")
        return WriteFile(szPath, [](HFILE hFile) { return Native_Write(hFile) != 0; });
    if (sEnding == ".abc")
        return Export_Abc(szPath, format.lTune);
    if (sEnding == ".mid")
        return WriteMidi(szPath, format.bExchange);
    if (sEnding == ".wav")
        return Export_Wave(szPath);
    if (sEnding == ".tab" || sEnding == ".txt")
        return WriteTab(szPath);
    if (sEnding == ".svg")
    {
        SvgDocument document({format.lWidth, format.lHeight}, format.sTitle);
        return WriteDocument(szPath, document, {format.lWidth, format.lHeight, false, format.lPage}, 0) != 0;
    }
    DesktopHost* const pDesktop = pMaker();
    if (!pDesktop)
        return false;
    if (sEnding == ".png")
        return WritePictures(szPath, format, *pDesktop);
    auto const pDocument = pDesktop->NewPdf(format.sTitle, sizeA4);
    if (!pDocument)
    {
        Terminal_Error("the PDF can't be made");
        return false;
    }
    // Words were given their columns at the drawing area's width; they keep their share of the page on paper.
    PaperMargins const margins;
    double const dEm = NullSurface({1, 1}).DefaultEm() * PaperMargins::WidthLeft(sizeA4.cx) / format.lWidth;
    return WriteDocument(szPath, *pDocument, {sizeA4.cx, sizeA4.cy, true, format.lPage}, dEm) != 0;
}
} // namespace zarn
