#pragma once

#include "mouseevents.h"
#include "stage.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QWidget>

/// What happens to the objects.
namespace Destruction {

template<typename Class, typename Function>
Step step(const char *name, Function function)
{
    return {name, [function](QObject *object) {
                function(static_cast<Class *>(object));
            }};
}

template<typename Event>
void send(QObject *receiver, Event &&event)
{
    QCoreApplication::sendEvent(receiver, &event);
}

Step press(QPoint pos, Qt::MouseButton button = Qt::LeftButton);
Step move(QPoint pos);
Step release(QPoint pos, Qt::MouseButton button = Qt::LeftButton);
Step doubleClick(QPoint pos);
Step wheel(int delta);
Step key(int code, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = QString());
Step plainEvent(const char *name, QEvent::Type type);
/// Lets the application's event loop turn.
Step turn();
Step show();
/// Clicks the push button with this place among those of a dialog.
Step clickButton(int index);

/// What happens to every widget, with what is the class's own before the end.
QVector<Step> life(const QVector<Step> &own);
/// The end of it.
QVector<Step> closing();
/// What happens to a dialog that a user drags and resizes by its edges.
QVector<Step> dragging();
/// The runs of a dialog that blocks in a loop of its own, one for each way in which they end.
QVector<Step> runs(const QByteArray &name, const std::function<void(QObject *)> &blocks);

} // namespace Destruction
