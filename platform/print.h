/// Printing, under its platform names: the default printer's context, a document, its pages. Main thread.
///
/// Pages are collected and go to the printer in one piece at the end of the document, so that a job that is called off
/// or fails half way prints nothing.
#pragma once
#include "platform/gdi.h"
#include "platform/paged_surface.h"

#include <cstdint>
#include <string>

namespace zarn
{
constexpr uint32_t PD_RETURNDC = 0x100;
constexpr uint32_t PD_RETURNDEFAULT = 0x400;
constexpr int32_t SP_ERROR = -1;

struct PRINTDLG
{
    uint32_t Flags = 0; ///< PD_RETURNDC | PD_RETURNDEFAULT: the default printer, and no dialog
    HDC hDC = nullptr;  ///< out; freed with DeleteDC
};
struct DOCINFO
{
    int32_t cbSize = 20;
    char const* lpszDocName = "";
    char const* lpszOutput = nullptr;
    char const* lpszDatatype = nullptr;
};
/// Asked between pages and while the end of a document waits: false calls the job off.
using ABORTPROC = bool (*)(HDC hdc, int32_t lError);

/// false when there is no default printer.
[[nodiscard]] bool PrintDlgA(PRINTDLG& dialog);
int32_t SetAbortProc(HDC hdc, ABORTPROC pAbortProc);
// Each of these gives a number above 0 when all is well, else SP_ERROR. The first failure, or the abort callback's
// false, calls the job off: every later step fails and nothing is printed.
[[nodiscard]] int32_t StartDocA(HDC hdc, DOCINFO const& info);
[[nodiscard]] int32_t StartPage(HDC hdc);
[[nodiscard]] int32_t EndPage(HDC hdc);
/// A document without a page ends well and prints nothing.
[[nodiscard]] int32_t EndDoc(HDC hdc);
/// Why the last step failed, in the printer's own words; empty when it had none.
[[nodiscard]] std::string PrinterWords(HDC hdc);
void DeleteDC(HDC hdc); ///< null is passed over

/// Pages to be looked at, each drawn when it is asked for.
class PageSource
{
public:
    virtual ~PageSource() = default;
    [[nodiscard]] virtual int32_t Count() const = 0;
    [[nodiscard]] virtual Sheet Paper() const = 0;
    /// Draws the page, from 1, within the sheet's box.
    virtual void Draw(int32_t lPage, Surface& surface) = 0;
};
/// Shows the pages until the user is done with them: IDOK when they are to be printed, otherwise IDCANCEL.
[[nodiscard]] int32_t ShowPages(PageSource& pages);
/// A PDF of such pages; null when it can't be made.
[[nodiscard]] std::unique_ptr<PagedSurface> CreatePdf(std::string_view sTitle, Sheet const& sheet);
/// The default printer's sheet, or A4 when there is no printer.
[[nodiscard]] Sheet PrinterPaper();
} // namespace zarn
