#include "logcapture.h"
#include "skintesting.h"
#include "testmain.h"

#include <QtGui/QPicture>
#include <QtTest/QTest>

Q_DECLARE_METATYPE(QPainter::CompositionMode)

using namespace SkinTesting;

namespace {

constexpr qreal kRatios[] = {1.0, 1.25, 1.5, 1.75, 2.0, 3.0};

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

// One shape again and again, with other numbers and another colour each time.
QByteArray copies(const char *shape, int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i) {
        all += QByteArray(shape)
                   .replace("%1", QByteArray::number(2.3 + 0.77 * i))
                   .replace("%2", QByteArray::number(11 - 0.4 * i))
                   .replace("%3", QByteArray::number(0x123456 + 0x0f1b2d * i, 16));
    }
    return all;
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

/// What is painted, beside the recipe.
class tst_skinpainter_pictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_skin.reset(new SkinFolder); }

    void paintsEmbeddedSkins_data();
    void paintsEmbeddedSkins();
    void paintsAnyDocument_data();
    void paintsAnyDocument();
    void paintsUnusualDocuments_data();
    void paintsUnusualDocuments();
    void paintsShapesThatAnEdgeCutsOff();
    void paintsBeyondTheTarget();
    void paintsGrooves_data();
    void paintsGrooves();
    void colorsOnlyItsOwnPixels_data();
    void colorsOnlyItsOwnPixels();
    void paintsUnderAnyPainter_data();
    void paintsUnderAnyPainter();
    void paintsNothingWithoutAPaintEvent();

private:
    QScopedPointer<SkinFolder> m_skin; // of its own for each test
};

void tst_skinpainter_pictures::paintsEmbeddedSkins_data()
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

void tst_skinpainter_pictures::paintsEmbeddedSkins()
{
    QFETCH(QString, folder);
    QFETCH(QByteArray, piece);
    QFETCH(qreal, ratio);
    QRandomGenerator random(3);
    const QSizeF size = QSvgRenderer(folder + QString::fromLatin1(piece)).defaultSize();
    for (const QImage::Format format : {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32}) {
        const QImage canvas = noise(&random, ratio, format);
        for (int value = -3; value <= 50; ++value) {
            const QRectF target(QPointF(value * 1.92, value % 3 == 0 ? 0 : 0.37 * value), size);
            compare(folder, piece.constData(), target, canvas, kOfOpaque);
        }
    }
}

void tst_skinpainter_pictures::paintsAnyDocument_data()
{
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : kRatios)
        QTest::addRow("%g", ratio) << ratio;
}

