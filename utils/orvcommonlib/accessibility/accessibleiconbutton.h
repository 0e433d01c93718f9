#pragma once

#include "accessibleclickable.h"
#include "customizeiconbutton.h"

class AccessibleIconButton : public AccessibleClickable
{
public:
    explicit AccessibleIconButton(CustomizeIconButton *button)
        : AccessibleClickable(button, QAccessible::PushButton)
    {
    }

protected:
    CustomizeIconButton *button() const { return static_cast<CustomizeIconButton *>(widget()); }

    QString ownText() const override { return button()->text(); }
    bool isClickable() const override
    {
        return button()->isButtonEnabled() && AccessibleClickable::isClickable();
    }
    void click() override { Q_EMIT button()->clicked(); }
};
