#pragma once

class QWidget;

/// What a user does to the widget of a visible window. The events go to the window, as the window system's do.
namespace Events {

/// Rests the pointer on the middle of the widget.
void hover(QWidget *widget);
/// Holds the left button on the middle of the widget, until release().
void press(QWidget *widget);
/// Lets go of the button where it is held.
void release();
/// Moves the pointer from the widget to the edge of its window.
void moveAway(QWidget *widget);
void click(QWidget *widget);
/// Presses Tab until the widget has the focus, which it is made to take.
void tabTo(QWidget *widget);

} // namespace Events