void tst_skinpainter_pictures::paintsAnyDocument()
{
    QFETCH(qreal, ratio);
    QRandomGenerator random(quint32(ratio * 7));
    for (int round = 0; round < 30; ++round) {
        QByteArray shapes;
        for (int shape = random.bounded(1, 9); shape > 0; --shape)
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

void tst_skinpainter_pictures::paintsUnusualDocuments_data()
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
    QTest::newRow("hair lines") << copies("<path d='M1 %1L19 %2' stroke='#%3' stroke-width='0.2'/>", 9);
    QTest::newRow("thin outlines") << copies(
        "<circle cx='10' cy='10' r='%1' fill='none' stroke='#%3' stroke-width='0.4'/>", 8);
    QTest::newRow("outlines of outlines") << copies(
        "<rect x='2' y='%1' width='9' height='9' rx='3' fill='#%3' stroke='#fff' stroke-width='0.7'/>", 6);
    QTest::newRow("three translucent")
        << copies("<circle cx='%1' cy='10' r='6' fill='#%3' opacity='0.4'/>", 3);
    QTest::newRow("twenty translucent")
        << copies("<rect x='%2' y='3' width='9' height='14' fill='#%3' opacity='0.13'/>", 20);
    QTest::newRow("crossing itself") << QByteArray("<path d='M2 2L18 17L2 11L18 4L3 18L10 1Z' fill='none' "
                                                   "stroke='#e78936' stroke-width='0.17'/>");
    QTest::newRow("shades of a shadow")
        << copies("<ellipse cx='10' cy='12' rx='%1' ry='%1' fill='#000' fill-opacity='0.05'/>", 12);
    QTest::newRow("beyond its box") << QByteArray("<circle cx='10' cy='10' r='13' fill='#0f0'/>");
    QTest::newRow("far beyond its box") << QByteArray("<rect x='-30' y='9' width='80' height='2'/>");
    QTest::newRow("beside its box") << QByteArray("<rect x='22' y='9' width='2' height='2'/>");
    QTest::newRow("far beside its box") << QByteArray("<rect x='29' y='9' width='20' height='2'/>");
}

void tst_skinpainter_pictures::paintsUnusualDocuments()
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

// Of a line that ends beyond the picture, or beyond the part that is painted again, Qt keeps another line.
void tst_skinpainter_pictures::paintsShapesThatAnEdgeCutsOff()
{
    QRandomGenerator random(3);
    for (int round = 0; round < 150; ++round) {
        m_skin->writeRaw("any.svg", document(randomShape(&random) + randomShape(&random)));
        SkinPainter::forgetFiles();
        const qreal ratio = kRatios[round % 5];
        const QImage canvas = noise(&random, ratio);
        const double side = 16 + random.bounded(20.0);
        const double across = random.bounded(side) - side;
        const double down = random.bounded(kCanvas.height() + side) - side;
        const QRectF left(across, down, side, side);
        const QRectF right(kCanvas.width() - side - across, down, side, side);
        for (const QRectF &target : {left, right, QRectF(down, across, side, side)}) {
            compare(m_skin->path(), "any.svg", target, canvas, kOfTranslucent);
            if (QTest::currentTestFailed())
                return;
        }
    }
}

// Empty and far targets, large ones, and those that lie in part beside the canvas.
void tst_skinpainter_pictures::paintsBeyondTheTarget()
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

void tst_skinpainter_pictures::paintsGrooves_data()
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

void tst_skinpainter_pictures::paintsGrooves()
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
                compare(m_skin->path(), groove, canvas, tolerance);
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(
                        QStringLiteral("%1 to %2 at %3").arg(columns.from).arg(columns.to).arg(place.x())));
            }
        }
    }
}

void tst_skinpainter_pictures::colorsOnlyItsOwnPixels_data()
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

void tst_skinpainter_pictures::colorsOnlyItsOwnPixels()
{
    QFETCH(qreal, from);
    QFETCH(qreal, to);
    QFETCH(QColor, color);
    for (const qreal ratio : kRatios) {
        const QSize pixels = SkinPainter::pixelSize(QSize(80, 10), ratio);
        compare(m_skin->path(), {QRectF(2, 3, 80, 10), pixels, {from, to}, color}, blank(kCanvas, ratio),
                kOfOpaque);
        compare(m_skin->path(), {QRectF(2, 3, 80, 10), QSize(80, 10), {from, to}, color},
                blank(kCanvas, ratio), kOfOpaque);
    }
}

void tst_skinpainter_pictures::paintsUnderAnyPainter_data()
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

void tst_skinpainter_pictures::paintsUnderAnyPainter()
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
            paintGroove(&wholePainter, m_skin->path() + QStringLiteral("groove.svg"), widget.groove);
            renderSvg(&wholePainter, m_skin->path() + QStringLiteral("handle.svg"), widget.target);
            wholePainter.end();
            plain.drawImage(0, 0, whole);
        } else {
            paintGroove(&plain, m_skin->path() + QStringLiteral("groove.svg"), widget.groove);
            renderSvg(&plain, m_skin->path() + QStringLiteral("handle.svg"), widget.target);
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

void tst_skinpainter_pictures::paintsNothingWithoutAPaintEvent()
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
    const QStringList lines = log.texts();
    for (const QString &line : lines)
        QVERIFY2(line.startsWith(QLatin1String("QWidget::paintEngine")) ||
                     line.startsWith(QLatin1String("QPainter::")),
                 qPrintable(line));
}

ORV_TEST_MAIN(tst_skinpainter_pictures)

#include "tst_skinpainter_pictures.moc"
