/// The pointer over the canvas, which the keyboard moves as well as the mouse.
#pragma once
#include "platform/types.h"

#include <optional>

class QWidget;

namespace zarn
{
/// On a scaled screen the system may put the pointer a pixel beside the place that it was given, and it reports each
/// set place as a move. Both stay unseen: where the program put it, there it stands until the mouse takes it away.
class Pointer
{
public:
    explicit Pointer(QWidget& canvas) : canvas(canvas) {}
    void Set(POINT place);
    [[nodiscard]] POINT Place() const;
    /// What a place reported by the mouse means.
    [[nodiscard]] POINT Seen(POINT reported) const;
    /// False when the report is only the echo of Set.
    bool Moved(POINT reported);
    /// Once the canvas is on the screen: takes the system's pointer to where the program wanted it before.
    void Show();

private:
    [[nodiscard]] bool IsEcho(POINT reported) const;

    QWidget& canvas;
    std::optional<POINT> set; ///< given by the program, and not left since
    bool bShown = false;
};
} // namespace zarn
