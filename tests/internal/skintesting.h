#pragma once

#include "pictures.h"
#include "skinpainter.h"
#include "slidertesting.h"

#include <QtCore/QRandomGenerator>

/// What the tests of painted skins share: documents, canvases, and the recipe by which each is painted.
namespace SkinTesting {

using namespace SliderTesting;

constexpr QSize kCanvas(90, 70);

inline QByteArray document(const QByteArray &shapes)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20' viewBox='0 0 20 20'>" + shapes +
           "</svg>";
}

inline QImage blank(const QSize &size, qreal ratio = 1)
{
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

/// Every pixel another one, opaque or translucent.
inline QImage noise(QRandomGenerator *random, qreal ratio,
                    QImage::Format format = QImage::Format_ARGB32_Premultiplied)
{
    QImage image((QSizeF(kCanvas) * ratio).toSize(), format);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const quint32 number = random->generate();
            line[x] = format == QImage::Format_RGB32 ? number | 0xff000000U : qPremultiply(number);
        }
    }
    image.setDevicePixelRatio(ratio);
    return image;
}

/// A groove that is painted: which piece, where, with how many pixels, of which these are coloured.
struct Groove
{
    QRectF area;
    QSize pixels;
    SkinPainter::Columns columns;
    QColor color;
};

inline void prepare(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
}

/// As the plain recipe has it.
inline void paintGroove(QPainter *painter, const QString &file, const Groove &groove)
{
    QImage image(groove.pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    {
        QPainter imagePainter(&image);
        renderSvg(&imagePainter, file, image.rect());
        imagePainter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        const QRectF part(groove.columns.from, 0, groove.columns.to - groove.columns.from, image.height());
        imagePainter.fillRect(part, groove.color);
    }
    painter->drawImage(groove.area, image);
}

/// Compares a piece with what the recipe makes of it. Twice, since what is kept is made by the first time.
inline void compare(const QString &folder, const char *name, const QRectF &target, const QImage &canvas,
                    int tolerance)
{
    QImage expected = canvas;
    {
        QPainter painter(&expected);
        prepare(&painter);
        renderSvg(&painter, folder + QString::fromLatin1(name), target);
    }
    for (int time = 0; time < 2; ++time) {
        QImage image = canvas;
        SkinPainter(&image, folder).paint(QString::fromLatin1(name), target);
        QCOMPARE(differingPixels(image, expected, tolerance), 0);
    }
}

inline void compare(const QString &folder, const Groove &groove, const QImage &canvas, int tolerance)
{
    QImage expected = canvas;
    {
        QPainter painter(&expected);
        prepare(&painter);
        paintGroove(&painter, folder + QStringLiteral("groove.svg"), groove);
    }
    for (int time = 0; time < 2; ++time) {
        QImage image = canvas;
        SkinPainter(&image, folder)
            .paintColored(QStringLiteral("groove.svg"), groove.area, groove.pixels, groove.columns,
                          groove.color);
        QCOMPARE(differingPixels(image, expected, tolerance), 0);
    }
}

} // namespace SkinTesting
