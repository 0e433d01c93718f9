#include "accessiblecombolist.h"

#include "customcomboxitem.h"

// To Qt every window is a child of the application.
QAccessibleInterface *AccessibleComboList::parent() const
{
    QWidget *combo = list()->parentWidget();
    return combo ? QAccessible::queryAccessibleInterface(combo) : QAccessibleWidget::parent();
}

QAccessibleInterface *AccessibleComboList::child(int index) const
{
    return QAccessible::queryAccessibleInterface(list()->rows().value(index));
}

int AccessibleComboList::indexOfChild(const QAccessibleInterface *child) const
{
    return child ? list()->rows().indexOf(qobject_cast<CustomComboxItem *>(child->object())) : -1;
}
