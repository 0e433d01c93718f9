#pragma once

#include "accessiblerange.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"

template<typename Slider>
class AccessibleHorizontalSlider : public AccessibleRange
{
public:
    explicit AccessibleHorizontalSlider(Slider *slider)
        : AccessibleRange(slider)
    {
    }

protected:
    Slider *slider() const { return static_cast<Slider *>(widget()); }

    int value() const override { return slider()->value(); }
    int minimum() const override { return slider()->minimum(); }
    int maximum() const override { return slider()->maximum(); }
    void choose(int value) override { slider()->setValue(value); }
};

class AccessibleNewHorizontalSlider : public AccessibleHorizontalSlider<NewHorizontalSlider>
{
public:
    using AccessibleHorizontalSlider::AccessibleHorizontalSlider;

protected:
    bool isChoosable() const override
    {
        return slider()->isSliderEnabled() && AccessibleHorizontalSlider::isChoosable();
    }
};
