#include "accessibletoolbutton.h"

#include "customtoolbutton.h"

#include <QtWidgets/QMenu>

AccessibleToolButton::AccessibleToolButton(CustomToolButton *button)
    : AccessibleButton(button)
{
}

QAccessible::Role AccessibleToolButton::role() const
{
    if (!toolButton()->menu())
        return AccessibleButton::role();
    const bool opensAtOnce = toolButton()->popupMode() != QToolButton::DelayedPopup;
    return opensAtOnce ? QAccessible::ButtonMenu : QAccessible::ButtonDropDown;
}

QAccessible::State AccessibleToolButton::state() const
{
    QAccessible::State state = AccessibleButton::state();
    state.hotTracked = toolButton()->autoRaise();
    state.hasPopup = toolButton()->menu() || hasPanel();
    return state;
}

int AccessibleToolButton::childCount() const
{
    return toolButton()->menu() && toolButton()->popupMode() == QToolButton::MenuButtonPopup ? 1 : 0;
}

QAccessibleInterface *AccessibleToolButton::child(int index) const
{
    return index == 0 && childCount() > 0 ? QAccessible::queryAccessibleInterface(toolButton()->menu())
                                          : nullptr;
}

QStringList AccessibleToolButton::actionNames() const
{
    QStringList names = AccessibleButton::actionNames();
    if (toolButton()->menu() && toolButton()->popupMode() == QToolButton::InstantPopup)
        names.clear();
    if (button()->isEnabled() && (toolButton()->menu() || toolButton()->rightClickWidget()))
        names.prepend(showMenuAction());
    return names;
}

void AccessibleToolButton::doAction(const QString &actionName)
{
    if (actionName != showMenuAction())
        AccessibleButton::doAction(actionName);
    else if (!button()->isEnabled())
        return;
    else if (toolButton()->rightClickWidget())
        toolButton()->showRightClickWidget();
    else if (toolButton()->menu())
        toolButton()->showMenu();
}

CustomToolButton *AccessibleToolButton::toolButton() const
{
    return static_cast<CustomToolButton *>(widget());
}

bool AccessibleToolButton::hasPanel() const
{
    return toolButton()->clickWidget() || toolButton()->rightClickWidget() || toolButton()->hoverWidget();
}
