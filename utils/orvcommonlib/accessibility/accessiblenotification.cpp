#include "accessiblenotification.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>

namespace {

void tell(QWidget *widget, QAccessible::Event what)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(widget, what);
    QAccessible::updateAccessibility(&event);
}

void tellOfState(QWidget *widget, const QAccessible::State &changed)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void AccessibleNotification::nameChanged(QWidget *widget)
{
    tell(widget, QAccessible::NameChanged);
}

void AccessibleNotification::descriptionChanged(QWidget *widget)
{
    tell(widget, QAccessible::DescriptionChanged);
}

void AccessibleNotification::valueChanged(QWidget *widget, const QVariant &value)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(widget, value);
    QAccessible::updateAccessibility(&event);
}

void AccessibleNotification::expandedChanged(QWidget *widget)
{
    QAccessible::State changed;
    changed.expanded = true;
    changed.collapsed = true;
    tellOfState(widget, changed);
}

void AccessibleNotification::disabledChanged(QWidget *widget)
{
    QAccessible::State changed;
    changed.disabled = true;
    tellOfState(widget, changed);
}
