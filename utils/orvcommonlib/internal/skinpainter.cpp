#include "skinpainter.h"

#include "bounded.h"
#include "lookpictures.h"

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QtMath>
#include <QtGui/QPaintEngine>
#include <QtSvg/QSvgRenderer>

#include <memory>
#include <tuple>

namespace {

constexpr int kKeptFiles = 64;
constexpr int kKeptImageBytes = 4 * 1024 * 1024;
constexpr qint64 kLargestImagePixels = qint64(16) * 1024 * 1024;
constexpr qreal kMostKeptPixels = 256 * 1024;
constexpr qreal kLongestKeptSide = 10000;   // three of them are as much as Qt can paint on
constexpr int kMostCutOff = 1;              // pixels of an image at an edge of what is painted
constexpr qreal kFarthestVisible = 1 << 24; // no widget is larger

struct Document
{
    QSvgRenderer svg;
    int number; // no two have the same
};
using DocumentPtr = std::shared_ptr<Document>;

enum class Colored { None, All, EvenColumns, OddColumns };

// What a document looks like: as shapes, or as an image of so many pixels with its columns coloured; painted
// onto the device, or not yet if the place is empty.
struct ImageKey
{
    int document = 0;
    QRectF place; // in pixels, beginning within the first one
    QSize pixels = {};
    Colored columns = Colored::None;
    QColor color = {};
};

bool operator==(const ImageKey &left, const ImageKey &right)
{
    const auto place = [](const ImageKey &key) { // bit by bit
        return std::make_tuple(key.place.x(), key.place.y(), key.place.width(), key.place.height());
    };
    return left.document == right.document && left.pixels == right.pixels && left.columns == right.columns &&
           left.color == right.color && place(left) == place(right);
}

uint qHash(const ImageKey &key, uint seed)
{
    seed = 31 * seed + uint(key.document) + uint(key.columns) + uint(key.pixels.width()) + key.color.rgba();
    for (const qreal number : {key.place.x(), key.place.y(), key.place.width()})
        seed = 31 * seed + ::qHash(number);
    return seed;
}

struct KeptImage
{
    QImage image;
    QPoint offset; // from the first pixel of the place
    bool isFaithful = true;
};

struct Store : QObject
{
    using QObject::QObject;

