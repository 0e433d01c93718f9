#pragma once

#include "accessibleclickable.h"
#include "customcomboxheader.h"

class AccessibleComboHeader : public AccessibleClickable
{
public:
    explicit AccessibleComboHeader(CustomComboxHeader *header)
        : AccessibleClickable(header, QAccessible::ButtonDropDown)
    {
    }

protected:
    CustomComboxHeader *header() const { return static_cast<CustomComboxHeader *>(widget()); }

    QString ownText() const override { return header()->text(); }
    void click() override { Q_EMIT header()->signalClicked(); }
};
