#include "basemovedialog.h"
#include "custombidirectionslider.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "framelesshelper.h"
#include "horizontalslider.h"
#include "mouseevents.h"
#include "newhorizontalslider.h"
#include "randomdesktop.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtCore/QMetaProperty>
#include <QtTest/QTest>

#include <functional>
#include <memory>

using namespace MixedScreens;
using ShadowComboTesting::Combo;

namespace {

using Made = std::unique_ptr<QWidget>;
struct Kind
{
    const char *name;
    std::function<Made(QWidget *parent)> make;
};

template<typename Widget, typename... Arguments>
std::function<Made(QWidget *)> maker(Arguments... arguments)
{
    return [=](QWidget *parent) {
        return std::make_unique<Widget>(arguments..., parent);
    };
}

const QVector<Kind> kControls{
    {"slider",
     [](QWidget *parent) {
         return std::make_unique<HorizontalSlider>(parent);
     }},
    {"new slider", maker<NewHorizontalSlider>(QSize(200, 20), QSize(16, 16), false)},
    {"slider with a line",
     [](QWidget *parent) {
         return std::make_unique<CustomBidirectionSlider>(parent);
     }},
    {"steps",
     [](QWidget *parent) {
         return std::make_unique<CustomSliderBarWidget>(parent);
     }},
    {"icon button",
     [](QWidget *parent) {
         return std::make_unique<CustomizeIconButton>(QSize(16, 16), QStringLiteral("Text"), 4, parent, true);
     }},
    {"picture button", maker<CustomPictureBtn>(QStringLiteral("Text"))},
    {"combo header",
     [](QWidget *parent) {
         return std::make_unique<CustomComboxHeader>(false, parent);
     }},
};

const QVector<Kind> kSliders{
    kControls.at(0),
    kControls.at(1),
    kControls.at(2),
    kControls.at(3),
    {"slider of the style",
     [](QWidget *parent) {
         return std::make_unique<CustomSlider>(Qt::Horizontal, parent);
     }},
};

int valueOf(const QWidget *slider)
{
    return slider->metaObject()->userProperty().read(slider).toInt();
}

/// The pointer over a point of a widget, as the window system tells it: in pixels of the screen.
void point(const QWidget *widget, QPoint local, QEvent::Type type)
{
    QWindow *window = widget->window()->windowHandle();
    const QPointF inWindow =
        QPointF(widget->mapTo(widget->window(), local)) * window->screen()->devicePixelRatio();
    const QPointF onScreen = window->handle()->geometry().topLeft() + inWindow;
    const bool isMove = type == QEvent::MouseMove;
    QWindowSystemInterface::handleMouseEvent<QWindowSystemInterface::SynchronousDelivery>(
        window, inWindow, onScreen, type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
        isMove ? Qt::NoButton : Qt::LeftButton, type);
}

void addKinds(const QVector<Kind> &kinds)
{
    QTest::addColumn<int>("kind");
    for (int i = 0; i < kinds.size(); ++i)
        QTest::newRow(kinds.at(i).name) << i;
}

} // namespace

/// Lists, windows that are dragged and resized, and pictures, on desktops of screens of any shape and ratio.
/// ORV_TEST_SEED repeats a desktop: it is printed with what fails.
class tst_MixedScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void desktopsHaveTheirRatios();
    void listsOpenAtTheirHeaders();
    void dragsFollowThePointer_data();
    void dragsFollowThePointer();
    void gesturesReturnToWhereTheyBegan_data();
    void gesturesReturnToWhereTheyBegan();
    void slidersKeepToThePointer_data();
    void slidersKeepToThePointer();
    void picturesAreThoseOfTheRatio_data();
    void picturesAreThoseOfTheRatio();
};

void tst_MixedScreens::desktopsHaveTheirRatios()
{
    FakeScreens screens;
    QScreen *screen = screens.add({-4000, -3000, 2000, 1500}, {-4000, -3000, 2000, 1400}, 2);
    screens.makePrimary(0);
    const WindowsFollowScreens follower;
    const auto window = shownWindow({QPoint(-3900, -2900), kWindow});
    QCOMPARE(window->windowHandle()->screen(), screen);
    QCOMPARE(screen->geometry(), QRect(-4000, -3000, 1000, 750));
    QCOMPARE(window->devicePixelRatioF(), 2.0);
    QCOMPARE(window->size(), kWindow);
    screens.change(0, {-4000, -3000, 2400, 1500}, {-4000, -3000, 2400, 1500}, 1.25);
    RandomDesktop::settle();
    QCOMPARE(screen->availableGeometry(), QRect(-4000, -3000, 1920, 1200));
    QCOMPARE(window->devicePixelRatioF(), 1.25);
    QCOMPARE(window->size(), kWindow);
}

