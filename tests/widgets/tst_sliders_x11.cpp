#include "custombidirectionslider.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>

namespace {

constexpr int kScrollDown = 5;
constexpr int kScrollUp = 4;

/// A window with some room around each slider.
class Stage : public QWidget
{
public:
    Stage() { setGeometry(100, 100, 400, 200); }
};

int lastOf(const QSignalSpy &spy)
{
    return spy.isEmpty() ? -1 : spy.constLast().constFirst().toInt();
}

// The handle of the painted sliders: value v of 0..100 stands at half a handle and v hundredths of the
// travel.
QPoint handleAt(const QWidget &slider, int handleWidth, int value)
{
    const int x = handleWidth / 2 + (slider.width() - handleWidth) * value / 100;
    return slider.mapToGlobal(QPoint(x, slider.height() / 2));
}

template<typename Slider>
void dragEndToEnd(Slider *slider, int handleWidth)
{
    const QSignalSpy changed(slider, &Slider::valueChanged);
    const QSignalSpy moved(slider, &Slider::sliderMoved);
    const QSignalSpy moving(slider, &Slider::sliderMoving);
    XPointer::drag(handleAt(*slider, handleWidth, 0), handleAt(*slider, handleWidth, 100));
    QTRY_COMPARE(slider->value(), 100);
    QCOMPARE(lastOf(changed), 100);
    QCOMPARE(moved.count(), changed.count());
    QVERIFY(moving.count() >= 3);
    QCOMPARE(moving.constFirst().constFirst().toBool(), true);
    QCOMPARE(moving.constLast().constFirst().toBool(), false);

    // Past both ends: the handle stays on the groove and comes back with the pointer.
    XPointer::moveTo(handleAt(*slider, handleWidth, 100));
    XPointer::press();
    XPointer::glideTo(handleAt(*slider, handleWidth, 100) + QPoint(80, 40));
    QCOMPARE(slider->value(), 100);
    XPointer::glideTo(handleAt(*slider, handleWidth, 50));
    QTRY_VERIFY(qAbs(slider->value() - 50) <= 5);
    XPointer::glideTo(handleAt(*slider, handleWidth, 0) - QPoint(60, 0));
    XPointer::release();
    QTRY_COMPARE(slider->value(), 0);
    QCOMPARE(moving.constLast().constFirst().toBool(), false);
}

template<typename Slider>
void clickTheGroove(Slider *slider, int handleWidth)
{
    const QSignalSpy changed(slider, &Slider::valueChanged);
    const QSignalSpy moved(slider, &Slider::sliderMoved);
    XPointer::click(handleAt(*slider, handleWidth, 50));
    QTRY_COMPARE(slider->value(), 50);
    QCOMPARE(changed.count(), 1);
    XPointer::click(slider->mapToGlobal(QPoint(slider->width() - 1, slider->height() / 2)));
    QTRY_COMPARE(slider->value(), 100);
    XPointer::click(slider->mapToGlobal(QPoint(0, slider->height() / 2)));
    QTRY_COMPARE(slider->value(), 0);
    XPointer::click(handleAt(*slider, handleWidth, 70), 3);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(moved.count(), 0);
}

// A slot of the drag opens a modal dialog, into which the release goes.
template<typename Slider>
void loseADrag(Slider *slider, int handleWidth)
{
    const QSignalSpy moving(slider, &Slider::sliderMoving);
    QDialog dialog(slider->window());
    dialog.setModal(true);
    const QMetaObject::Connection opening =
        QObject::connect(slider, &Slider::sliderMoved, &dialog, [&](int value) {
            if (value > 30)
                dialog.open();
        });
    XPointer::moveTo(handleAt(*slider, handleWidth, 0));
    XPointer::press();
    XPointer::glideTo(handleAt(*slider, handleWidth, 50));
    QTRY_VERIFY(dialog.isVisible());
    XPointer::release();
    QTRY_COMPARE(moving.constLast().constFirst().toBool(), false);
    QObject::disconnect(opening);
    dialog.accept();
    QTRY_VERIFY(!dialog.isVisible());
    const int value = slider->value();
    XPointer::moveTo(handleAt(*slider, handleWidth, 80));
    XPointer::moveTo(handleAt(*slider, handleWidth, 90));
    QCOMPARE(slider->value(), value);
    XPointer::click(handleAt(*slider, handleWidth, 0));
    QTRY_COMPARE(slider->value(), 0);
}

} // namespace

/// The sliders under a real pointer.
class tst_SlidersX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void horizontalSlider();
    void newHorizontalSlider();
    void disabledNewHorizontalSlider();
    void customSlider();
    void bidirectionSliderDrag();
    void bidirectionSliderLetsTheAreaScroll();
    void stepBarDrag();
    void stepBarHoverAndLeave();
    void stepBarMenu();
    void cursors();
};

