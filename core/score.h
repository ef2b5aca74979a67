/// The Score: the whole piece in memory, and the walkers over it.
///
/// Nine staff Lists of Elements and a little shared state, all of it process-wide and owned by the main thread. Lists 1
/// to 8 are the user's staffs; List 0 is kept, saved and never visible. Every walker takes a null cursor.
#pragma once
#include "core/element.h"
#include "core/list.h"

#include <cstdint>

namespace zarn
{
constexpr int32_t lStaffLists = 9;     ///< Lists of a Score
constexpr int32_t lHighestStaff = 8;   ///< staffs 1 to 8 are the user's
constexpr int32_t lProgramVersion = 9; ///< of the native file

/// What the last edit was, for Undo.
enum UndoState : int32_t
{
    UNDO_ADD = 0,
    UNDO_DELETE = 1,
    UNDO_CUT = 2,
    UNDO_PASTE = 3,
    UNDO_NOTHING = 4
};

inline List aStaffList[lStaffLists] = {};
inline List listClipboard = nullptr;
inline List listUndo = nullptr;

inline Element* pelInsertPoint = nullptr; ///< the sequential adders add behind it; null is the head of the staff
inline int32_t lInsertStaff = 1;          ///< staff of pelInsertPoint
inline Element* pelMarkBegin = nullptr;
inline Element* pelMarkEnd = nullptr;
inline Element* pelHighlight = nullptr; ///< shown as the one about to be deleted
inline Element* pelPopup = nullptr;     ///< whose pop-up menu is open
inline RoomyElement elCurrent;          ///< the current symbol, the template of the next add

inline bool bScoreDirty = false; ///< unsaved changes; every edit sets it
inline bool bTimesValid = true;  ///< lTime and note lB are right; every edit clears it
inline bool bKeepBarsTogether = true;
inline bool bBeamQuavers = true;
inline bool bShowLayout = false;
inline bool bShowArpeggio = true; ///< the brackets of ARPEGSTART and ARPEGEND are drawn
inline bool bChordsBelowStaff = true;
inline bool bAutoLayout = true; ///< run Full Adjust after each edit

inline int32_t lColsPerLine = 150; ///< columns in a line; 1 to 10,000
inline int32_t lRowsPerPage = 120; ///< rows in the page height; 1 to 10,000

inline int32_t lUndoState = UNDO_ADD;
inline Element* pelUndoPlace = nullptr;
inline Element* pelUndoEnd = nullptr;
inline int32_t lUndoStaff = 1;

/// By staff: it is played, and Score_SetTimes gives it times.
inline int32_t afPlay[lStaffLists] = {1, 1, 1, 1, 1, 1, 1, 1, 1};

void Score_CreateLists();  ///< Makes the nine staffs, the clipboard and the undo store. Once, at start.
void Score_DestroyLists(); ///< Frees them, and nulls every cursor. Once, at exit.
void Score_EmptyStaffs();  ///< Empties the nine staffs and nulls every cursor into them; nothing else changes.

/// The nearest element behind or ahead, null at the end; null in, null out, and no message.
[[nodiscard]] inline Element* Next(Element const* pel) { return pel ? List_NextAs(pel) : nullptr; }
[[nodiscard]] inline Element* Prev(Element const* pel) { return pel ? List_PrevAs(pel) : nullptr; }
/// First and last element of a staff, 0 to 8; null when it is empty, or isn't there.
[[nodiscard]] Element* StaffFirst(int32_t lStaff);
[[nodiscard]] Element* StaffLast(int32_t lStaff);

/// What is in force at a place, found by walking back. ClefAt, KeyAt and TransposeAt look at pel itself too.
[[nodiscard]] int32_t ClefAt(Element const* pel); ///< 1 when there is none
[[nodiscard]] int32_t ClefAtEnd(int32_t lStaff);
[[nodiscard]] int32_t ClefOffset(int32_t lClef);       ///< steps from treble: 0, 6, 12, 8; otherwise a message and 0
[[nodiscard]] int32_t KeyAt(Element const* pel);       ///< of a KEYSIG with the same lStaff; 0 when there is none
[[nodiscard]] int32_t TransposeAt(Element const* pel); ///< semitones; 0 when there is none
[[nodiscard]] int32_t VolumeAt(Element const* pel);    ///< from the element ahead of pel; 64 when there is none

/// The element ahead of which a new symbol belongs; null for the end of the staff. lScreenPitch is in the treble frame.
[[nodiscard]] Element* FindPlace(int32_t lStrX, int32_t lScreenPitch, int32_t lStaff, int32_t sort);
/// Walking back from the end: the first with lStrX at or below the given one; null when there is none.
[[nodiscard]] Element* FindAtOrBefore(int32_t lStrX, int32_t lStaff);

/// The first and last note of the chord at or beside pel; a single note is its own. A REST ends the search with null.
[[nodiscard]] Element* ChordFirst(Element* pel);
[[nodiscard]] Element* ChordLast(Element* pel);
[[nodiscard]] Element* NextNoteInBar(Element* pel); ///< from pel inclusive; null on reaching a BAR first
[[nodiscard]] Element* NextNote(Element* pel);      ///< from pel inclusive
[[nodiscard]] Element* LastInBar(Element* pel);     ///< null when pel is a BAR
[[nodiscard]] Element* NextRepeatEnd(Element* pel); ///< from pel inclusive: REPEATEND or REPEATENDSTART
[[nodiscard]] Element* LastOnLine(Element* pel);    ///< the last that shares pel's line
[[nodiscard]] int32_t MinLY(Element const* pel,
                            Element const* pelStop);         ///< pixels; pelStop not included; 0x7fffffff if none
[[nodiscard]] Element* SkipPunctuationForward(Element* pel); ///< over BAR, KEYSIG, SPACE, TIE and CLEF, pel inclusive
[[nodiscard]] Element* SkipPunctuationBack(Element* pel);

/// Called before any element leaves a staff, by every routine that takes one out.
void Mark_StepOff(Element* pel);
void Undo_StepOff(Element* pel);

/// Steps every cursor off pel: the two above, the insert point and kept cursors back, the highlight and the pop-up to
/// null. The slur partner, if any, is left without one.
void Cursors_StepOff(Element* pel);

/// Steps every cursor off pel and deletes it. Gives the element ahead, null when pel was the first.
Element* Element_Remove(Element* pel);

/// A cursor that an edit keeps while it lays the score out or deletes: it steps back when its element goes, to null at
/// the head of a staff. Made and destroyed like a stack.
class KeptCursor
{
public:
    explicit KeptCursor(Element* pel);
    ~KeptCursor();
    KeptCursor(KeptCursor const&) = delete;
    KeptCursor& operator=(KeptCursor const&) = delete;

    Element* pel;

private:
    friend void Cursors_StepOff(Element* pel);
    friend void KeptCursors_Null();
    KeptCursor* pOuter;
};
void KeptCursors_Null(); ///< for who empties staffs

/// The first clef, key and time signature of the piece; each stays as it was handed in when the piece tells none.
void ScoreOpening(int32_t& lClef, int32_t& lKey, int32_t& lNum, int32_t& lDen);

/// Writes the whole Score to the trace channel, numbering the elements in inx.
void Score_Dump(char const* sHeading);
} // namespace zarn
