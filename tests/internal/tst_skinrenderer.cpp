#include "logcapture.h"
#include "pictures.h"
#include "skinrenderer.h"
#include "slidertesting.h"

#include <QtTest/QTest>

#include <limits>

using namespace SliderTesting;

namespace {

const char kRed[] = "<rect width='20' height='10' fill='#ff0000'/>";
const char kBlue[] = "<rect width='20' height='10' fill='#0000ff'/>";

QImage blank(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

class tst_skinrenderer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void rendersIntoTheWholeImage();
    void colorsOnlyItsOwnPixels_data();
    void colorsOnlyItsOwnPixels();
    void paintsIntoTheTarget();
    void paintLeavesThePainterAsItWas();
    void parsesOnce();
    void rendersOncePerSizeAndColor();
    void storesAreBounded();
    void missingFileIsLookedForAgain();
    void brokenFilesAreNothing_data();
    void brokenFilesAreNothing();
    void animationShowsItsFirstFrame();
    void tooLargeIsNothing();
    void pixelSizes();

private:
    QString file(const char *name) const { return m_skin->path() + QString::fromLatin1(name); }

    QScopedPointer<SkinFolder> m_skin; // of its own for each test, since the first look of a file is kept
};

void tst_skinrenderer::init()
{
    m_skin.reset(new SkinFolder);
}

void tst_skinrenderer::rendersIntoTheWholeImage()
{
    const QSize size(77, 31);
    QImage expected = blank(size);
    QPainter painter(&expected);
    renderSvg(&painter, file("groove.svg"), expected.rect());
    painter.end();
    const QImage image = SkinRenderer::image(file("groove.svg"), size);
    QCOMPARE(image.format(), QImage::Format_ARGB32);
    QCOMPARE(image, expected);
}

void tst_skinrenderer::colorsOnlyItsOwnPixels_data()
{
    QTest::addColumn<QRectF>("part");
    QTest::addColumn<QColor>("color");
    const QColor opaque(10, 200, 30);
    QTest::newRow("left part") << QRectF(0, 0, 40, 10) << opaque;
    QTest::newRow("fractions") << QRectF(10.3, 0, 30.4, 10) << opaque;
    QTest::newRow("halves") << QRectF(10.5, 0, 30, 10) << opaque;
    QTest::newRow("translucent") << QRectF(10, 0, 30, 10) << QColor(10, 200, 30, 99);
    QTest::newRow("nothing") << QRectF(10, 0, 0, 10) << opaque;
    QTest::newRow("less than a pixel") << QRectF(10.1, 0, 0.2, 10) << opaque;
    QTest::newRow("ends exchanged") << QRectF(40, 0, -25, 10) << opaque;
    QTest::newRow("beyond both ends") << QRectF(-1000, 0, 3000, 10) << opaque;
    QTest::newRow("outside left") << QRectF(-100, 0, 50, 10) << opaque;
    QTest::newRow("outside right") << QRectF(300, 0, 50, 10) << opaque;
    QTest::newRow("all") << QRectF(0, 0, 206, 10) << opaque;
}

void tst_skinrenderer::colorsOnlyItsOwnPixels()
{
    QFETCH(QRectF, part);
    QFETCH(QColor, color);
    QImage expected = blank(QSize(206, 10));
    {
        QPainter painter(&expected);
        renderSvg(&painter, file("groove.svg"), expected.rect());
        painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        painter.fillRect(part, color);
    }
    for (int time = 0; time < 2; ++time)
        QCOMPARE(SkinRenderer::coloredImage(file("groove.svg"), QSize(206, 10), part, color), expected);
}

void tst_skinrenderer::paintsIntoTheTarget()
{
    for (const QRectF &target : {QRectF(0, 0, 14, 14), QRectF(3.3, -2.7, 20.1, 9.5), QRectF(5, 5, 0, 9),
                                 QRectF(5, 5, -3, -3), QRectF(4e11, 0, 14, 14)}) {
        QImage expected(40, 30, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::gray);
        QImage image = expected;
        if (!target.isEmpty() && target.left() < 1000) {
            QPainter painter(&expected);
            renderSvg(&painter, file("handle.svg"), target);
        }
        QPainter painter(&image);
        SkinRenderer::paint(&painter, file("handle.svg"), target);
        painter.end();
        QCOMPARE(image, expected);
    }
}

void tst_skinrenderer::paintLeavesThePainterAsItWas()
{
    QImage image = blank(QSize(20, 20));
    QPainter painter(&image);
    SkinRenderer::prepare(&painter);
    QCOMPARE(painter.pen().style(), Qt::NoPen);
    const QPainter::RenderHints hints = painter.renderHints();
    QVERIFY(hints.testFlag(QPainter::Antialiasing));
    QVERIFY(hints.testFlag(QPainter::SmoothPixmapTransform));
    SkinRenderer::paint(&painter, file("handle.svg"), QRectF(0, 0, 14, 14));
    QCOMPARE(painter.renderHints(), hints);
    QCOMPARE(painter.pen().style(), Qt::NoPen);
    QCOMPARE(painter.transform(), QTransform());
}

// A file that changes afterwards would show, were it parsed again.
void tst_skinrenderer::parsesOnce()
{
    m_skin->write("piece.svg", kRed, 20, 10);
    QCOMPARE(SkinRenderer::image(file("piece.svg"), QSize(20, 10)).pixelColor(5, 5), QColor(Qt::red));
    m_skin->write("piece.svg", kBlue, 20, 10);
    QCOMPARE(SkinRenderer::image(file("piece.svg"), QSize(40, 20)).pixelColor(5, 5), QColor(Qt::red));
    m_skin->remove("piece.svg");
    QCOMPARE(SkinRenderer::image(file("piece.svg"), QSize(60, 30)).pixelColor(5, 5), QColor(Qt::red));
}

void tst_skinrenderer::rendersOncePerSizeAndColor()
{
    const QString groove = file("groove.svg");
    const QSize size(206, 10);
    const QRectF part(0, 0, 50.2, 10);
    const qint64 plain = SkinRenderer::image(groove, size).cacheKey();
    const qint64 red = SkinRenderer::coloredImage(groove, size, part, Qt::red).cacheKey();
    const qint64 blue = SkinRenderer::coloredImage(groove, size, part, Qt::blue).cacheKey();
    QVERIFY(plain != red && red != blue);
    QCOMPARE(SkinRenderer::image(groove, size).cacheKey(), plain);
    QCOMPARE(SkinRenderer::coloredImage(groove, size, QRectF(0, 0, 49.9, 10), Qt::red).cacheKey(), red);
    QCOMPARE(SkinRenderer::coloredImage(groove, size, part, Qt::blue).cacheKey(), blue);
    QCOMPARE(SkinRenderer::coloredImage(groove, size, QRectF(3, 0, 0, 10), Qt::blue).cacheKey(), plain);
    QVERIFY(SkinRenderer::image(groove, QSize(412, 20)).cacheKey() != plain);
}

void tst_skinrenderer::storesAreBounded()
{
    const QString groove = file("groove.svg");
    const qint64 first = SkinRenderer::image(groove, QSize(206, 10)).cacheKey();
    for (int height = 11; height < 61; ++height)
        SkinRenderer::image(groove, QSize(206, height));
    QCOMPARE(SkinRenderer::image(groove, QSize(206, 10)).cacheKey(), first);
    for (int height = 11; height < 311; ++height)
        SkinRenderer::image(groove, QSize(206, height));
    QVERIFY(SkinRenderer::image(groove, QSize(206, 10)).cacheKey() != first);
    // An image larger than the whole store is drawn all the same.
    QVERIFY(!SkinRenderer::image(groove, QSize(2000, 1000)).isNull());

    // The file that was not asked for the longest is parsed anew.
    m_skin->write("piece.svg", kRed, 20, 10);
    SkinRenderer::image(file("piece.svg"), QSize(20, 10));
    m_skin->write("piece.svg", kBlue, 20, 10);
    for (int other = 0; other < 100; ++other) {
        const QByteArray name = QByteArray::number(other) + ".svg";
        m_skin->write(name.constData(), kRed, 20, 10);
        SkinRenderer::image(file(name.constData()), QSize(20, 10));
    }
    QCOMPARE(SkinRenderer::image(file("piece.svg"), QSize(21, 10)).pixelColor(5, 5), QColor(Qt::blue));
}

void tst_skinrenderer::missingFileIsLookedForAgain()
{
    const LogCapture log;
    QVERIFY(SkinRenderer::image(file("later.svg"), QSize(20, 10)).isNull());
    m_skin->write("later.svg", kRed, 20, 10);
    QCOMPARE(SkinRenderer::image(file("later.svg"), QSize(20, 10)).pixelColor(5, 5), QColor(Qt::red));
    QCOMPARE(log.texts(), QStringList());
}

void tst_skinrenderer::brokenFilesAreNothing_data()
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

void tst_skinrenderer::brokenFilesAreNothing()
{
    QFETCH(QByteArray, contents);
    const LogCapture log;
    m_skin->writeRaw("broken.svg", contents);
    QVERIFY(SkinRenderer::image(file("broken.svg"), QSize(20, 10)).isNull());
    QVERIFY(
        SkinRenderer::coloredImage(file("broken.svg"), QSize(20, 10), QRectF(0, 0, 5, 10), Qt::red).isNull());
    QImage image = blank(QSize(20, 20));
    QPainter painter(&image);
    SkinRenderer::paint(&painter, file("broken.svg"), QRectF(0, 0, 20, 20));
    SkinRenderer::paint(&painter, m_skin->path(), QRectF(0, 0, 20, 20)); // a folder
    painter.end();
    QCOMPARE(image, blank(QSize(20, 20)));
    QCOMPARE(log.texts(), QStringList());
}

void tst_skinrenderer::animationShowsItsFirstFrame()
{
    m_skin->write(
        "moving.svg",
        "<rect width='20' height='10' fill='#ff0000'><animateColor attributeName='fill' from='#ff0000' "
        "to='#0000ff' dur='60ms' fill='freeze'/></rect>",
        20, 10);
    const auto greatestBlue = [&] {
        QImage image = blank(QSize(20, 10));
        QPainter painter(&image);
        SkinRenderer::paint(&painter, file("moving.svg"), QRectF(0, 0, 20, 10));
        return image.pixelColor(5, 5).blue();
    };
    QVERIFY(greatestBlue() < 255);
    QTest::qWait(80);
    QVERIFY(greatestBlue() < 255);
}

void tst_skinrenderer::tooLargeIsNothing()
{
    constexpr int kHighest = std::numeric_limits<int>::max();
    for (const QSize &size : {QSize(0, 10), QSize(10, 0), QSize(-5, 10), QSize(), QSize(206, 1000000),
                              QSize(kHighest, kHighest), QSize(kHighest, 1)}) {
        QVERIFY(SkinRenderer::image(file("groove.svg"), size).isNull());
        QVERIFY(SkinRenderer::coloredImage(file("groove.svg"), size, QRectF(0, 0, 5, 5), Qt::red).isNull());
    }
}

void tst_skinrenderer::pixelSizes()
{
    QCOMPARE(SkinRenderer::pixelSize(QSize(206, 10), 1), QSize(206, 10));
    QCOMPARE(SkinRenderer::pixelSize(QSize(206, 10), 1.25), QSize(258, 13));
    QCOMPARE(SkinRenderer::pixelSize(QSize(205, 9), 1.5), QSize(308, 14));
    QCOMPARE(SkinRenderer::pixelSize(QSize(-4, 9), 1), QSize(0, 9));
    const int highest = std::numeric_limits<int>::max();
    QVERIFY(SkinRenderer::image(file("groove.svg"), SkinRenderer::pixelSize(QSize(highest, 1), 2)).isNull());
}

QTEST_MAIN(tst_skinrenderer)

#include "tst_skinrenderer.moc"
