#pragma once

#include <QtCore/QSize>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <limits>

/// Lengths and places are brought into this range on both sides of zero: beyond any picture, and far enough
/// from the limits of int for sums of a few of them.
constexpr int kMeasureLimit = 1 << 28;

/// Whether a picture can have this size. More than a quarter of what an int counts is as good as no picture, on
/// every kind of machine.
inline bool isPictureSize(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width * height <= std::numeric_limits<int>::max() / 4;
}

inline bool isPictureSize(QSize size)
{
    return isPictureSize(size.width(), size.height());
}

/// A canvas to paint a picture on; null when no picture can have that size.
inline QImage transparentCanvas(QSize size, QImage::Format format = QImage::Format_RGBA8888)
{
    QImage canvas(isPictureSize(size) ? size : QSize(), format);
    canvas.fill(Qt::transparent);
    return canvas;
}

/// What pictures are painted with.
inline void setSmoothHints(QPainter &painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}