void tst_MixedScreens::listsOpenAtTheirHeaders()
{
    onDesktops([](RandomDesktop &desktop) {
        for (int i = 0; i < 6; ++i) {
            QScreen *screen = desktop.screen(desktop.below(desktop.count()));
            const auto window = shownWindow(desktop.placeOn(screen, kWindow));
            Combo combo(window.get());
            combo.setGeometry(desktop.below(140), desktop.below(190), 200, 48);
            combo.add(1 + desktop.below(4));
            combo.show();
            combo.showPopup();
            RandomDesktop::settle();
            const QRect header = globalRect(combo.header());
            const QRect list = combo.popup()->geometry();
            const QRect available = screen->availableGeometry();
            QCOMPARE(list.x(), header.x() - 4);
            const bool fitsBelow = header.bottom() + list.height() <= available.bottom();
            QCOMPARE(list.y(), fitsBelow ? header.bottom() + 1 : header.y() - list.height());
            QVERIFY(available.intersects(list));
            QCOMPARE(combo.popup()->windowHandle()->screen(), screen);
            QCOMPARE(combo.popup()->grab().devicePixelRatio(), screen->devicePixelRatio());
            combo.hidePopup();
        }
    });
}

void tst_MixedScreens::dragsFollowThePointer_data()
{
    QTest::addColumn<bool>("helperAlone");
    QTest::newRow("dialog") << false;
    QTest::newRow("window with a helper") << true;
}

void tst_MixedScreens::dragsFollowThePointer()
{
    QFETCH(const bool, helperAlone);
    onDesktops([helperAlone](RandomDesktop &desktop) {
        FramelessHelper helper;
        std::unique_ptr<QWidget> window;
        if (helperAlone)
            window = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint);
        else
            window = std::make_unique<BaseMoveDialog>(nullptr, true, false, false);
        if (helperAlone)
            helper.activateOn(window.get());
        window->setGeometry(desktop.placeOn(desktop.screen(0), kWindow));
        window->show();
        RandomDesktop::settle();
        const QPoint offset(100, 30);
        MouseEvents::press(window.get(), window->pos() + offset);
        for (int step = 0; step < 12; ++step) {
            if (step == 4)
                desktop.change(desktop.below(desktop.count()));
            if (step == 8)
                desktop.unplug(desktop.below(desktop.count()));
            const QPoint pointer = desktop.anyPlace(kWindow).topLeft() + offset;
            MouseEvents::move(window.get(), pointer);
            RandomDesktop::settle();
            QCOMPARE(window->pos(), pointer - offset);
            if (step < 4)
                QCOMPARE(window->size(), kWindow);
        }
        MouseEvents::release(window.get(), window->pos() + offset);
        QVERIFY(isOnSomeScreen(window->geometry()));
    });
}

void tst_MixedScreens::gesturesReturnToWhereTheyBegan_data()
{
    QTest::addColumn<QPoint>("grip"); // in the window
    QTest::newRow("title") << QPoint(100, 30);
    QTest::newRow("left") << QPoint(0, 120);
    QTest::newRow("top left") << QPoint(0, 0);
    QTest::newRow("top") << QPoint(100, 0);
    QTest::newRow("right") << QPoint(kWindow.width() - 1, 120);
    QTest::newRow("bottom right") << QPoint(kWindow.width() - 1, kWindow.height() - 1);
    QTest::newRow("bottom") << QPoint(100, kWindow.height() - 1);
}

