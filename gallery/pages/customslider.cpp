#include "customslider.h"
#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QSpinBox>

#include <memory>

namespace {

CustomSlider *newSlider(QWidget *parent, Qt::Orientation orientation, const QSize &size)
{
    auto *slider = new CustomSlider(orientation, parent);
    slider->setFixedSize(size);
    slider->setValue(30);
    reportSignal(slider, &CustomSlider::signalClickValue, "signalClickValue");
    return slider;
}

void build(PageBuilder &page)
{
    page.include("customslider.h");

    page.section("Clicks",
                 "Click on the groove: the panel shows the value under the pointer. The slider itself goes "
                 "only a page "
                 "towards it, as any QSlider does. A press that travels 5 pixels or more is no click.");
    auto *lying = newSlider(page.widget(), Qt::Horizontal, QSize(260, 24));
    page.example(lying, "horizontal");
    auto *standing = newSlider(page.widget(), Qt::Vertical, QSize(60, 120));
    page.example(standing, "vertical: the value is still taken from x");

    page.section("What a client does with it");
    auto followed = std::make_shared<bool>(true);
    auto *following = newSlider(page.widget(), Qt::Horizontal, QSize(260, 24));
    QObject::connect(following, &CustomSlider::signalClickValue, following, [following, followed](int value) {
        if (*followed)
            following->setValue(value);
    });
    page.example(following, "goes to the value that was clicked");
    page.checkBox("Go there", true, [followed](bool on) { *followed = on; });
    page.spinBox("Maximum", 1, 1000, following->maximum(),
                 [following](int maximum) { following->setMaximum(maximum); });
    page.properties(following);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Sliders, "CustomSlider",
                     "A slider that tells which value a click on its groove means.", build);

} // namespace
