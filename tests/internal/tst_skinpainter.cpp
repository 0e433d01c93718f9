#include "logcapture.h"
#include "memoryresource.h"
#include "pictures.h"
#include "skinpainter.h"
#include "slidertesting.h"
#include "testmain.h"

#include <QtCore/QRandomGenerator>
#include <QtGui/QPicture>
#include <QtTest/QTest>

#include <limits>

Q_DECLARE_METATYPE(QPainter::CompositionMode)

using namespace SliderTesting;

namespace {

const char kRed[] = "<rect width='20' height='10' fill='#ff0000'/>";
const char kBlue[] = "<rect width='20' height='10' fill='#0000ff'/>";
constexpr QSize kCanvas(90, 70);
constexpr qreal kRatios[] = {1.0, 1.25, 1.5, 1.75, 2.0, 3.0};

QByteArray document(const QByteArray &shapes)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='20' viewBox='0 0 20 20'>" + shapes +
           "</svg>";
}

QImage blank(const QSize &size, qreal ratio = 1)
{
    QImage image((QSizeF(size) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
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

// A groove that is painted: which piece, where, with how many pixels, of which these are coloured.
struct Groove
{
    QRectF area;
    QSize pixels;
    SkinPainter::Columns columns;
    QColor color;
};

void prepare(QPainter *painter)
{
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter->setPen(Qt::NoPen);
}

// As the plain recipe has it.
void paintGroove(QPainter *painter, const QString &file, const Groove &groove)
{
    QImage image(groove.pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    {
        QPainter imagePainter(&image);
        renderSvg(&imagePainter, file, image.rect());
        imagePainter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        const QRectF part(groove.columns.from, 0, groove.columns.to - groove.columns.from, image.height());
        imagePainter.fillRect(part, groove.color);
    }
    painter->drawImage(groove.area, image);
}

// A document that no test has had before: what is kept is kept by contents.
QByteArray newDocument(const QByteArray &shapes)
{
    static int number = 0;
    return document(shapes + "<!-- " + QByteArray::number(++number) + " -->");
}

QByteArray randomColor(QRandomGenerator *random)
{
    return '#' + QByteArray::number(0x1000000 + random->bounded(0x1000000), 16).mid(1);
}

QByteArray randomNumber(QRandomGenerator *random, double lowest, double highest)
{
    return QByteArray::number(lowest + random->bounded(highest - lowest), 'f', random->bounded(4));
}

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
        "line x1='2' y1='" + number(1, 19) + "' x2='17' y2='" + number(1, 19) + "'",
        "polyline points='2,3 " + number(8, 18) + ",4 9," + number(8, 18) + "'"};
    const QByteArray fill = random->bounded(3) == 0 ? QByteArray("none") : randomColor(random);
    QByteArray style = " fill='" + fill + "'";
    if (random->bounded(2) == 0)
        style += " stroke='" + randomColor(random) + "' stroke-width='" + randomNumber(random, 0.2, 4) + "'";
    if (random->bounded(3) == 0)
        style += " opacity='" + randomNumber(random, 0.1, 1) + "'";
    if (random->bounded(3) == 0)
        style += " fill-opacity='0.6' stroke-opacity='" + randomNumber(random, 0.1, 1) + "'";
    return '<' + shapes[random->bounded(int(std::size(shapes)))] + style + "/>";
}

// Paints a handle and a groove of a skin.
class SkinnedWidget : public QWidget
{
public:
    explicit SkinnedWidget(QString folder)
        : m_folder(std::move(folder))
    {
        resize(kCanvas);
    }

    const QRectF target{30.3, 22.7, 14, 14};
    const Groove groove{QRectF(3, 8, 80, 9), QSize(80, 9), {12.2, 47.9}, QColor(200, 40, 90)};

protected:
    void paintEvent(QPaintEvent *) override
    {
        SkinPainter painter(this, m_folder);
        painter.paintColored(QStringLiteral("groove.svg"), groove.area, groove.pixels, groove.columns,
                             groove.color);
        painter.paint(QStringLiteral("handle.svg"), target);
    }

private:
    QString m_folder;
};

} // namespace

class tst_skinpainter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void paintsEmbeddedSkins_data();
    void paintsEmbeddedSkins();
    void paintsAnyDocument_data();
    void paintsAnyDocument();
    void paintsUnusualDocuments_data();
    void paintsUnusualDocuments();
    void paintsBeyondTheTarget();
    void paintsGrooves_data();
    void paintsGrooves();
    void colorsOnlyItsOwnPixels_data();
    void colorsOnlyItsOwnPixels();
    void paintsUnderAnyPainter_data();
    void paintsUnderAnyPainter();
    void paintsNothingWithoutAPaintEvent();

    void parsesAndDrawsOnce();
    void drawsOncePerPlaceWithinThePixel();
    void drawsGroovesOnceForAllValues_data();
    void drawsGroovesOnceForAllValues();
    void storesAreBounded();

    void changedFileShowsAfterForgetting();
    void sameFileIsNotParsedAgain();
    void swappedResourceShowsAfterForgetting();
    void missingFileIsLookedForAgain();
    void brokenFilesAreNothing_data();
    void brokenFilesAreNothing();
    void animationShowsItsFirstFrame();
    void tooLargeIsNothing();
    void pixelSizes();

private:
    QString file(const char *name) const { return m_skin->path() + QString::fromLatin1(name); }
    QImage painted(const char *name, const QSize &size = QSize(20, 10)) const;
    void compare(const QString &folder, const char *name, const QRectF &target, const QImage &canvas,
                 int tolerance) const;
    void compare(const Groove &groove, const QImage &canvas, int tolerance) const;

    QScopedPointer<SkinFolder> m_skin; // of its own for each test
};

