#include "assistance.h"

#include "custombidirectionslider.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>
#include <memory>

using namespace Assistance;

namespace {

std::unique_ptr<HorizontalSlider> newSlider(HorizontalSlider *)
{
    return std::make_unique<HorizontalSlider>();
}

std::unique_ptr<NewHorizontalSlider> newSlider(NewHorizontalSlider *)
{
    return std::make_unique<NewHorizontalSlider>(QSize(142, 10), QSize(10, 10), false, nullptr);
}

QAccessibleValueInterface *valueOf(QWidget *widget)
{
    return interfaceOf(widget)->valueInterface();
}

} // namespace

class tst_AccessibleSliders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void horizontalSlidersTellTheirRange();
    void horizontalSlidersAreSet();
    void horizontalSlidersTellEachChange();
    void horizontalSlidersTellNobodyWhileNobodyListens();
    void horizontalSlidersMayDieOfTheirValue();
    void rangeWithoutRoom();
    void statesOfHorizontalSliders();
    void disabledSlidersAreNotSet();
    void sliderEnabledCountsAsEnabled();
    void names();
    void stepBarTellsItsSteps();
    void stepBarIsSet();
    void stepBarTellsEachChange();
    void stepBarMayDieOfItsStep();
    void disabledStepBarIsNotSet();
    void slidersOfQtStayWhatTheyAre();

private:
    template<typename Slider>
    void tellsItsRange();
    template<typename Slider>
    void isSet();
    template<typename Slider>
    void tellsEachChange();
};

template<typename Slider>
void tst_AccessibleSliders::tellsItsRange()
{
    const auto slider = newSlider(static_cast<Slider *>(nullptr));
    QAccessibleValueInterface *value = valueOf(slider.get());
    QVERIFY(value);
    QCOMPARE(value->minimumValue(), QVariant(0));
    QCOMPARE(value->maximumValue(), QVariant(100));
    QCOMPARE(value->currentValue(), QVariant(0));
    QCOMPARE(value->minimumStepSize(), QVariant(1));

    slider->setRange(-20, 30);
    slider->setValue(7);
    QCOMPARE(slider->minimum(), -20);
    QCOMPARE(slider->maximum(), 30);
    QCOMPARE(value->minimumValue(), QVariant(-20));
    QCOMPARE(value->maximumValue(), QVariant(30));
    QCOMPARE(value->currentValue(), QVariant(7));
    QCOMPARE(interfaceOf(slider.get())->text(QAccessible::Value), QStringLiteral("7"));
}

template<typename Slider>
void tst_AccessibleSliders::isSet()
{
    const auto slider = newSlider(static_cast<Slider *>(nullptr));
    QSignalSpy changed(slider.get(), &Slider::valueChanged);
    QSignalSpy moved(slider.get(), &Slider::sliderMoved);
    QSignalSpy moving(slider.get(), &Slider::sliderMoving);
    QAccessibleValueInterface *value = valueOf(slider.get());
    const auto set = [&](const QVariant &wanted) {
        value->setCurrentValue(wanted);
        return slider->value();
    };
    QCOMPARE(set(40), 40);
    QCOMPARE(set(40), 40);
    QCOMPARE(set(12.6), 13);
    QCOMPARE(set(-5), 0);
    QCOMPARE(set(101), 100);
    QCOMPARE(set(std::numeric_limits<double>::lowest()), 0);
    QCOMPARE(set(std::numeric_limits<double>::infinity()), 100);
    QCOMPARE(set(std::numeric_limits<double>::quiet_NaN()), 100);
    QCOMPARE(set(QStringLiteral("much")), 100);
    QCOMPARE(set(QVariant()), 100);
    QCOMPARE(changed, (QList<QVariantList>{{40}, {13}, {0}, {100}, {0}, {100}}));
    QCOMPARE(moved.count(), 0);
    QCOMPARE(moving.count(), 0);
}

