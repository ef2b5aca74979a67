/// The grid: columns and rows, the staffs stacked in a system, and the way to pixels and back.
///
/// A column counts along one endless staff; a line of music is lColsPerLine of them. A row is half a staff space, one
/// diatonic step; the page height is lRowsPerPage of them. Only the last step turns either into pixels of the surface
/// in force. All divisions truncate; positions are computed in 64 bits and held in the range of 32.
#pragma once
#include "core/score.h"
#include "platform/gdi.h"
#include "platform/types.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t lDefaultColsPerLine = 150;
constexpr int32_t lDefaultRowsPerPage = 120;
constexpr int32_t lMostColsOrRows = 10000; ///< a file that asks for more gets the defaults

inline int32_t lStaffSpace = 2;                                      ///< rows between two staff lines; fixed
inline int32_t lLegersAbove = 8;                                     ///< rows kept free above the top staff line
inline int32_t lLegersBelow = 11;                                    ///< rows kept free below the bottom staff line
inline int32_t lStaffHeight = 27;                                    ///< rows of one staff band
inline int32_t lTopOffset = 8;                                       ///< rows above the first system
inline int32_t lExtraBetweenSystems = 5;                             ///< rows
inline int32_t lScroll = 0;                                          ///< rows scrolled off the top
inline int32_t lStaffCount = 1;                                      ///< staffs showing
inline int32_t aStaffRow[lStaffLists] = {1, 1, 1, 1, 1, 1, 1, 1, 1}; ///< by staff: its band on the system, from 1
inline int32_t aRowStaff[lStaffLists] = {1, 1, 1, 1, 1, 1, 1, 1, 1}; ///< by band: its staff
inline bool abStaffVisible[lStaffLists] = {false, true, false, false, false, false, false, false, false};
inline bool bTabShowing = false; ///< a tablature band of the same height stands below the staff, which is the only one
inline int32_t lPageWidth = 1;   ///< pixels of the drawing area, at least 1
inline int32_t lPageHeight = 1;
inline int32_t lLeftMarginPx = 0;
inline int32_t lTopMarginPx = 0;
inline int32_t lMarginLeft = 0; ///< per cent of the window
inline int32_t lMarginRight = 0;
inline int32_t lMarginTop = 0;
inline int32_t lMarginBottom = 0;
inline int32_t xunit = 1;  ///< pixels a column, rounded, at least 1
inline int32_t yunit = 1;  ///< pixels a row, rounded, at least 1
inline int32_t lBlobX = 1; ///< pixels: size of a note head
inline int32_t lBlobY = 1;
inline int32_t lStemLength = 1;     ///< pixels
inline bool bPrinting = false;      ///< the target is paper, or a picture of it
inline bool bPrintScale = false;    ///< strokes are doubled
inline bool bNoClip = false;        ///< draw whatever the position
inline bool bDrawingCursor = false; ///< the target is the cursor bitmap

/// The pens of the score, in the thickness of a stem; SetUnits renews them. Null until it has run.
inline HPEN hpenBlack = nullptr;
inline HPEN hpenRed = nullptr;
inline HPEN hpenBlue = nullptr;
inline HPEN hpenGreen = nullptr;
inline HPEN hpenStock = nullptr; ///< the platform's own black hair line

/// Rows of a system: its staff bands, their tablature, and the gap to the next.
[[nodiscard]] int32_t SystemHeight();

/// Sets the defaults and loads the stored spacing; only staff 1 shows. At start-up and for each new score.
void Geometry_Init();
/// Frees what the geometry holds of the platform. At exit.
void Geometry_Free();

/// Derives xunit, yunit and the sizes that follow from the page's pixels and the grid, and renews the pens.
void SetUnits();
/// The page's pixels and margins from a client rectangle, then SetUnits.
void SetWindowUnits(RECT const& client);
/// The page becomes a device of that size, with the screen's aspect of a column to a row; ends with EndPrintUnits.
/// bStrong doubles hair lines, as paper needs them.
void BeginPrintUnits(int32_t lDeviceWidth, int32_t lDeviceHeight, bool bStrong);
void EndPrintUnits();
/// How many times as wide as the window's page the page is that print units are for; 1 when none are in force.
[[nodiscard]] double PaperScale();
/// A column and a row become n pixels each; the window units are set again afterwards.
void SetCursorScale(int32_t n);
void GetUnits(int32_t* pxunit, int32_t* pyunit);

[[nodiscard]] int32_t LineStart(int32_t lStrX); ///< the first column of lStrX's line
[[nodiscard]] int32_t NextLine(int32_t lStrX);  ///< the first column of the next line
/// Line from 1 for ruling; a line's first column counts to the one before.
[[nodiscard]] int32_t LineOfColumn(int32_t lStrX);

/// From grid to device pixels. A bad clef shows a message and leaves the pitch out.
void Draw_Fold(int32_t lStrX, int32_t lDiaPitch, int32_t lStaff, int32_t lClef, int32_t* plX, int32_t* plY);
/// Folds the element under the clef in force into its own lX and lY.
void Draw_FoldElement(Element* pel, int32_t lClef);
/// From device pixels to the grid; lDiaPitch as under the given clef.
void Draw_Straighten(int32_t lX, int32_t lY, int32_t* plStrX, int32_t* plDiaPitch, int32_t* plStaff, int32_t lClef);

/// The foot of the staff's band on lStrX's line in pixels, and the scroll in rows that brings it to the top.
void ScrollBottom(int32_t lStrX, int32_t lStaff, int32_t* plY, int32_t* plScrollRows);
void ScrollPages(int32_t n); ///< by systems; not below 0
void ScrollLines(int32_t n); ///< by staff bands; not below 0

/// True when a symbol at that height is so far off the page that it isn't drawn.
[[nodiscard]] bool OffPage(int32_t lY);

/// Shows or hides a staff and restacks the bands; the new state. Outside 0 to 8: false. A second staff hides the
/// tablature.
bool ToggleStaff(int32_t lStaff);
/// Staffs 1 to n show, the others don't; a count below 0 is 0, above 8 is 8. A second staff hides the tablature.
void SetStaffCount(int32_t n);
[[nodiscard]] int32_t VisibleCount();
[[nodiscard]] int32_t HighestVisible();       ///< 0 when no staff shows
[[nodiscard]] bool IsVisible(int32_t lStaff); ///< false outside 1 to 8
} // namespace zarn
