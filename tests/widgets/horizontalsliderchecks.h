#pragma once

#include "logcapture.h"
#include "lostpresses.h"
#include "memoryresource.h"
#include "pictures.h"
#include "slidertesting.h"

#include <QtCore/QScopedPointer>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <functional>
#include <limits>

/// What HorizontalSlider and NewHorizontalSlider have in common is checked by the same functions. Each gets a
/// slider whose range is as long as its travel, one value a pixel, and which is painted once, so that value v
/// stands at x = half + v.
namespace HorizontalSliderChecks {

/// Opens what is protected, and counts paints.
template<typename Slider>
class Probe : public SliderTesting::PaintCounting<Slider>
{
public:
    using SliderTesting::PaintCounting<Slider>::PaintCounting;
    using Slider::updateState;
    using Slider::updateValue;
};

/// Writes down every signal in order.
template<typename Slider>
class Recorder
{
public:
    explicit Recorder(Slider *slider)
    {
        QObject::connect(slider, &Slider::valueChanged, slider, [this](int value) { add("changed", value); });
        QObject::connect(slider, &Slider::sliderMoved, slider, [this](int value) { add("moved", value); });
        QObject::connect(slider, &Slider::sliderMoving, slider,
                         [this](bool moving) { add("moving", moving); });
    }

    /// What came since the last call, in one line.
    QString taken()
    {
        QString text = m_lines.join(QStringLiteral(", "));
        m_lines.clear();
        return text;
    }

private:
    void add(const char *name, int number)
    {
        m_lines << QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(number);
    }

    QStringList m_lines;
};

/// The measures of the slider under test.
struct Measures
{
    int half;
    int travel;
    int centerY;

