#pragma once

#include "accessiblerange.h"
#include "customsliderbarwidget.h"

class AccessibleStepBar : public AccessibleRange
{
public:
    explicit AccessibleStepBar(CustomSliderBarWidget *bar)
        : AccessibleRange(bar)
    {
    }

protected:
    CustomSliderBarWidget *bar() const { return static_cast<CustomSliderBarWidget *>(widget()); }

    int value() const override { return bar()->getCurrentIndex(); }
    int minimum() const override { return 0; }
    int maximum() const override { return bar()->getCount() - 1; }
    void choose(int value) override
    {
        bar()->setCurrenIndex(value);
        Q_EMIT bar()->selectFinish(value);
    }
};