void tst_skinpainter::init()
{
    m_skin.reset(new SkinFolder);
}

QImage tst_skinpainter::painted(const char *name, const QSize &size) const
{
    QImage image = blank(size);
    SkinPainter(&image, m_skin->path()).paint(QString::fromLatin1(name), QRectF(image.rect()));
    return image;
}

// Twice, since what is kept is made by the first time.
void tst_skinpainter::compare(const QString &folder, const char *name, const QRectF &target,
                              const QImage &canvas, int tolerance) const
{
    QImage expected = canvas;
    {
        QPainter painter(&expected);
        prepare(&painter);
        renderSvg(&painter, folder + QString::fromLatin1(name), target);
    }
    for (int time = 0; time < 2; ++time) {
        QImage image = canvas;
        SkinPainter(&image, folder).paint(QString::fromLatin1(name), target);
        QCOMPARE(differingPixels(image, expected, tolerance), 0);
    }
}

void tst_skinpainter::compare(const Groove &groove, const QImage &canvas, int tolerance) const
{
    QImage expected = canvas;
    {
        QPainter painter(&expected);
        prepare(&painter);
        paintGroove(&painter, file("groove.svg"), groove);
    }
    for (int time = 0; time < 2; ++time) {
        QImage image = canvas;
        SkinPainter(&image, m_skin->path())
            .paintColored(QStringLiteral("groove.svg"), groove.area, groove.pixels, groove.columns,
                          groove.color);
        QCOMPARE(differingPixels(image, expected, tolerance), 0);
    }
}

void tst_skinpainter::paintsEmbeddedSkins_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<qreal>("ratio");
    for (const char *name :
         {"hslider/handle.svg", "hslider2/handle.svg", "hslider2/handle_disabled.svg", "hslider/zero.svg",
          "slider/item.svg", "slider/item_active.svg", "slider/select.svg"}) {
        for (const qreal ratio : kRatios) {
            const QByteArray path(name);
            const int slash = path.indexOf('/') + 1;
            QTest::addRow("%s at %g", name, ratio)
                << QStringLiteral(":/images/images/") + QString::fromLatin1(path.left(slash))
                << path.mid(slash) << ratio;
        }
    }
}

