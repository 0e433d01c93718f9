#pragma once

#include <QtCore/QPoint>
#include <QtWidgets/QApplication>

/// True when a press and its release lie so close together that they are a click and not a drag.
inline bool isClick(QPoint pressPos, QPoint releasePos)
{
    return (releasePos - pressPos).manhattanLength() < QApplication::startDragDistance();
}
