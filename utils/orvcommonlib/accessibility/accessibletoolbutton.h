#pragma once

#include "accessiblebutton.h"

class CustomToolButton;

/// A tool button with panels of its own beside the menu that any tool button may have.
class AccessibleToolButton : public AccessibleButton
{
public:
    explicit AccessibleToolButton(CustomToolButton *button);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    CustomToolButton *toolButton() const;
    bool hasPanel() const;
};