void tst_skinpainter::paintsEmbeddedSkins()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, piece);
    QFETCH(qreal, ratio);
    QRandomGenerator random(1);
    const QSizeF size = QSvgRenderer(folder + QString::fromLatin1(piece)).defaultSize();
    for (const QImage::Format format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32}) {
        const QImage canvas = noise(&random, ratio, format);
        for (int value = -3; value <= 50; ++value) {
            const QRectF target(QPointF(value * 1.92, value % 3 == 0 ? 0 : 0.37 * value), size);
            compare(folder, piece.constData(), target, canvas, kOfOpaque);
        }
    }
}

void tst_skinpainter::paintsAnyDocument_data()
{
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : kRatios)
        QTest::addRow("%g", ratio) << ratio;
}

// Within the canvas: shapes that its edges cut off are rasterized by Qt in a way of their own.
void tst_skinpainter::paintsAnyDocument()
{
    QFETCH(qreal, ratio);
    QRandomGenerator random(quint32(ratio * 7));
    for (int round = 0; round < 30; ++round) {
        QByteArray shapes;
        for (int shape = random.bounded(1, 3); shape > 0;
             --shape) // each that lies upon another is rounded again
            shapes += randomShape(&random);
        m_skin->writeRaw("any.svg", document(shapes));
        SkinPainter::forgetFiles();
        const double side = 16 + random.bounded(20.0);
        const QPointF place(random.bounded(20.0) + 10, random.bounded(15.0) + 10);
        const QImage canvas = noise(&random, ratio);
        for (const int pixels : {0, 1, 17}) {
            const QPointF shift(pixels / ratio, 0);
            compare(m_skin->path(), "any.svg", QRectF(place + shift, QSizeF(side, side)), canvas,
                    kOfTranslucent);
            if (QTest::currentTestFailed())
                QFAIL((QByteArray::number(round) + ": " + shapes).constData());
        }
    }
}

void tst_skinpainter::paintsUnusualDocuments_data()
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
    QTest::newRow("thin outline") << QByteArray("<circle cx='10' cy='10' r='6' fill='#fff' stroke='#000'/>");
    QTest::newRow("dashes") << QByteArray(
        "<circle cx='10' cy='10' r='6' fill='none' stroke='#000' stroke-width='3' stroke-dasharray='3,2'/>");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("beyond its box") << QByteArray("<circle cx='10' cy='10' r='13' fill='#0f0'/>");
    QTest::newRow("far beyond its box") << QByteArray("<rect x='-30' y='9' width='80' height='2'/>");
    QTest::newRow("beside its box") << QByteArray("<rect x='22' y='9' width='2' height='2'/>");
    QTest::newRow("far beside its box") << QByteArray("<rect x='29' y='9' width='20' height='2'/>");
}

void tst_skinpainter::paintsUnusualDocuments()
{
    QFETCH(QByteArray, shapes);
    QRandomGenerator random(4);
    m_skin->writeRaw("any.svg", document(shapes));
    for (const qreal ratio : kRatios) {
        const QImage canvas = noise(&random, ratio);
        for (const QSizeF &size : {QSizeF(20, 20), QSizeF(13, 17.3)}) {
            for (int x = 0; x < 20; ++x)
                compare(m_skin->path(), "any.svg", QRectF(QPointF(x * 0.7, x * 0.45), size), canvas,
                        kOfTranslucent);
        }
    }
}