// At fractional ratios too: however often, and however far, nothing creeps.
void tst_MixedScreens::gesturesReturnToWhereTheyBegan()
{
    QFETCH(const QPoint, grip);
    onDesktops([grip](RandomDesktop &desktop) {
        QScreen *screen = desktop.screen(desktop.below(desktop.count()));
        const QRect room = screen->availableGeometry();
        const QRect before(room.center() - QPoint(180, 120), kWindow);
        const auto window = shownWindow(before);
        window->setMinimumSize(100, 100);
        FramelessHelper helper;
        helper.activateOn(window.get());
        helper.setWidgetResizable(true);
        for (int gesture = 0; gesture < 5; ++gesture) {
            const QPoint start = before.topLeft() + grip;
            MouseEvents::press(window.get(), start);
            for (int step = 0; step < 5; ++step) {
                MouseEvents::move(window.get(),
                                  start + QPoint(desktop.below(101) - 50, desktop.below(101) - 50));
                RandomDesktop::settle();
            }
            MouseEvents::move(window.get(), start);
            RandomDesktop::settle();
            MouseEvents::release(window.get(), start);
            QCOMPARE(window->geometry(), before);
        }
    });
}

void tst_MixedScreens::slidersKeepToThePointer_data()
{
    addKinds(kSliders);
}

// In a drag during which the ratio changes and the window goes to another screen, a slider takes the values that
// another one takes whose screen stays as it is.
void tst_MixedScreens::slidersKeepToThePointer()
{
    QFETCH(const int, kind);
    onDesktops([kind](RandomDesktop &desktop) {
        const auto window = shownWindow(desktop.placeOn(desktop.screen(0), kWindow));
        const Made slider = kSliders.at(kind).make(window.get());
        slider->setGeometry(20, 20, 206, 24);
        slider->show();
        const Made other = kSliders.at(kind).make(nullptr);
        other->resize(slider->size());
        other->grab(); // a paint lays it out
        RandomDesktop::settle();

        const int middle = slider->height() / 2;
        point(slider.get(), {6, middle}, QEvent::MouseButtonPress);
        MouseEvents::press(other.get(), other->mapToGlobal(QPoint(6, middle)));
        for (int step = 0; step < 12; ++step) {
            if (step % 3 == 1)
                desktop.change(0);
            if (step % 3 == 2)
                window->move(desktop.anyPlace(kWindow).topLeft());
            RandomDesktop::settle();
            const QPoint pointer(desktop.below(slider->width()), middle);
            point(slider.get(), pointer, QEvent::MouseMove);
            MouseEvents::move(other.get(), other->mapToGlobal(pointer));
            QCOMPARE(valueOf(slider.get()), valueOf(other.get()));
        }
        const QPoint end(slider->width() - 1, middle);
        point(slider.get(), end, QEvent::MouseMove);
        const int last = valueOf(slider.get());
        QVERIFY(last > 0);
        point(slider.get(), end, QEvent::MouseButtonRelease);
        point(slider.get(), {6, middle}, QEvent::MouseMove);
        QCOMPARE(valueOf(slider.get()), last);
    });
}

void tst_MixedScreens::picturesAreThoseOfTheRatio_data()
{
    addKinds(kControls);
}

// What has come from another screen looks as what was made on this one: no picture is kept for another ratio.
void tst_MixedScreens::picturesAreThoseOfTheRatio()
{
    QFETCH(const int, kind);
    onDesktops([kind](RandomDesktop &desktop) {
        const auto picture = [](QWidget *widget) {
            return widget->grab().toImage();
        };
        const auto window = shownWindow(desktop.placeOn(desktop.screen(0), kWindow));
        const Made traveller = kControls.at(kind).make(window.get());
        traveller->setGeometry(20, 20, 200, 40);
        traveller->show();
        for (int i = 0; i < 4; ++i) {
            const int index = desktop.below(desktop.count());
            window->move(desktop.placeOn(desktop.screen(index), kWindow).topLeft());
            RandomDesktop::settle();
            if (i == 2)
                desktop.change(index);
            const Made native = kControls.at(kind).make(window.get());
            native->setGeometry(traveller->geometry());
            native->show();
            RandomDesktop::settle();
            const qreal ratio = desktop.screen(index)->devicePixelRatio();
            QCOMPARE(picture(traveller.get()).devicePixelRatio(), ratio);
            QCOMPARE(picture(traveller.get()).size(), (QSizeF(traveller->size()) * ratio).toSize());
            QVERIFY(picture(traveller.get()) == picture(native.get()));
        }
    });
}

ORV_TEST_MAIN(tst_MixedScreens)

#include "tst_mixedscreens.moc"
