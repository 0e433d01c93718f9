#include "customsliderbarwidget.h"
#include "pagebuilder.h"

#include <QtWidgets/QSpinBox>

namespace {

CustomSliderBarWidget *newBar(QWidget *parent, int count, int index)
{
    auto *bar = new CustomSliderBarWidget(parent);
    bar->setCount(count);
    bar->setCurrenIndex(index);
    reportSignal(bar, &CustomSliderBarWidget::selectFinish, "selectFinish");
    return bar;
}

void build(PageBuilder &page)
{
    page.include("customsliderbarwidget.h");

    page.section("States", "Click a step or drag to it; the step is told when the button is released.");
    page.example(newBar(page.widget(), 2, 0), "two steps");
    page.example(newBar(page.widget(), 3, 1), "three");
    page.example(newBar(page.widget(), 5, 3), "five");
    page.example(newBar(page.widget(), 5, 4), "the last one");

    page.section(
        "Setters",
        "Fewer than two steps are refused with a log line. An index outside the steps is taken over.");
    auto *bar = newBar(page.widget(), 4, 1);
    page.example(bar);
    page.spinBox("Steps", -1, 20, bar->getCount(), [bar](int count) {
        bar->setCount(count);
        bar->update();
    });
    QSpinBox *index = page.spinBox("Current step", -2, 25, bar->getCurrentIndex(),
                                   [bar](int step) { bar->setCurrenIndex(step); });
    QObject::connect(bar, &CustomSliderBarWidget::selectFinish, index, &QSpinBox::setValue);
    page.properties(bar);
}

const GalleryPage &page = GalleryPage::add(GalleryFamily::Sliders, "CustomSliderBarWidget",
                                           "A painted bar of steps to click or drag to.", build);

} // namespace
