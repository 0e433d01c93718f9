#include "customsliderbarwidget.h"
#include "logcapture.h"
#include "lostpresses.h"
#include "pictures.h"
#include "slidertesting.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <limits>

Q_DECLARE_METATYPE(Qt::MouseButton)

using namespace SliderTesting;

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

class Bar : public PaintCounting<CustomSliderBarWidget>
{
public:
    using PaintCounting<CustomSliderBarWidget>::PaintCounting;
    using CustomSliderBarWidget::updateState;
};

// A move of the pointer with no button held, which only a widget with mouse tracking gets.
void hover(QWidget *widget, QPoint pos)
{
    QMouseEvent event(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// What is painted, step by step; `pressedAt` is the pointer while the bar is pressed.
QImage plain(const CustomSliderBarWidget &bar, int count, int index, const int *pressedAt = nullptr,
             const QColor &ground = Qt::transparent)
{
    const QString skin = QStringLiteral(":/images/images/slider/");
    const qreal ratio = bar.devicePixelRatioF();
    QImage result = canvas(bar, ground);
    QPainter painter(&result);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);

    const QRect area(4, 0, bar.width() - 8, bar.height());
    QImage image(qRound(area.width() * ratio), qRound(area.height() * ratio), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const int s = (area.width() - 8) / (count - 1);
    int fillX = s * index + 8;
    if (pressedAt)
        fillX = qBound(area.left() + 4, *pressedAt, area.right() - 4);
    if (!image.isNull()) {
        QPainter imagePainter(&image);
        renderSvg(&imagePainter, QStringLiteral("%1/background.svg").arg(skin), image.rect());
        QRect filled = image.rect();
        filled.setRight(int(fillX * ratio));
        imagePainter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        imagePainter.fillRect(filled, QColor(QStringLiteral("#ABADBF")));
    }
    painter.drawImage(area, image);
    for (int i = 0; i < count; ++i) {
        const QRectF square(s * i + 8 - 6, bar.height() / 2.0 - 6, 12, 12);
        renderSvg(&painter, QLatin1String(i <= index ? "%1/item_active.svg" : "%1/item.svg").arg(skin),
                  square);
    }
    renderSvg(&painter, QStringLiteral("%1/select.svg").arg(skin),
              QRectF(fillX - 8, bar.height() / 2.0 - 8, 16, 16));
    return result;
}

// The step under x, by looking at each.
int searchedIndex(int x, int width, int count, int current)
{
    const int s = width / (count - 1);
    const int half = s / 2;
    for (int i = 0; i < count; ++i) {
        if (i * s - half <= x && x <= (i + 1) * s - half)
            return i;
    }
    return current;
}

} // namespace

class tst_customsliderbarwidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void moveBeforeAnyPressOfTheProcess(); // the first of all

    void startsAsDocumented();
    void countIsAtLeastTwo();
    void currentIndexIsNotChecked();

    void paintsLikeThePlainRecipe_data();
    void paintsLikeThePlainRecipe();
    void paintsFillUnderThePointer();
    void everyStepPaints();
    void marksOfTwoSteps();
    void moreStepsThanPixels();
    void absurdNumbers();

    void everyPixelOfEveryCount();
    void boundariesGoToTheLowerStep();
    void dragFollowsAndTellsAtRelease();
    void anyButtonFinishes_data();
    void anyButtonFinishes();
    void doubleClickIsNoPress();
    void hoverAloneChangesNothing();
    void dragDrivesOtherBars();
    void destroyedWhilePressedEndsTheDrag();
    void destroyedBesideThePressedOneKeepsTheDrag();
    void destroyedInItsSlot();
    void lostPressEndsForAllBars_data();
    void lostPressEndsForAllBars();
    void lossOfAFollowingBarIsItsOwn();
    void eventsGoOnToTheBase();
    void touchComesAsMouse();
};

void tst_customsliderbarwidget::moveBeforeAnyPressOfTheProcess()
{
    CustomSliderBarWidget bar;
    move(&bar, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 0);
}

