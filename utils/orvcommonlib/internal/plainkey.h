#pragma once

#include <QtGui/QKeyEvent>
#include <QtWidgets/QWidget>

/// The key that a control may answer: one that no modifier turns into a shortcut, in a control that a client has given
/// a focus policy. The keypad's keys count as those that they stand for, its Enter as Qt::Key_Return. 0 if there is
/// none; such keys belong to QWidget::keyPressEvent(), which passes them on.
inline int plainKey(const QWidget *control, const QKeyEvent *event)
{
    if (control->focusPolicy() == Qt::NoFocus || (event->modifiers() & ~Qt::KeypadModifier))
        return 0;
    return event->key() == Qt::Key_Enter ? int(Qt::Key_Return) : event->key();
}
