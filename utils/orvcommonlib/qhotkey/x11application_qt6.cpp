#include "x11application.h"

#include <QtGui/QGuiApplication>

namespace {

const QNativeInterface::QX11Application *nativeApplication()
{
    const auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return application ? application->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
}

} // namespace

xcb_connection_t *x11application::connection()
{
    const auto *application = nativeApplication();
    return application ? application->connection() : nullptr;
}

_XDisplay *x11application::display()
{
    const auto *application = nativeApplication();
    return application ? application->display() : nullptr;
}
