/// The pages as they will be printed: on the screen, and as a PDF.
#pragma once

namespace zarn
{
void PreviewCommand(); ///< Shows the whole score page by page, and prints it if the user says so.
void SavePdfCommand(); ///< Asks for the name. The user is told what fails; a file that was there stays whole then.
} // namespace zarn
