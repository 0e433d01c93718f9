#include "horizontalslider.h"
#include "colorbutton.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr int kMargin = 14;

/// The light groove is white, for dark surroundings.
QWidget *onDark(HorizontalSlider *slider, QWidget *parent)
{
    auto *panel = new QWidget(parent);
    followLook(panel, [panel] {
        QPalette palette = panel->palette();
        palette.setColor(QPalette::Window, galleryColor("backdrop"));
        panel->setPalette(palette);
    });
    panel->setAutoFillBackground(true);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->addWidget(slider);
    return panel;
}

void reportSignals(HorizontalSlider *slider)
{
    reportSignal(slider, &HorizontalSlider::valueChanged, "valueChanged");
    reportSignal(slider, &HorizontalSlider::sliderMoved, "sliderMoved");
    reportSignal(slider, &HorizontalSlider::sliderMoving, "sliderMoving");
}

void addState(PageBuilder *page, bool bidirectional, bool zeroFlag, int value, const char *caption)
{
    auto *slider = new HorizontalSlider(page->widget(), bidirectional, zeroFlag);
    slider->setValue(value);
    reportSignals(slider);
    page->example(onDark(slider, page->widget()), caption);
}

void addRange(PageBuilder *page, HorizontalSlider *slider)
{
    auto range = std::make_shared<std::pair<int, int>>(0, 100);
    const auto apply = [slider, range] {
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
    QSpinBox *value = page->spinBox("Value", -1000, 1000000, slider->value(),
                                    [slider](int number) { slider->setValue(number); });
    QObject::connect(slider, &HorizontalSlider::valueChanged, value, &QSpinBox::setValue);
}

void addLooks(PageBuilder *page, HorizontalSlider *slider)
{
    page->spinBox("Groove height", 0, 30, 10, [slider](int height) {
        slider->setGrooveHeight(height);
        slider->update();
    });
    auto handle = std::make_shared<QSize>(14, 14);
    const auto apply = [slider, handle] {
        slider->setHandleSize(*handle);
        slider->update();
    };
    page->spinBox("Handle width", 0, 60, handle->width(), [handle, apply](int width) {
        handle->setWidth(width);
        apply();
    });
    page->spinBox("Handle height", 0, 60, handle->height(), [handle, apply](int height) {
        handle->setHeight(height);
        apply();
    });
    page->color("Value colour", QColor(0xAB, 0xAD, 0xBF), [slider](const QColor &color) {
        slider->setValueColor(color);
        slider->update();
    });
    page->wideLineEdit("Skin", slider->getSkinPath(), [slider](const QString &path) {
        slider->setSkinPath(path);
        slider->update();
    });
    page->button("showZeroFlag()", [slider] {
        slider->showZeroFlag();
        slider->update();
    });
}

void build(PageBuilder &page)
{
    page.include("horizontalslider.h");

    page.section(
        "States",
        "Drag a handle, or click beside it. A click halfway between two values takes the upper one.");
    addState(&page, false, false, 30, "from the left end");
    addState(&page, true, false, 80, "from the centre, above it");
    addState(&page, true, true, 25, "from the centre, below it, with the mark");
    addState(&page, false, true, 50, "from the left end, with the mark");

    page.section("Setters", "The value is not brought into the range: set it outside and the handle leaves "
                            "the groove. The mark of "
                            "showZeroFlag() needs room below the handle, which this slider was built "
                            "without: make the handle lower.");
    auto *slider = new HorizontalSlider(page.widget());
    slider->setValue(40);
    reportSignals(slider);
    page.example(onDark(slider, page.widget()));
    addRange(&page, slider);
    addLooks(&page, slider);
    page.properties(slider);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Sliders, "HorizontalSlider",
    "A painted slider, 206 pixels wide, coloured from the left end or from the centre of its range.", build);

} // namespace
