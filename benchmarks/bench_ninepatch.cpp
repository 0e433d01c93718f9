#include "bench.h"

#include "orvcommonlib.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/qdrawutil.h>

namespace {

constexpr int kSourceSize = 64;
constexpr int kBorder = 20;
constexpr int kLargeBorder = 31; // leaves two pixels in the middle
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
Canvas borderPixmap(Canvas canvas, const QPixmap &source, int border)
{
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    qDrawBorderPixmap(&painter, canvas.rect(), QMargins(border, border, border, border), source);
    painter.end();
    return canvas;
}

void measureFile(Bench &bench, const QString &what, QString path, int border, QSize size)
{
    bench.compare(
        QStringLiteral("image file%1 to %2 x %3").arg(what).arg(size.width()).arg(size.height()),
        [&] {
            Bench::keep(
                totalcommon::NinePatch(path, border, border, border, border, size.width(), size.height()));
        },
        [&] {
            Bench::keep(borderPixmap(QImage(size, QImage::Format_RGBA8888), QPixmap::fromImage(QImage(path)),
                                     border));
        });
}

void measurePixmap(Bench &bench, const QString &what, QPixmap pixmap, int border, QSize size)
{
    bench.compare(
        QStringLiteral("pixmap%1 to %2 x %3").arg(what).arg(size.width()).arg(size.height()),
        [&] {
            Bench::keep(
                totalcommon::NinePatch(pixmap, border, border, border, border, size.width(), size.height()));
        },
        [&] { Bench::keep(borderPixmap(QPixmap(size), pixmap, border)); });
}

const BenchGroup group("ninepatch", [](Bench &bench) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("panel.png"));
    const QString largePath = folder.filePath(QStringLiteral("panel@2x.png"));
    panelImage().save(path);
    panelImage().save(largePath);
    const QPixmap pixmap(path);
    const QPixmap largePixmap(largePath);
    for (const QSize size : {QSize(800, 600), QSize(1920, 1080)}) {
        for (const int border : {kBorder, kLargeBorder}) {
            const QString borders = QStringLiteral(", borders %1,").arg(border);
            measureFile(bench, borders, path, border, size);
            measurePixmap(bench, borders, pixmap, border, size);
            measureFile(bench, QStringLiteral(" @2x") + borders, largePath, border, size);
            measurePixmap(bench, QStringLiteral(" @2x") + borders, largePixmap, border, size);
        }
    }
    bench.note(
        QStringLiteral("a picture of 64 x 64 pixels, against qDrawBorderPixmap() on a canvas of the same "
                       "format; both sides load the image file"));
});

} // namespace
