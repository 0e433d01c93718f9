#include "orvcommonlib.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cstring>
#include <limits>

namespace totalcommon {

namespace {

/// Borders are brought into this range, far beyond any picture, so that sums of them cannot
/// overflow.
constexpr int kMeasureLimit = 1 << 24;

/// What a canvas or a piece may take in memory: more is as good as no picture, on every kind of machine.
constexpr qint64 kPixelLimit = std::numeric_limits<int>::max() / 4;

int sane(int measure)
{
    return qBound(-kMeasureLimit, measure, kMeasureLimit);
}

bool isPictureSize(QSize size)
{
    return !size.isEmpty() && qint64(size.width()) * size.height() <= kPixelLimit;
}

/// The widths of the border around the part that is stretched, in source pixels.
struct Border
{
    int left;
    int top;
    int right;
    int bottom;
};

/// One of the nine pieces: where it is cut, the size it gets and where it lands.
struct Piece
{
    QRect cut;
    QSize size;
    QPoint place;
    bool stretched;
};

/// The nine pieces in the order in which they are drawn, row by row.
template<typename Function>
void forEachPiece(const Border &border, QSize source, QSize target, Function &&function)
{
    const int cutX[] = {0, border.left, source.width() - border.right};
    const int cutY[] = {0, border.top, source.height() - border.bottom};
    const int cutWidth[] = {border.left, source.width() - border.left - border.right, border.right};
    const int cutHeight[] = {border.top, source.height() - border.top - border.bottom, border.bottom};
    const int x[] = {0, border.left, target.width() - border.right};
    const int y[] = {0, border.top, target.height() - border.bottom};
    const int width[] = {border.left, target.width() - border.left - border.right, border.right};
    const int height[] = {border.top, target.height() - border.top - border.bottom, border.bottom};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const bool stretched = row == 1 || column == 1;
            function(Piece{QRect(cutX[column], cutY[row], cutWidth[column], cutHeight[row]),
                           QSize(width[column], height[row]), QPoint(x[column], y[row]), stretched});
        }
    }
}

/// The size that a stretched piece gets may be negative (a target smaller than the borders): there is no such
/// piece.
bool isDrawn(const Piece &piece)
{
    return !piece.stretched || isPictureSize(piece.size);
}

void drawPiece(QPainter &painter, const QImage &source, Piece piece)
{
    if (!piece.stretched && !piece.cut.isEmpty() && source.devicePixelRatio() == 1.0) {
        // A corner may be far larger than the source and the canvas; what cannot be seen is not worth its
        // memory. (A picture named name@2x is drawn smaller than its pixels: there they do not correspond.)
        const QRect whole(piece.place, piece.cut.size());
        const QRect seen = whole & painter.viewport();
        if (seen.isEmpty())
            return;
        piece.cut = QRect(piece.cut.topLeft() + (seen.topLeft() - whole.topLeft()), seen.size());
        piece.place = seen.topLeft();
    }
    // QImage takes the rectangle without any size for the whole image, so a corner between two borders of
    // width zero shows all of it: pictures without a border look as they do because of that.
    if (!isDrawn(piece) || (!piece.cut.isNull() && !isPictureSize(piece.cut.size())))
        return;
    QImage picture = source.copy(piece.cut);
    if (piece.stretched && !picture.isNull())
        picture = picture.scaled(piece.size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    painter.drawPixmap(piece.place, QPixmap::fromImage(picture));
}

void drawPiece(QPainter &painter, const QPixmap &source, const Piece &piece)
{
    if (!isDrawn(piece))
        return;
    // QPixmap takes every empty rectangle for the whole pixmap, and cuts nothing from outside of itself.
    QPixmap picture = source.copy(piece.cut);
    if (piece.stretched && !picture.isNull())
        picture = picture.scaled(piece.size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    painter.drawPixmap(piece.place, picture);
}

/// Draws the nine pieces of an image or a pixmap into a transparent canvas.
template<typename Picture, typename Canvas>
void drawPieces(Canvas &canvas, const Picture &source, const Border &border)
{
    if (source.isNull() || canvas.isNull())
        return;
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::TextAntialiasing);
    forEachPiece(border, source.size(), canvas.size(),
                 [&](const Piece &piece) { drawPiece(painter, source, piece); });
    painter.end();
}

// Stretching only repeats rows, and each row is painted independently of its neighbours. A canvas that is
// higher than the source therefore holds nothing but rows of one that is as high as the source: that low one
// is drawn, and its rows are copied.

/// QPainter draws nothing beyond this.
constexpr int kPaintableLimit = 32767;

/// Whether the rows of the source are those of the three bands of the canvas and nothing else: with an empty
/// piece, the whole source may appear in its place.
bool hasAllPieces(const Border &border, QSize source, QSize target)
{
    const int horizontal = border.left + border.right;
    const int vertical = border.top + border.bottom;
    return border.left > 0 && border.top > 0 && border.right > 0 && border.bottom > 0 &&
           horizontal < source.width() && vertical < source.height() && horizontal < target.width() &&
           vertical < target.height();
}

/// From about this factor on QImage stretches by another way, which may round positions differently. That
/// must not happen in one direction where it matters in the other.
constexpr int kLargeFactor = 256;

bool isStretchedAlike(const Border &border, QSize source, QSize target)
{
    const int columns = source.width() - border.left - border.right;
    const int rows = source.height() - border.top - border.bottom;
    const bool isMuchWider = target.width() / kLargeFactor >= columns;
    const bool isMuchHigher = target.height() / kLargeFactor >= rows;
    return (!isMuchWider || rows == 1) && (!isMuchHigher || columns == 1);
}

/// Whether all pixels come out of stretching and painting as they are, in every row. Where a pixel without
/// alpha is not marked as opaque, or a colour exceeds its alpha, that depends on the pixels beside it.
bool hasSoundPixels(const QImage &image)
{
    const bool isPremultiplied = image.format() == QImage::Format_ARGB32_Premultiplied;
    if (!isPremultiplied && image.format() != QImage::Format_RGB32)
        return true;
    const auto isSound = [isPremultiplied](QRgb pixel) {
        const int brightest = qMax(qMax(qRed(pixel), qGreen(pixel)), qBlue(pixel));
        return qAlpha(pixel) >= (isPremultiplied ? brightest : 0xff);
    };
    for (int y = 0; y < image.height(); ++y) {
        const QRgb *const line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (!std::all_of(line, line + image.width(), isSound))
            return false;
    }
    return true;
}

/// Whether stretchedRows() can tell the rows of an image of this format apart.
bool isMeasurable(QImage::Format format, int rows)
{
    switch (format) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        return true;
    case QImage::Format_Indexed8:
    case QImage::Format_Grayscale8:
        return rows <= 256;
    default:
        return false;
    }
}

