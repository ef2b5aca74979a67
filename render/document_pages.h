/// The Score as a document: every page of it, or one.
#pragma once
#include "platform/paged_surface.h"
#include "render/pages.h"

namespace zarn
{
/// Draws the pages of the Score, from its top, into the document; Finish is left to the caller. Gives how many pages
/// the Score has, or how many were begun when the document took no more.
int32_t DrawDocument(PagedSurface& document, PageFormat const& format);
} // namespace zarn
