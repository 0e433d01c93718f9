#include "bench.h"

#include "orvcommonlib.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/qdrawutil.h>

namespace {

constexpr int kSourceSize = 64;
constexpr int kBorder = 20;
constexpr int kRings = 10;
constexpr qreal kCornerRadius = 10;

/// A panel with round corners and a soft edge: what dialogs use as their background.
QImage panelImage()
{
    QImage image(kSourceSize, kSourceSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int ring = 0; ring < kRings; ++ring) {
        QPainterPath path;
        path.addRoundedRect(QRectF(image.rect()).adjusted(ring, ring, -ring, -ring), kCornerRadius,
                            kCornerRadius);
        painter.fillPath(path, QColor(0, 0, 0, 4 + 2 * ring));
    }
    QPainterPath panel;
    panel.addRoundedRect(QRectF(image.rect()).adjusted(10, 10, -10, -10), kCornerRadius, kCornerRadius);
    painter.fillPath(panel, Qt::white);
    return image;
}

template<typename Canvas>
Canvas borderPixmap(Canvas canvas, const QPixmap &source)
{
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    qDrawBorderPixmap(&painter, canvas.rect(), QMargins(kBorder, kBorder, kBorder, kBorder), source);
    painter.end();
    return canvas;
}

const BenchGroup group("ninepatch", [](Bench &bench) {
    const QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("panel.png"));
    panelImage().save(path);
    QPixmap pixmap(path);
    for (const QSize size : {QSize(800, 600), QSize(1920, 1080)}) {
        const int width = size.width();
        const int height = size.height();
        const QString sizes = QStringLiteral("%1 x %2 from 64 x 64").arg(width).arg(height);
        bench.compare(
            QStringLiteral("image file to ") + sizes,
            [&] {
                Bench::keep(totalcommon::NinePatch(path, kBorder, kBorder, kBorder, kBorder, width, height));
            },
            [&] {
                Bench::keep(
                    borderPixmap(QImage(size, QImage::Format_RGBA8888), QPixmap::fromImage(QImage(path))));
            });
        bench.compare(
            QStringLiteral("pixmap to ") + sizes,
            [&] {
                Bench::keep(
                    totalcommon::NinePatch(pixmap, kBorder, kBorder, kBorder, kBorder, width, height));
            },
            [&] { Bench::keep(borderPixmap(QPixmap(size), pixmap)); });
    }
    bench.note(QStringLiteral(
        "against qDrawBorderPixmap() on a canvas of the same format; both sides load the image file"));
});

} // namespace
