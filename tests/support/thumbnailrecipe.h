#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPixmap>

#include <cmath>

/// What the functions for thumbnails are measured by.
namespace ThumbnailRecipe {

inline QImage canvasOf(int width, int height)
{
    QImage canvas(width, height, QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    return canvas;
}

inline QPixmap clipped(const QPixmap &picture, int width, int height, double radius)
{
    QImage canvas = canvasOf(width, height);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QPainterPath path;
    path.addRoundedRect(QRectF(0, 0, width, height), radius, radius, Qt::AbsoluteSize);
    painter.setClipPath(path, Qt::ReplaceClip);
    painter.drawPixmap(QRect(0, 0, width, height), picture);
    painter.end();
    return QPixmap::fromImage(canvas);
}

/// The steps of scaleAndClipPixmap(), one after the other.
inline QPixmap plainThumbnail(const QPixmap &source, QSize size, int radius)
{
    const int tw = size.width();
    const int th = size.height();
    const int sw = source.width();
    const int sh = source.height();
    if (source.size() == size || std::fabs(double(tw) / th - double(sw) / sh) <= 1e-6)
        return clipped(source, tw, th, radius);
    const bool wide = double(sw) / tw > double(sh) / th;
    const int nw = wide ? int(double(sw) * th / sh) : tw;
    const int nh = wide ? th : int(double(sh) * tw / sw);
    QImage canvas = canvasOf(nw, nh);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QPoint(0, 0), source);
    painter.end();
    QImage picture = canvas;
    if (wide && nw != tw)
        picture = canvas.copy((nw - tw) / 2, 0, tw, th);
    if (!wide && nh != th)
        picture = canvas.copy(0, (nh - th) / 2, tw, th);
    return clipped(QPixmap::fromImage(picture), tw, th, radius);
}

/// The steps of scaleAndClipPixmap2(), one after the other; a null pixmap where the output stays as it is.
inline QPixmap plainSmoothThumbnail(const QPixmap &source, QSizeF size, double radius)
{
    const double tw = size.width();
    const double th = size.height();
    const int sw = source.width();
    const int sh = source.height();
    if ((th == sh && tw == sw) || std::fabs(tw / th - double(sw) / sh) <= 1e-6) {
        if (!(radius > 0))
            return {};
        const QPixmap scaled = source.scaled(int(tw), int(th), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QImage canvas = canvasOf(QSizeF(tw, th).toSize().width(), QSizeF(tw, th).toSize().height());
        const QRectF rect(0, 0, tw, th);
        QPainter painter(&canvas);
        QPainterPath path;
        path.addRoundedRect(rect, radius, radius, Qt::AbsoluteSize);
        painter.setClipPath(path, Qt::ReplaceClip);
        painter.drawPixmap(rect.toRect(), scaled);
        painter.end();
        return QPixmap::fromImage(canvas);
    }
    QPixmap scaled;
    if (double(sw) / tw > double(sh) / th) {
        const int nw = int(double(sw) * int(th) / sh);
        scaled = source.scaled(nw, int(th), Qt::KeepAspectRatio, Qt::SmoothTransformation);
        if (tw != nw)
            scaled = scaled.copy(int((nw - tw) / 2.0), 0, int(tw), int(th));
    } else {
        const int nh = int(double(sh) * int(tw) / sw);
        scaled = source.scaled(int(tw), nh, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        if (th != nh)
            scaled = scaled.copy(0, int((nh - th) / 2.0), int(tw), int(th));
    }
    return clipped(scaled, int(tw), int(th), radius);
}

} // namespace ThumbnailRecipe
