#include "custombidirectionslider.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "kinds.h"
#include "newhorizontalslider.h"

namespace Pictures {

namespace {

template<typename Slider>
QVector<State> values()
{
    return {
        state<Slider>("at the lowest", [](Slider *slider) { slider->setValue(slider->minimum()); }),
        state<Slider>("at the highest", [](Slider *slider) { slider->setValue(slider->maximum()); }),
    };
}

QWidget *horizontalSlider()
{
    auto *slider = new HorizontalSlider;
    slider->setValue(70);
    slider->resize(160, 30);
    return slider;
}

QVector<State> statesOfHorizontalSlider()
{
    using Slider = HorizontalSlider;
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused(), rightToLeft()};
    states << state<Slider>("bidirectional", [](Slider *slider) { slider->setBidirectional(true); })
           << state<Slider>("bidirectional, low",
                            [](Slider *slider) {
                                slider->setBidirectional(true);
                                slider->setValue(20);
                            })
           << State{QStringLiteral("centre mark"), [](QWidget *) {},
                    [] {
                        auto *slider = new Slider(nullptr, true, true);
                        slider->setValue(70);
                        slider->resize(160, 30);
                        return slider;
                    }}
           << state<Slider>("own colour",
                            [](Slider *slider) { slider->setValueColor(QColor(0xE0, 0x40, 0x40)); })
           << state<Slider>("own measures", [](Slider *slider) {
                  slider->setGrooveHeight(4);
                  slider->setHandleSize(QSize(10, 24));
              });
    return states + values<Slider>();
}

QWidget *newHorizontalSlider()
{
    auto *slider = new NewHorizontalSlider(QSize(160, 14), QSize(14, 14), false, nullptr);
    slider->setValue(70);
    return slider;
}

QVector<State> statesOfNewHorizontalSlider()
{
    using Slider = NewHorizontalSlider;
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused(), rightToLeft()};
    states << state<Slider>("not enabled", [](Slider *slider) {
        slider->setSliderEnabled(false);
    }) << state<Slider>("bidirectional", [](Slider *slider) {
        slider->setBidirectional(true);
    }) << state<Slider>("bidirectional, low", [](Slider *slider) {
        slider->setBidirectional(true);
        slider->setValue(20);
    }) << state<Slider>("bidirectional, not enabled", [](Slider *slider) {
        slider->setBidirectional(true);
        slider->setSliderEnabled(false);
    }) << state<Slider>("own colour", [](Slider *slider) {
        slider->setValueColor(QColor(0xE0, 0x40, 0x40));
    });
    return states + values<Slider>();
}

/// Makes one step for a press: a QSlider steps on when half a second passes before it is painted.
template<typename Slider>
class WithoutRepeats : public Slider
{
public:
    using Slider::Slider;

protected:
    void timerEvent(QTimerEvent *) override {}
};

QWidget *plainSlider()
{
    auto *slider = new WithoutRepeats<CustomSlider>(Qt::Horizontal, nullptr);
    slider->setValue(70);
    slider->resize(160, 24);
    return slider;
}

QVector<State> statesOfPlainSlider()
{
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused(), rightToLeft()};
    states << state<CustomSlider>("upright", [](CustomSlider *slider) {
        slider->setOrientation(Qt::Vertical);
        slider->resize(24, 80);
    });
    return states + values<CustomSlider>();
}

QWidget *bidirectionSlider()
{
    auto *slider = new WithoutRepeats<CustomBidirectionSlider>;
    slider->setRange(-50, 50);
    slider->setValue(20);
    slider->resize(160, 30);
    return slider;
}

QVector<State> statesOfBidirectionSlider()
{
    using Slider = CustomBidirectionSlider;
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused(), rightToLeft()};
    states << state<Slider>("in the middle", [](Slider *slider) { slider->setValue(0); })
           << state<Slider>("own colour and measures", [](Slider *slider) {
                  slider->setLineColor(QColor(0xE0, 0x40, 0x40));
                  slider->setLineWidth(2);
                  slider->setHandleWidth(10);
              });
    return states + values<Slider>();
}

QWidget *stepBar()
{
    auto *bar = new CustomSliderBarWidget;
    bar->setCount(5);
    bar->setCurrentIndex(2);
    bar->resize(180, 30);
    return bar;
}

QVector<State> statesOfStepBar()
{
    using Bar = CustomSliderBarWidget;
    QVector<State> states{asMade(), hovered(), pressed(), disabled(), focused(), rightToLeft()};
    states << state<Bar>("first", [](Bar *bar) { bar->setCurrentIndex(0); })
           << state<Bar>("last", [](Bar *bar) { bar->setCurrentIndex(4); })
           << state<Bar>("two steps", [](Bar *bar) { bar->setCount(2); });
    return states;
}

} // namespace

QVector<Kind> sliderKinds()
{
    return {
        {"horizontalslider", &horizontalSlider, statesOfHorizontalSlider(), true, {}},
        {"newhorizontalslider", &newHorizontalSlider, statesOfNewHorizontalSlider(), true, {}},
        {"customslider", &plainSlider, statesOfPlainSlider(), false, {}},
        {"custombidirectionslider", &bidirectionSlider, statesOfBidirectionSlider(), true, {}},
        {"customsliderbarwidget", &stepBar, statesOfStepBar(), true, {}},
    };
}

} // namespace Pictures