    QPoint at(int value) const { return {half + value, centerY}; }
    double step(int range) const { return double(travel) / range; }
};

inline QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

template<typename Slider>
void prepare(Slider *slider, const Measures &measures)
{
    slider->setRange(0, measures.travel);
    SliderTesting::painted(slider);
}

template<typename Slider>
void checkSetValue(Slider *slider, const Measures &)
{
    Recorder<Slider> recorder(slider);
    slider->setValue(0);
    QCOMPARE(recorder.taken(), QString());
    slider->setValue(5);
    slider->setValue(5);
    QCOMPARE(recorder.taken(), text("changed 5"));
    slider->setValue(5000);
    QCOMPARE(slider->value(), 5000);
    slider->setValue(-1);
    QCOMPARE(slider->value(), -1);
    QCOMPARE(recorder.taken(), text("changed 5000, changed -1"));
    slider->setRange(10, 20);
    QCOMPARE(slider->value(), -1);
    QCOMPARE(recorder.taken(), QString());
}

/// A paint that is due when the signal comes happens when events are processed in the slot.
template<typename Slider>
void checkUpdateComesBeforeTheSignal(Slider *slider, const Measures &)
{
    QVERIFY(SliderTesting::showPainted(slider));
    const int paintsBefore = slider->paints;
    bool paintedInSlot = false;
    QObject::connect(slider, &Slider::valueChanged, slider, [&] {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        paintedInSlot = slider->paints > paintsBefore;
    });
    slider->setValue(42);
    QVERIFY(paintedInSlot);
}

/// The handle follows the pointer within a value, too.
template<typename Slider>
void checkEveryStepPaints(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    QVERIFY(showPainted(slider));
    QVERIFY(paintsAfter(slider, [&] { slider->setRange(0, 2); }));
    press(slider, measures.at(0));
    QVERIFY(paintsAfter(slider, [&] { move(slider, measures.at(5)); }));
    QVERIFY(paintsAfter(slider, [&] { release(slider, measures.at(6)); }));
    QCOMPARE(slider->value(), 0);
    QVERIFY(paintsAfter(slider, [&] { click(slider, measures.at(measures.travel / 2)); }));
    QCOMPARE(slider->value(), 1);
}

template<typename Slider>
void checkDrag(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    Recorder<Slider> recorder(slider);
    QVERIFY(press(slider, measures.at(2)));
    QCOMPARE(recorder.taken(), QString());
    QVERIFY(!move(slider, measures.at(32)));
    QCOMPARE(recorder.taken(), text("moving 1, changed 30, moved 30"));
    move(slider, measures.at(32));
    QCOMPARE(recorder.taken(), text("moving 1"));
    QVERIFY(!release(slider, measures.at(35)));
    QCOMPARE(recorder.taken(), text("changed 33, moved 33, moving 0"));
    move(slider, measures.at(40));
    QCOMPARE(recorder.taken(), QString());
    QCOMPARE(slider->value(), 33);
}

template<typename Slider>
void checkDragRestsBeyondTheEdges(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    Recorder<Slider> recorder(slider);
    const int width = slider->width();
    press(slider, measures.at(0));
    move(slider, measures.at(20));
    QCOMPARE(recorder.taken(), text("moving 1, changed 20, moved 20"));
    move(slider, QPoint(width + 1, 3));
    move(slider, QPoint(-1, 3));
    QCOMPARE(recorder.taken(), text("moving 1, moving 1"));
    move(slider, measures.at(22));
    QCOMPARE(recorder.taken(), text("moving 1, changed 22, moved 22"));
    move(slider, QPoint(width, -500));
    QCOMPARE(slider->value(), measures.travel);
    move(slider, QPoint(0, 500));
    QCOMPARE(slider->value(), 0);
    recorder.taken();
    // The release takes over wherever it is: the way is measured from the last position inside.
    release(slider, QPoint(measures.travel * 3, 3));
    QCOMPARE(slider->value(), measures.travel);
    QCOMPARE(recorder.taken(), QStringLiteral("changed %1, moved %1, moving 0").arg(measures.travel));
}

template<typename Slider>
void checkPressOnHandleAlone(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    slider->setValue(50);
    painted(slider);
    Recorder<Slider> recorder(slider);
    // The handle's rectangle includes its edges.
    for (const int off : {-measures.half, -1, 0, measures.half}) {
        click(slider, measures.at(50 + off));
        QCOMPARE(recorder.taken(), QString());
    }
    click(slider, measures.at(50 + measures.half + 1));
    QCOMPARE(recorder.taken(), QStringLiteral("changed %1").arg(50 + measures.half + 1));
}

template<typename Slider>
void checkGrooveClick(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    Recorder<Slider> recorder(slider);
    QVERIFY(press(slider, measures.at(60)));
    QCOMPARE(recorder.taken(), QString());
    QVERIFY(!release(slider, measures.at(60)));
    QCOMPARE(recorder.taken(), text("changed 60"));
    click(slider, measures.at(60));
    QCOMPARE(recorder.taken(), QString());
    // Beyond the travel, within the widget.
    painted(slider);
    click(slider, QPoint(0, 0));
    QCOMPARE(slider->value(), 0);
    painted(slider);
    click(slider, QPoint(slider->width(), 0));
    QCOMPARE(slider->value(), measures.travel);
}

template<typename Slider>
void checkTravelOfClicks(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    const int distance = QApplication::startDragDistance();
    Recorder<Slider> recorder(slider);
    press(slider, measures.at(40));
    release(slider, measures.at(40 + distance));
    QCOMPARE(recorder.taken(), QString());
    press(slider, measures.at(40));
    release(slider, measures.at(40 + distance - 1));
    QCOMPARE(recorder.taken(), QStringLiteral("changed %1").arg(40 + distance - 1));
    // To the left a click may travel as far as it likes, and moves in between are none of its business.
    press(slider, measures.at(100));
    move(slider, measures.at(50));
    release(slider, measures.at(12));
    QCOMPARE(recorder.taken(), text("changed 12"));
}

template<typename Slider>
void checkHalfwayGoesUp(Slider *slider, const Measures &measures)
{
    slider->setRange(0, measures.travel / 2);
    SliderTesting::painted(slider);
    SliderTesting::click(slider, measures.at(41));
    QCOMPARE(slider->value(), 21);
    SliderTesting::click(slider, measures.at(80));
    QCOMPARE(slider->value(), 40);
}

template<typename Slider>
void checkOtherButtons(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    Recorder<Slider> recorder(slider);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QVERIFY(!press(slider, measures.at(0), button));
        move(slider, measures.at(30));
        QVERIFY(!release(slider, measures.at(30), button));
    }
    // A release that no press preceded is no click.
    release(slider, measures.at(30));
    QCOMPARE(recorder.taken(), QString());
    // Nor is that of another button one while the left one is held.
    press(slider, measures.at(60));
    release(slider, measures.at(60), Qt::RightButton);
    QCOMPARE(recorder.taken(), QString());
    release(slider, measures.at(60));
    QCOMPARE(recorder.taken(), text("changed 60"));
    painted(slider);
    // A handle that is held, however, is let go by any of them.
    press(slider, measures.at(60));
    move(slider, measures.at(70));
    QCOMPARE(recorder.taken(), text("moving 1, changed 70, moved 70"));
    release(slider, measures.at(70), Qt::RightButton);
    QCOMPARE(recorder.taken(), text("moving 0"));
    move(slider, measures.at(80));
    QCOMPARE(recorder.taken(), QString());
}