void tst_customsliderbarwidget::startsAsDocumented()
{
    QWidget parent;
    CustomSliderBarWidget bar(&parent);
    QCOMPARE(bar.parentWidget(), &parent);
    QCOMPARE(bar.minimumSize(), QSize(117, 12));
    QCOMPARE(bar.maximumSize(), QSize(117, 12));
    QVERIFY(bar.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(bar.testAttribute(Qt::WA_AcceptTouchEvents));
    QVERIFY(bar.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(bar.hasMouseTracking());
    QCOMPARE(bar.cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(bar.contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(bar.getCount(), 2);
    QCOMPARE(bar.getCurrentIndex(), 0);
}

void tst_customsliderbarwidget::countIsAtLeastTwo()
{
    CustomSliderBarWidget bar;
    LogCapture log;
    bar.setCount(5);
    QCOMPARE(bar.getCount(), 5);
    bar.setCount(2);
    QCOMPARE(bar.getCount(), 2);
    bar.setCount(7);
    QCOMPARE(log.count(), 0);
    for (const int count : {1, 0, -3}) {
        log.clear();
        bar.setCount(count);
        QCOMPARE(bar.getCount(), 7);
        QCOMPARE(log.count(), 1);
        const LogLine line = log.lines().constFirst();
        QCOMPARE(line.type, QtInfoMsg);
        QCOMPARE(line.text, QStringLiteral("error,set current count: %1").arg(count));
        QCOMPARE(line.function, QStringLiteral("void CustomSliderBarWidget::setCount(int)"));
        QVERIFY(line.file.endsWith(QStringLiteral("customsliderbarwidget.cpp")));
    }
}

void tst_customsliderbarwidget::currentIndexIsNotChecked()
{
    CustomSliderBarWidget bar;
    const QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    for (const int index : {1, 2, -1, kHighest, kLowest}) {
        bar.setCurrenIndex(index);
        QCOMPARE(bar.getCurrentIndex(), index);
    }
    QCOMPARE(spy.count(), 0);
}

void tst_customsliderbarwidget::paintsLikeThePlainRecipe_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QSize>("size");
    QTest::newRow("two") << 2 << QSize(117, 12);
    QTest::newRow("three") << 3 << QSize(117, 12);
    QTest::newRow("five") << 5 << QSize(117, 12);
    QTest::newRow("crowded") << 40 << QSize(117, 12);
    QTest::newRow("a step a pixel") << 102 << QSize(117, 12);
    QTest::newRow("other size") << 4 << QSize(222, 33);
    QTest::newRow("narrow") << 3 << QSize(17, 12);
    QTest::newRow("narrower than its margins") << 3 << QSize(6, 12);
}

void tst_customsliderbarwidget::paintsLikeThePlainRecipe()
{
    QFETCH(int, count);
    QFETCH(QSize, size);
    CustomSliderBarWidget bar;
    bar.setFixedSize(size);
    bar.setCount(count);
    for (const int index : {0, 1, count / 2, count - 1, count, count + 3, -1, -2}) {
        bar.setCurrenIndex(index);
        QCOMPARE(differingPixels(painted(&bar), plain(bar, count, index), kOfOpaque), 0);
        QCOMPARE(differingPixels(painted(&bar, Qt::darkCyan), plain(bar, count, index, nullptr, Qt::darkCyan),
                                 kOfOpaque),
                 0);
    }
}

void tst_customsliderbarwidget::paintsFillUnderThePointer()
{
    CustomSliderBarWidget bar;
    bar.setCount(4);
    press(&bar, QPoint(10, 6));
    for (int x = -30; x < 150; ++x) {
        move(&bar, QPoint(x, 100));
        const int index = bar.getCurrentIndex();
        QCOMPARE(differingPixels(painted(&bar), plain(bar, 4, index, &x), kOfOpaque), 0);
    }
    release(&bar, QPoint(60, 6));
    QCOMPARE(differingPixels(painted(&bar), plain(bar, 4, bar.getCurrentIndex()), kOfOpaque), 0);
}

void tst_customsliderbarwidget::everyStepPaints()
{
    Bar bar;
    QVERIFY(showPainted(&bar));
    QVERIFY(paintsAfter(&bar, [&] { bar.setCurrenIndex(1); }));
    QVERIFY(paintsAfter(&bar, [&] { bar.setCurrenIndex(0); }));
    QVERIFY(paintsAfter(&bar, [&] { press(&bar, QPoint(20, 6)); }));
    QVERIFY(paintsAfter(&bar, [&] { move(&bar, QPoint(30, 6)); }));
    QVERIFY(paintsAfter(&bar, [&] { move(&bar, QPoint(-500, 6)); })); // on no step
    QVERIFY(paintsAfter(&bar, [&] { release(&bar, QPoint(30, 6)); }));
    QCOMPARE(bar.getCurrentIndex(), 0);
    QVERIFY(paintsAfter(&bar, [&] { bar.setCount(5); }));
}

void tst_customsliderbarwidget::marksOfTwoSteps()
{
    CustomSliderBarWidget bar;
    const QImage image = painted(&bar, Qt::black);
    const qreal ratio = bar.devicePixelRatioF();
    const auto colorAt = [&](double x, double y) {
        return image.pixelColor(int(x * ratio), int(y * ratio)).name();
    };
    QCOMPARE(colorAt(8, 6), QStringLiteral("#fcfcfd"));
    QCOMPARE(colorAt(109, 6), QStringLiteral("#fcfcfd"));
    QCOMPARE(colorAt(60, 6), QStringLiteral("#e3e4ea"));
    bar.setCurrenIndex(1);
    const QImage filled = painted(&bar, Qt::black);
    QCOMPARE(filled.pixelColor(int(60 * ratio), int(6 * ratio)).name(), QStringLiteral("#abadbf"));
}

// All marks lie upon one another: painting most of them is left out, and it must not show.
void tst_customsliderbarwidget::moreStepsThanPixels()
{
    CustomSliderBarWidget bar;
    for (const int count : {103, 300, 1500}) {
        bar.setCount(count);
        for (const int index : {0, 50, 299, 700, 1499}) {
            bar.setCurrenIndex(index);
            QCOMPARE(differingPixels(painted(&bar, Qt::red), plain(bar, count, index, nullptr, Qt::red),
                                     kOfOpaque),
                     0);
        }
    }
}

// Steps far beside the bar are not there, and where steps have no width the pointer finds none.
void tst_customsliderbarwidget::absurdNumbers()
{
    CustomSliderBarWidget bar;
    const LogCapture log;
    for (const int count : {2, 3, 1000, kHighest}) {
        bar.setCount(count);
        bar.setCurrenIndex(-1);
        const QImage nothingReached = painted(&bar);
        for (const int index : {kLowest, -1000000}) {
            bar.setCurrenIndex(index);
            QCOMPARE(painted(&bar), nothingReached);
        }
        bar.setCurrenIndex(1000000);
        const QImage allReached = painted(&bar);
        for (const int index : {1000000, kHighest}) {
            bar.setCurrenIndex(index);
            QCOMPARE(painted(&bar), allReached);
            click(&bar, QPoint(60, 6));
            QCOMPARE(bar.getCurrentIndex(), count < 1000 ? 1 : index);
        }
    }
    for (const QSize &size : {QSize(1, 1), QSize(7, 500), QSize(20000, 2)}) {
        bar.setFixedSize(size);
        bar.setCount(3);
        painted(&bar);
        bar.setCurrenIndex(0);
        click(&bar, QPoint(1, 1));
        QCOMPARE(bar.getCurrentIndex(), searchedIndex(1, size.width(), 3, 0));
        painted(&bar);
    }
    QCOMPARE(log.texts(), QStringList());
}

void tst_customsliderbarwidget::everyPixelOfEveryCount()
{
    Bar bar;
    for (int count = 2; count < 130; ++count) {
        bar.setCount(count);
        for (int x = -70; x < 260; ++x) {
            const int before = (x + 1000) % count;
            bar.setCurrenIndex(before);
            bar.updateState(QPoint(x, 6));
            const int expected = searchedIndex(x, 117, count, before);
            if (bar.getCurrentIndex() != expected)
                QFAIL(qPrintable(QStringLiteral("%1 steps: %2 instead of %3 at %4")
                                     .arg(count)
                                     .arg(bar.getCurrentIndex())
                                     .arg(expected)
                                     .arg(x)));
        }
    }
}

// Two steps of 117 pixels: the first reaches from -58 to 59, the second from 59 to 176.
void tst_customsliderbarwidget::boundariesGoToTheLowerStep()
{
    Bar bar;
    const auto indexAt = [&](int x, int before) {
        bar.setCurrenIndex(before);
        bar.updateState(QPoint(x, 0));
        return bar.getCurrentIndex();
    };
    QCOMPARE(indexAt(59, 1), 0);
    QCOMPARE(indexAt(60, 0), 1);
    QCOMPARE(indexAt(-58, 1), 0);
    QCOMPARE(indexAt(-59, 1), 1);
    QCOMPARE(indexAt(176, 0), 1);
    QCOMPARE(indexAt(177, 0), 0);
}

void tst_customsliderbarwidget::dragFollowsAndTellsAtRelease()
{
    CustomSliderBarWidget bar;
    bar.setCount(5);
    QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    press(&bar, QPoint(60, 6));
    QCOMPARE(bar.getCurrentIndex(), 2);
    move(&bar, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 3);
    QCOMPARE(spy.count(), 0);
    // The release itself does not choose.
    release(&bar, QPoint(8, 6));
    QCOMPARE(bar.getCurrentIndex(), 3);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.takeFirst().constFirst().toInt(), 3);
    move(&bar, QPoint(8, 6));
    QCOMPARE(bar.getCurrentIndex(), 3);
}

void tst_customsliderbarwidget::anyButtonFinishes_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_customsliderbarwidget::anyButtonFinishes()
{
    QFETCH(Qt::MouseButton, button);
    CustomSliderBarWidget bar;
    QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    release(&bar, QPoint(100, 6), button);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.takeFirst().constFirst().toInt(), 0);
    click(&bar, QPoint(100, 6), button);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.takeFirst().constFirst().toInt(), 1);
}