// Empty and far targets, large ones, and those that lie in part beside the canvas.
void tst_skinpainter::paintsBeyondTheTarget()
{
    QRandomGenerator random(5);
    const QImage canvas = noise(&random, 1);
    for (const QRectF &target :
         {QRectF(-7.3, -2.7, 20.1, 9.5), QRectF(80, 60, 20, 20), QRectF(-300, -200, 900, 900),
          QRectF(-100, -100, 10, 10), QRectF(-9e4, 5, 1.8e5, 20)})
        compare(m_skin->path(), "handle.svg", target, canvas, kOfOpaque);
    for (const QRectF &target : {QRectF(5, 5, 0, 9), QRectF(5, 5, -3, -3), QRectF(4e11, 0, 14, 14)}) {
        QImage image = canvas;
        SkinPainter(&image, m_skin->path()).paint(QStringLiteral("handle.svg"), target);
        QCOMPARE(image, canvas);
    }
}

void tst_skinpainter::paintsGrooves_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<bool>("isScaled");
    QTest::addColumn<QByteArray>("shapes");
    QTest::addColumn<int>("tolerance");
    for (const qreal ratio : kRatios) {
        for (const bool isScaled : {false, true}) {
            const auto add = [&](const char *name, const char *shapes, int tolerance) {
                QTest::addRow("%s at %g%s", name, ratio, isScaled ? ", one pixel a unit" : "")
                    << ratio << isScaled << QByteArray(shapes) << tolerance;
            };
            add("round", "<rect width='80' height='9' rx='4' fill='#80c0ff'/>", kOfOpaque);
            add("line with a mark",
                "<rect y='4' width='80' height='2' rx='1' fill='#EBEBEB'/>"
                "<rect x='39' y='2' width='2' height='6' rx='1' fill='#4B66EB'/>",
                kOfOpaque);
            add("translucent", "<rect width='80' height='9' rx='4' fill='#8060c0' opacity='0.6'/>",
                kOfTranslucent);
            add("stripes", "<path d='M1 0v9M4 0v9M5.5 0v9M30 0v9M40.2 0v9M79 0v9' stroke='#ff0000'/>",
                kOfTranslucent);
        }
    }
}

void tst_skinpainter::paintsGrooves()
{
    QFETCH(qreal, ratio);
    QFETCH(bool, isScaled);
    QFETCH(QByteArray, shapes);
    QFETCH(int, tolerance);
    m_skin->write("groove.svg", shapes.constData(), 80, 9);
    QRandomGenerator random(6);
    const QImage canvas = noise(&random, ratio);
    for (const QPointF &place : {QPointF(4, 2), QPointF(3.4, 1.75)}) {
        Groove groove{QRectF(place, QSizeF(81, 9)), QSize(81, 9), {0, 0}, QColor(200, 40, 90)};
        if (!isScaled)
            groove.pixels = SkinPainter::pixelSize(groove.pixels, ratio);
        const int width = groove.pixels.width();
        for (int edge = 0; edge <= width; edge += edge == 0 || edge + 5 > width ? 1 : 4) {
            for (const SkinPainter::Columns &columns :
                 {SkinPainter::Columns{0, double(edge)}, SkinPainter::Columns{double(edge), double(width)},
                  SkinPainter::Columns{double(edge), edge + 1.0},
                  SkinPainter::Columns{edge + 3.0, double(edge)}}) {
                groove.columns = columns;
                compare(groove, canvas, tolerance);
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(
                        QStringLiteral("%1 to %2 at %3").arg(columns.from).arg(columns.to).arg(place.x())));
            }
        }
    }
}

void tst_skinpainter::colorsOnlyItsOwnPixels_data()
{
    QTest::addColumn<qreal>("from");
    QTest::addColumn<qreal>("to");
    QTest::addColumn<QColor>("color");
    const QColor opaque(10, 200, 30);
    QTest::newRow("left part") << 0.0 << 40.0 << opaque;
    QTest::newRow("fractions") << 10.3 << 40.7 << opaque;
    QTest::newRow("halves") << 10.5 << 40.5 << opaque;
    QTest::newRow("translucent") << 10.0 << 40.0 << QColor(10, 200, 30, 99);
    QTest::newRow("transparent") << 10.0 << 40.0 << QColor(Qt::transparent);
    QTest::newRow("no colour") << 10.0 << 40.0 << QColor();
    QTest::newRow("nothing") << 10.0 << 10.0 << opaque;
    QTest::newRow("less than a pixel") << 10.1 << 10.3 << opaque;
    QTest::newRow("ends exchanged") << 40.0 << 15.0 << opaque;
    QTest::newRow("beyond both ends") << -1000.0 << 2000.0 << opaque;
    QTest::newRow("outside left") << -100.0 << -50.0 << opaque;
    QTest::newRow("outside right") << 300.0 << 350.0 << opaque;
    QTest::newRow("all") << 0.0 << 80.0 << opaque;
}

