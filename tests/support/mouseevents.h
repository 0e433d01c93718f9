#pragma once

#include <QtCore/QPoint>
#include <QtCore/Qt>

class QEvent;
class QWidget;

/// Mouse events at exact global positions, delivered to one widget as QApplication delivers them, without a
/// pointer and without a window system that has a say. Each answers whether the widget (or an event filter)
/// took the event.
namespace MouseEvents {

bool press(QWidget *widget, QPoint globalPos, Qt::MouseButton button = Qt::LeftButton);
bool release(QWidget *widget, QPoint globalPos, Qt::MouseButton button = Qt::LeftButton);
bool doubleClick(QWidget *widget, QPoint globalPos, Qt::MouseButton button = Qt::LeftButton);
/// Moves with these buttons held.
bool move(QWidget *widget, QPoint globalPos, Qt::MouseButtons buttons = Qt::LeftButton);
bool hover(QWidget *widget, QPoint globalPos);
bool enter(QWidget *widget);
bool leave(QWidget *widget);

} // namespace MouseEvents
