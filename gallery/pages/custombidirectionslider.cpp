#include "custombidirectionslider.h"
#include "colorbutton.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr QSize kSize(240, 32);
constexpr int kAreaHeight = 130;

/// What only the constructor takes.
struct Looks
{
    int lineWidth = 6;
    int handleWidth = 24;
    QColor lineColor{0x4B, 0x66, 0xEB};
};

CustomBidirectionSlider *newSlider(QWidget *parent, const Looks &looks, int value)
{
    auto *slider = new CustomBidirectionSlider(looks.lineWidth, looks.handleWidth, looks.lineColor, parent);
    slider->setFixedSize(kSize);
    slider->setRange(-50, 50);
    slider->setValue(value);
    reportSignal(slider, &QSlider::valueChanged, "valueChanged");
    return slider;
}

void addWheel(PageBuilder *page)
{
    auto *area = new QScrollArea(page->widget());
    auto *contents = new QWidget;
    auto *layout = new QVBoxLayout(contents);
    QVector<CustomBidirectionSlider *> sliders;
    for (int i = 0; i < 6; ++i) {
        sliders << newSlider(contents, Looks(), 15 * (i - 2));
        layout->addWidget(sliders.constLast());
    }
    followLook(area, [area] {
        QPalette palette = area->palette();
        palette.setColor(QPalette::Window, galleryColor("paper"));
        area->setPalette(palette);
    });
    area->setWidget(contents);
    area->setWidgetResizable(true);
    setGalleryRole(area->verticalScrollBar(), "scroll");
    area->setFixedSize(kSize.width() + 60, kAreaHeight);
    page->example(area, "turn the wheel over a slider");
    page->checkBox("enableWheel()", false, [sliders](bool enable) {
        for (CustomBidirectionSlider *slider : sliders)
            slider->enableWheel(enable);
    });
}

/// A slider in its place for each change of what the constructor takes.
void addLooks(PageBuilder *page)
{
    auto *place = new QWidget(page->widget());
    place->setFixedSize(kSize);
    auto looks = std::make_shared<Looks>();
    auto slider = std::make_shared<CustomBidirectionSlider *>(newSlider(place, *looks, 30));
    const auto rebuild = [place, looks, slider] {
        const int value = (*slider)->value();
        delete *slider;
        *slider = newSlider(place, *looks, value);
        (*slider)->show();
    };
    page->example(place);
    page->spinBox("Line width", 0, 24, looks->lineWidth, [looks, rebuild](int width) {
        looks->lineWidth = width;
        rebuild();
    });
    page->spinBox("Handle width", 0, 60, looks->handleWidth, [looks, rebuild](int width) {
        looks->handleWidth = width;
        rebuild();
    });
    page->color("Line colour", looks->lineColor, [looks, rebuild](const QColor &color) {
        looks->lineColor = color;
        rebuild();
    });
    page->spinBox("Value", -50, 50, 30, [slider](int value) { (*slider)->setValue(value); });
}

void build(PageBuilder &page)
{
    page.include("custombidirectionslider.h");

    page.section("States", "A tick marks the centre of the range; the line runs from there to the handle.");
    CustomBidirectionSlider *first = newSlider(page.widget(), Looks(), 35);
    page.example(first, "above the centre");
    page.example(newSlider(page.widget(), Looks(), -35), "below the centre");
    page.example(newSlider(page.widget(), Looks(), 0), "at the centre");

    page.section("The wheel", "At first the wheel belongs to what is around the slider.");
    addWheel(&page);

    page.section("Looks", "What the constructor takes: the slider is built anew with each change.");
    addLooks(&page);
    page.properties(first);
}

const GalleryPage &page = GalleryPage::add(GalleryFamily::Sliders, "CustomBidirectionSlider",
                                           "A slider with a line from the centre of its range to the value, "
                                           "and a wheel that scrolls its surroundings.",
                                           build);

} // namespace
