// Jobs on the default printer.
//
// Where the system has `lp` a job is a PDF that is handed to it at the end: only so does the user hear why a queue
// takes no job, and only so does a job that is called off leave nothing behind. Elsewhere the pages are kept as drawing
// calls until the end and then played on the system's own printer, which prints whatever it has been given.
#include "platform/desktop/qt_printer.h"

#include "platform/desktop/documents.h"
#include "platform/desktop/qt_text.h"
#include "platform/page_record.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <cmath>
#include <deque>
#include <utility>

namespace zarn
{
namespace
{
constexpr int lPaperDpi = 300;
constexpr int lFiner = 4; // device pixels to a pixel of the drawing: 1200 dpi

int32_t Units(double inches) { return static_cast<int32_t>(std::lround(inches * lPaperDpi)); }

/// The printer's sheet, with the edges that every sheet has, or wider ones where this printer needs them.
Sheet SheetOfPrinter(QPrinterInfo const& info)
{
    QPageLayout layout = QPrinter(info).pageLayout();
    layout.setUnits(QPageLayout::Inch);
    QSizeF const inches = layout.fullRect().size();
    Sheet sheet = SheetOf({Units(inches.width()), Units(inches.height())});
    QMarginsF const least = layout.minimumMargins();
    sheet.box.left = std::max(sheet.box.left, Units(least.left()));
    sheet.box.top = std::max(sheet.box.top, Units(least.top()));
    sheet.box.right = std::min(sheet.box.right, sheet.size.cx - Units(least.right()));
    sheet.box.bottom = std::min(sheet.box.bottom, sheet.size.cy - Units(least.bottom()));
    return sheet;
}

/// A PDF for `lp`.
class LpJob : public PagedSurface
{
public:
    LpJob(QPrinterInfo info, QString sLp, std::string_view sTitle, Sheet const& sheet, std::function<bool()> goOn)
        : info(std::move(info)), sLp(std::move(sLp)), sTitle(ToQt(sTitle)), goOn(std::move(goOn)), pdf(sTitle, sheet)
    {
    }
    Surface* StartPage() override { return pdf.StartPage(); }
    bool EndPage() override { return pdf.EndPage(); }
    bool Finish(std::string& sBytes) override
    {
        if (!pdf.Finish(sBytes))
            return false;
        QTemporaryFile file;
        auto const cb = static_cast<qint64>(sBytes.size());
        bool const bWritten = file.open() && file.write(sBytes.data(), cb) == cb && file.flush();
        sBytes.clear();
        if (bWritten)
            return HandOver(file.fileName(), sBytes);
        sBytes = file.errorString().toStdString();
        return false;
    }

private:
    bool HandOver(QString const& sFile, std::string& sWords)
    {
        constexpr int lLookAgainMs = 50;
        QProcess lp;
        lp.setProcessChannelMode(QProcess::MergedChannels);
        lp.setStandardInputFile(QProcess::nullDevice());
        lp.start(sLp, {QStringLiteral("-d"), info.printerName(), QStringLiteral("-t"), sTitle, sFile});
        while (lp.state() != QProcess::NotRunning && !lp.waitForFinished(lLookAgainMs))
            if (!goOn())
            {
                lp.kill();
                lp.waitForFinished();
                return false;
            }
        bool const bEnded = lp.error() == QProcess::UnknownError || lp.error() == QProcess::Timedout;
        if (bEnded && lp.exitStatus() == QProcess::NormalExit && lp.exitCode() == 0)
            return true;
        QString const sSaid = QString::fromLocal8Bit(lp.readAll()).trimmed();
        sWords = (sSaid.isEmpty() ? lp.errorString() : sSaid).toStdString();
        return false;
    }

    QPrinterInfo info;
    QString sLp;
    QString sTitle;
    std::function<bool()> goOn;
    PdfDocument pdf;
};

/// Pages that wait for the system's printer.
class SystemJob : public PagedSurface
{
public:
    SystemJob(QPrinterInfo info, std::string_view sTitle, Sheet const& sheet)
        : info(std::move(info)), sTitle(ToQt(sTitle)), sheet(sheet)
    {
    }
    Surface* StartPage() override { return &pages.emplace_back(sheet.BoxSize()); }
    bool EndPage() override { return true; }
    bool Finish(std::string& sBytes) override
    {
        sBytes.clear();
        QPrinter printer(info, QPrinter::HighResolution);
        printer.setResolution(lPaperDpi * lFiner);
        printer.setFullPage(true);
        printer.setDocName(sTitle);
        double const scale = double{1} * printer.resolution() / lPaperDpi;
        QtSurface surface;
        bool bGood = surface.Begin(printer, TargetOf(sheet, scale, false));
        for (size_t n = 0; bGood && n < pages.size(); ++n)
        {
            bGood = n == 0 || printer.newPage();
            pages[n].Play(surface);
        }
        return bGood && surface.End();
    }

private:
    QPrinterInfo info;
    QString sTitle;
    Sheet sheet;
    std::deque<PageRecord> pages;
};

class QtPrinter : public Printer
{
public:
    explicit QtPrinter(QPrinterInfo const& info) : info(info), sheet(SheetOfPrinter(info)) {}
    [[nodiscard]] Sheet Paper() const override { return sheet; }
    std::unique_ptr<PagedSurface> StartDoc(std::string_view sTitle, std::function<bool()> goOn) override
    {
        QString const sLp = QStandardPaths::findExecutable(QStringLiteral("lp"));
        if (sLp.isEmpty())
            return std::make_unique<SystemJob>(info, sTitle, sheet);
        return std::make_unique<LpJob>(info, sLp, sTitle, sheet, std::move(goOn));
    }

private:
    QPrinterInfo info;
    Sheet sheet;
};
} // namespace

std::unique_ptr<Printer> Printer_Default()
{
    // Asked first: a QPrinter without a printer is a PDF file without a name, and calls itself valid.
    QPrinterInfo const info = QPrinterInfo::defaultPrinter();
    return info.isNull() ? nullptr : std::make_unique<QtPrinter>(info);
}
} // namespace zarn
