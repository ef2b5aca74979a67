/// The pointer over the canvas, which the keyboard moves as well as the mouse.
#pragma once
#include "platform/types.h"

#include <optional>

class QWidget;

namespace zarn
{
/// On a scaled screen the system may put the pointer a pixel beside the place that it was given, and it reports each
/// set place as a move. Both stay unseen: where the program put it, there it stands until the mouse takes it away.
///
/// Some systems let no program move their pointer. There the program's place holds all the same, and the window draws
/// a pointer of its own in place of the system's, until the mouse moves.
class Pointer
{
public:
    Pointer(QWidget& canvas, bool bMayMove) : canvas(canvas), bMayMove(bMayMove) {}
    void Set(POINT place);
    [[nodiscard]] POINT Place() const;
    /// What a place reported by the mouse means.
    [[nodiscard]] POINT Seen(POINT reported) const;
    /// False when the report is only the echo of Set.
    bool Moved(POINT reported);
    /// Once the canvas is on the screen: takes the system's pointer to where the program wanted it before.
    void Show();
    /// The window must draw it, at Place, and hide the system's.
    [[nodiscard]] bool IsDrawn() const { return set && bShown && !bMayMove; }

private:
    [[nodiscard]] bool IsEcho(POINT reported) const;

    QWidget& canvas;
    bool bMayMove;            ///< the system lets a program move its pointer
    std::optional<POINT> set; ///< given by the program, and not left since
    bool bShown = false;
};
} // namespace zarn
