/// The program's menu tables as real menus.
#pragma once
#include "platform/user.h"

#include <functional>
#include <map>

class QAction;
class QMenu;
class QMenuBar;
class QPoint;
class QWidget;

namespace zarn
{
/// What stands behind the tab of a label is shown as the key, and not registered: the program knows its keys itself.
class MenuBar
{
public:
    /// pOnCommand gets the number of what the user chose.
    MenuBar(QMenuBar& bar, std::function<void(int32_t)> pOnCommand) : bar(bar), pOnCommand(std::move(pOnCommand)) {}
    void Build(std::vector<MenuItem> const& aMenu); ///< in place of what was there
    void Check(int32_t lCommand, bool bOn);
    void Enable(int32_t lCommand, bool bOn);
    void SetText(int32_t lCommand, std::string_view sText);

    /// A menu of its own at a place of the screen; the command that was chosen, 0 for none.
    [[nodiscard]] static int32_t Popup(std::vector<MenuItem> const& aItems, QPoint place, QWidget* pParent);

private:
    void Fill(QMenu& menu, std::vector<MenuItem> const& aItems);
    void AddCommand(QMenu& menu, MenuItem const& item);
    template <typename ACT>
    void ForEach(int32_t lCommand, ACT act);

    QMenuBar& bar;
    std::function<void(int32_t)> pOnCommand;
    std::multimap<int32_t, QAction*> actions; ///< by command; a command may stand in several menus
};
} // namespace zarn