void tst_skinpainter::colorsOnlyItsOwnPixels()
{
    QFETCH(qreal, from);
    QFETCH(qreal, to);
    QFETCH(QColor, color);
    for (const qreal ratio : kRatios) {
        const QSize pixels = SkinPainter::pixelSize(QSize(80, 10), ratio);
        compare({QRectF(2, 3, 80, 10), pixels, {from, to}, color}, blank(kCanvas, ratio), kOfOpaque);
        compare({QRectF(2, 3, 80, 10), QSize(80, 10), {from, to}, color}, blank(kCanvas, ratio), kOfOpaque);
    }
}

void tst_skinpainter::paintsUnderAnyPainter_data()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<qreal>("opacity");
    QTest::addColumn<QPainter::CompositionMode>("mode");
    const auto over = QPainter::CompositionMode_SourceOver;
    QTest::newRow("plain") << QTransform() << 1.0 << over;
    QTest::newRow("moved") << QTransform::fromTranslate(-3.3, 4.6) << 1.0 << over;
    QTest::newRow("scaled") << QTransform(1.3, 0, 0, 0.8, 2.1, 3.7) << 1.0 << over;
    QTest::newRow("mirrored") << QTransform(-1, 0, 0, 1, 80, 0) << 1.0 << over;
    QTest::newRow("upside down") << QTransform(1, 0, 0, -1, 0, 60) << 1.0 << over;
    QTest::newRow("rotated") << QTransform().rotate(20) << 1.0 << over;
    QTest::newRow("translucent") << QTransform() << 0.5 << over;
    QTest::newRow("combined") << QTransform() << 1.0 << QPainter::CompositionMode_Plus;
}

void tst_skinpainter::paintsUnderAnyPainter()
{
    QFETCH(QTransform, transform);
    QFETCH(qreal, opacity);
    QFETCH(QPainter::CompositionMode, mode);
    SkinnedWidget widget(m_skin->path());
    widget.setAttribute(Qt::WA_TranslucentBackground);
    const auto prepareAll = [&](QPainter *painter) {
        prepare(painter);
        painter->setTransform(transform);
        painter->setOpacity(opacity);
        painter->setCompositionMode(mode);
    };
    for (const qreal ratio : kRatios) {
        QRandomGenerator random(8);
        const QImage canvas = noise(&random, ratio);
        QImage image = canvas;
        QPainter painter(&image);
        prepareAll(&painter);
        widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
        painter.end();
        QImage expected = canvas;
        QPainter plain(&expected);
        prepareAll(&plain);
        plain.setClipRect(widget.rect());
        if (opacity < 1) {
            QImage whole = blank(widget.size(), ratio);
            QPainter wholePainter(&whole);
            prepare(&wholePainter);
            paintGroove(&wholePainter, file("groove.svg"), widget.groove);
            renderSvg(&wholePainter, file("handle.svg"), widget.target);
            wholePainter.end();
            plain.drawImage(0, 0, whole);
        } else {
            paintGroove(&plain, file("groove.svg"), widget.groove);
            renderSvg(&plain, file("handle.svg"), widget.target);
        }
        plain.end();
        QCOMPARE(differingPixels(image, expected, kOfTranslucent), 0);
    }
    QPicture picture;
    QPainter painter(&picture);
    painter.setTransform(transform);
    widget.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter.end();
    QVERIFY(!picture.isNull());
}

