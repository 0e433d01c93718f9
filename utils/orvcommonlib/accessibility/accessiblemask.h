#pragma once

#include "masklabel.h"

#include <QtWidgets/QAccessibleWidget>

/// Darkness says nothing to those who do not see it.
class AccessibleMask : public QAccessibleWidget
{
public:
    explicit AccessibleMask(MaskLabel *mask)
        : QAccessibleWidget(mask, QAccessible::NoRole)
    {
    }

    QString text(QAccessible::Text) const override { return {}; }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = true;
        return state;
    }
};
