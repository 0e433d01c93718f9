#pragma once

#include "accessibleleaf.h"

/// A widget that is there to be clicked, and is no button of Qt's.
class AccessibleClickable : public AccessibleLeaf
{
public:
    using AccessibleLeaf::AccessibleLeaf;

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

protected:
    /// Whether a click does anything.
    virtual bool isClickable() const;
    /// Does what a click does. A slot may destroy the widget, and this object with it.
    virtual void click() = 0;
};
