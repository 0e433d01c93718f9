#pragma once

#include <QtGui/QHoverEvent>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using HoverEvent = QHoverEvent;
#else
/// The hover event that both Qts can make.
class HoverEvent : public QHoverEvent
{
public:
    HoverEvent(Type type, const QPointF &pos, const QPointF &oldPos)
        : QHoverEvent(type, pos, pos, oldPos)
    {
    }
};
#endif
