#include "customslider.h"
#include "lostpresses.h"
#include "slidertesting.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>

Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::Orientation)

using namespace SliderTesting;

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

int emittedValue(QSignalSpy *spy)
{
    return spy->takeFirst().constFirst().toInt();
}

} // namespace

class tst_customslider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAPlainSlider();
    void tellsTheValueUnderAClick_data();
    void tellsTheValueUnderAClick();
    void onlyClicksCount_data();
    void onlyClicksCount();
    void releaseAloneIsNoClick();
    void comesAfterTheSliderItself();
    void ownValueIsNotChanged();
    void destroyedInItsSlot();
    void destroyedInASlotOfThePress();
    void aPressThatLosesItsEndIsNoClick_data();
    void aPressThatLosesItsEndIsNoClick();
    void aPressThatASlotTakesTheEndIsNoClick();
    void aReleaseThatASlotFollowsIsAClick();
};

void tst_customslider::isAPlainSlider()
{
    QWidget parent;
    const CustomSlider standing(&parent);
    QCOMPARE(standing.orientation(), Qt::Vertical);
    QCOMPARE(standing.parentWidget(), &parent);
    const CustomSlider lying(Qt::Horizontal, &parent);
    QCOMPARE(lying.orientation(), Qt::Horizontal);
    QCOMPARE(lying.parentWidget(), &parent);
    QCOMPARE(CustomSlider().parentWidget(), nullptr);
}

void tst_customslider::tellsTheValueUnderAClick_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("value");

    QTest::newRow("left end") << Qt::Horizontal << 0 << 100 << 200 << 0 << 0;
    QTest::newRow("right end") << Qt::Horizontal << 0 << 100 << 200 << 200 << 100;
    QTest::newRow("beyond the right end") << Qt::Horizontal << 0 << 100 << 200 << 203 << 100;
    QTest::newRow("beyond the left end") << Qt::Horizontal << 0 << 100 << 200 << -3 << 0;
    QTest::newRow("inside") << Qt::Horizontal << 0 << 100 << 200 << 60 << 30;
    QTest::newRow("half goes up") << Qt::Horizontal << 0 << 100 << 200 << 61 << 31;
    QTest::newRow("less than half") << Qt::Horizontal << 0 << 10 << 200 << 29 << 1;
    QTest::newRow("more than half") << Qt::Horizontal << 0 << 10 << 200 << 31 << 2;
    QTest::newRow("vertical takes x all the same") << Qt::Vertical << 0 << 100 << 40 << 10 << 25;
    QTest::newRow("other beginning") << Qt::Horizontal << 20 << 40 << 100 << 50 << 30;
    // Truncation after adding a half: -7.4 becomes -6, and -7.6 becomes -7.
    QTest::newRow("negative, less than half") << Qt::Horizontal << -10 << 0 << 100 << 26 << -6;
    QTest::newRow("negative, more than half") << Qt::Horizontal << -10 << 0 << 100 << 24 << -7;
    QTest::newRow("negative minimum has no half added") << Qt::Horizontal << -10 << 0 << 100 << -1 << -10;
    QTest::newRow("at the negative minimum it has") << Qt::Horizontal << -10 << 0 << 100 << 0 << -9;
    QTest::newRow("single value") << Qt::Horizontal << 7 << 7 << 100 << 60 << 7;
    QTest::newRow("all of int, centre") << Qt::Horizontal << kLowest << kHighest << 100 << 50 << 0;
    QTest::newRow("all of int, right") << Qt::Horizontal << kLowest << kHighest << 100 << 100 << kHighest;
    QTest::newRow("no width, right") << Qt::Horizontal << 3 << 9 << 0 << 4 << 9;
    QTest::newRow("no width") << Qt::Horizontal << 3 << 9 << 0 << 0 << 3;
}

void tst_customslider::tellsTheValueUnderAClick()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, width);
    QFETCH(int, x);
    CustomSlider slider(orientation, nullptr);
    slider.setRange(minimum, maximum);
    slider.setFixedSize(width, 40);
    slider.resize(width, 40);
    QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    click(&slider, QPoint(x, 20));
    QCOMPARE(spy.count(), 1);
    QTEST(emittedValue(&spy), "value");
}

void tst_customslider::onlyClicksCount_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<int>("count");
    QTest::newRow("still") << Qt::LeftButton << QPoint(0, 0) << 1;
    QTest::newRow("four to the right") << Qt::LeftButton << QPoint(4, 0) << 1;
    QTest::newRow("four in all") << Qt::LeftButton << QPoint(-2, 2) << 1;
    QTest::newRow("five to the right") << Qt::LeftButton << QPoint(5, 0) << 0;
    QTest::newRow("five up") << Qt::LeftButton << QPoint(0, -5) << 0;
    QTest::newRow("five in all") << Qt::LeftButton << QPoint(-3, 2) << 0;
    QTest::newRow("right button") << Qt::RightButton << QPoint(0, 0) << 0;
    QTest::newRow("middle button") << Qt::MiddleButton << QPoint(0, 0) << 0;
}

