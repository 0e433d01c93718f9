#include "skinrenderer.h"

#include "skinlayers.h"

#include <QtCore/QCache>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtGui/QTransform>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QWidget>

#include <memory>
#include <tuple>

namespace SkinRenderer {

namespace {

constexpr int kKeptDocuments = 64;
constexpr int kKeptImageBytes = 4 * 1024 * 1024;
constexpr int kKeptLayerBytes = 1024 * 1024;
constexpr qint64 kLargestImagePixels = qint64(16) * 1024 * 1024;
constexpr qreal kFarthestVisible = QWIDGETSIZE_MAX;

using Document = std::shared_ptr<QSvgRenderer>;

struct ImageKey
{
    QString file;
    QSize pixels;
    int coloredFrom = 0;
    int coloredTo = 0; // equal to coloredFrom: not coloured at all
    QColor color;
};

bool operator==(const ImageKey &left, const ImageKey &right)
{
    return left.coloredFrom == right.coloredFrom && left.coloredTo == right.coloredTo &&
           left.pixels == right.pixels && left.color == right.color && left.file == right.file;
}

uint qHash(const ImageKey &key, uint seed)
{
    seed = ::qHash(key.file, seed);
    for (const int number : {key.pixels.width(), key.pixels.height(), key.coloredFrom, key.coloredTo})
        seed = 31 * seed + uint(number);
    return 31 * seed + key.color.rgba();
}

struct LayersKey
{
    QString file;
    QRectF target;
    QTransform deviceTransform;
};

// Bit by bit: layers stand for the shapes at one place exactly.
bool operator==(const LayersKey &left, const LayersKey &right)
{
    const auto numbers = [](const LayersKey &key) {
        return std::make_tuple(key.target.x(), key.target.y(), key.target.width(), key.target.height(),
                               key.deviceTransform.m11(), key.deviceTransform.m22(), key.deviceTransform.dx(),
                               key.deviceTransform.dy());
    };
    return numbers(left) == numbers(right) && left.file == right.file;
}

uint qHash(const LayersKey &key, uint seed)
{
    seed = ::qHash(key.file, seed);
    for (const double number : {key.target.x(), key.target.y(), key.target.width(), key.deviceTransform.m11(),
                                key.deviceTransform.dx(), key.deviceTransform.dy()})
        seed = 31 * seed + ::qHash(number);
    return seed;
}

// Remembered without layers when it is painted for the first time.
struct PaintedPiece
{
    bool isTakenApart = false;
    SkinLayers layers;
};

struct Store
{
    QCache<QString, Document> documents{kKeptDocuments};
    QCache<ImageKey, QImage> images{kKeptImageBytes};
    QCache<LayersKey, PaintedPiece> pieces{kKeptLayerBytes};
};

// What is kept goes with the application object, or with the library if that is unloaded before.
class StoreOwner
{
public:
    StoreOwner() = default;
    ~StoreOwner() { delete m_holder; }
    Q_DISABLE_COPY(StoreOwner)

    Store &store()
    {
        if (!m_holder)
            m_holder = new Holder(QCoreApplication::instance());
        return m_holder->store;
    }

private:
    struct Holder : QObject
    {
        using QObject::QObject;
        Store store;
    };
    QPointer<Holder> m_holder;
};

Store &store()
{
    static StoreOwner owner;
    return owner.store();
}

Document document(const QString &fileName)
{
    QCache<QString, Document> &documents = store().documents;
    if (const Document *known = documents.object(fileName))
        return *known;
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    auto parsed = std::make_shared<QSvgRenderer>(file.readAll());
    // An animation runs from the moment of parsing, and a skin shows its first frame.
    if (!parsed->animated())
        documents.insert(fileName, new Document(parsed));
    return parsed;
}

bool isReasonable(const QSize &pixels)
{
    return !pixels.isEmpty() && qint64(pixels.width()) * pixels.height() <= kLargestImagePixels;
}

QImage rendered(const QString &file, const QSize &pixels)
{
    const Document svg = document(file);
    if (!svg || !svg->isValid())
        return {};
    QImage result(pixels, QImage::Format_ARGB32);
    if (result.isNull())
        return {};
    result.fill(Qt::transparent);
    QPainter painter(&result);
    svg->render(&painter);
    return result;
}

QImage colored(QImage image, int from, int to, const QColor &color)
{
    if (image.isNull() || from == to)
        return image;
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(from, 0, to - from, image.height(), color);
    return image;
}

QImage keptImage(const ImageKey &key)
{
    QCache<ImageKey, QImage> &images = store().images;
    if (const QImage *known = images.object(key))
        return *known;
    const bool isColored = key.coloredFrom != key.coloredTo;
    QImage made = isColored ? colored(image(key.file, key.pixels), key.coloredFrom, key.coloredTo, key.color)
                            : rendered(key.file, key.pixels);
    if (!made.isNull())
        images.insert(key, new QImage(made), int(qMin<qsizetype>(made.sizeInBytes(), kKeptImageBytes + 1)));
    return made;
}

// The pixel column next to an edge. The edge is brought inside first: the number of a far one would overflow.
int column(qreal edge, int width)
{
    return qRound(qBound<qreal>(0, edge, width));
}

// Takes a piece apart when it is painted at the same place for the second time: for a handle in motion it
// would not pay.
const SkinLayers *keptLayers(QSvgRenderer *svg, const LayersKey &key)
{
    QCache<LayersKey, PaintedPiece> &pieces = store().pieces;
    const PaintedPiece *known = pieces.object(key);
    if (!known) {
        pieces.insert(key, new PaintedPiece, int(sizeof(PaintedPiece)));
        return nullptr;
    }
    if (!known->isTakenApart) {
        auto *piece = new PaintedPiece{true, SkinLayers(svg, key.target, key.deviceTransform)};
        known = pieces.insert(key, piece, piece->layers.bytes()) ? piece : nullptr;
    }
    return known && known->layers.areComplete() ? &known->layers : nullptr;
}

} // namespace

void prepare(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
}

QSize pixelSize(const QSize &size, qreal ratio)
{
    const auto side = [ratio](int length) {
        return qRound(qBound<qreal>(0, length * ratio, kLargestImagePixels + 1));
    };
    return {side(size.width()), side(size.height())};
}

QImage image(const QString &file, const QSize &pixels)
{
    if (!isReasonable(pixels))
        return {};
    ImageKey key;
    key.file = file;
    key.pixels = pixels;
    return keptImage(key);
}

QImage coloredImage(const QString &file, const QSize &pixels, const QRectF &part, const QColor &color)
{
    const int left = column(part.left(), pixels.width());
    const int right = column(part.right(), pixels.width());
    if (left == right || !isReasonable(pixels))
        return image(file, pixels);
    return keptImage({file, pixels, qMin(left, right), qMax(left, right), color});
}

void paint(QPainter *painter, const QString &file, const QRectF &target)
{
    const bool canBeSeen =
        !target.isEmpty() && qAbs(target.left()) < kFarthestVisible && qAbs(target.top()) < kFarthestVisible;
    if (!canBeSeen)
        return;
    const Document svg = document(file);
    if (!svg || !svg->isValid())
        return;
    const SkinLayers *layers = nullptr;
    if (SkinLayers::suit(*painter) && !svg->animated())
        layers = keptLayers(svg.get(), {file, target, painter->deviceTransform()});
    if (layers)
        layers->paint(painter);
    else
        svg->render(painter, target);
}

} // namespace SkinRenderer
