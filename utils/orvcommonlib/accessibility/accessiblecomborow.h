#pragma once

#include "accessibleclickable.h"
#include "customcomboxitem.h"

class AccessibleComboRow : public AccessibleClickable
{
public:
    explicit AccessibleComboRow(CustomComboxItem *row)
        : AccessibleClickable(row, QAccessible::ListItem)
    {
    }

    QAccessibleInterface *parent() const override;
    QAccessible::State state() const override;

protected:
    CustomComboxItem *row() const { return static_cast<CustomComboxItem *>(widget()); }

    QString ownText() const override { return row()->text(); }
    void click() override { row()->click(); }
};
