#include "accessiblerange.h"

#include <QtWidgets/QWidget>

AccessibleRange::AccessibleRange(QWidget *widget)
    : QAccessibleWidget(widget, QAccessible::Slider)
{
}

void *AccessibleRange::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleRange::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? QString::number(value()) : QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleRange::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    if (!isChoosable())
        state.disabled = true;
    return state;
}

// The numbers that assistive technology sends are floating-point ones, of any size.
void AccessibleRange::setCurrentValue(const QVariant &value)
{
    bool isNumber = false;
    const double wanted = value.toDouble(&isNumber);
    if (isNumber && !qIsNaN(wanted) && minimum() <= maximum() && isChoosable())
        choose(qRound(qBound<double>(minimum(), wanted, maximum())));
}

bool AccessibleRange::isChoosable() const
{
    return widget()->isEnabled();
}
