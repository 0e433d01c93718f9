#include "skinlayers.h"

#include "skinrenderer.h"

#include <QtGui/QPaintDevice>
#include <QtGui/QPaintEngine>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtSvg/QSvgRenderer>

#include <cmath>

namespace {

constexpr int kLargestSide = 256;

} // namespace

/// Receives what a document paints, and paints each piece of it into an image of its own.
class LayerEngine : public QPaintEngine
{
public:
    explicit LayerEngine(SkinLayers *layers)
        : QPaintEngine(AllFeatures)
        , m_layers(layers)
    {
    }

    Type type() const override { return User; }
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void drawPath(const QPainterPath &path) override
    {
        add(path.controlPointRect(), [&](QPainter *painter) { painter->drawPath(path); });
    }
    void drawEllipse(const QRectF &rect) override
    {
        add(rect, [&](QPainter *painter) { painter->drawEllipse(rect); });
    }
    void drawRects(const QRectF *rects, int count) override
    {
        for (const QRectF *rect = rects; rect < rects + count; ++rect)
            add(*rect, [&](QPainter *painter) { painter->drawRect(*rect); });
    }
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode mode) override;

    // Qt rasterizes single lines in a way that depends on where on the canvas they lie.
    void drawLines(const QLineF *, int) override { giveUp(); }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { giveUp(); }
    void drawTiledPixmap(const QRectF &, const QPixmap &, const QPointF &) override { giveUp(); }
    void drawImage(const QRectF &, const QImage &, const QRectF &, Qt::ImageConversionFlags) override
    {
        giveUp();
    }
    void drawTextItem(const QPointF &, const QTextItem &) override { giveUp(); }

private:
    template<typename Draw>
    void add(const QRectF &bounds, Draw draw);
    template<typename Draw>
    void addLayer(const QRectF &bounds, const QPen &pen, const QBrush &brush, Draw draw);
    bool isPlain() const;
    void giveUp() { m_layers->m_complete = false; }

    SkinLayers *m_layers;
};

namespace {

bool isSolid(const QBrush &brush)
{
    return brush.style() == Qt::NoBrush || brush.style() == Qt::SolidPattern;
}

// Qt draws thin outlines line by line, and dashes one by one: pixels where they meet take the colour twice.
bool touchesPixelsOnce(const QPen &pen, const QTransform &toCanvas)
{
    constexpr qreal kThin = 1.01;
    const qreal scale = pen.isCosmetic() ? 1 : std::sqrt(qAbs(toCanvas.determinant()));
    return pen.style() == Qt::SolidLine && isSolid(pen.brush()) && pen.widthF() * scale > kThin;
}

// How far the outline reaches beyond the shape, corners included.
qreal reach(const QPen &pen)
{
    return qMax<qreal>(1, pen.widthF()) * qMax<qreal>(1, pen.miterLimit());
}

// The document is painted onto this, and nothing is seen of it.
class LayerDevice : public QPaintDevice
{
public:
    explicit LayerDevice(SkinLayers *layers)
        : m_engine(layers)
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return kLargestSide;
        }
    }

private:
    mutable LayerEngine m_engine;
};

} // namespace

void LayerEngine::drawPolygon(const QPointF *points, int count, PolygonDrawMode mode)
{
    QPolygonF polygon;
    for (int i = 0; i < count; ++i)
        polygon << points[i];
    add(polygon.boundingRect(), [&](QPainter *painter) {
        if (mode == PolylineMode)
            painter->drawPolyline(polygon);
        else
            painter->drawPolygon(polygon, mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
    });
}

bool LayerEngine::isPlain() const
{
    const QPen &pen = painter()->pen();
    return painter()->compositionMode() == QPainter::CompositionMode_SourceOver &&
           !painter()->hasClipping() && isSolid(painter()->brush()) &&
           (pen.style() == Qt::NoPen || touchesPixelsOnce(pen, painter()->combinedTransform()));
}

// A shape is filled first, and its outline comes on top.
template<typename Draw>
void LayerEngine::add(const QRectF &bounds, Draw draw)
{
    if (!isPlain()) {
        giveUp();
        return;
    }
    if (painter()->brush().style() != Qt::NoBrush)
        addLayer(bounds, QPen(Qt::NoPen), painter()->brush(), draw);
    const QPen pen = painter()->pen();
    if (pen.style() != Qt::NoPen) {
        const qreal margin = reach(pen);
        addLayer(bounds.adjusted(-margin, -margin, margin, margin), pen, QBrush(Qt::NoBrush), draw);
    }
}

// The image's origin is taken off the transform only now, when it is complete: whole numbers change no digit
// of it.
template<typename Draw>
void LayerEngine::addLayer(const QRectF &bounds, const QPen &pen, const QBrush &brush, Draw draw)
{
    const QTransform toCanvas = painter()->combinedTransform();
    const QRectF covered = toCanvas.mapRect(bounds);
    if (covered.width() > kLargestSide || covered.height() > kLargestSide) {
        giveUp();
        return;
    }
    const QRect pixels = covered.toAlignedRect().adjusted(-1, -1, 1, 1);
    SkinLayers::Layer layer{pixels.topLeft(), QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied)};
    layer.image.fill(Qt::transparent);
    QPainter layerPainter(&layer.image);
    layerPainter.setRenderHints(painter()->renderHints());
    layerPainter.setOpacity(painter()->opacity());
    layerPainter.setPen(pen);
    layerPainter.setBrush(brush);
    layerPainter.setTransform(QTransform(toCanvas.m11(), toCanvas.m12(), toCanvas.m21(), toCanvas.m22(),
                                         toCanvas.dx() - pixels.left(), toCanvas.dy() - pixels.top()));
    draw(&layerPainter);
    layerPainter.end();
    m_layers->m_layers << layer;
}

bool SkinLayers::suit(const QPainter &painter)
{
    if (painter.paintEngine()->type() != QPaintEngine::Raster ||
        painter.deviceTransform().type() > QTransform::TxScale)
        return false;
    const auto *canvas = dynamic_cast<const QImage *>(painter.paintEngine()->paintDevice());
    const bool isUsualImage = canvas && (canvas->format() == QImage::Format_RGB32 ||
                                         canvas->format() == QImage::Format_ARGB32_Premultiplied);
    return isUsualImage && painter.worldTransform().isIdentity() && !painter.viewTransformEnabled() &&
           !painter.hasClipping() && qFuzzyCompare(painter.opacity(), 1) &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

SkinLayers::SkinLayers(QSvgRenderer *svg, const QRectF &target, const QTransform &deviceTransform)
    : m_complete(true)
{
    LayerDevice device(this);
    QPainter painter(&device);
    SkinRenderer::prepare(&painter);
    painter.setTransform(deviceTransform);
    svg->render(&painter, target);
}

int SkinLayers::bytes() const
{
    int sum = int(sizeof(SkinLayers));
    for (const Layer &layer : m_layers)
        sum += int(layer.image.sizeInBytes());
    return sum;
}

void SkinLayers::paint(QPainter *painter) const
{
    painter->setWorldTransform(painter->deviceTransform().inverted());
    for (const Layer &layer : m_layers)
        painter->drawImage(layer.position, layer.image);
    painter->setWorldTransform(QTransform());
}
