/// The score on paper.
#pragma once
#include <cstdint>

namespace zarn
{
inline bool fPrintContinue = false; ///< cleared by the abort box. Written by a job and its box.
inline int32_t fWaitEachPage =
    0; ///< asks after each page, for sheet-fed printers. Written at start and by its command.

/// Prints the score so many times on the default printer, from the view's top or, if the user wants that, from its own;
/// below 1 nothing is printed. Asks, and tells whatever goes wrong; the window takes no input meanwhile. Units, font
/// and view are as before afterwards, but for a view that the user let go to the top.
void PrintScore(int32_t lCopies);
/// One copy of the whole score, whatever the view shows; no question.
void PrintFromTop();

void PrintCommand();       ///< Asks for the number of copies.
void ToggleWaitEachPage(); ///< Holds until the program ends.

/// While one of these lives the units are the paper's: the main window's events wait outside (see the door), and what
/// it should have painted is painted at the end.
class PrintRun
{
public:
    PrintRun() { ++cRunning; }
    ~PrintRun();
    PrintRun(PrintRun const&) = delete;
    PrintRun& operator=(PrintRun const&) = delete;
    [[nodiscard]] static bool IsOn() { return cRunning > 0; }
    static void Resized() { fResized = true; } ///< the window; the score is told at the end

private:
    static inline int32_t cRunning = 0;
    static inline bool fResized = false;
};
} // namespace zarn