template<typename Slider>
void checkTwoQuickClicks(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    Recorder<Slider> recorder(slider);
    click(slider, measures.at(60));
    slider->setValue(0);
    painted(slider);
    sendMouse(slider, QEvent::MouseButtonDblClick, measures.at(60));
    release(slider, measures.at(60));
    QCOMPARE(recorder.taken(), text("changed 60, changed 0, changed 60"));
}

/// Every pixel is clicked, above the slider so that the handle is never in the way; the value is the one that
/// the loop finds.
template<typename Slider>
void checkEveryPixel(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    const QPair<int, int> ranges[] = {{0, 100}, {-70, -31}, {0, 1}, {-1, 2}, {-500, 4321}, {10, 0}};
    for (const QPair<int, int> &range : ranges) {
        const int minimum = range.first;
        const int maximum = range.second;
        slider->setRange(minimum, maximum);
        for (int x = -3; x < slider->width() + 3; ++x) {
            const double position = qBound(measures.half, x, measures.half + measures.travel);
            int expected = slider->value();
            searchValue(position, minimum, maximum, measures.half, measures.step(maximum - minimum),
                        &expected);
            painted(slider);
            click(slider, QPoint(x, -5));
            if (slider->value() != expected)
                QFAIL(qPrintable(
                    QStringLiteral("%1 instead of %2 at %3").arg(slider->value()).arg(expected).arg(x)));
        }
    }
}

/// A value that stands at a fraction of a pixel stays at that fraction while it is dragged.
template<typename Slider>
void checkDragFromFractions(Slider *slider, const Measures &measures)
{
    const double step = measures.step(97);
    using namespace SliderTesting;
    slider->setRange(0, 97);
    for (int start = 0; start <= 97; start += 7) {
        slider->setValue(start);
        painted(slider);
        double position = measures.half + step * start;
        QPoint last(int(position), measures.centerY);
        press(slider, last);
        for (const int x : {20, 61, 62, 103, 55, 7}) {
            position = qBound(double(measures.half), position + x - last.x(),
                              double(measures.half + measures.travel));
            int expected = slider->value();
            searchValue(position, 0, 97, measures.half, step, &expected);
            last = QPoint(x, measures.centerY);
            move(slider, last);
            QCOMPARE(slider->value(), expected);
            painted(slider);
        }
        release(slider, last);
    }
}