template<typename Slider>
void tst_AccessibleSliders::tellsEachChange()
{
    const Activity activity;
    const auto slider = newSlider(static_cast<Slider *>(nullptr));
    slider->show();
    QVERIFY(QTest::qWaitForWindowExposed(slider.get()));
    const Listener listener;
    slider->setValue(5);
    slider->setValue(5);
    valueOf(slider.get())->setCurrentValue(7);
    QCOMPARE(listener.values(slider.get()), (QVariantList{5, 7}));

    // A click on the groove, then a drag of the handle by two values.
    slider->grab();
    QTest::mouseClick(slider.get(), Qt::LeftButton, Qt::NoModifier, slider->rect().center());
    QCOMPARE(listener.values(slider.get()).last().toInt(), slider->value());
    const int clicked = slider->value();
    slider->grab();
    const QPoint handle = slider->rect().center();
    const QPoint target = handle + QPoint(slider->width() / 10, 0);
    QTest::mousePress(slider.get(), Qt::LeftButton, Qt::NoModifier, handle);
    QMouseEvent move(QEvent::MouseMove, target, slider->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(slider.get(), &move);
    QTest::mouseRelease(slider.get(), Qt::LeftButton, Qt::NoModifier, target);
    QVERIFY(slider->value() > clicked);
    QCOMPARE(listener.count(slider.get(), QAccessible::ValueChanged), 4);
    QCOMPARE(listener.values(slider.get()).last().toInt(), slider->value());
}

void tst_AccessibleSliders::horizontalSlidersTellTheirRange()
{
    tellsItsRange<HorizontalSlider>();
    tellsItsRange<NewHorizontalSlider>();
}

void tst_AccessibleSliders::horizontalSlidersAreSet()
{
    isSet<HorizontalSlider>();
    isSet<NewHorizontalSlider>();
}

void tst_AccessibleSliders::horizontalSlidersTellEachChange()
{
    tellsEachChange<HorizontalSlider>();
    tellsEachChange<NewHorizontalSlider>();
}

void tst_AccessibleSliders::horizontalSlidersTellNobodyWhileNobodyListens()
{
    const Listener listener;
    HorizontalSlider slider;
    slider.setValue(5);
    QCOMPARE(listener.count(), 0);
}

void tst_AccessibleSliders::horizontalSlidersMayDieOfTheirValue()
{
    const Activity activity;
    auto *slider = new HorizontalSlider;
    const QPointer<HorizontalSlider> guard(slider);
    connect(slider, &HorizontalSlider::valueChanged, this, [slider] { delete slider; });
    valueOf(slider)->setCurrentValue(50);
    QVERIFY(!guard);
}

void tst_AccessibleSliders::rangeWithoutRoom()
{
    HorizontalSlider slider;
    QSignalSpy changed(&slider, &HorizontalSlider::valueChanged);
    slider.setRange(10, 0); // the pointer changes nothing there either
    valueOf(&slider)->setCurrentValue(5);
    QCOMPARE(changed.count(), 0);
    slider.setRange(5, 5);
    valueOf(&slider)->setCurrentValue(80);
    QCOMPARE(slider.value(), 5);
}

void tst_AccessibleSliders::statesOfHorizontalSliders()
{
    HorizontalSlider slider;
    QVERIFY(!stateOf(&slider).disabled);
    QVERIFY(!stateOf(&slider).focusable);
    QVERIFY(!stateOf(&slider).focused);
    slider.setFocusPolicy(Qt::StrongFocus);
    QVERIFY(stateOf(&slider).focusable);
    slider.show();
    slider.activateWindow();
    slider.setFocus();
    QTRY_VERIFY(stateOf(&slider).focused);
    slider.setEnabled(false);
    QVERIFY(stateOf(&slider).disabled);
}

void tst_AccessibleSliders::disabledSlidersAreNotSet()
{
    HorizontalSlider slider;
    slider.setEnabled(false);
    valueOf(&slider)->setCurrentValue(50);
    QCOMPARE(slider.value(), 0);
    slider.setEnabled(true);
    valueOf(&slider)->setCurrentValue(50);
    QCOMPARE(slider.value(), 50);
}

void tst_AccessibleSliders::sliderEnabledCountsAsEnabled()
{
    const Activity activity;
    const auto slider = newSlider(static_cast<NewHorizontalSlider *>(nullptr));
    QVERIFY(slider->isSliderEnabled());
    QVERIFY(!stateOf(slider.get()).disabled);

    const Listener listener;
    slider->setSliderEnabled(false);
    slider->setSliderEnabled(false);
    QVERIFY(!slider->isSliderEnabled());
    QVERIFY(stateOf(slider.get()).disabled);
    QCOMPARE(listener.count(slider.get(), QAccessible::StateChanged), 1);
    QVERIFY(listener.of(slider.get(), QAccessible::StateChanged).constFirst().changed.disabled);
    valueOf(slider.get())->setCurrentValue(50);
    QCOMPARE(slider->value(), 0);

    slider->setSliderEnabled(true);
    slider->setEnabled(false);
    QVERIFY(stateOf(slider.get()).disabled);
    valueOf(slider.get())->setCurrentValue(50);
    QCOMPARE(slider->value(), 0);
}

void tst_AccessibleSliders::names()
{
    HorizontalSlider slider;
    QCOMPARE(nameOf(&slider), QString());
    slider.setAccessibleName(QStringLiteral("Volume"));
    QCOMPARE(nameOf(&slider), QStringLiteral("Volume"));
}

void tst_AccessibleSliders::stepBarTellsItsSteps()
{
    CustomSliderBarWidget bar;
    bar.setCount(5);
    bar.setCurrenIndex(3);
    QAccessibleValueInterface *value = valueOf(&bar);
    QVERIFY(value);
    QCOMPARE(value->minimumValue(), QVariant(0));
    QCOMPARE(value->maximumValue(), QVariant(4));
    QCOMPARE(value->currentValue(), QVariant(3));
    QCOMPARE(value->minimumStepSize(), QVariant(1));
}

void tst_AccessibleSliders::stepBarIsSet()
{
    CustomSliderBarWidget bar;
    bar.setCount(5);
    QSignalSpy finished(&bar, &CustomSliderBarWidget::selectFinish);
    QAccessibleValueInterface *value = valueOf(&bar);
    value->setCurrentValue(2);
    QCOMPARE(bar.getCurrentIndex(), 2);
    value->setCurrentValue(99.0);
    QCOMPARE(bar.getCurrentIndex(), 4);
    value->setCurrentValue(-1);
    QCOMPARE(bar.getCurrentIndex(), 0);
    QCOMPARE(finished, (QList<QVariantList>{{2}, {4}, {0}}));
}

void tst_AccessibleSliders::stepBarTellsEachChange()
{
    const Activity activity;
    CustomSliderBarWidget bar;
    bar.setCount(3);
    const Listener listener;
    bar.setCurrenIndex(1);
    bar.setCurrenIndex(1);
    valueOf(&bar)->setCurrentValue(2);
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(1, bar.height() / 2));
    QCOMPARE(bar.getCurrentIndex(), 0);
    QCOMPARE(listener.values(&bar), (QVariantList{1, 2, 0}));
}

