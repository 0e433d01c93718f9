#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QImage>

class QPainter;

/// Draws the pieces of the painted sliders' skins, which are SVG files.
///
/// A file is parsed when a piece of it is first asked for; what it looks like at a size in pixels, uncoloured
/// and coloured, is rendered once and kept. All stores are bounded and shared by all sliders. A file that
/// does not exist, cannot be read or is no SVG document paints nothing and logs nothing; a missing one is
/// looked for again the next time. A file that changes after it was parsed keeps its first look.
///
/// To be used in the GUI thread only.
namespace SkinRenderer {

/// Sets a slider's painter up: smooth edges, smooth images, no pen.
void prepare(QPainter *painter);

/// A size in pixels, each side rounded; sides beyond what an image can have are cut.
QSize pixelSize(const QSize &size, qreal ratio);

/// The file rendered into the whole of a transparent image of that size in pixels, in the format ARGB32. Null
/// if there is nothing to render, or if the image would be absurdly large.
QImage image(const QString &file, const QSize &pixels);

/// The same, with `part` of the image filled with the colour so that only the file's own pixels take it. The
/// edges of the part are rounded to whole pixels; left and right may be exchanged.
QImage coloredImage(const QString &file, const QSize &pixels, const QRectF &part, const QColor &color);

/// Paints the file into `target`, in the painter's coordinates; an empty target paints nothing.
///
/// The first time at a place of the canvas its shapes are painted; from the second time on, where that can be
/// done to the last bit, the images that these left (see SkinLayers).
void paint(QPainter *painter, const QString &file, const QRectF &target);

} // namespace SkinRenderer