/// While the handle is dragged, a value from elsewhere does not move it.
template<typename Slider>
void checkHandleStaysInHand(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    press(slider, measures.at(0));
    move(slider, measures.at(50));
    slider->setValue(10);
    painted(slider);
    move(slider, measures.at(51));
    QCOMPARE(slider->value(), 51);
    slider->setValue(10);
    release(slider, measures.at(51));
    QCOMPARE(slider->value(), 51);
}

/// Before the first paint there is no travel yet.
template<typename Slider>
void checkBeforeTheFirstPaint(Slider *slider)
{
    SliderTesting::click(slider, QPoint(60, 5));
    QCOMPARE(slider->value(), 0);
}

/// The slider goes in a slot of each signal, during each step of a drag and a click.
template<typename Slider>
void checkDestroyedInSlots(const std::function<Slider *()> &make, const Measures &measures)
{
    using namespace SliderTesting;
    for (int wanted = 0; wanted < 6; ++wanted) {
        const QPointer<Slider> slider(make());
        prepare(slider.data(), measures);
        const auto destroy = [&] {
            delete slider.data();
        };
        const auto destroyIf = [&](bool due) {
            if (due)
                delete slider.data();
        };
        if (wanted == 0)
            QObject::connect(slider.data(), &Slider::valueChanged, qApp, destroy);
        if (wanted == 1)
            QObject::connect(slider.data(), &Slider::sliderMoved, qApp, destroy);
        if (wanted == 2 || wanted == 3)
            QObject::connect(slider.data(), &Slider::sliderMoving, qApp,
                             [&](bool moving) { destroyIf(moving == (wanted == 2)); });
        press(slider, measures.at(0));
        if (wanted == 4) {
            QObject::connect(slider.data(), &Slider::valueChanged, qApp, destroy);
            release(slider, measures.at(0));
            press(slider, measures.at(60));
        }
        if (wanted != 4)
            move(slider, measures.at(30));
        if (wanted == 5)
            QObject::connect(slider.data(), &Slider::valueChanged, qApp, destroy);
        if (slider)
            release(slider, measures.at(wanted < 4 ? 30 : 60));
        QVERIFY2(!slider, qPrintable(QString::number(wanted)));
    }
    QPointer<Slider> slider(make());
    QObject::connect(slider.data(), &Slider::valueChanged, qApp, [&] { delete slider.data(); });
    slider->setValue(1);
    QVERIFY(!slider);
}

/// A press whose release never comes. `slider` lies in a window; `loss` takes the release.
template<typename Slider>
void checkLostPress(Slider *slider, const Measures &measures, const Loss &loss)
{
    using namespace SliderTesting;
    QVERIFY(showPainted(slider, slider->window()));
    prepare(slider, measures);
    Recorder<Slider> recorder(slider);
    const auto lose = [&] {
        loss(slider);
        QCoreApplication::processEvents();
    };
    // A press on the handle, of which nothing was told.
    press(slider, measures.at(0));
    lose();
    QCOMPARE(recorder.taken(), QString());
    move(slider, measures.at(20));
    release(slider, measures.at(20));
    QCOMPARE(recorder.taken(), QString());

    // A drag, which is told to have ended.
    press(slider, measures.at(0));
    move(slider, measures.at(30));
    QCOMPARE(recorder.taken(), text("moving 1, changed 30, moved 30"));
    QVERIFY(paintsAfter(slider, [&] { lose(); }));
    QCOMPARE(recorder.taken(), text("moving 0"));
    move(slider, measures.at(40));
    release(slider, measures.at(40));
    QCOMPARE(recorder.taken(), QString());
    QCOMPARE(slider->value(), 30);

    // The handle goes with the value again.
    slider->setValue(70);
    painted(slider);
    press(slider, measures.at(70));
    move(slider, measures.at(71));
    release(slider, measures.at(71));
    QCOMPARE(recorder.taken(), text("changed 70, moving 1, changed 71, moved 71, moving 0"));

    // A press on the groove is no click; the next one is.
    press(slider, measures.at(10));
    lose();
    release(slider, measures.at(10));
    QCOMPARE(recorder.taken(), QString());
    click(slider, measures.at(10));
    QCOMPARE(recorder.taken(), text("changed 10"));
}