    QCache<QString, DocumentPtr> files{kKeptFiles};
    QCache<QByteArray, DocumentPtr> documents{kKeptFiles};
    QCache<ImageKey, KeptImage> images{kKeptImageBytes};
    SkinPainter::Made made;
};

// What is kept goes with the application object, or with the library if that is unloaded before.
Store &store()
{
    struct Owner
    {
        ~Owner() { delete store; }
        QPointer<Store> store;
    };
    static Owner owner;
    if (!owner.store)
        owner.store = new Store(QCoreApplication::instance());
    return *owner.store;
}

// An animation runs from the moment of parsing, and a skin shows its first frame: it is parsed each time.
DocumentPtr documentWith(const QByteArray &contents)
{
    if (const DocumentPtr *known = store().documents.object(contents))
        return *known;
    DocumentPtr document(new Document{QSvgRenderer(contents), ++store().made.documents});
    if (!document->svg.animated())
        store().documents.insert(contents, new DocumentPtr(document));
    return document;
}

DocumentPtr documentAt(const QString &fileName)
{
    if (const DocumentPtr *known = store().files.object(fileName))
        return *known;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    DocumentPtr document = documentWith(file.readAll());
    if (!document->svg.animated())
        store().files.insert(fileName, new DocumentPtr(document));
    return document;
}

bool isReasonable(const QSize &pixels)
{
    return !pixels.isEmpty() && qint64(pixels.width()) * pixels.height() <= kLargestImagePixels;
}

bool canBeSeen(const QRectF &target)
{
    return !target.isEmpty() && qAbs(target.left()) < kFarthestVisible &&
           qAbs(target.top()) < kFarthestVisible;
}

// The pixel column next to an edge. The edge is brought inside first: the number of a far one would overflow.
int column(qreal edge, int width)
{
    return qRound(bounded<qreal>(0, edge, width));
}

void prepare(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
}

// Whether an image can be drawn pixel by pixel. (Painters that are translucent get to see a pixmap of the widget.)
bool takesImages(const QPainter &painter)
{
    const QTransform &toPixels = painter.deviceTransform();
    return painter.isActive() && painter.paintEngine()->type() == QPaintEngine::Raster &&
           toPixels.type() <= QTransform::TxScale && toPixels.m11() > 0 && toPixels.m22() > 0 &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

// Where something comes to lie: its first pixel, and its rectangle in pixels as seen from there.
struct Place
{
    Place(const QRectF &target, const QTransform &toPixels)
        : rect(toPixels.mapRect(target))
        , pixel(qFloor(rect.x()), qFloor(rect.y()))
    {
        rect.translate(-pixel);
    }

    bool isKept() const
    {
        return rect.width() * rect.height() <= kMostKeptPixels &&
               qMax(rect.width(), rect.height()) <= kLongestKeptSide;
    }

    QRectF rect;
    QPoint pixel;
};

// The part of an image that is not transparent.
QRect usedPart(const QImage &image)
{
    QRect used;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        int first = 0;
        int last = image.width() - 1;
        while (first <= last && line[first] == 0)
            ++first;
        while (last >= first && line[last] == 0)
            --last;
        if (first <= last)
            used |= QRect(first, y, last - first + 1, 1);
    }
    return used;
}

// The image that is kept under the key, made by a function if there is none.
template<typename Make>
KeptImage keptImage(const ImageKey &key, Make make)
{
    QCache<ImageKey, KeptImage> &images = store().images;
    if (const KeptImage *known = images.object(key))
        return *known;
    KeptImage made = make();
    ++store().made.images;
    images.insert(key, new KeptImage(made), int(sizeof made) + int(made.image.sizeInBytes()));
    return made;
}

// The document rendered into the whole of an image.
QImage rendered(Document *document, const QSize &pixels)
{
    return keptImage({document->number, {}, pixels},
                     [&] {
                         QImage image(pixels, QImage::Format_ARGB32);
                         image.fill(Qt::transparent);
                         QPainter painter(&image);
                         document->svg.render(&painter);
                         painter.end();
                         return KeptImage{image, {}};
                     })
        .image;
}

// The image with every column, or every other one, filled so that only what was painted takes the colour.
QImage colored(QImage image, int from, int to, int step, const QColor &color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    const int width = step == 1 ? to - from : 1;
    for (int x = from; x < to; x += width * step)
        painter.fillRect(x, 0, width, image.height(), color);
    return image;
}

QImage colored(const QImage &image, Colored columns, const QColor &color)
{
    if (columns == Colored::None)
        return image;
    const int from = columns == Colored::OddColumns ? 1 : 0;
    return colored(image, from, image.width(), columns == Colored::All ? 1 : 2, color);
}

// What the function draws upon an image, which has the pixels of the device from that one on.
template<typename Draw>
QImage drawnOn(QImage image, const QPoint &first, const QTransform &toPixels, Draw draw)
{
    QPainter painter(&image);
    prepare(&painter);
    painter.setTransform(toPixels * QTransform::fromTranslate(-first.x(), -first.y()));
    draw(&painter);
    return image;
}

QImage canvas(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// What the function draws at the place, without the transparent pixels around it. It may reach so far beyond.
template<typename Draw>
KeptImage drawn(const Place &place, const QTransform &toPixels, const QSize &beyond, Draw draw)
{
    const QMargins margins(beyond.width(), beyond.height(), beyond.width(), beyond.height());
    const QRect covered = place.rect.toAlignedRect() + margins;
    const QImage image = drawnOn(canvas(covered.size()), place.pixel + covered.topLeft(), toPixels, draw);
    const QRect used = usedPart(image);
    if (used.isEmpty())
        return {};
    return {image.copy(used), covered.topLeft() + used.topLeft()};
}

// White, or every pixel of another colour.
QImage ground(const QSize &size, bool isWhite)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = 0xff000000U | (isWhite ? 0xffffffU : uint(x) * 0x3b95c1U + uint(y) * 0x1d6f53U);
    }
    return image;
}

bool areAlike(const QImage &left, const QImage &right)
{
    for (int y = 0; y < left.height(); ++y) {
        const uchar *one = left.constScanLine(y);
        const uchar *other = right.constScanLine(y);
        for (int i = 0; i < left.bytesPerLine(); ++i) {
            if (qAbs(one[i] - other[i]) > 1)
                return false;
        }
    }
    return true;
}

// The shapes that the function draws at the place. Each that lies upon another is rounded once more: of many, in
// thin outlines too, an image may differ by more than it should. No formula tells by how much, a trial does, which
// allows less than is allowed later since it does not see every ground; nor may a pixel cut off at the edges make a
// difference, as rounding cuts it off where a pixel of the device is a part of one of the widget's.
template<typename Draw>
KeptImage drawnShapes(const Place &place, const QTransform &toPixels, Draw draw)
{
    const QSize beyond = place.rect.toAlignedRect().size();
    KeptImage kept = drawn(place, toPixels, beyond, draw);
    const QRect used(kept.offset, kept.image.size());
    kept.isFaithful = QRect(-beyond.width(), -beyond.height(), 3 * beyond.width(), 3 * beyond.height())
                          .contains(used.adjusted(-1, -1, 1, 1)); // or it may be cut off
    for (const bool isWhite : {true, false}) {
        if (!kept.isFaithful)
            return {{}, {}, false};
        const int margin = isWhite ? 1 : -kMostCutOff;
        const QRect tried = used.adjusted(-margin, -margin, margin, margin);
        const QImage before = ground(tried.size().expandedTo(QSize(1, 1)), isWhite);
        kept.isFaithful = areAlike(drawnOn(before, place.pixel + tried.topLeft(), toPixels, draw),
                                   drawnOn(before, {}, {}, [&](QPainter *painter) {
                                       painter->drawImage(margin, margin, kept.image);
                                   }));
    }
    return kept;
}

// The pixels across in which columns on both sides of an edge show, since the image is scaled smoothly to its
// place; none if it is drawn pixel by pixel.
struct Seam
{
    int begin;
    int end;
};

