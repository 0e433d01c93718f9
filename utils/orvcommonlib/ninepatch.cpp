#include "orvcommonlib.h"

#include "picturecanvas.h"

#include <algorithm>
#include <cstring>

namespace totalcommon {

namespace {

/// The widths of the border around the part that is stretched, in source pixels.
struct Border
{
    int left;
    int top;
    int right;
    int bottom;
};

Border saneBorder(int left, int top, int right, int bottom)
{
    const auto sane = [](int measure) {
        return qBound(-kMeasureLimit, measure, kMeasureLimit);
    };
    return {sane(left), sane(top), sane(right), sane(bottom)};
}

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
    setSmoothHints(painter);
    forEachPiece(border, source.size(), canvas.size(),
                 [&](const Piece &piece) { drawPiece(painter, source, piece); });
    painter.end();
}

// Stretching only repeats columns and rows, and each row is painted independently of its neighbours. A high canvas
// therefore holds nothing but rows of a low one, in which each row of the source stands once: that is painted, and
// its rows are copied.

/// QPainter draws nothing beyond this.
constexpr int kPaintableLimit = 32767;

/// For each column, or row, of the stretched pieces the one that stands there. QImage may round in one way in the
/// edges and in another in the centre.
struct Positions
{
    QVector<int> edges;
    QVector<int> centre;
};

QSize middleOf(const Border &border, QSize size)
{
    return size - QSize(border.left + border.right, border.top + border.bottom);
}

/// Where a pixel of an image without alpha is not marked as opaque, what becomes of it depends on those beside it.
bool isMarkedOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (!std::all_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 0xff; }))
            return false;
    }
    return true;
}

/// Which of `count` columns (or rows) stands at each of `length` places when an image of this format is stretched, in
/// the other direction by the factor `across`. A ruler whose pixels are their own positions is drawn as QImage does.
QVector<int> stretchedPositions(Qt::Orientation along, QImage::Format format, int count, int length,
                                qreal across)
{
    const bool isRow = along == Qt::Horizontal;
    const auto sizeOf = [isRow](int pixels) {
        return isRow ? QSize(pixels, 1) : QSize(1, pixels);
    };
    const auto pixel = [isRow](QImage &image, int i) {
        return isRow ? image.scanLine(0) + i * image.depth() / 8 : image.scanLine(i);
    };
    QImage ruler(sizeOf(count), format);
    const bool isWide = ruler.depth() == 32;
    for (int i = 0; i < count; ++i) {
        if (isWide)
            *reinterpret_cast<QRgb *>(pixel(ruler, i)) = qRgb(0, 0, 0) | QRgb(i);
        else
            *pixel(ruler, i) = uchar(i);
    }
    QImage stretched(sizeOf(length), format);
    if (format == QImage::Format_Indexed8) {
        stretched = ruler.scaled(stretched.size());
    } else {
        const qreal factor = qreal(length) / count;
        QPainter painter(&stretched);
        painter.scale(isRow ? factor : across, isRow ? across : factor);
        painter.drawImage(QPoint(), ruler);
    }
    QVector<int> positions(length);
    for (int i = 0; i < length; ++i) {
        const uchar *const place = pixel(stretched, i);
        positions[i] = isWide ? int(*reinterpret_cast<const QRgb *>(place) & RGB_MASK) : *place;
    }
    return positions;
}

/// Whether stretchedPositions() can tell the pixels of a middle of this size apart.
bool isMeasurable(const QImage &source, QSize middle)
{
    const QImage::Format format = source.format();
    const bool isKnown =
        (format >= QImage::Format_Indexed8 && format <= QImage::Format_ARGB32_Premultiplied) ||
        format == QImage::Format_Grayscale8;
    return isKnown && (source.depth() == 32 || qMax(middle.width(), middle.height()) <= 256);
}

/// Whether the rows of a low canvas are enough for the whole one, and worth it. With an empty piece, the whole
/// source may appear in its place.
bool isEnoughToRepeatRows(const QImage &source, const Border &border, QSize size)
{
    const qreal ratio = source.devicePixelRatio();
    const QSize middle = middleOf(border, source.size());
    const int lowHeight = source.height() + (ratio == 2.0 ? 3 * middle.height() : 0);
    return (ratio == 1.0 || ratio == 2.0) && !middle.isEmpty() &&
           qMin(qMin(border.left, border.top), qMin(border.right, border.bottom)) > 0 &&
           source.width() <= size.width() && lowHeight < size.height() &&
           qMax(size.width(), size.height()) <= kPaintableLimit && isMeasurable(source, middle) &&
           (source.format() != QImage::Format_RGB32 || isMarkedOpaque(source));
}

/// Which rows of the source's middle the low canvas shows, in order; `positions` become those in them. At half the
/// size each row of the canvas shows two: a row twice or two neighbours, or at an odd end one alone. All such pairs
/// are there, and what no piece reaches is the last row.
QVector<int> lowRows(Positions &positions, int count, bool isHalved)
{
    const bool hasOddEnd = isHalved && positions.edges.size() % 2 != 0;
    QVector<int> rows;
    for (int row = 0; row < count; ++row) {
        rows << row;
        if (isHalved)
            rows << row;
        if (isHalved && row + 1 < count)
            rows << row << row + 1;
    }
    if (hasOddEnd)
        rows << count - 1;
    const int last = rows.size() - 1;
    for (QVector<int> *places : {&positions.edges, &positions.centre}) {
        const QVector<int> whole = *places;
        for (int i = 0; isHalved && i < whole.size(); ++i)
            (*places)[i] = 2 * i + 1 < whole.size() ? whole.at(2 * i) + whole.at(2 * i + 1)
                           : 2 * i < whole.size()   ? last / 2
                                                    : last;
    }
    return rows;
}