void tst_SlidersX11::horizontalSlider()
{
    Stage stage;
    HorizontalSlider slider(&stage, false, true);
    slider.move(90, 60);
    QVERIFY(XPointer::showAndWait(&stage));
    dragEndToEnd(&slider, 14);
    clickTheGroove(&slider, 14);
    loseADrag(&slider, 14);
}

void tst_SlidersX11::newHorizontalSlider()
{
    Stage stage;
    NewHorizontalSlider slider(QSize(210, 10), QSize(10, 10), true, &stage);
    slider.move(90, 60);
    QVERIFY(XPointer::showAndWait(&stage));
    dragEndToEnd(&slider, 10);
    clickTheGroove(&slider, 10);
    loseADrag(&slider, 10);
}

void tst_SlidersX11::disabledNewHorizontalSlider()
{
    Stage stage;
    NewHorizontalSlider slider(QSize(210, 10), QSize(10, 10), false, &stage);
    slider.move(90, 60);
    slider.setSliderEnabled(false);
    QVERIFY(XPointer::showAndWait(&stage));
    const QSignalSpy changed(&slider, &NewHorizontalSlider::valueChanged);
    XPointer::drag(handleAt(slider, 10, 0), handleAt(slider, 10, 80));
    XPointer::click(handleAt(slider, 10, 40));
    QCOMPARE(changed.count(), 0);
    slider.setSliderEnabled(true);
    XPointer::click(handleAt(slider, 10, 40));
    QTRY_COMPARE(slider.value(), 40);
}

void tst_SlidersX11::customSlider()
{
    Stage stage;
    CustomSlider slider(Qt::Horizontal, &stage);
    slider.setGeometry(90, 60, 200, 30);
    QVERIFY(XPointer::showAndWait(&stage));
    const QSignalSpy clicked(&slider, &CustomSlider::signalClickValue);
    XPointer::click(slider.mapToGlobal(QPoint(120, 15)));
    QTRY_COMPARE(clicked.count(), 1);
    const double expected = 120 / 200.0 * 99 + 0.5;
    QCOMPARE(lastOf(clicked), int(expected));
    slider.setValue(0);
    const int handle = slider.style()->pixelMetric(QStyle::PM_SliderLength, nullptr, &slider);
    XPointer::drag(slider.mapToGlobal(QPoint(handle / 2, 15)), slider.mapToGlobal(QPoint(260, 15)));
    QTRY_COMPARE(slider.value(), slider.maximum());
    QCOMPARE(clicked.count(), 1);
    XPointer::click(slider.mapToGlobal(QPoint(199, 15)));
    QTRY_COMPARE(clicked.count(), 2);
    QCOMPARE(lastOf(clicked), 99);
}

void tst_SlidersX11::bidirectionSliderDrag()
{
    Stage stage;
    CustomBidirectionSlider slider(6, 24, Qt::blue, &stage);
    slider.setGeometry(90, 60, 200, 24);
    slider.setRange(-50, 50);
    slider.setValue(-50);
    QVERIFY(XPointer::showAndWait(&stage));
    XPointer::drag(slider.mapToGlobal(QPoint(12, 12)), slider.mapToGlobal(QPoint(260, 12)));
    QTRY_COMPARE(slider.value(), 50);
    XPointer::drag(slider.mapToGlobal(QPoint(188, 12)), slider.mapToGlobal(QPoint(-40, 12)));
    QTRY_COMPARE(slider.value(), -50);
}

void tst_SlidersX11::bidirectionSliderLetsTheAreaScroll()
{
    QScrollArea area;
    auto *contents = new QWidget;
    contents->setFixedSize(300, 3000);
    CustomBidirectionSlider slider(6, 24, Qt::blue, contents);
    slider.setGeometry(20, 90, 200, 24);
    slider.setValue(50);
    area.setWidget(contents);
    area.setGeometry(100, 100, 340, 220);
    QVERIFY(XPointer::showAndWait(&area));
    const QPoint over = slider.mapToGlobal(slider.rect().center());

    XPointer::click(over, kScrollDown);
    QTRY_VERIFY(area.verticalScrollBar()->value() > 0);
    QCOMPARE(slider.value(), 50);
    XPointer::click(over, kScrollUp);
    QTRY_COMPARE(area.verticalScrollBar()->value(), 0);

    slider.enableWheel(true);
    XPointer::click(slider.mapToGlobal(slider.rect().center()), kScrollDown);
    QTRY_VERIFY(slider.value() < 50);
    QCOMPARE(area.verticalScrollBar()->value(), 0);
}