void tst_customslider::onlyClicksCount()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(QPoint, way);
    QFETCH(int, count);
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    press(&slider, QPoint(60, 20), button);
    release(&slider, QPoint(60, 20) + way, button);
    QCOMPARE(spy.count(), count);
    // The release position counts, and each press makes one click.
    const double expected = (60 + way.x()) / 200.0 * 99 + 0.5;
    if (count > 0)
        QCOMPARE(emittedValue(&spy), int(expected));
    release(&slider, QPoint(60, 20));
    QCOMPARE(spy.count(), 0);
}

void tst_customslider::releaseAloneIsNoClick()
{
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    release(&slider, QPoint(0, 0));
    QCOMPARE(spy.count(), 0);
    // A release of another button leaves the press pending.
    press(&slider, QPoint(60, 20));
    release(&slider, QPoint(60, 20), Qt::RightButton);
    QCOMPARE(spy.count(), 0);
    release(&slider, QPoint(60, 20));
    QCOMPARE(spy.count(), 1);
}

void tst_customslider::comesAfterTheSliderItself()
{
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    QStringList order;
    connect(&slider, &QSlider::sliderPressed, this, [&] { order << QStringLiteral("pressed"); });
    connect(&slider, &QSlider::sliderReleased, this, [&] { order << QStringLiteral("released"); });
    connect(&slider, &CustomSlider::signalClickValue, this, [&] {
        order << QStringLiteral("click");
        QVERIFY(!slider.isSliderDown());
    });
    click(&slider, QPoint(3, 20));
    QCOMPARE(order,
             QStringList({QStringLiteral("pressed"), QStringLiteral("released"), QStringLiteral("click")}));
}

// A click on the handle moves nothing in QSlider, so whatever moves would be the click's doing.
void tst_customslider::ownValueIsNotChanged()
{
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    const QSignalSpy changes(&slider, &QSlider::valueChanged);
    QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    click(&slider, QPoint(6, 20));
    QCOMPARE(emittedValue(&spy), 3);
    QCOMPARE(slider.value(), 0);
    QCOMPARE(changes.count(), 0);
}

void tst_customslider::destroyedInItsSlot()
{
    const QPointer<CustomSlider> slider(new CustomSlider(Qt::Horizontal, nullptr));
    connect(slider.data(), &CustomSlider::signalClickValue, this, [&] { delete slider.data(); });
    click(slider, QPoint(3, 20));
    QVERIFY(!slider);
}

void tst_customslider::destroyedInASlotOfThePress()
{
    const QPointer<CustomSlider> slider(new CustomSlider(Qt::Horizontal, nullptr));
    slider->setFixedSize(200, 40);
    connect(slider.data(), &QSlider::sliderPressed, this, [&] { delete slider.data(); });
    press(slider, QPoint(3, 20));
    QVERIFY(!slider);
}

void tst_customslider::aPressThatLosesItsEndIsNoClick_data()
{
    LostPresses::addRows();
}

void tst_customslider::aPressThatLosesItsEndIsNoClick()
{
    QFETCH(Loss, loss);
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    slider.show();
    const QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    press(&slider, QPoint(60, 20));
    loss(&slider);
    release(&slider, QPoint(60, 20));
    QCOMPARE(spy.count(), 0);
    click(&slider, QPoint(60, 20));
    QCOMPARE(spy.count(), 1);
}

void tst_customslider::aPressThatASlotTakesTheEndIsNoClick()
{
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    slider.show();
    const QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    connect(&slider, &QSlider::sliderPressed, this, [&] {
        slider.hide();
        slider.show();
    });
    click(&slider, QPoint(3, 20));
    QCOMPARE(spy.count(), 0);
}

void tst_customslider::aReleaseThatASlotFollowsIsAClick()
{
    CustomSlider slider(Qt::Horizontal, nullptr);
    slider.setFixedSize(200, 40);
    slider.show();
    const QSignalSpy spy(&slider, &CustomSlider::signalClickValue);
    connect(&slider, &QSlider::sliderReleased, &slider, &QWidget::hide);
    click(&slider, QPoint(3, 20));
    QCOMPARE(spy.count(), 1);
}

ORV_TEST_MAIN(tst_customslider)

#include "tst_customslider.moc"
