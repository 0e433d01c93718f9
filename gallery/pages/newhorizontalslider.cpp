#include "newhorizontalslider.h"
#include "colorbutton.h"
#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>

#include <memory>

namespace {

constexpr QSize kSize(142, 10);
constexpr QSize kHandleSize(10, 10);

NewHorizontalSlider *newSlider(QWidget *parent, const QSize &size, const QSize &handleSize,
                               bool bidirectional, int value)
{
    auto *slider = new NewHorizontalSlider(size, handleSize, bidirectional, parent);
    slider->setValue(value);
    reportSignal(slider, &NewHorizontalSlider::valueChanged, "valueChanged");
    reportSignal(slider, &NewHorizontalSlider::sliderMoved, "sliderMoved");
    reportSignal(slider, &NewHorizontalSlider::sliderMoving, "sliderMoving");
    return slider;
}

void addRange(PageBuilder *page, const QVector<NewHorizontalSlider *> &sliders)
{
    auto range = std::make_shared<std::pair<int, int>>(0, 100);
    const auto apply = [sliders, range] {
        for (NewHorizontalSlider *slider : sliders)
            slider->setRange(range->first, range->second);
    };
    page->spinBox("Minimum", -1000, 1000, range->first, [range, apply](int minimum) {
        range->first = minimum;
        apply();
    });
    page->spinBox("Maximum", -1000, 1000000, range->second, [range, apply](int maximum) {
        range->second = maximum;
        apply();
    });
    page->spinBox("Value", -1000, 1000000, 70, [sliders](int value) {
        for (NewHorizontalSlider *slider : sliders)
            slider->setValue(value);
    });
}

void addLooks(PageBuilder *page, const QVector<NewHorizontalSlider *> &sliders)
{
    const auto forAll = [sliders](const std::function<void(NewHorizontalSlider *)> &set) {
        for (NewHorizontalSlider *slider : sliders) {
            set(slider);
            slider->update();
        }
    };
    page->spinBox("Handle", 0, 40, kHandleSize.width(), [forAll](int side) {
        forAll([side](NewHorizontalSlider *slider) { slider->setHandleSize(QSize(side, side)); });
    });
    page->spinBox("Groove (not used)", 0, 30, 10, [forAll](int height) {
        forAll([height](NewHorizontalSlider *slider) { slider->setGrooveHeight(height); });
    });
    page->color("Value colour", QColor(0x4B, 0x66, 0xEB), [forAll](const QColor &color) {
        forAll([color](NewHorizontalSlider *slider) { slider->setValueColor(color); });
    });
    page->checkBox("setSliderEnabled()", true, [forAll](bool enabled) {
        forAll([enabled](NewHorizontalSlider *slider) { slider->setSliderEnabled(enabled); });
    });
    page->wideLineEdit("Skin", sliders.constFirst()->getSkinPath(), [forAll](const QString &path) {
        forAll([path](NewHorizontalSlider *slider) { slider->setSkinPath(path); });
    });
}

void addState(PageBuilder *page, bool bidirectional, bool enabled, int value, const char *caption)
{
    NewHorizontalSlider *slider = newSlider(page->widget(), kSize, kHandleSize, bidirectional, value);
    slider->setSliderEnabled(enabled);
    page->example(slider, caption);
}

void build(PageBuilder &page)
{
    page.include("newhorizontalslider.h");

    page.section("States",
                 "A disabled slider leaves presses and releases to its parent; setValue() still moves it.");
    addState(&page, false, true, 60, "enabled");
    addState(&page, false, false, 60, "disabled");
    addState(&page, true, true, 80, "from the centre, above it");
    addState(&page, true, true, 20, "from the centre, below it");
    addState(&page, true, false, 80, "from the centre, disabled");

    page.section("Sizes");
    page.example(newSlider(page.widget(), QSize(300, 10), kHandleSize, false, 45), "300 x 10");
    page.example(newSlider(page.widget(), QSize(220, 20), QSize(20, 20), true, 75),
                 "220 x 20, handle of 20 x 20");

    page.section("Setters");
    const QVector<NewHorizontalSlider *> sliders{newSlider(page.widget(), kSize, kHandleSize, false, 70),
                                                 newSlider(page.widget(), kSize, kHandleSize, true, 70)};
    page.example(sliders.at(0), "from the left end");
    page.example(sliders.at(1), "from the centre");
    addRange(&page, sliders);
    addLooks(&page, sliders);
    page.properties(sliders.at(0));
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Sliders, "NewHorizontalSlider",
    "A painted slider of any size, with a look for the times when it is not to be used.", build);

} // namespace
