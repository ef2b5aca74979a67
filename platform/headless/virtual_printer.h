/// A printer whose paper is lists of drawing calls, and which fails where it is told to.
#pragma once
#include "platform/headless/recording_surface.h"
#include "platform/paged_surface.h"

#include <string>
#include <vector>

namespace zarn
{
/// One document: its title, and its pages in the words of RecordingSurface.
struct PrintedDocument
{
    std::string sTitle;
    std::vector<std::string> aPages;
};

struct VirtualPrinter
{
    enum class Fault
    {
        NONE,
        STARTDOC,
        STARTPAGE,
        ENDPAGE,
        ENDDOC
    };
    bool bThere = false; ///< false: the host has no printer
    Sheet paper = sheetA4;
    Fault fault = Fault::NONE;
    int32_t lFaultPage = 1;  ///< at which STARTPAGE and ENDPAGE fail, counted through the document
    std::string sWords = {}; ///< what it says when it fails at the end
    std::vector<PrintedDocument> aPrinted = {};
    int32_t cPagesBegun = 0; ///< also of documents that were not printed
    int32_t cDocuments = 0;  ///< that were begun
    int32_t cOpen = 0;       ///< that are under way
};

/// A document on its way to a printer, or to nowhere in particular. Finish gives its pages as bytes too.
class VirtualDocument : public PagedSurface
{
public:
    VirtualDocument(std::string_view sTitle, VirtualPrinter& printer, bool bPaper);
    ~VirtualDocument() override { --printer.cOpen; }
    Surface* StartPage() override;
    bool EndPage() override;
    bool Finish(std::string& sBytes) override;

private:
    [[nodiscard]] bool Fails(VirtualPrinter::Fault at) const;

    PrintedDocument document;
    VirtualPrinter& printer;
    bool bPaper; ///< false: the bytes are all that comes out
    RecordingSurface page;
};
} // namespace zarn
