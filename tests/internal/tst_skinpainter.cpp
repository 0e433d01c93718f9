#include "logcapture.h"
#include "memoryresource.h"
#include "skintesting.h"
#include "testmain.h"

#include <QtTest/QTest>

#include <limits>

using namespace SkinTesting;

namespace {

const char kRed[] = "<rect width='20' height='10' fill='#ff0000'/>";
const char kBlue[] = "<rect width='20' height='10' fill='#0000ff'/>";

// A document that no test has had before: what is kept is kept by contents.
QByteArray newDocument(const QByteArray &shapes)
{
    static int number = 0;
    return document(shapes + "<!-- " + QByteArray::number(++number) + " -->");
}

} // namespace

/// What is kept, and for how long.
class tst_skinpainter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

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
    compare(m_skin->path(), {QRectF(-900, 5, 2000, 300), QSize(2000, 300), {0, 930.2}, Qt::red},
            blank(kCanvas), kOfOpaque);
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