/// A slot of each signal of a drag opens a modal dialog.
template<typename Slider>
void checkDialogInASlot(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    QVERIFY(showPainted(slider, slider->window()));
    prepare(slider, measures);
    const auto openDialog = [] {
        QDialog dialog;
        QTimer::singleShot(0, &dialog, &QDialog::reject);
        dialog.exec();
    };
    const struct
    {
        std::function<QMetaObject::Connection(QObject *)> connect;
        const char *told;
    } rows[] = {{[&](QObject *context) {
                     return QObject::connect(slider, &Slider::sliderMoving, context, [=](bool moving) {
                         if (moving)
                             openDialog();
                     });
                 },
                 "moving 1, moving 0"},
                {[&](QObject *context) {
                     return QObject::connect(slider, &Slider::valueChanged, context, openDialog);
                 },
                 "moving 1, changed 30, moving 0"},
                {[&](QObject *context) {
                     return QObject::connect(slider, &Slider::sliderMoved, context, openDialog);
                 },
                 "moving 1, changed 30, moved 30, moving 0"}};
    Recorder<Slider> recorder(slider);
    const auto restart = [&] {
        slider->setValue(0);
        painted(slider);
        recorder.taken();
        press(slider, measures.at(0));
    };
    for (const auto &row : rows) {
        QObject context;
        restart();
        row.connect(&context);
        move(slider, measures.at(30));
        QCoreApplication::processEvents();
        move(slider, measures.at(40));
        release(slider, measures.at(40));
        QCOMPARE(recorder.taken(), text(row.told));
    }
    // At the release the drag has its end already.
    restart();
    move(slider, measures.at(30));
    recorder.taken();
    QObject context;
    QObject::connect(slider, &Slider::valueChanged, &context, openDialog);
    release(slider, measures.at(31));
    QCoreApplication::processEvents();
    QCOMPARE(recorder.taken(), text("changed 31, moved 31, moving 0"));
}

/// The slider goes when it is told that its drag was lost.
template<typename Slider>
void checkDestroyedByALoss(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    QVERIFY(showPainted(slider, slider->window()));
    prepare(slider, measures);
    const QPointer<Slider> guard(slider);
    press(slider, measures.at(0));
    move(slider, measures.at(30));
    QObject::connect(slider, &Slider::sliderMoving, qApp, [=] { delete slider; });
    slider->hide();
    QVERIFY(!guard);
}

/// What lies in a skin's folder is seen when the skin is set, be it the same folder, and in new sliders.
template<typename Slider>
void checkSkinIsWhatLiesThereNow(const std::function<Slider *()> &make)
{
    using namespace SliderTesting;
    const QScopedPointer<Slider> slider(make());
    const auto handleColor = [](Slider *shown) {
        const qreal ratio = shown->devicePixelRatioF();
        return painted(shown, Qt::white).pixelColor(int(4 * ratio), int(4 * ratio));
    };
    const auto handle = [](const QColor &color) {
        return QByteArray("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9'><rect width='9' "
                          "height='9' fill='") +
               color.name().toLatin1() + "'/></svg>";
    };
    SkinFolder folder;
    const QString resourceFolder = QStringLiteral(":/client/skin/");
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::red)}) {
        folder.writeRaw("handle.svg", handle(color));
        const MemoryResource resource(QStringLiteral("/client/skin"),
                                      {{QStringLiteral("handle.svg"), handle(color)}});
        for (const QString &path : {folder.path(), resourceFolder}) {
            slider->setSkinPath(path);
            QCOMPARE(handleColor(slider.data()), color);
        }
        QCOMPARE(slider->getSkinPath(), resourceFolder);
    }
    slider->setSkinPath(resourceFolder);
    QCOMPARE(handleColor(slider.data()), QColor(Qt::white));

    // Another slider is enough.
    slider->setSkinPath(folder.path());
    QCOMPARE(handleColor(slider.data()), QColor(Qt::red));
    folder.writeRaw("handle.svg", handle(Qt::green));
    const QScopedPointer<Slider> other(make());
    QCOMPARE(handleColor(slider.data()), QColor(Qt::green));
}

