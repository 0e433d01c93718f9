#pragma once

#include "accessiblecontent.h"
#include "accessibleleaf.h"
#include "customwraptexttooltip.h"

class AccessibleToolTip : public AccessibleLeaf
{
public:
    explicit AccessibleToolTip(customWrapTextToolTip *toolTip)
        : AccessibleLeaf(toolTip, QAccessible::ToolTip)
    {
    }

protected:
    QString ownText() const override { return AccessibleContent::text(widget()); }
};
