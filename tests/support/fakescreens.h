#pragma once

#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtGui/QWindow>

#include <qpa/qplatformscreen.h>
#include <qpa/qplatformwindow.h>
#include <qpa/qwindowsysteminterface.h>

#include <algorithm>
#include <iterator>

/// A screen that the window system reports although nobody sees it: for desktops of any shape on any
/// platform. It counts in its own pixels; Qt divides them by its ratio, where scaling by screen is switched
/// on: with Qt 5 by QT_ENABLE_HIGHDPI_SCALING.
class FakeScreen : public QPlatformScreen
{
public:
    FakeScreen(const QString &name, const QRect &geometry, const QRect &available, qreal ratio = 1)
        : m_name(name)
        , m_geometry(geometry)
        , m_available(available)
        , m_ratio(ratio)
    {
    }

    QString name() const override { return m_name; }
    QRect geometry() const override { return m_geometry; }
    QRect availableGeometry() const override { return m_available; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
    QDpi logicalDpi() const override { return {kDpi * m_ratio, kDpi * m_ratio}; }
    QDpi logicalBaseDpi() const override { return {kDpi, kDpi}; }
    /// All that are one desktop with this one: a window may be moved from one to the other.
    QList<QPlatformScreen *> virtualSiblings() const override { return m_siblings; }
    void setSiblings(const QList<QPlatformScreen *> &siblings) { m_siblings = siblings; }

    void change(const QRect &geometry, const QRect &available, qreal ratio)
    {
        m_geometry = geometry;
        m_available = available;
        m_ratio = ratio;
        QWindowSystemInterface::handleScreenLogicalDotsPerInchChange(screen(), kDpi * ratio, kDpi * ratio);
        QWindowSystemInterface::handleScreenGeometryChange(screen(), geometry, available);
    }

private:
    static constexpr qreal kDpi = 96;

    QString m_name;
    QRect m_geometry;
    QRect m_available;
    qreal m_ratio;
    QList<QPlatformScreen *> m_siblings{this};
};

/// Adds screens to the desktop for as long as it lives. They are named "0", "1" and so on, in the order in
/// which they were added, and follow the platform's own screens in QGuiApplication::screens().
class FakeScreens
{
public:
    explicit FakeScreens(const QVector<QRect> &geometries = {})
    {
        for (const QRect &geometry : geometries)
            add(geometry, geometry);
    }

    ~FakeScreens()
    {
        for (FakeScreen *screen : qAsConst(m_screens))
            QWindowSystemInterface::handleScreenRemoved(screen); // deletes it
    }

    FakeScreens(const FakeScreens &) = delete;
    FakeScreens &operator=(const FakeScreens &) = delete;

    QScreen *add(const QRect &geometry, const QRect &available, qreal ratio = 1)
    {
        auto *screen = new FakeScreen(QString::number(m_added++), geometry, available, ratio);
        m_screens.append(screen);
        introduce();
        QWindowSystemInterface::handleScreenAdded(screen);
        return screen->screen();
    }

    int count() const { return m_screens.size(); }
    FakeScreen *at(int index) const { return m_screens.at(index); }

    /// Another shape or ratio, while it is running. The windows on it stay where they are in the screen's own pixels,
    /// and as large as they are in device-independent ones.
    void change(int index, const QRect &geometry, const QRect &available, qreal ratio)
    {
        QScreen *const screen = m_screens.at(index)->screen();
        QVector<QPair<QWindow *, QRect>> places;
        const QVector<QWindow *> windows = windowsOn(screen);
        for (QWindow *window : windows)
            places.append({window, {window->handle()->geometry().topLeft(), window->size()}});
        m_screens.at(index)->change(geometry, available, ratio);
        for (const auto &place : qAsConst(places)) {
            const QPoint offset = place.second.topLeft() - geometry.topLeft();
            place.first->setGeometry(
                QRect(screen->geometry().topLeft() + offset / ratio, place.second.size()));
        }
    }

    /// Moves the screen to the front of QGuiApplication::screens().
    void makePrimary(int index) { QWindowSystemInterface::handlePrimaryScreenChanged(m_screens.at(index)); }

    /// Unplugs a screen. Its windows go to the primary one first, as the systems of users see to it.
    void remove(int index)
    {
        FakeScreen *const gone = m_screens.takeAt(index);
        if (QGuiApplication::primaryScreen() == gone->screen() && !m_screens.isEmpty())
            makePrimary(0);
        const QScreen *refuge = QGuiApplication::primaryScreen();
        const QVector<QWindow *> windows = windowsOn(gone->screen());
        for (QWindow *window : windows)
            window->setPosition(refuge->availableGeometry().topLeft());
        QCoreApplication::processEvents();
        introduce();
        QWindowSystemInterface::handleScreenRemoved(gone);
    }

private:
    void introduce()
    {
        const QList<QPlatformScreen *> siblings(m_screens.cbegin(), m_screens.cend());
        for (FakeScreen *screen : qAsConst(m_screens))
            screen->setSiblings(siblings);
    }

    static QVector<QWindow *> windowsOn(const QScreen *screen)
    {
        QVector<QWindow *> windows;
        const QList<QWindow *> all = QGuiApplication::topLevelWindows();
        std::copy_if(all.cbegin(), all.cend(), std::back_inserter(windows), [screen](const QWindow *window) {
            return window->handle() && window->screen() == screen;
        });
        return windows;
    }

    QVector<FakeScreen *> m_screens;
    int m_added = 0;
};

/// Tells each window of the application that it is on the screen on which its middle lies, as a platform with several
/// screens does and the offscreen one does not. It is as large there as it was, in device-independent pixels.
class WindowsFollowScreens : public QObject
{
public:
    WindowsFollowScreens() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        if (watched->isWindowType() && (type == QEvent::Move || type == QEvent::Resize ||
                                        type == QEvent::Show || type == QEvent::Expose))
            follow(static_cast<QWindow *>(watched));
        return false;
    }

private:
    void follow(QWindow *window)
    {
        if (m_following || !window->handle() || !window->isTopLevel())
            return;
        const QPoint middle = window->handle()->geometry().center();
        if (window->screen()->handle()->geometry().contains(middle))
            return; // where screens overlap it stays
        const QList<QScreen *> screens = QGuiApplication::screens();
        for (QScreen *screen : screens) {
            if (!screen->handle()->geometry().contains(middle))
                continue;
            m_following = true;
            const QSize size = window->size();
            QWindowSystemInterface::handleWindowScreenChanged<QWindowSystemInterface::SynchronousDelivery>(
                window, screen);
            const QPoint place = window->handle()->geometry().topLeft();
            window->handle()->setGeometry({place, (QSizeF(size) * window->devicePixelRatio()).toSize()});
            m_following = false;
            return;
        }
    }

    bool m_following = false;
};
