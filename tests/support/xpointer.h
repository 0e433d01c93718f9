#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/Qt>

class QImage;
class QWidget;

/// The real pointer and keyboard of the X server, driven from outside the process through xdotool. Every call
/// processes the application's events until server and window manager have done their part and the application has
/// been told. What it asks of them in reaction, to show a window say, may still be under way. Points are global, in
/// device-independent pixels.
namespace XPointer {

void moveTo(QPoint globalPos);
void press(int button = 1);
void release(int button = 1);
void click(QPoint globalPos, int button = 1);
/// Presses at `from`, moves to `to` in small steps and releases there.
void drag(QPoint from, QPoint to, int button = 1);
/// Moves the pressed pointer to `to` in small steps.
void glideTo(QPoint to);
/// Types one key combination in xdotool's spelling, such as "ctrl+shift+a".
void key(const QString &combination);
/// Runs xdotool with these arguments while events are processed; its standard output.
QString xdotool(const QStringList &arguments);
/// Shows the window and waits until the window manager has mapped and, where possible, activated it.
bool showAndWait(QWidget *window);
/// The pixels of the root window as the user sees them.
QImage grabScreen();

} // namespace XPointer
