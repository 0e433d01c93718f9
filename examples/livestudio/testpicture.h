#pragma once

#include <QtCore/QSize>
#include <QtGui/QImage>

/// What stands for a camera here: somebody in a room with lights, who moves a little.
namespace TestPicture {

/// \param size    in pixels
/// \param seconds since the camera was opened
/// \param camera  its number; each sees the room in a light of its own
QImage draw(QSize size, double seconds, int camera);

} // namespace TestPicture