void tst_customsliderbarwidget::doubleClickIsNoPress()
{
    CustomSliderBarWidget bar;
    const QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    sendMouse(&bar, QEvent::MouseButtonDblClick, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 0);
    move(&bar, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 0);
    release(&bar, QPoint(100, 6));
    QCOMPARE(spy.count(), 1);
}

void tst_customsliderbarwidget::hoverAloneChangesNothing()
{
    CustomSliderBarWidget bar;
    hover(&bar, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 0);
    QCOMPARE(differingPixels(painted(&bar), plain(bar, 2, 0), kOfOpaque), 0);
}

void tst_customsliderbarwidget::dragDrivesOtherBars()
{
    CustomSliderBarWidget first;
    CustomSliderBarWidget second;
    const QSignalSpy spy(&second, &CustomSliderBarWidget::selectFinish);
    press(&first, QPoint(8, 6));
    hover(&second, QPoint(100, 6));
    QCOMPARE(second.getCurrentIndex(), 1);
    const int x = 100;
    QCOMPARE(differingPixels(painted(&second), plain(second, 2, 1, &x), kOfOpaque), 0);
    // A release on either ends it for both; the other one goes on looking pressed until its own release.
    release(&first, QPoint(8, 6));
    hover(&second, QPoint(8, 6));
    QCOMPARE(second.getCurrentIndex(), 1);
    QCOMPARE(differingPixels(painted(&second), plain(second, 2, 1, &x), kOfOpaque), 0);
    QCOMPARE(spy.count(), 0);
    release(&second, QPoint(8, 6));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(differingPixels(painted(&second), plain(second, 2, 1), kOfOpaque), 0);

    press(&first, QPoint(8, 6));
    release(&second, QPoint(8, 6));
    hover(&second, QPoint(8, 6));
    QCOMPARE(second.getCurrentIndex(), 1);
    release(&first, QPoint(8, 6));
}

