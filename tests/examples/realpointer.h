#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>

/// The pointer and the keyboard of the desktop, as a user has them, for a client in a process of its own. Points are
/// pixels of the screen.
namespace RealPointer {

void click(QPoint point);
void drag(QPoint from, QPoint to);
/// \param combination such as "Ctrl+Shift+F7", "Return", "Right"
void key(const QString &combination);

} // namespace RealPointer
