#pragma once

struct _XDisplay;
struct xcb_connection_t;

/// The application's own way to the X server, as each Qt tells it; null unless its platform plugin is the one for X.
namespace x11application {

xcb_connection_t *connection();
_XDisplay *display();

} // namespace x11application
