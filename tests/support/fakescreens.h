#pragma once

#include <QtCore/QRect>
#include <QtCore/QVector>
#include <QtGui/QImage>

#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

/// A screen that the window system reports although nobody sees it: for desktops of any shape on any
/// platform.
class FakeScreen : public QPlatformScreen
{
public:
    FakeScreen(const QString &name, const QRect &geometry, const QRect &available)
        : m_name(name)
        , m_geometry(geometry)
        , m_available(available)
    {
    }

    QString name() const override { return m_name; }
    QRect geometry() const override { return m_geometry; }
    QRect availableGeometry() const override { return m_available; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }

private:
    QString m_name;
    QRect m_geometry;
    QRect m_available;
};

/// Adds screens to the desktop for as long as it lives. They are named "0", "1" and so on, in the order in
/// which they were added, and follow the platform's own screens in QGuiApplication::screens().
class FakeScreens
{
public:
    explicit FakeScreens(const QVector<QRect> &geometries)
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

    void add(const QRect &geometry, const QRect &available)
    {
        auto *screen = new FakeScreen(QString::number(m_screens.size()), geometry, available);
        m_screens.append(screen);
        QWindowSystemInterface::handleScreenAdded(screen);
    }

private:
    QVector<FakeScreen *> m_screens;
};