void tst_customsliderbarwidget::destroyedWhilePressedEndsTheDrag()
{
    auto *pressed = new CustomSliderBarWidget;
    CustomSliderBarWidget other;
    press(pressed, QPoint(8, 6));
    delete pressed;
    hover(&other, QPoint(100, 6));
    QCOMPARE(other.getCurrentIndex(), 0);
}

void tst_customsliderbarwidget::destroyedBesideThePressedOneKeepsTheDrag()
{
    CustomSliderBarWidget first;
    press(&first, QPoint(8, 6));
    {
        CustomSliderBarWidget second;
        hover(&second, QPoint(100, 6));
    }
    move(&first, QPoint(100, 6));
    QCOMPARE(first.getCurrentIndex(), 1);
    release(&first, QPoint(100, 6));
}

void tst_customsliderbarwidget::destroyedInItsSlot()
{
    const QPointer<CustomSliderBarWidget> bar(new CustomSliderBarWidget);
    connect(bar.data(), &CustomSliderBarWidget::selectFinish, this, [&] { delete bar.data(); });
    press(bar, QPoint(8, 6));
    release(bar, QPoint(8, 6));
    QVERIFY(!bar);
}

void tst_customsliderbarwidget::lostPressEndsForAllBars_data()
{
    LostPresses::addRows();
}

