#pragma once

#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

/// The key, unless a modifier turns it into a shortcut: 0 then. The keypad's keys count as those that they stand for,
/// its Enter as Qt::Key_Return.
inline int plainKey(const QKeyEvent *event)
{
    if (event->modifiers() & ~Qt::KeypadModifier)
        return 0;
    return event->key() == Qt::Key_Enter ? int(Qt::Key_Return) : event->key();
}

/// The same for a control, which answers keys only if a client has given it a focus policy. Keys that mean nothing to
/// it belong to QWidget::keyPressEvent(), which passes them on.
inline int plainKey(const QWidget *control, const QKeyEvent *event)
{
    return control->focusPolicy() == Qt::NoFocus ? 0 : plainKey(event);
}
