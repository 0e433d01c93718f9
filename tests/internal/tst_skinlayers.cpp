#include "pictures.h"
#include "skinlayers.h"
#include "skinrenderer.h"
#include "slidertesting.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QBitmap>
#include <QtGui/QPicture>
#include <QtTest/QTest>

using namespace SliderTesting;

namespace {

constexpr QSize kCanvas(90, 70);

QByteArray document(const QByteArray &shapes)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20' viewBox='0 0 20 20'>" + shapes +
           "</svg>";
}

// Every pixel another one, opaque or translucent.
QImage noise(QRandomGenerator *random, qreal ratio,
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

// Paints both ways into copies of the canvas; the number of pixels that differ.
int difference(QSvgRenderer *svg, const QRectF &target, const QImage &canvas,
               const QRegion &visible = QRegion())
{
    QImage shapes = canvas;
    QImage layers = canvas;
    QPainter shapePainter(&shapes);
    QPainter layerPainter(&layers);
    for (QPainter *painter : {&shapePainter, &layerPainter})
        SkinRenderer::prepare(painter);
    const SkinLayers piece(svg, target, layerPainter.deviceTransform());
    if (!piece.areComplete())
        return -1;
    if (!visible.isEmpty()) {
        shapePainter.setClipRegion(visible);
        layerPainter.setClipRegion(visible);
    }
    svg->render(&shapePainter, target);
    piece.paint(&layerPainter);
    shapePainter.end();
    layerPainter.end();
    return differingPixels(shapes, layers);
}

QByteArray randomColor(QRandomGenerator *random)
{
    return '#' + QByteArray::number(0x1000000 + random->bounded(0x1000000), 16).mid(1);
}

QByteArray randomNumber(QRandomGenerator *random, double lowest, double highest)
{
    return QByteArray::number(lowest + random->bounded(highest - lowest), 'f', random->bounded(4));
}

// A shape with a fill, an outline wider than a pixel, or both, opaque or not.
QByteArray randomShape(QRandomGenerator *random)
{
    const auto number = [&](double lowest, double highest) {
        return randomNumber(random, lowest, highest);
    };
    const QByteArray shapes[] = {
        "circle cx='" + number(5, 15) + "' cy='" + number(5, 15) + "' r='" + number(2, 12) + "'",
        "ellipse cx='" + number(5, 15) + "' cy='10' rx='" + number(2, 12) + "' ry='" + number(1, 9) + "'",
        "rect x='" + number(-1, 9) + "' y='2' width='" + number(3, 12) + "' height='" + number(3, 12) + "'",
        "rect x='1' y='" + number(-1, 9) + "' width='14' height='9' rx='" + number(1, 4) + "'",
        "path d='M" + number(0, 9) + " 3 L 18 " + number(4, 18) + " Q 2 19 4 8 Z'",
        "polygon points='2,3 " + number(8, 18) + ",4 9," + number(8, 18) + "'",
        "polyline points='2,3 " + number(8, 18) + ",4 9," + number(8, 18) + "'"};
    const QByteArray fill = random->bounded(3) == 0 ? QByteArray("none") : randomColor(random);
    QByteArray style = " fill='" + fill + "'";
    if (random->bounded(2) == 0)
        style += " stroke='" + randomColor(random) + "' stroke-width='" + randomNumber(random, 1.2, 4) + "'";
    if (random->bounded(3) == 0)
        style += " opacity='" + randomNumber(random, 0.1, 1) + "'";
    if (random->bounded(3) == 0)
        style += " fill-opacity='0.6' stroke-opacity='" + randomNumber(random, 0.1, 1) + "'";
    return '<' + shapes[random->bounded(int(std::size(shapes)))] + style + "/>";
}

} // namespace

class tst_skinlayers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void embeddedSkins_data();
    void embeddedSkins();
    void randomDocuments_data();
    void randomDocuments();
    void partsOfThem();
    void whatTheyCannotStandFor_data();
    void whatTheyCannotStandFor();
    void whereTheySuit();
    void leaveThePainterAsItWas();
    void weighWhatTheyHold();
};

void tst_skinlayers::embeddedSkins_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSizeF>("size");
    for (const char *name :
         {"hslider/handle.svg", "hslider2/handle.svg", "hslider2/handle_disabled.svg", "hslider/zero.svg",
          "slider/item.svg", "slider/item_active.svg", "slider/select.svg"}) {
        const QString file = QStringLiteral(":/images/images/") + QLatin1String(name);
        QTest::newRow(name) << file << QSizeF(QSvgRenderer(file).defaultSize());
    }
}

void tst_skinlayers::embeddedSkins()
{
    QFETCH(QString, file);
    QFETCH(QSizeF, size);
    QRandomGenerator random(1);
    QSvgRenderer svg(file);
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        for (const QImage::Format format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32}) {
            const QImage canvas = noise(&random, ratio, format);
            for (int value = 0; value <= 30; ++value) {
                const QRectF target(QPointF(value * 1.92, value % 3 == 0 ? 0 : 0.37 * value), size);
                QCOMPARE(difference(&svg, target, canvas), 0);
            }
        }
    }
}

void tst_skinlayers::randomDocuments_data()
{
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : {1.0, 1.25, 1.5, 2.0, 2.75})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_skinlayers::randomDocuments()
{
    QFETCH(qreal, ratio);
    QRandomGenerator random(quint32(ratio * 100));
    int complete = 0;
    for (int round = 0; round < 150; ++round) {
        QByteArray shapes;
        for (int shape = random.bounded(1, 5); shape > 0; --shape)
            shapes += randomShape(&random);
        QSvgRenderer svg(document(shapes));
        const double side = 16 + random.bounded(40.0);
        const QRectF target(random.bounded(60.0) - 10, random.bounded(40.0) - 10, side, side);
        const int differing = difference(&svg, target, noise(&random, ratio));
        complete += differing >= 0 ? 1 : 0;
        if (differing > 0)
            QFAIL((QByteArray::number(differing) + " pixels: " + shapes).constData());
    }
    QVERIFY(complete > 110);
}