// Whatever the button: a right press may be lost to a context menu.
void tst_customsliderbarwidget::lostPressEndsForAllBars()
{
    QFETCH(Loss, loss);
    QWidget window;
    Bar bar(&window);
    CustomSliderBarWidget other;
    QVERIFY(showPainted(&bar, &window));
    const QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        bar.setCurrenIndex(0);
        press(&bar, QPoint(20, 6), button);
        QVERIFY(paintsAfter(&bar, [&] { loss(&bar); }));
        hover(&bar, QPoint(100, 6));
        hover(&other, QPoint(100, 6));
        QCOMPARE(bar.getCurrentIndex(), 0);
        QCOMPARE(other.getCurrentIndex(), 0);
        QCOMPARE(differingPixels(painted(&bar), plain(bar, 2, 0), kOfOpaque), 0);
        QCOMPARE(spy.count(), 0);
    }
    press(&bar, QPoint(20, 6));
    hover(&bar, QPoint(100, 6));
    QCOMPARE(bar.getCurrentIndex(), 1);
    release(&bar, QPoint(100, 6));
    QCOMPARE(spy.count(), 1);
}

void tst_customsliderbarwidget::lossOfAFollowingBarIsItsOwn()
{
    CustomSliderBarWidget pressed;
    CustomSliderBarWidget following;
    following.show();
    press(&pressed, QPoint(20, 6));
    hover(&following, QPoint(20, 6));
    const int x = 20;
    QCOMPARE(differingPixels(painted(&following), plain(following, 2, 0, &x), kOfOpaque), 0);
    following.hide();
    QCOMPARE(differingPixels(painted(&following), plain(following, 2, 0), kOfOpaque), 0);
    hover(&pressed, QPoint(100, 6));
    QCOMPARE(pressed.getCurrentIndex(), 1);
    hover(&following, QPoint(100, 6));
    QCOMPARE(following.getCurrentIndex(), 1);
    release(&pressed, QPoint(100, 6));
}

// QWidget's own handlers leave mouse events to the parent.
void tst_customsliderbarwidget::eventsGoOnToTheBase()
{
    CustomSliderBarWidget bar;
    QVERIFY(!press(&bar, QPoint(8, 6)));
    QVERIFY(!move(&bar, QPoint(8, 6)));
    QVERIFY(!release(&bar, QPoint(8, 6)));
    QEvent polish(QEvent::PolishRequest);
    QVERIFY(QCoreApplication::sendEvent(&bar, &polish)); // known to QWidget only
}

void tst_customsliderbarwidget::touchComesAsMouse()
{
    QWidget window;
    CustomSliderBarWidget bar(&window);
    bar.move(20, 20);
    window.resize(200, 60);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSignalSpy spy(&bar, &CustomSliderBarWidget::selectFinish);
    static auto *const device = QTest::createTouchDevice(); // which Qt 5 keeps, and Qt 6 leaves to its caller
    QTest::touchEvent(&bar, device).press(0, QPoint(10, 6), &bar);
    QTest::touchEvent(&bar, device).move(0, QPoint(100, 6), &bar);
    QTRY_COMPARE(bar.getCurrentIndex(), 1);
    QCOMPARE(spy.count(), 0);
    QTest::touchEvent(&bar, device).release(0, QPoint(100, 6), &bar);
    QTRY_COMPARE(spy.count(), 1);
}

ORV_TEST_MAIN(tst_customsliderbarwidget)

#include "tst_customsliderbarwidget.moc"
