#include "accessibleclickable.h"

#include <QtWidgets/QWidget>

QAccessible::State AccessibleClickable::state() const
{
    QAccessible::State state = AccessibleLeaf::state();
    if (!isClickable())
        state.disabled = true;
    return state;
}

QStringList AccessibleClickable::actionNames() const
{
    QStringList names = AccessibleLeaf::actionNames();
    if (isClickable())
        names.prepend(pressAction());
    return names;
}

void AccessibleClickable::doAction(const QString &actionName)
{
    if (actionName != pressAction())
        AccessibleLeaf::doAction(actionName);
    else if (isClickable())
        click();
}

bool AccessibleClickable::isClickable() const
{
    return widget()->isEnabled();
}
