#include "samples.h"

#include "custombidirectionslider.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"

QWidget *horizontalSlider(QWidget *page)
{
    //! [HorizontalSlider]
    auto *slider = new HorizontalSlider(page); // 206 wide, for a dark ground
    slider->setRange(0, 100);
    slider->setValue(40); // emits valueChanged(40)
    slider->setValueColor(QColor(0x7F, 0x94, 0xFF));
    QObject::connect(slider, &HorizontalSlider::valueChanged, page, [](int value) { qInfo("%d", value); });
    //! [HorizontalSlider]
    return slider;
}

QWidget *newHorizontalSlider(QWidget *page)
{
    //! [NewHorizontalSlider]
    auto *slider = new NewHorizontalSlider(QSize(240, 14), QSize(14, 14), /*bidirectional*/ true, page);
    slider->setRange(-50, 50);
    slider->setValue(20);
    slider->setAccessibleName(QStringLiteral("Contrast"));
    //! [NewHorizontalSlider]
    return slider;
}

QWidget *focusedSlider(QWidget *page)
{
    //! [keys]
    auto *volume = new HorizontalSlider(page);
    volume->setFocusPolicy(Qt::StrongFocus);
    //! [keys]
    volume->setValue(60);
    return volume;
}

QWidget *ownSkin(QWidget *page)
{
    //! [skin]
    auto *slider = new NewHorizontalSlider(QSize(240, 20), QSize(20, 20), /*bidirectional*/ false, page);
    slider->setSkinPath(QStringLiteral(":/skins/round/")); // groove.svg, handle.svg, groove_disabled.svg ...
    slider->setValueColor(QColor(0x00, 0x92, 0x65));
    slider->setValue(60);
    //! [skin]
    return slider;
}

QWidget *customSlider(QWidget *page)
{
    //! [CustomSlider]
    auto *position = new CustomSlider(Qt::Horizontal, page);
    position->setRange(0, 600);
    QObject::connect(position, &CustomSlider::signalClickValue, position,
                     &QSlider::setValue); // or seek first
    //! [CustomSlider]
    position->setValue(200);
    position->setMinimumWidth(240);
    return position;
}

QWidget *customBidirectionSlider(QWidget *page)
{
    //! [CustomBidirectionSlider]
    auto *balance =
        new CustomBidirectionSlider(/*lineWidth*/ 6, /*handleWidth*/ 24, QColor(0x4B, 0x66, 0xEB), page);
    balance->setRange(-100, 100);
    balance->setValue(35);
    balance->enableWheel(true);
    //! [CustomBidirectionSlider]
    balance->setMinimumWidth(240);
    return balance;
}

QWidget *customSliderBarWidget(QWidget *page)
{
    //! [CustomSliderBarWidget]
    auto *steps = new CustomSliderBarWidget(page);
    steps->setCount(4);
    steps->setCurrentIndex(1); // emits nothing
    QObject::connect(steps, &CustomSliderBarWidget::selectFinish, page,
                     [](int step) { qInfo("step %d", step); });
    //! [CustomSliderBarWidget]
    return steps;
}

namespace sliders_snippets {

class Volume : public QWidget
{
public:
    void nameThem(QWidget *page, QWidget *toolBar, const QString &normal, const QString &checked,
                  const QString &hover, const QString &disabled);
    void disable(NewHorizontalSlider *slider);
};

void Volume::nameThem(QWidget *page, QWidget *toolBar, const QString &normal, const QString &checked,
                      const QString &hover, const QString &disabled)
{
    //! [names]
    auto *volume = new HorizontalSlider(page);
    volume->setAccessibleName(tr("Microphone volume"));

    auto *camera = new CustomToolButton(false, toolBar, Bottom);
    camera->updateImage(normal, checked, hover, disabled);
    camera->setAccessibleName(tr("Camera")); // a picture is no name
    //! [names]
}

void Volume::disable(NewHorizontalSlider *slider)
{
    //! [disabled]
    slider->setSliderEnabled(false); // with the disabled look
    //! [disabled]
}

} // namespace sliders_snippets
