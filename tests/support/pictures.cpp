#include "pictures.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QWidget>

#include <cstdlib>
#include <cstring>

QImage renderWidget(QWidget *widget)
{
    const qreal ratio = widget->devicePixelRatioF();
    QImage image((QSizeF(widget->size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

int differingPixels(const QImage &left, const QImage &right, int tolerance)
{
    if (left.size() != right.size())
        return -1;
    int count = 0;
    const auto bytes = size_t(left.bytesPerLine());
    const bool isAlike = left.format() == right.format() && left.bytesPerLine() == right.bytesPerLine();
    for (int y = 0; y < left.height(); ++y) {
        if (isAlike && std::memcmp(left.constScanLine(y), right.constScanLine(y), bytes) == 0)
            continue;
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            const bool same =
                std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
                std::abs(qBlue(a) - qBlue(b)) <= tolerance && std::abs(qAlpha(a) - qAlpha(b)) <= tolerance;
            count += same ? 0 : 1;
        }
    }
    return count;
}

QImage gradientImage(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x & 0xff, y & 0xff, (x * 7 + y * 13) & 0xff));
    }
    return image;
}

QString savedImage(const QImage &image, const QString &name)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    return image.save(path, "PNG") ? path : QString();
}