void tst_skinpainter::paintsNothingWithoutAPaintEvent()
{
    class Forward : public SkinnedWidget
    {
    public:
        using SkinnedWidget::paintEvent;
        using SkinnedWidget::SkinnedWidget;
    };
    Forward widget(m_skin->path());
    QPaintEvent event(widget.rect());
    const LogCapture log;
    widget.paintEvent(&event);
    for (const QString &line : log.texts())
        QVERIFY2(line.startsWith(QLatin1String("QWidget::paintEngine")) ||
                     line.startsWith(QLatin1String("QPainter::")),
                 qPrintable(line));
}

void tst_skinpainter::parsesAndDrawsOnce()
{
    m_skin->writeRaw("handle.svg", newDocument(kRed));
    const SkinPainter::Made before = SkinPainter::made();
    painted("handle.svg");
    QCOMPARE(SkinPainter::made().documents, before.documents + 1);
    QCOMPARE(SkinPainter::made().images, before.images + 1);
    for (int time = 0; time < 3; ++time)
        painted("handle.svg");
    QCOMPARE(SkinPainter::made().documents, before.documents + 1);
    QCOMPARE(SkinPainter::made().images, before.images + 1);
    painted("handle.svg", QSize(30, 15));
    QCOMPARE(SkinPainter::made().documents, before.documents + 1);
    QCOMPARE(SkinPainter::made().images, before.images + 2);
}

void tst_skinpainter::drawsOncePerPlaceWithinThePixel()
{
    m_skin->writeRaw("handle.svg", newDocument(kRed));
    QImage image = blank(kCanvas, 1.5);
    const auto imagesFor = [&](const QPointF &place) {
        const int before = SkinPainter::made().images;
        SkinPainter(&image, m_skin->path())
            .paint(QStringLiteral("handle.svg"), QRectF(place, QSizeF(14, 14)));
        return SkinPainter::made().images - before;
    };
    QCOMPARE(imagesFor(QPointF(4, 6)), 1);
    QCOMPARE(imagesFor(QPointF(5, 6)), 1); // half a pixel further
    QCOMPARE(imagesFor(QPointF(5, 7)), 1);
    for (int x = 0; x < 60; ++x)
        QCOMPARE(imagesFor(QPointF(x, 6)), 0);
    QCOMPARE(imagesFor(QPointF(-4, -2)), 0);
    QCOMPARE(imagesFor(QPointF(4, 9)), 1);
}

void tst_skinpainter::drawsGroovesOnceForAllValues_data()
{
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<int>("images"); // rendered, plain and coloured; and two for the edges of the colour
    QTest::newRow("pixel by pixel") << 1.0 << QSize(80, 10) << 3;
    QTest::newRow("pixel by pixel at 2") << 2.0 << QSize(160, 20) << 3;
    QTest::newRow("scaled") << 2.0 << QSize(80, 10) << 5;
    QTest::newRow("scaled a little") << 1.25 << QSize(99, 12) << 5;
}

void tst_skinpainter::drawsGroovesOnceForAllValues()
{
    QFETCH(qreal, ratio);
    QFETCH(QSize, pixels);
    QFETCH(int, images);
    m_skin->writeRaw("groove.svg", newDocument(kRed));
    QImage image = blank(kCanvas, ratio);
    const auto imagesFor = [&](const QColor &color) {
        const int before = SkinPainter::made().images;
        for (int to = 0; to <= pixels.width(); ++to) {
            SkinPainter(&image, m_skin->path())
                .paintColored(QStringLiteral("groove.svg"), QRectF(4, 4, 80, 10), pixels, {30, double(to)},
                              color);
        }
        return SkinPainter::made().images - before;
    };
    QCOMPARE(imagesFor(Qt::red), images);
    QCOMPARE(imagesFor(Qt::red), 0);
    QCOMPARE(imagesFor(Qt::blue), images - 2);
    QCOMPARE(imagesFor(Qt::red), 0);
}

