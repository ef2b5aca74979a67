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
#include "platform/svg.h"
#include "render/document_pages.h"
#include "tab/tab_text.h"
#include "tab/tablature.h"

#include <memory>

namespace zarn
{
namespace
{
bool WriteBytes(std::string const& szPath, std::string const& sBytes)
{
    switch (File_WriteWhole(szPath, sBytes))
    {
    case FileWritten::NOT_OPENED:
        Terminal_Error("the file can't be written there");
        return false;
    case FileWritten::FAILED:
        Terminal_Error("writing failed; what stood there before is unchanged");
        return false;
    case FileWritten::WHOLE:
        break;
    }
    return true;
}

void TellNoSuchPage(int32_t lPage, int32_t cPages)
{
    Terminal_Error(Format("there is no page %d; the last one is %d", lPage, cPages));
}

/// Draws into the document and writes its bytes; the number of pages that the whole score has, 0 on failure.
int32_t WriteDocument(std::string const& szPath, PagedSurface& document, PageFormat const& format)
{
    int32_t const cPages = DrawDocument(document, format);
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

    bool EndPage(HDC) override
    {
        std::string sBytes;
        if (!pDocument->Finish(sBytes))
            Fail(sBytes);
        else
            bGood = WriteBytes(szPage, sBytes);
        ++cWritten;
        return bGood;
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
        return WriteDocument(szPath, document, {format.lWidth, format.lHeight, false, format.lPage}) != 0;
    }
    DesktopHost* const pDesktop = pMaker();
    if (!pDesktop)
        return false;
    if (sEnding == ".png")
        return WritePictures(szPath, format, *pDesktop);
    auto const pDocument = pDesktop->NewPdf(format.sTitle, sheetA4);
    if (!pDocument)
    {
        Terminal_Error("the PDF can't be made");
        return false;
    }
    SIZE const size = sheetA4.BoxSize();
    return WriteDocument(szPath, *pDocument, {size.cx, size.cy, true, format.lPage}) != 0;
}
} // namespace zarn