/// Which of `rows` rows stands in each row of an image of this format when it is stretched to `height`.
/// QImage itself is asked, with a ruler whose pixels are their own positions.
QVector<int> stretchedRows(QImage::Format format, int rows, int height)
{
    QImage ruler(1, rows, format);
    const bool isWide = ruler.depth() == 32;
    for (int y = 0; y < rows; ++y) {
        if (isWide)
            *reinterpret_cast<QRgb *>(ruler.scanLine(y)) = qRgb(0, 0, 0) | QRgb(y);
        else
            *ruler.scanLine(y) = uchar(y);
    }
    ruler = ruler.scaled(1, height, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    QVector<int> positions(height);
    for (int y = 0; y < height; ++y) {
        const uchar *const line = ruler.constScanLine(y);
        positions[y] = isWide ? int(*reinterpret_cast<const QRgb *>(line) & RGB_MASK) : *line;
    }
    return positions;
}

/// Whether the rows of a canvas as high as the source are enough for the whole one.
bool isEnoughToRepeatRows(const QImage &source, const Border &border, QSize size)
{
    return source.height() < size.height() && hasAllPieces(border, source.size(), size) &&
           isStretchedAlike(border, source.size(), size) && source.devicePixelRatio() == 1.0 &&
           qMax(size.width(), size.height()) <= kPaintableLimit &&
           isMeasurable(source.format(), source.height()) && hasSoundPixels(source);
}

/// The whole canvas, made of the rows of the low one. `format` is the source's.
QImage withRowsRepeated(const QImage &low, QImage::Format format, const Border &border, int height)
{
    const int borderRows = border.top + border.bottom;
    QImage canvas(low.width(), height, low.format());
    if (canvas.isNull())
        return canvas;
    uchar *line = canvas.bits();
    const auto append = [&](int lowRow) {
        std::memcpy(line, low.constScanLine(lowRow), size_t(low.bytesPerLine()));
        line += canvas.bytesPerLine();
    };
    for (int y = 0; y < border.top; ++y)
        append(y);
    const QVector<int> rows = stretchedRows(format, low.height() - borderRows, height - borderRows);
    for (const int row : rows)
        append(border.top + row);
    for (int y = low.height() - border.bottom; y < low.height(); ++y)
        append(y);
    return canvas;
}

} // namespace

QImage NinePatch(QString &fileName, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(width, height);
    if (!isPictureSize(size))
        return {};
    const Border border{sane(left), sane(top), sane(right), sane(bottom)};
    const QImage source(fileName);
    const bool isLow = isEnoughToRepeatRows(source, border, size);
    QImage canvas(size.width(), isLow ? source.height() : size.height(), QImage::Format_RGBA8888);
    canvas.fill(Qt::transparent);
    drawPieces(canvas, source, border);
    return isLow ? withRowsRepeated(canvas, source.format(), border, size.height()) : canvas;
}

QPixmap NinePatch(QPixmap &pixmap, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(width, height);
    if (!isPictureSize(size))
        return {};
    const Border border{sane(left), sane(top), sane(right), sane(bottom)};
    const QImage source = pixmap.toImage();
    // Pieces of a pixmap that was made without converting its image are converted when they are cut.
    const bool isConverted =
        source.format() == QImage::Format_RGB32 || source.format() == QImage::Format_ARGB32_Premultiplied;
    const bool isLow = isConverted && isEnoughToRepeatRows(source, border, size);
    QPixmap canvas(size.width(), isLow ? source.height() : size.height());
    canvas.fill(QColor(Qt::transparent));
    drawPieces(canvas, pixmap, border);
    if (!isLow)
        return canvas;
    return QPixmap::fromImage(withRowsRepeated(canvas.toImage(), source.format(), border, size.height()),
                              Qt::NoOpaqueDetection);
}

} // namespace totalcommon