void tst_skinpainter::storesAreBounded()
{
    m_skin->writeRaw("handle.svg", newDocument(kRed));
    const auto madeBy = [&](int from, int to) {
        const int before = SkinPainter::made().images;
        for (int side = from; side < to; ++side)
            painted("handle.svg", QSize(side, side));
        return SkinPainter::made().images - before;
    };
    QCOMPARE(madeBy(50, 51), 1);
    QCOMPARE(madeBy(51, 100), 49);
    QCOMPARE(madeBy(50, 100), 0);
    madeBy(100, 250);
    QCOMPARE(madeBy(50, 51), 1);

    // The document that was not asked for the longest is parsed again.
    const auto parsedBy = [&](int from, int to) {
        const int before = SkinPainter::made().documents;
        for (int number = from; number < to; ++number) {
            const QByteArray name = QByteArray::number(number) + ".svg";
            if (!QFile::exists(file(name.constData())))
                m_skin->writeRaw(name.constData(), newDocument(kRed));
            painted(name.constData());
        }
        return SkinPainter::made().documents - before;
    };
    QCOMPARE(parsedBy(0, 50), 50);
    QCOMPARE(parsedBy(0, 50), 0);
    QCOMPARE(parsedBy(50, 150), 100);
    QCOMPARE(parsedBy(0, 1), 1);
}

void tst_skinpainter::changedFileShowsAfterForgetting()
{
    m_skin->write("piece.svg", kRed, 20, 10);
    QCOMPARE(painted("piece.svg").pixelColor(5, 5), QColor(Qt::red));
    m_skin->write("piece.svg", kBlue, 20, 10);
    QCOMPARE(painted("piece.svg").pixelColor(5, 5), QColor(Qt::red));
    SkinPainter::forgetFiles();
    QCOMPARE(painted("piece.svg").pixelColor(5, 5), QColor(Qt::blue));
    m_skin->remove("piece.svg");
    SkinPainter::forgetFiles();
    QCOMPARE(painted("piece.svg"), blank(QSize(20, 10)));
}

// What is kept is kept by what a file holds: under another path, and when another file lay there in between.
void tst_skinpainter::sameFileIsNotParsedAgain()
{
    m_skin->write("piece.svg", kRed, 20, 10);
    painted("piece.svg");
    m_skin->write("piece.svg", kBlue, 20, 10);
    SkinPainter::forgetFiles();
    painted("piece.svg");
    const SkinPainter::Made before = SkinPainter::made();
    m_skin->write("piece.svg", kRed, 20, 10);
    m_skin->write("other.svg", kBlue, 20, 10);
    SkinPainter::forgetFiles();
    QCOMPARE(painted("piece.svg").pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(painted("other.svg").pixelColor(5, 5), QColor(Qt::blue));
    QCOMPARE(SkinPainter::made().documents, before.documents);
    QCOMPARE(SkinPainter::made().images, before.images);
}

void tst_skinpainter::swappedResourceShowsAfterForgetting()
{
    const auto colorNow = [] {
        QImage image = blank(QSize(20, 20));
        SkinPainter(&image, QStringLiteral(":/client/skin/"))
            .paint(QStringLiteral("a.svg"), QRectF(image.rect()));
        return image.pixelColor(5, 5);
    };
    for (const QColor &color : {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::red)}) {
        const QByteArray fill = color.name().toLatin1();
        const MemoryResource resource(
            QStringLiteral("/client/skin"),
            {{QStringLiteral("a.svg"), document("<rect width='20' height='20' fill='" + fill + "'/>")}});
        SkinPainter::forgetFiles();
        QCOMPARE(colorNow(), color);
    }
    SkinPainter::forgetFiles();
    QCOMPARE(colorNow(), QColor(Qt::transparent));
}