void tst_AccessibleSliders::stepBarMayDieOfItsStep()
{
    const Activity activity;
    auto *bar = new CustomSliderBarWidget;
    const QPointer<CustomSliderBarWidget> guard(bar);
    connect(bar, &CustomSliderBarWidget::selectFinish, this, [bar] { delete bar; });
    valueOf(bar)->setCurrentValue(1);
    QVERIFY(!guard);
}

void tst_AccessibleSliders::disabledStepBarIsNotSet()
{
    CustomSliderBarWidget bar;
    bar.setEnabled(false);
    QSignalSpy finished(&bar, &CustomSliderBarWidget::selectFinish);
    valueOf(&bar)->setCurrentValue(1);
    QCOMPARE(bar.getCurrentIndex(), 0);
    QCOMPARE(finished.count(), 0);
    QVERIFY(stateOf(&bar).disabled);
}

void tst_AccessibleSliders::slidersOfQtStayWhatTheyAre()
{
    QSlider stock(Qt::Horizontal);
    CustomSlider slider(Qt::Horizontal, nullptr);
    CustomBidirectionSlider bidirectional(6, 24, Qt::blue, nullptr);
    for (QSlider *one : {static_cast<QSlider *>(&slider), static_cast<QSlider *>(&bidirectional)}) {
        QAccessibleValueInterface *value = valueOf(one);
        QVERIFY(value);
        value->setCurrentValue(30);
        QCOMPARE(one->value(), 30);
        QCOMPARE(value->maximumValue(), QVariant(stock.maximum()));
        QCOMPARE(actionsOf(one), actionsOf(&stock));
    }
}

ORV_TEST_MAIN(tst_AccessibleSliders)
#include "tst_accessiblesliders.moc"