// What a paint event leaves out stays as it was.
void tst_skinlayers::partsOfThem()
{
    QRandomGenerator random(7);
    QSvgRenderer svg(QStringLiteral(":/images/images/hslider/handle.svg"));
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        for (int x = 0; x < 30; x += 3) {
            const QRegion visible = QRegion(x, 0, 9, 30) + QRegion(0, 5, 60, 4);
            QCOMPARE(difference(&svg, QRectF(8.4, 1.2, 14, 14), noise(&random, ratio), visible), 0);
        }
    }
}

void tst_skinlayers::whatTheyCannotStandFor_data()
{
    QTest::addColumn<QByteArray>("shapes");
    QTest::newRow("text") << QByteArray("<text x='2' y='12' font-size='9'>a</text>");
    QTest::newRow("gradient") << QByteArray(
        "<defs><linearGradient id='g'><stop offset='0' stop-color='#f00'/><stop offset='1' "
        "stop-color='#00f'/>"
        "</linearGradient></defs><rect width='20' height='20' fill='url(#g)'/>");
    QTest::newRow("picture") << QByteArray("<image width='8' height='8' xlink:href='data:image/png;base64,"
                                           "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQD"
                                           "wAEhQGAhKmMIQAAAABJRU5ErkJggg=='/>");
    QTest::newRow("line") << QByteArray(
        "<line x1='2' y1='3' x2='15' y2='9' stroke='#000' stroke-width='3'/>");
    QTest::newRow("thin outline") << QByteArray("<circle cx='10' cy='10' r='6' fill='#fff' stroke='#000'/>");
    QTest::newRow("dashes") << QByteArray(
        "<circle cx='10' cy='10' r='6' fill='none' stroke='#000' stroke-width='3' stroke-dasharray='3,2'/>");
    QTest::newRow("one of several") << QByteArray(
        "<rect width='20' height='20' fill='#123'/><circle cx='10' cy='10' r='6' stroke='#000'/>");
}

void tst_skinlayers::whatTheyCannotStandFor()
{
    QFETCH(QByteArray, shapes);
    QSvgRenderer svg(document(shapes));
    QVERIFY(svg.isValid());
    QVERIFY(!SkinLayers(&svg, QRectF(0, 0, 20, 20), QTransform()).areComplete());
    QSvgRenderer plain(
        document("<circle cx='10' cy='10' r='6' fill='#fff' stroke='#000' stroke-width='2'/>"));
    QVERIFY(SkinLayers(&plain, QRectF(0, 0, 20, 20), QTransform()).areComplete());
    QVERIFY(!SkinLayers(&plain, QRectF(0, 0, 2000, 2000), QTransform()).areComplete());
    QVERIFY(!SkinLayers().areComplete());
}

void tst_skinlayers::whereTheySuit()
{
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        QImage image(20, 20, format);
        QPainter painter(&image);
        QVERIFY(SkinLayers::suit(painter));
        painter.setOpacity(0.5);
        QVERIFY(!SkinLayers::suit(painter));
        painter.setOpacity(1);
        painter.setCompositionMode(QPainter::CompositionMode_Plus);
        QVERIFY(!SkinLayers::suit(painter));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setClipRect(2, 2, 5, 5);
        QVERIFY(!SkinLayers::suit(painter));
        painter.setClipping(false);
        painter.rotate(10);
        QVERIFY(!SkinLayers::suit(painter));
        painter.resetTransform();
        painter.setWindow(0, 0, 10, 10);
        QVERIFY(!SkinLayers::suit(painter));
        painter.setViewTransformEnabled(false);
        QVERIFY(SkinLayers::suit(painter));
    }
    QImage other(20, 20, QImage::Format_RGB16);
    QVERIFY(!SkinLayers::suit(QPainter(&other)));
    QPicture picture;
    QVERIFY(!SkinLayers::suit(QPainter(&picture)));
    QBitmap bitmap(20, 20);
    QVERIFY(!SkinLayers::suit(QPainter(&bitmap)));
}

void tst_skinlayers::leaveThePainterAsItWas()
{
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1.25);
    QPainter painter(&image);
    SkinRenderer::prepare(&painter);
    const QTransform before = painter.deviceTransform();
    QSvgRenderer svg(QStringLiteral(":/images/images/hslider/handle.svg"));
    SkinLayers(&svg, QRectF(0, 0, 14, 14), before).paint(&painter);
    QVERIFY(painter.worldTransform().isIdentity());
    QCOMPARE(painter.deviceTransform(), before);
    QCOMPARE(painter.pen().style(), Qt::NoPen);
}

void tst_skinlayers::weighWhatTheyHold()
{
    QSvgRenderer svg(QStringLiteral(":/images/images/hslider/handle.svg"));
    const SkinLayers small(&svg, QRectF(0, 0, 14, 14), QTransform());
    const SkinLayers large(&svg, QRectF(0, 0, 14, 14), QTransform::fromScale(4, 4));
    QVERIFY(small.bytes() > 2 * 14 * 14 * 4);
    QVERIFY(large.bytes() > 2 * 56 * 56 * 4);
    QVERIFY(SkinLayers().bytes() < small.bytes());
}

QTEST_MAIN(tst_skinlayers)

#include "tst_skinlayers.moc"
