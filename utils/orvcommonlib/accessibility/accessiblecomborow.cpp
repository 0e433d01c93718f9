#include "accessiblecomborow.h"

#include "shadowpopupwidget.h"

QAccessibleInterface *AccessibleComboRow::parent() const
{
    QWidget *list = widget()->parentWidget();
    while (list && !qobject_cast<ShadowPopupWidget *>(list))
        list = list->parentWidget();
    return list ? QAccessible::queryAccessibleInterface(list) : AccessibleClickable::parent();
}

QAccessible::State AccessibleComboRow::state() const
{
    QAccessible::State state = AccessibleClickable::state();
    state.selectable = true;
    state.selected = row()->isChecked();
    // A press on a gray row is reported like a click on it, but there is nothing to choose there.
    if (row()->isGray())
        state.disabled = true;
    if (!state.invisible && widget()->visibleRegion().isEmpty())
        state.offscreen = true;
    return state;
}