/// Ranges that make no sense: nothing crashes, and the pointer changes no value.
template<typename Slider>
void checkAbsurdRanges(Slider *slider, const Measures &measures)
{
    using namespace SliderTesting;
    constexpr int kLowest = std::numeric_limits<int>::min();
    constexpr int kHighest = std::numeric_limits<int>::max();
    const QImage atMinimum = painted(slider);
    for (const int bound : {5, -5, 0, kLowest, kHighest}) {
        slider->setRange(bound, bound);
        QCOMPARE(painted(slider), atMinimum);
        click(slider, measures.at(60));
        QCOMPARE(slider->value(), 0);
        QCOMPARE(painted(slider), atMinimum);
    }
    const QPair<int, int> ranges[] = {{10, 0}, {kHighest, kLowest},      {kLowest, kHighest},
                                      {0, 1},  {kHighest - 1, kHighest}, {kLowest, 0}};
    for (const QPair<int, int> &range : ranges) {
        slider->setRange(range.first, range.second);
        for (const int value : {range.first, range.second, 0, kLowest, kHighest}) {
            slider->setValue(value);
            painted(slider);
            click(slider, measures.at(60));
            painted(slider);
            press(slider, measures.at(60));
            move(slider, measures.at(30));
            painted(slider);
            release(slider, measures.at(0));
        }
    }
    slider->setRange(10, 0);
    slider->setValue(10);
    QCOMPARE(painted(slider), atMinimum);
    click(slider, measures.at(60));
    QCOMPARE(slider->value(), 10);
}

template<typename Slider>
struct Check
{
    const char *name;
    void (*run)(Slider *, const Measures &);
};

/// The checks that any prepared slider must pass, one each.
template<typename Slider>
const QVector<Check<Slider>> &all()
{
    static const QVector<Check<Slider>> checks{
        {"set value", checkSetValue<Slider>},
        {"update comes before the signal", checkUpdateComesBeforeTheSignal<Slider>},
        {"every step paints", checkEveryStepPaints<Slider>},
        {"drag", checkDrag<Slider>},
        {"drag rests beyond the edges", checkDragRestsBeyondTheEdges<Slider>},
        {"press on the handle alone", checkPressOnHandleAlone<Slider>},
        {"groove click", checkGrooveClick<Slider>},
        {"travel of clicks", checkTravelOfClicks<Slider>},
        {"halfway goes up", checkHalfwayGoesUp<Slider>},
        {"other buttons", checkOtherButtons<Slider>},
        {"two quick clicks", checkTwoQuickClicks<Slider>},
        {"every pixel", checkEveryPixel<Slider>},
        {"drag from fractions", checkDragFromFractions<Slider>},
        {"handle stays in hand", checkHandleStaysInHand<Slider>},
        {"absurd ranges", checkAbsurdRanges<Slider>},
    };
    return checks;
}

template<typename Slider>
void addRows()
{
    QTest::addColumn<int>("check");
    for (int check = 0; check < all<Slider>().size(); ++check)
        QTest::newRow(all<Slider>().at(check).name) << check;
}

/// Runs the check of the current row on a slider of its own.
template<typename Slider>
void runRow(Slider *slider, const Measures &measures)
{
    QFETCH(int, check);
    prepare(slider, measures);
    all<Slider>().at(check).run(slider, measures);
}

} // namespace HorizontalSliderChecks
