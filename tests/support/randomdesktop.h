#pragma once

#include "fakescreens.h"
#include "seed.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <functional>
#include <memory>

/// A desktop of two to four screens of any ratio, beside, above and left of the platform's own one, and the windows on
/// it. What it is follows from its seed.
class RandomDesktop
{
public:
    explicit RandomDesktop(quint32 seed)
        : m_random(seed)
    {
        const int count = 2 + below(3);
        for (int i = 0; i < count; ++i)
            plugIn();
        m_screens.makePrimary(below(count)); // the platform's own screen is not of this desktop
    }

    int below(int limit) { return int(m_random.bounded(limit)); }
    qreal anyRatio()
    {
        static const QVector<qreal> kRatios{1, 1.25, 1.5, 1.75, 2, 2.25, 2.5, 3};
        return kRatios.at(below(kRatios.size()));
    }
    int count() const { return m_screens.count(); }
    QScreen *screen(int index) const { return m_screens.at(index)->screen(); }

    /// A place in the free area of a screen.
    QRect placeOn(const QScreen *screen, QSize size)
    {
        const QRect room = screen->availableGeometry();
        return {room.topLeft() +
                    QPoint(below(room.width() - size.width() + 1), below(room.height() - size.height() + 1)),
                size};
    }

    QRect anyPlace(QSize size) { return placeOn(screen(below(count())), size); }

    void makePrimary(int index)
    {
        m_screens.makePrimary(index);
        settle();
    }
    void unplug(int index)
    {
        m_screens.remove(index);
        settle();
    }
    /// Another ratio and another size, where the screen is.
    void change(int index)
    {
        FakeScreen *changed = m_screens.at(index);
        const Shape shape = anyShape(changed->geometry().topLeft());
        m_screens.change(index, shape.geometry, shape.available, shape.ratio);
        settle();
    }
    /// Lets the windows take notice.
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

private:
    struct Shape
    {
        QRect geometry;
        QRect available;
        qreal ratio;
    };

    // Sizes are drawn in device-independent pixels: every screen has room for what a dialog takes.
    Shape anyShape(QPoint origin)
    {
        const qreal ratio = anyRatio();
        const QSize size = QSizeF((800 + below(1100)) * ratio, (640 + below(500)) * ratio).toSize();
        const QRect geometry(origin, size);
        const int bar = int(40 * ratio);
        return {geometry, below(2) ? geometry.adjusted(0, 0, 0, -bar) : geometry.adjusted(bar, 0, 0, 0),
                ratio};
    }

    // Far enough from the others that no two overlap, whatever their size and ratio.
    void plugIn()
    {
        constexpr int kWidest = 7000;
        constexpr int kHighest = 5000;
        static const QVector<QPoint> kCells{{-1, 0}, {0, -1}, {1, 0}, {-1, -1}, {1, -1}, {0, 1}, {-1, 1}};
        const QPoint cell = kCells.at((m_firstCell + m_screens.count()) % kCells.size());
        const QPoint origin(cell.x() * kWidest + below(500), cell.y() * kHighest + below(500));
        const Shape shape = anyShape(origin);
        m_screens.add(shape.geometry, shape.available, shape.ratio);
    }

    QRandomGenerator m_random;
    int m_firstCell = below(7);
    FakeScreens m_screens;
    WindowsFollowScreens m_follower;
};

/// What the tests on such desktops share. ORV_TEST_SEED repeats a desktop: it is printed with what fails.
namespace MixedScreens {

constexpr int kDesktops = 12;
constexpr QSize kWindow(360, 240);

/// Does it on one desktop after the other, and says which one failed.
inline void onDesktops(const std::function<void(RandomDesktop &)> &action)
{
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kDesktops; ++seed) {
        RandomDesktop desktop(seed);
        action(desktop);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("ORV_TEST_SEED=%1").arg(seed)));
    }
}

inline std::unique_ptr<QWidget> shownWindow(const QRect &geometry)
{
    auto window = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint);
    window->setGeometry(geometry);
    window->show();
    RandomDesktop::settle();
    return window;
}

inline bool isOnSomeScreen(const QRect &rect)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    return std::any_of(screens.cbegin(), screens.cend(),
                       [&](const QScreen *screen) { return screen->geometry().intersects(rect); });
}

inline QRect globalRect(const QWidget *widget)
{
    return {widget->mapToGlobal(QPoint()), widget->size()};
}

} // namespace MixedScreens
