#include "orvcommonlib.h"

#include <QtGui/QPainter>

#include <limits>

namespace totalcommon {

namespace {

/// Borders and sizes are brought into this range, far beyond any picture, so that sums of them cannot
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
    if (!piece.stretched && !piece.cut.isEmpty()) {
        // A corner may be far larger than the source and the canvas; what cannot be seen is not worth its
        // memory.
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

void setHints(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::TextAntialiasing);
}

} // namespace

QImage NinePatch(QString &fileName, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(sane(width), sane(height));
    QImage canvas = isPictureSize(size) ? QImage(size, QImage::Format_RGBA8888) : QImage();
    if (canvas.isNull())
        return canvas;
    canvas.fill(Qt::transparent);
    const QImage source(fileName);
    if (source.isNull())
        return canvas;

    const Border border{sane(left), sane(top), sane(right), sane(bottom)};
    QPainter painter(&canvas);
    setHints(painter);
    forEachPiece(border, source.size(), size, [&](const Piece &piece) { drawPiece(painter, source, piece); });
    painter.end();
    return canvas;
}

QPixmap NinePatch(QPixmap &pixmap, int left, int top, int right, int bottom, int width, int height)
{
    const QSize size(sane(width), sane(height));
    if (!isPictureSize(size))
        return QPixmap();
    QPixmap canvas(size);
    canvas.fill(QColor(Qt::transparent));
    if (pixmap.isNull())
        return canvas;

    const Border border{sane(left), sane(top), sane(right), sane(bottom)};
    QPainter painter(&canvas);
    setHints(painter);
    forEachPiece(border, pixmap.size(), size, [&](const Piece &piece) { drawPiece(painter, pixmap, piece); });
    painter.end();
    return canvas;
}

} // namespace totalcommon