Seam seamAt(int edge, int width, const QRectF &place)
{
    if (edge == 0 || (place.left() == 0 && place.width() == width))
        return {edge, edge};
    const qreal scale = place.width() / width;
    const auto pixelFrom = [&](qreal column) {
        return bounded(0, qCeil(place.left() + scale * column - 0.5), qCeil(place.right()));
    };
    return {pixelFrom(edge - 0.5), pixelFrom(edge + 0.5)};
}

} // namespace

SkinPainter::SkinPainter(QPaintDevice *device, const QString &folder)
    : m_painter(device)
    , m_folder(LookPictures::folder(folder))
    , m_drawsImages(takesImages(m_painter))
{
    prepare(&m_painter);
    if (!m_drawsImages)
        return;
    m_toPixels = m_painter.deviceTransform();
    m_painter.setWorldTransform(m_toPixels.inverted());
    const QPaintEngine *engine = m_painter.paintEngine();
    const QRect clip = engine->systemClip().boundingRect();
    const QPaintDevice *pixels = engine->paintDevice();
    m_shown = clip.isEmpty() ? QRect(0, 0, pixels->width(), pixels->height()) : clip;
    m_shown.adjust(-kMostCutOff, -kMostCutOff, kMostCutOff, kMostCutOff);
}

// In the device's coordinates.
template<typename Draw>
void SkinPainter::drawPlainly(Draw draw)
{
    const QTransform pixels = m_painter.worldTransform();
    m_painter.setWorldTransform(QTransform());
    draw(&m_painter);
    m_painter.setWorldTransform(pixels);
}

void SkinPainter::paint(const QString &piece, const QRectF &target)
{
    const DocumentPtr document = documentAt(m_folder + QLatin1Char('/') + piece);
    if (!document || !document->svg.isValid() || !canBeSeen(target))
        return;
    const auto draw = [&](QPainter *painter) {
        document->svg.render(painter, target);
    };
    const Place place(target, m_toPixels);
    if (m_drawsImages && place.isKept()) {
        const KeptImage kept =
            keptImage({document->number, place.rect}, [&] { return drawnShapes(place, m_toPixels, draw); });
        const QPoint pixel = place.pixel + kept.offset;
        if (kept.isFaithful && m_shown.contains(QRect(pixel, kept.image.size()))) {
            m_painter.drawImage(pixel, kept.image);
            return;
        }
    }
    drawPlainly(draw);
}

void SkinPainter::paintColored(const QString &piece, const QRectF &area, const QSize &pixels,
                               const Columns &columns, const QColor &color)
{
    const DocumentPtr document = documentAt(m_folder + QLatin1Char('/') + piece);
    if (!document || !document->svg.isValid() || !canBeSeen(area) || !isReasonable(pixels))
        return;
    int from = column(qMin(columns.from, columns.to), pixels.width());
    int to = column(qMax(columns.from, columns.to), pixels.width());
    if (from == to)
        from = to = 0;
    const auto image = [&] {
        return rendered(document.get(), pixels);
    };
    const Place place(area, m_toPixels);
    if (!m_drawsImages || !place.isKept()) {
        drawPlainly(
            [&](QPainter *painter) { painter->drawImage(area, colored(image(), from, to, 1, color)); });
        return;
    }
    const auto draw = [&](Colored which, int first, int last) {
        if (first >= last)
            return;
        const ImageKey key{document->number, place.rect, pixels, which,
                           which == Colored::None ? QColor() : color};
        const KeptImage kept = keptImage(key, [&] {
            return drawn(place, m_toPixels, QSize(0, 0), [&](QPainter *painter) {
                painter->drawImage(area, colored(image(), which, color));
            });
        });
        const QRect used(kept.offset, kept.image.size());
        const QRect part = used & QRect(first, used.top(), last - first, used.height());
        if (!part.isEmpty())
            m_painter.drawImage(place.pixel + part.topLeft(), kept.image, part.translated(-used.topLeft()));
    };
    // Smooth scaling mixes two columns at most. At an edge one of them is coloured: in one image these are the
    // even ones, in one the odd ones.
    const Seam left = seamAt(from, pixels.width(), place.rect);
    const Seam right = seamAt(to, pixels.width(), place.rect);
    draw(Colored::None, 0, left.begin);
    draw(from % 2 == 0 ? Colored::EvenColumns : Colored::OddColumns, left.begin, left.end);
    draw(Colored::All, left.end, right.begin);
    draw(to % 2 == 0 ? Colored::OddColumns : Colored::EvenColumns, right.begin, right.end);
    draw(Colored::None, right.end, qCeil(place.rect.right()));
}

QSize SkinPainter::pixelSize(const QSize &size, qreal ratio)
{
    const auto side = [ratio](int length) {
        return qRound(qBound<qreal>(0, length * ratio, kLargestImagePixels + 1));
    };
    return {side(size.width()), side(size.height())};
}

void SkinPainter::forgetFiles()
{
    store().files.clear();
}

SkinPainter::Made SkinPainter::made()
{
    return store().made;
}
