#pragma once

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

/// What NinePatch() is measured by: nine cuts, five stretches and nine drawings, one after the other.
struct NinePatchRecipe
{
    int left;
    int top;
    int right;
    int bottom;
    int width;
    int height;

    template<typename Picture, typename Draw>
    void run(const Picture &source, QPainter &painter, Draw &&draw) const
    {
        const int sourceWidth = source.width();
        const int sourceHeight = source.height();
        const int middle = sourceWidth - left - right;
        const int central = sourceHeight - top - bottom;
        const int wide = width - left - right;
        const int high = height - top - bottom;

        const Picture topLeft = source.copy(0, 0, left, top);
        const Picture topEdge = source.copy(left, 0, middle, top);
        const Picture topRight = source.copy(sourceWidth - right, 0, right, top);
        const Picture leftEdge = source.copy(0, top, left, central);
        const Picture centre = source.copy(left, top, middle, central);
        const Picture rightEdge = source.copy(sourceWidth - right, top, right, central);
        const Picture bottomLeft = source.copy(0, sourceHeight - bottom, left, bottom);
        const Picture bottomEdge = source.copy(left, sourceHeight - bottom, middle, bottom);
        const Picture bottomRight = source.copy(sourceWidth - right, sourceHeight - bottom, right, bottom);

        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setRenderHint(QPainter::TextAntialiasing);
        draw(0, 0, topLeft);
        draw(left, 0, stretched(topEdge, wide, top));
        draw(width - right, 0, topRight);
        draw(0, top, stretched(leftEdge, left, high));
        draw(left, top, stretched(centre, wide, high));
        draw(width - right, top, stretched(rightEdge, right, high));
        draw(0, height - bottom, bottomLeft);
        draw(left, height - bottom, stretched(bottomEdge, wide, bottom));
        draw(width - right, height - bottom, bottomRight);
    }

    template<typename Picture>
    static Picture stretched(const Picture &piece, int w, int h)
    {
        if (piece.isNull())
            return piece;
        return piece.scaled(w, h, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    }

    QImage ofImage(const QString &fileName) const
    {
        const QImage source(fileName);
        QImage canvas(width, height, QImage::Format_RGBA8888);
        if (canvas.isNull())
            return canvas;
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        run(source, painter,
            [&](int x, int y, const QImage &piece) { painter.drawPixmap(x, y, QPixmap::fromImage(piece)); });
        painter.end();
        return canvas;
    }

    QPixmap ofPixmap(const QPixmap &source) const
    {
        QPixmap canvas(width, height);
        if (canvas.isNull())
            return canvas;
        canvas.fill(QColor(Qt::transparent));
        QPainter painter(&canvas);
        run(source, painter, [&](int x, int y, const QPixmap &piece) { painter.drawPixmap(x, y, piece); });
        painter.end();
        return canvas;
    }

    QString text() const
    {
        return QStringLiteral("borders %1 %2 %3 %4, target %5 x %6")
            .arg(left)
            .arg(top)
            .arg(right)
            .arg(bottom)
            .arg(width)
            .arg(height);
    }
};
