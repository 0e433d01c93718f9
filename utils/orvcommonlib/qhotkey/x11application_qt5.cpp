#include "x11application.h"

#include <QtX11Extras/QX11Info>

xcb_connection_t *x11application::connection()
{
    return QX11Info::isPlatformX11() ? QX11Info::connection() : nullptr;
}

_XDisplay *x11application::display()
{
    return QX11Info::isPlatformX11() ? QX11Info::display() : nullptr;
}
