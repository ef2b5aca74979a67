// Menus from tables.
#include "platform/desktop/menu_bar.h"

#include "platform/desktop/qt_text.h"

#include <QMenuBar>

namespace zarn
{
void MenuBar::Build(std::vector<MenuItem> const& aMenu)
{
    actions.clear();
    bar.clear();
    for (MenuItem const& item : aMenu)
        if (item.sLabel)
            Fill(*bar.addMenu(ToQt(item.sLabel)), item.aItems);
}

void MenuBar::Fill(QMenu& menu, std::vector<MenuItem> const& aItems)
{
    for (MenuItem const& item : aItems)
    {
        if (!item.sLabel)
            menu.addSeparator();
        else if (item.lCommand == 0)
            Fill(*menu.addMenu(ToQt(item.sLabel)), item.aItems);
        else
            AddCommand(menu, item);
    }
}

void MenuBar::AddCommand(QMenu& menu, MenuItem const& item)
{
    QAction* const pAction = menu.addAction(ToQt(item.sLabel));
    pAction->setMenuRole(QAction::NoRole);
    pAction->setEnabled(!item.bGrey);
    pAction->setVisible(item.sLabel[0] != '\0');
    actions.emplace(item.lCommand, pAction);
    QObject::connect(pAction, &QAction::triggered, &bar,
                     [this, pAction, lCommand = item.lCommand](bool bOn)
                     {
                         // Choosing an entry moves its check mark; whether it moves is the program's to say.
                         if (pAction->isCheckable())
                             pAction->setChecked(!bOn);
                         pOnCommand(lCommand);
                     });
}

int32_t MenuBar::Popup(std::vector<MenuItem> const& aItems, QPoint place, QWidget* pParent)
{
    QMenu menu(pParent);
    for (MenuItem const& item : aItems)
        menu.addAction(ToQt(item.sLabel))->setData(item.lCommand);
    QAction const* const pChosen = menu.exec(place);
    return pChosen ? pChosen->data().toInt() : 0;
}

template <typename ACT>
void MenuBar::ForEach(int32_t lCommand, ACT act)
{
    auto const [first, last] = actions.equal_range(lCommand);
    for (auto it = first; it != last; ++it)
        act(*it->second);
}

void MenuBar::Check(int32_t lCommand, bool bOn)
{
    ForEach(lCommand,
            [bOn](QAction& action)
            {
                action.setCheckable(true);
                action.setChecked(bOn);
            });
}

void MenuBar::Enable(int32_t lCommand, bool bOn)
{
    ForEach(lCommand, [bOn](QAction& action) { action.setEnabled(bOn); });
}

void MenuBar::SetText(int32_t lCommand, std::string_view sText)
{
    ForEach(lCommand,
            [&](QAction& action)
            {
                action.setText(ToQt(sText));
                action.setVisible(!sText.empty());
            });
}
} // namespace zarn
