// Pages into a document.
#include "render/document_pages.h"

namespace zarn
{
namespace
{
class DocumentSink : public PageSink
{
public:
    explicit DocumentSink(PagedSurface& document) : document(document) {}

    HDC StartPage(int32_t) override
    {
        dc = DeviceContext{};
        dc.pSurface = document.StartPage();
        return dc.pSurface ? &dc : nullptr;
    }
    bool EndPage(HDC) override { return document.EndPage(); }

private:
    PagedSurface& document;
    DeviceContext dc;
};
} // namespace

int32_t DrawDocument(PagedSurface& document, PageFormat const& format)
{
    DocumentSink sink(document);
    return DrawPages(sink, format);
}
} // namespace zarn