/// One row of the source with its middle columns stretched.
template<typename Pixel>
void stretchRow(const uchar *row, int width, const Border &border, const QVector<int> &columns, uchar *line)
{
    const auto *const from = reinterpret_cast<const Pixel *>(row);
    Pixel *to = std::copy_n(from, border.left, reinterpret_cast<Pixel *>(line));
    to = std::transform(columns.cbegin(), columns.cend(), to,
                        [middle = from + border.left](int column) { return middle[column]; });
    std::copy_n(from + width - border.right, border.right, to);
}

/// The source with its middle columns stretched, and with these rows in its middle.
QImage lowSource(const QImage &source, const Border &border, const Positions &columns,
                 const QVector<int> &rows)
{
    QImage low(border.left + columns.edges.size() + border.right, border.top + rows.size() + border.bottom,
               source.format());
    low.setColorTable(source.colorTable());
    low.setDevicePixelRatio(source.devicePixelRatio());
    const auto stretch = source.depth() == 8 ? stretchRow<uchar> : stretchRow<QRgb>;
    for (int y = 0; y < low.height(); ++y) {
        const bool isAbove = y < border.top;
        const bool isBelow = y >= border.top + rows.size();
        const int row = isAbove   ? y
                        : isBelow ? y - low.height() + source.height()
                                  : border.top + rows.at(y - border.top);
        stretch(source.constScanLine(row), source.width(), border,
                isAbove || isBelow ? columns.edges : columns.centre, low.scanLine(y));
    }
    return low;
}

/// The whole canvas, made of the rows of the low one.
QImage withRowsRepeated(const QImage &low, const Border &border, const Positions &rows)
{
    const int highMiddle = rows.edges.size();
    QImage canvas(low.width(), border.top + highMiddle + border.bottom, low.format());
    if (canvas.isNull())
        return canvas;
    uchar *line = canvas.bits();
    const auto append = [&](int row, int first, int count) {
        constexpr qsizetype kBytes = 4;
        std::memcpy(line, low.constScanLine(row) + first * kBytes, size_t(count) * kBytes);
        line += count * kBytes;
    };
    for (int y = 0; y < border.top; ++y)
        append(y, 0, low.width());
    for (int y = 0; y < highMiddle; ++y) {
        append(border.top + rows.edges.at(y), 0, border.left);
        append(border.top + rows.centre.at(y), border.left, low.width() - border.left - border.right);
        append(border.top + rows.edges.at(y), low.width() - border.right, border.right);
    }
    for (int y = low.height() - border.bottom; y < low.height(); ++y)
        append(y, 0, low.width());
    return canvas;
}

/// The nine-patch by way of a low canvas of this format, which has four bytes for each pixel.
QImage repeatedRows(const QImage &source, const Border &border, QSize size, QImage::Format format)
{
    const QSize from = middleOf(border, source.size());
    const QSize to = middleOf(border, size);
    const auto positions = [&](Qt::Orientation along, int count, int length, qreal across) {
        return Positions{stretchedPositions(along, source.format(), count, length, 1),
                         stretchedPositions(along, source.format(), count, length, across)};
    };
    const Positions columns =
        positions(Qt::Horizontal, from.width(), to.width(), qreal(to.height()) / from.height());
    Positions rows = positions(Qt::Vertical, from.height(), to.height(), qreal(to.width()) / from.width());
    const QVector<int> shown = lowRows(rows, from.height(), source.devicePixelRatio() != 1.0);
    QImage low = transparentCanvas(QSize(size.width(), border.top + shown.size() + border.bottom), format);
    drawPieces(low, lowSource(source, border, columns, shown), border);
    return withRowsRepeated(low, border, rows);
}

} // namespace

QImage NinePatch(QString &fileName, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(width, height);
    if (!isPictureSize(size))
        return {};
    const Border border = saneBorder(left, top, right, bottom);
    const QImage source(fileName);
    if (isEnoughToRepeatRows(source, border, size))
        return repeatedRows(source, border, size, QImage::Format_RGBA8888);
    QImage canvas = transparentCanvas(size);
    drawPieces(canvas, source, border);
    return canvas;
}

QPixmap NinePatch(QPixmap &pixmap, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(width, height);
    if (!isPictureSize(size))
        return {};
    const Border border = saneBorder(left, top, right, bottom);
    const QImage source = pixmap.toImage();
    // Pieces of a pixmap that was made without converting its image are converted when they are cut.
    const bool isConverted =
        source.format() == QImage::Format_RGB32 || source.format() == QImage::Format_ARGB32_Premultiplied;
    if (isConverted && isEnoughToRepeatRows(source, border, size))
        return QPixmap::fromImage(repeatedRows(source, border, size, QImage::Format_ARGB32_Premultiplied),
                                  Qt::NoOpaqueDetection);
    QPixmap canvas(size);
    canvas.fill(QColor(Qt::transparent));
    drawPieces(canvas, pixmap, border);
    return canvas;
}

} // namespace totalcommon
