// The virtual printer's documents.
#include "platform/headless/virtual_printer.h"

#include <utility>

namespace zarn
{
VirtualDocument::VirtualDocument(std::string_view sTitle, VirtualPrinter& printer, bool bPaper)
    : document{std::string(sTitle), {}}, printer(printer), bPaper(bPaper), page(printer.paper.BoxSize())
{
    ++printer.cDocuments;
    ++printer.cOpen;
}

bool VirtualDocument::Fails(VirtualPrinter::Fault at) const
{
    return printer.fault == at && static_cast<int32_t>(document.aPages.size()) + 1 == printer.lFaultPage;
}

Surface* VirtualDocument::StartPage()
{
    if (Fails(VirtualPrinter::Fault::STARTPAGE))
        return nullptr;
    ++printer.cPagesBegun;
    page.aLines.clear();
    return &page;
}

bool VirtualDocument::EndPage()
{
    if (Fails(VirtualPrinter::Fault::ENDPAGE))
        return false;
    document.aPages.push_back(page.All());
    return true;
}

bool VirtualDocument::Finish(std::string& sBytes)
{
    sBytes.clear();
    if (printer.fault == VirtualPrinter::Fault::ENDDOC)
    {
        sBytes = printer.sWords;
        return false;
    }
    if (bPaper)
        printer.aPrinted.push_back(document);
    else
        for (std::string const& sPage : document.aPages)
            sBytes += "page\n" + sPage;
    return true;
}
} // namespace zarn