void tst_skinpainter::missingFileIsLookedForAgain()
{
    const LogCapture log;
    QCOMPARE(painted("later.svg"), blank(QSize(20, 10)));
    m_skin->write("later.svg", kRed, 20, 10);
    QCOMPARE(painted("later.svg").pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(log.texts(), QStringList());
}

void tst_skinpainter::brokenFilesAreNothing_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray("<svg><rect");
    QTest::newRow("text") << QByteArray("no picture");
    QTest::newRow("shape as root") << QByteArray("<rect width='9' height='9'/>");
    QTest::newRow("group as root") << QByteArray("<g><rect width='9' height='9'/></g>");
    QTest::newRow("unknown root") << QByteArray("<html><body/></html>");
    QTest::newRow("binary") << QByteArray("\0\xff\x89PNG\0", 7);
}

void tst_skinpainter::brokenFilesAreNothing()
{
    QFETCH(QByteArray, contents);
    const LogCapture log;
    m_skin->writeRaw("broken.svg", contents);
    QImage image = blank(QSize(20, 20));
    {
        SkinPainter painter(&image, m_skin->path());
        for (const char *piece : {"broken.svg", ""}) { // a folder
            painter.paint(QString::fromLatin1(piece), QRectF(0, 0, 20, 20));
            painter.paintColored(QString::fromLatin1(piece), QRectF(0, 0, 20, 10), QSize(20, 10), {0, 5},
                                 Qt::red);
        }
    }
    QCOMPARE(image, blank(QSize(20, 20)));
    QCOMPARE(log.texts(), QStringList());
}

void tst_skinpainter::animationShowsItsFirstFrame()
{
    m_skin->write(
        "moving.svg",
        "<rect width='20' height='10' fill='#ff0000'><animateColor attributeName='fill' from='#ff0000' "
        "to='#0000ff' dur='60ms' fill='freeze'/></rect>",
        20, 10);
    QVERIFY(painted("moving.svg").pixelColor(5, 5).blue() < 255);
    QTest::qWait(80);
    QVERIFY(painted("moving.svg").pixelColor(5, 5).blue() < 255);
    QVERIFY(painted("moving.svg", QSize(30, 15)).pixelColor(5, 5).blue() < 255);
}

void tst_skinpainter::tooLargeIsNothing()
{
    constexpr int kHighest = std::numeric_limits<int>::max();
    const int before = SkinPainter::made().images;
    QImage image = blank(kCanvas);
    for (const QSize &size : {QSize(0, 10), QSize(10, 0), QSize(-5, 10), QSize(), QSize(206, 1000000),
                              QSize(kHighest, kHighest), QSize(kHighest, 1)}) {
        SkinPainter(&image, m_skin->path())
            .paintColored(QStringLiteral("groove.svg"), QRectF(QPointF(0, 0), QSizeF(80, 10)), size, {0, 5},
                          Qt::red);
    }
    QCOMPARE(image, blank(kCanvas));
    QCOMPARE(SkinPainter::made().images, before);
    // What is too large to be kept is painted all the same.
    compare({QRectF(-900, 5, 2000, 300), QSize(2000, 300), {0, 930.2}, Qt::red}, blank(kCanvas), kOfOpaque);
}

void tst_skinpainter::pixelSizes()
{
    QCOMPARE(SkinPainter::pixelSize(QSize(206, 10), 1), QSize(206, 10));
    QCOMPARE(SkinPainter::pixelSize(QSize(206, 10), 1.25), QSize(258, 13));
    QCOMPARE(SkinPainter::pixelSize(QSize(205, 9), 1.5), QSize(308, 14));
    QCOMPARE(SkinPainter::pixelSize(QSize(-4, 9), 1), QSize(0, 9));
    const QSize cut = SkinPainter::pixelSize(QSize(std::numeric_limits<int>::max(), 1), 2);
    QVERIFY(cut.width() > 16 * 1024 * 1024 && cut.width() < std::numeric_limits<int>::max());
}

ORV_TEST_MAIN(tst_skinpainter)

#include "tst_skinpainter.moc"