void tst_SlidersX11::stepBarDrag()
{
    Stage stage;
    CustomSliderBarWidget bar(&stage);
    bar.move(90, 60);
    bar.setCount(4);
    QVERIFY(XPointer::showAndWait(&stage));
    const QSignalSpy finished(&bar, &CustomSliderBarWidget::selectFinish);
    XPointer::moveTo(bar.mapToGlobal(QPoint(8, 6)));
    XPointer::press();
    XPointer::glideTo(bar.mapToGlobal(QPoint(108, 6)));
    QTRY_COMPARE(bar.getCurrentIndex(), 3);
    QCOMPARE(finished.count(), 0);
    // Far beyond the last step nothing changes.
    XPointer::glideTo(bar.mapToGlobal(QPoint(300, 60)));
    QCOMPARE(bar.getCurrentIndex(), 3);
    XPointer::release();
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(lastOf(finished), 3);
    XPointer::click(bar.mapToGlobal(QPoint(40, 6)));
    QTRY_COMPARE(finished.count(), 2);
    QCOMPARE(lastOf(finished), 1);
    XPointer::click(bar.mapToGlobal(QPoint(8, 6)), 3);
    QTRY_COMPARE(finished.count(), 3);
    QCOMPARE(lastOf(finished), 0);
}

void tst_SlidersX11::stepBarHoverAndLeave()
{
    Stage stage;
    CustomSliderBarWidget bar(&stage);
    CustomSliderBarWidget other(&stage);
    bar.move(90, 60);
    other.move(90, 120);
    QVERIFY(XPointer::showAndWait(&stage));
    const QImage atRest = bar.grab().toImage();
    XPointer::moveTo(bar.mapToGlobal(QPoint(100, 6)));
    XPointer::moveTo(bar.mapToGlobal(QPoint(20, 6)));
    QCOMPARE(bar.getCurrentIndex(), 0);
    XPointer::moveTo(stage.mapToGlobal(QPoint(5, 5)));
    QCOMPARE(bar.grab().toImage(), atRest);
    // After a drag that ended elsewhere no bar follows the pointer.
    XPointer::drag(bar.mapToGlobal(QPoint(100, 6)), stage.mapToGlobal(QPoint(5, 190)));
    XPointer::moveTo(other.mapToGlobal(QPoint(100, 6)));
    XPointer::moveTo(other.mapToGlobal(QPoint(90, 6)));
    QCOMPARE(other.getCurrentIndex(), 0);
}

// The menu takes the release: afterwards no bar follows the pointer.
void tst_SlidersX11::stepBarMenu()
{
    Stage stage;
    CustomSliderBarWidget bar(&stage);
    CustomSliderBarWidget other(&stage);
    bar.move(90, 60);
    other.move(90, 120);
    QMenu menu;
    menu.addAction(QStringLiteral("action"));
    bar.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&bar, &QWidget::customContextMenuRequested, &menu,
            [&] { menu.popup(stage.mapToGlobal(QPoint(200, 20))); });
    QVERIFY(XPointer::showAndWait(&stage));
    const QSignalSpy finished(&bar, &CustomSliderBarWidget::selectFinish);
    XPointer::moveTo(bar.mapToGlobal(QPoint(8, 6)));
    XPointer::press(3);
    QTRY_VERIFY(menu.isVisible());
    XPointer::release(3);
    menu.close();
    for (CustomSliderBarWidget *hovered : {&bar, &other}) {
        XPointer::moveTo(hovered->mapToGlobal(QPoint(100, 6)));
        XPointer::moveTo(hovered->mapToGlobal(QPoint(90, 6)));
        QCOMPARE(hovered->getCurrentIndex(), 0);
    }
    QCOMPARE(finished.count(), 0);
    XPointer::click(bar.mapToGlobal(QPoint(100, 6)));
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(bar.getCurrentIndex(), 1);
}

void tst_SlidersX11::cursors()
{
    Stage stage;
    HorizontalSlider horizontal(&stage);
    NewHorizontalSlider newHorizontal(QSize(142, 10), QSize(10, 10), false, &stage);
    CustomSliderBarWidget bar(&stage);
    horizontal.move(20, 20);
    newHorizontal.move(20, 60);
    bar.move(20, 100);
    QVERIFY(XPointer::showAndWait(&stage));
    QWindow *window = stage.windowHandle();
    for (QWidget *slider : {static_cast<QWidget *>(&horizontal), static_cast<QWidget *>(&newHorizontal),
                            static_cast<QWidget *>(&bar)}) {
        XPointer::moveTo(stage.mapToGlobal(QPoint(390, 190)));
        QTRY_VERIFY(window->cursor().shape() != Qt::PointingHandCursor);
        XPointer::moveTo(slider->mapToGlobal(slider->rect().center()));
        QTRY_COMPARE(window->cursor().shape(), Qt::PointingHandCursor);
    }
}

ORV_TEST_MAIN(tst_SlidersX11)

#include "tst_sliders_x11.moc"
