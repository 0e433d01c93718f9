#include "orvcommonlib.h"

#include "logcapture.h"
#include "pictures.h"
#include "seed.h"
#include "testmain.h"
#include "thumbnailrecipe.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <limits>

namespace {

using ThumbnailRecipe::plainSmoothThumbnail;
using ThumbnailRecipe::plainThumbnail;

bool identical(const QPixmap &left, const QPixmap &right)
{
    const QImage a = left.toImage();
    const QImage b = right.toImage();
    return a.format() == b.format() && a.size() == b.size() && a == b;
}

QPixmap randomPixmap(QRandomGenerator &random)
{
    QImage image = gradientImage(1 + random.bounded(90), 1 + random.bounded(90));
    if (random.bounded(2) == 0) {
        image = image.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, (image.pixel(x, y) & RGB_MASK) | (uint(x * 3 + y * 5) << 24));
        }
    }
    return QPixmap::fromImage(image);
}

} // namespace

class tst_imagehelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nullSource();
    void sameSizeIsACopy();
    void roundsCorners();
    void cutsTheMiddleUnscaled();
    void smallSourcesAreNotEnlarged();
    void scalesSourcesOfTheSameShape();
    void thumbnailEqualsItsSteps();
    void thumbnailIntoItsSource();
    void thumbnailWithoutSize_data();
    void thumbnailWithoutSize();

    void smoothNullSource();
    void smoothSameShapeWithoutRadius_data();
    void smoothSameShapeWithoutRadius();
    void smoothSameShapeIsClippedAsItIs();
    void smoothCoversTheTarget();
    void smoothThumbnailEqualsItsSteps();
    void smoothThumbnailIntoItsSource();
    void smoothThumbnailWithoutSize_data();
    void smoothThumbnailWithoutSize();

    void listsImages_data();
    void listsImages();
    void listsInTheOrderOfTheIterator();
    void appendsToTheList();
    void listsNothing_data();
    void listsNothing();
    void loopsOfLinksEnd();
    void linkedFoldersAreListedEachTime();
};

void tst_imagehelpers::nullSource()
{
    QPixmap none;
    QPixmap output(3, 4);
    const qint64 key = output.cacheKey();
    QVERIFY(!orvcommonlib::scaleAndClipPixmap(none, QSize(10, 10), 3, output));
    QCOMPARE(output.cacheKey(), key);
}

void tst_imagehelpers::sameSizeIsACopy()
{
    QPixmap source = QPixmap::fromImage(gradientImage(50, 40));
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, source.size(), 0, output));
    QCOMPARE(output.toImage().convertToFormat(QImage::Format_RGB32),
             gradientImage(50, 40).convertToFormat(QImage::Format_RGB32));
}

void tst_imagehelpers::roundsCorners()
{
    const QImage gradient = gradientImage(50, 40);
    QPixmap source = QPixmap::fromImage(gradient);
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, source.size(), 12, output));
    const QImage image = output.toImage();
    for (const QPoint corner : {QPoint(0, 0), QPoint(49, 0), QPoint(0, 39), QPoint(49, 39)})
        QCOMPARE(qAlpha(image.pixel(corner)), 0);
    for (const QPoint inside : {QPoint(25, 0), QPoint(0, 20), QPoint(49, 20), QPoint(25, 39), QPoint(6, 6)})
        QCOMPARE(image.pixel(inside), gradient.pixel(inside));
    // Smooth corners: some pixels are half covered.
    bool halfCovered = false;
    for (int x = 0; x < 12; ++x)
        halfCovered = halfCovered || (qAlpha(image.pixel(x, 0)) > 0 && qAlpha(image.pixel(x, 0)) < 255);
    QVERIFY(halfCovered);
}

void tst_imagehelpers::cutsTheMiddleUnscaled()
{
    QPixmap output;
    const QImage wide = gradientImage(200, 100);
    QPixmap source = QPixmap::fromImage(wide);
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, QSize(50, 50), 0, output));
    QCOMPARE(output.size(), QSize(50, 50));
    QCOMPARE(output.toImage().pixel(0, 0), wide.pixel(25, 0));
    QCOMPARE(output.toImage().pixel(49, 49), wide.pixel(74, 49));
    const QImage tall = gradientImage(100, 200);
    source = QPixmap::fromImage(tall);
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, QSize(50, 50), 0, output));
    QCOMPARE(output.toImage().pixel(0, 0), tall.pixel(0, 25));
    QCOMPARE(output.toImage().pixel(49, 49), tall.pixel(49, 74));
}

void tst_imagehelpers::smallSourcesAreNotEnlarged()
{
    QPixmap source = QPixmap::fromImage(gradientImage(10, 20));
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, QSize(100, 100), 0, output));
    QImage nothing(100, 100, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    QCOMPARE(output.toImage(), nothing);
}

void tst_imagehelpers::scalesSourcesOfTheSameShape()
{
    QPixmap source(20, 10);
    source.fill(Qt::red);
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, QSize(200, 100), 0, output));
    QCOMPARE(output.size(), QSize(200, 100));
    for (const QPoint point : {QPoint(0, 0), QPoint(100, 50), QPoint(199, 99)})
        QCOMPARE(output.toImage().pixelColor(point), QColor(Qt::red));
}

void tst_imagehelpers::thumbnailEqualsItsSteps()
{
    constexpr quint32 kRounds = 1000;
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        QPixmap source = randomPixmap(random);
        QSize size(1 + random.bounded(90), 1 + random.bounded(90));
        if (random.bounded(4) == 0)
            size = source.size() * (1 + random.bounded(3));
        const int radius = random.bounded(30) - 5;
        QPixmap output;
        QVERIFY(orvcommonlib::scaleAndClipPixmap(source, size, radius, output));
        QVERIFY2(identical(output, plainThumbnail(source, size, radius)),
                 qPrintable(QStringLiteral("seed %1: %2 x %3 to %4 x %5, radius %6")
                                .arg(seed)
                                .arg(source.width())
                                .arg(source.height())
                                .arg(size.width())
                                .arg(size.height())
                                .arg(radius)));
    }
}

void tst_imagehelpers::thumbnailIntoItsSource()
{
    QPixmap pixmap = QPixmap::fromImage(gradientImage(60, 30));
    const QPixmap expected = plainThumbnail(pixmap, QSize(20, 20), 4);
    QVERIFY(orvcommonlib::scaleAndClipPixmap(pixmap, QSize(20, 20), 4, pixmap));
    QVERIFY(identical(pixmap, expected));
}

void tst_imagehelpers::thumbnailWithoutSize_data()
{
    constexpr int kLargest = std::numeric_limits<int>::max();
    QTest::addColumn<QSize>("size");
    QTest::newRow("invalid") << QSize();
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("no width") << QSize(0, 10);
    QTest::newRow("no height") << QSize(10, 0);
    QTest::newRow("negative") << QSize(-10, -10);
    QTest::newRow("largest") << QSize(kLargest, kLargest);
    QTest::newRow("more than fits into memory") << QSize(100000, 100000);
    QTest::newRow("a pixel more than there can be") << QSize(1 << 15, 1 << 14);
}

void tst_imagehelpers::thumbnailWithoutSize()
{
    QFETCH(const QSize, size);
    LogCapture log;
    QPixmap source = QPixmap::fromImage(gradientImage(60, 30));
    QPixmap output(5, 5);
    QVERIFY(orvcommonlib::scaleAndClipPixmap(source, size, 4, output));
    QVERIFY(output.isNull());
    QCOMPARE(log.texts(), QStringList());
}

void tst_imagehelpers::smoothNullSource()
{
    QPixmap none;
    QPixmap output(3, 4);
    const qint64 key = output.cacheKey();
    QVERIFY(!orvcommonlib::scaleAndClipPixmap2(none, QSizeF(10, 10), 3, output));
    QCOMPARE(output.cacheKey(), key);
}

void tst_imagehelpers::smoothSameShapeWithoutRadius_data()
{
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<double>("radius");
    QTest::newRow("same size") << QSizeF(50, 40) << 0.0;
    QTest::newRow("same size, negative radius") << QSizeF(50, 40) << -3.0;
    QTest::newRow("same size, no radius at all") << QSizeF(50, 40) << std::nan("");
    QTest::newRow("same shape") << QSizeF(25, 20) << 0.0;
    QTest::newRow("same shape, fractions") << QSizeF(12.5, 10) << 0.0;
    QTest::newRow("nearly the same shape") << QSizeF(50.00001, 40) << 0.0;
}

void tst_imagehelpers::smoothSameShapeWithoutRadius()
{
    QFETCH(const QSizeF, size);
    QFETCH(const double, radius);
    QPixmap source = QPixmap::fromImage(gradientImage(50, 40));
    QPixmap output(3, 4);
    const qint64 key = output.cacheKey();
    QVERIFY(orvcommonlib::scaleAndClipPixmap2(source, size, radius, output));
    QCOMPARE(output.cacheKey(), key);
}

void tst_imagehelpers::smoothSameShapeIsClippedAsItIs()
{
    const QImage gradient = gradientImage(50, 40);
    QPixmap source = QPixmap::fromImage(gradient);
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap2(source, QSizeF(50, 40), 12, output));
    const QImage image = output.toImage();
    QCOMPARE(image.size(), QSize(50, 40));
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QCOMPARE(image.pixel(25, 20), gradient.pixel(25, 20));
    // Here the corners are cut without smoothing.
    for (int x = 0; x < 50; ++x)
        QVERIFY(qAlpha(image.pixel(x, 0)) == 0 || qAlpha(image.pixel(x, 0)) == 255);
}

void tst_imagehelpers::smoothCoversTheTarget()
{
    // Three stripes: the outer ones fall away.
    QImage stripes(90, 30, QImage::Format_RGB32);
    stripes.fill(Qt::red);
    for (int y = 0; y < 30; ++y) {
        for (int x = 30; x < 60; ++x)
            stripes.setPixelColor(x, y, Qt::green);
    }
    QPixmap source = QPixmap::fromImage(stripes);
    QPixmap output;
    QVERIFY(orvcommonlib::scaleAndClipPixmap2(source, QSizeF(60, 60), 0, output));
    QCOMPARE(output.size(), QSize(60, 60));
    for (const QPoint point : {QPoint(2, 0), QPoint(57, 0), QPoint(30, 30), QPoint(2, 59), QPoint(57, 59)})
        QCOMPARE(output.toImage().pixelColor(point), QColor(Qt::green));
}

void tst_imagehelpers::smoothThumbnailEqualsItsSteps()
{
    constexpr quint32 kRounds = 1000;
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        QPixmap source = randomPixmap(random);
        QSizeF size(1 + random.bounded(90), 1 + random.bounded(90));
        if (random.bounded(4) == 0)
            size = QSizeF(source.size()) * (1 + random.bounded(3));
        else if (random.bounded(3) == 0)
            size += QSizeF(random.generateDouble(), random.generateDouble());
        const double radius = random.bounded(30.0) - 5.0;
        const QPixmap untouched(7, 7);
        QPixmap output = untouched;
        QVERIFY(orvcommonlib::scaleAndClipPixmap2(source, size, radius, output));
        const QPixmap expected = plainSmoothThumbnail(source, size, radius);
        const QString description = QStringLiteral("seed %1: %2 x %3 to %4 x %5, radius %6")
                                        .arg(seed)
                                        .arg(source.width())
                                        .arg(source.height())
                                        .arg(size.width())
                                        .arg(size.height())
                                        .arg(radius);
        if (expected.isNull())
            QVERIFY2(output.cacheKey() == untouched.cacheKey(), qPrintable(description));
        else
            QVERIFY2(identical(output, expected), qPrintable(description));
    }
}

void tst_imagehelpers::smoothThumbnailIntoItsSource()
{
    QPixmap pixmap = QPixmap::fromImage(gradientImage(60, 30));
    const QPixmap expected = plainSmoothThumbnail(pixmap, QSizeF(20, 20), 4);
    QVERIFY(orvcommonlib::scaleAndClipPixmap2(pixmap, QSizeF(20, 20), 4, pixmap));
    QVERIFY(identical(pixmap, expected));
}

void tst_imagehelpers::smoothThumbnailWithoutSize_data()
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double notANumber = std::nan("");
    QTest::addColumn<QSizeF>("size");
    QTest::newRow("invalid") << QSizeF();
    QTest::newRow("nothing") << QSizeF(0, 0);
    QTest::newRow("no width") << QSizeF(0, 10);
    QTest::newRow("no height") << QSizeF(10, 0);
    QTest::newRow("less than a pixel") << QSizeF(0.4, 10);
    QTest::newRow("less than a pixel, same shape") << QSizeF(0.4, 0.2);
    QTest::newRow("negative") << QSizeF(-10, -10);
    QTest::newRow("negative, same shape") << QSizeF(-20, -10);
    QTest::newRow("infinite") << QSizeF(kInfinity, kInfinity);
    QTest::newRow("infinitely wide") << QSizeF(kInfinity, 10);
    QTest::newRow("not a number") << QSizeF(notANumber, notANumber);
    QTest::newRow("largest") << QSizeF(1e300, 1e300);
    QTest::newRow("more than fits into memory") << QSizeF(100000, 100000);
    QTest::newRow("more than fits into memory, same shape") << QSizeF(200000, 100000);
}

void tst_imagehelpers::smoothThumbnailWithoutSize()
{
    QFETCH(const QSizeF, size);
    LogCapture log;
    QPixmap source = QPixmap::fromImage(gradientImage(60, 30));
    QPixmap output(5, 5);
    QVERIFY(orvcommonlib::scaleAndClipPixmap2(source, size, 4, output));
    QVERIFY(output.isNull());
    QCOMPARE(log.texts(), QStringList());
}

namespace {

/// A folder with empty files at these paths.
class Tree
{
public:
    explicit Tree(const QStringList &files)
    {
        for (const QString &file : files) {
            QDir(m_folder.path()).mkpath(QFileInfo(file).path());
            QFile created(path(file));
            created.open(QIODevice::WriteOnly);
        }
    }

    QString path(const QString &file = QString()) const
    {
        return file.isEmpty() ? m_folder.path() : m_folder.filePath(file);
    }

    /// The paths that start with the folder's, without it, sorted.
    QStringList relative(const QVector<QString> &paths) const
    {
        QStringList result;
        for (const QString &found : paths) {
            if (found.startsWith(path() + QLatin1Char('/')))
                result << found.mid(path().size() + 1);
            else
                result << QLatin1String("outside: ") + found;
        }
        result.sort();
        return result;
    }

private:
    QTemporaryDir m_folder;
};

QStringList listed(const Tree &tree, bool animated)
{
    QVector<QString> files;
    orvcommonlib::getImageFromPath(tree.path(), files, animated);
    return tree.relative(files);
}

} // namespace

void tst_imagehelpers::listsImages_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<bool>("animated");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const char *present, bool animated, const char *expected) {
        const auto list = [](const char *text) {
            return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow(name) << list(present) << animated << list(expected);
    };
    row("animated", "a.gif B.WEBP c.png sub/d.gif sub/e.png", true, "B.WEBP a.gif sub/e.png");
    row("still", "a.gif B.WEBP c.png sub/d.gif sub/e.png", false, "c.png sub/e.png");
    row("every still suffix", "a.jpg b.bmp c.png d.svg e.jpeg f.tif g h.png.txt", false,
        "a.jpg b.bmp c.png d.svg");
    row("still suffixes in capitals", "a.JPG b.Bmp c.PNG d.SVG sub/e.PNG", false, "");
    row("animated suffixes in any case", "a.gif b.GIF c.Gif d.webp e.WEBP f.WebP g.apng", true,
        "a.gif b.GIF c.Gif d.webp e.WEBP f.WebP");
    row("only the last suffix counts", "a.gif.png b.png.gif", false, "a.gif.png");
    row("nested", "a/b/c/d.png a/b/e.png a/f.gif", false, "a/b/c/d.png a/b/e.png");
    row("nested, animated", "a/b/c/d.png a/b/e.png a/f.gif", true, "a/b/c/d.png a/b/e.png");
    row("folders with the suffix of an image", "a.png/b.png a.gif/b.gif", true, "a.png/b.png");
#ifdef Q_OS_UNIX
    row("hidden files", ".a.png .b/c.png d.png", false, "d.png");
#endif
    row("nothing but a suffix", ".png a.", false, "");
}

void tst_imagehelpers::listsImages()
{
    QFETCH(const QStringList, present);
    QFETCH(const bool, animated);
    QFETCH(QStringList, expected);
    const Tree tree(present);
    expected.sort();
    QCOMPARE(listed(tree, animated), expected);
}

void tst_imagehelpers::listsInTheOrderOfTheIterator()
{
    QStringList present;
    for (int i = 0; i < 20; ++i)
        present << QStringLiteral("file%1.png").arg(i * 7 % 20)
                << QStringLiteral("folder%1/inner.png").arg(i * 3 % 20);
    const Tree tree(present);
    QVector<QString> expected;
    QDirIterator entries(tree.path(), QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const bool isFolder = entries.fileInfo().isDir();
        expected << entries.filePath() + (isFolder ? QStringLiteral("/inner.png") : QString());
    }
    QVector<QString> files;
    orvcommonlib::getImageFromPath(tree.path(), files, false);
    QCOMPARE(files, expected);
    QCOMPARE(files.size(), 40);
}

void tst_imagehelpers::appendsToTheList()
{
    const Tree tree({QStringLiteral("a.png")});
    QVector<QString> files{QStringLiteral("before")};
    orvcommonlib::getImageFromPath(tree.path(), files, false);
    orvcommonlib::getImageFromPath(tree.path(), files, false);
    const QString path = tree.path(QStringLiteral("a.png"));
    QCOMPARE(files, (QVector<QString>{QStringLiteral("before"), path, path}));
}

void tst_imagehelpers::listsNothing_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing") << QDir::tempPath() + QStringLiteral("/missing folder");
    QTest::newRow("a file") << QCoreApplication::applicationFilePath();
    QTest::newRow("missing resource") << QStringLiteral(":/missing");
}

void tst_imagehelpers::listsNothing()
{
    QFETCH(const QString, folder);
    QVector<QString> files;
    orvcommonlib::getImageFromPath(folder, files, false);
    QCOMPARE(files, QVector<QString>());
}

void tst_imagehelpers::loopsOfLinksEnd()
{
#ifdef Q_OS_UNIX
    const Tree tree(
        {QStringLiteral("a.png"), QStringLiteral("sub/b.png"), QStringLiteral("sub/deeper/c.png")});
    for (const char *name : {"again", "sub/up", "sub/deeper/top", "sub/deeper/top2"})
        QVERIFY(QFile::link(tree.path(), tree.path(QLatin1String(name))));
    QVERIFY(QFile::link(tree.path(QStringLiteral("sub")), tree.path(QStringLiteral("sub/deeper/parent"))));
    QCOMPARE(listed(tree, false), (QStringList{QStringLiteral("a.png"), QStringLiteral("sub/b.png"),
                                               QStringLiteral("sub/deeper/c.png")}));
#endif
}

void tst_imagehelpers::linkedFoldersAreListedEachTime()
{
#ifdef Q_OS_UNIX
    const Tree tree({QStringLiteral("one/a.png")});
    QVERIFY(QFile::link(tree.path(QStringLiteral("one")), tree.path(QStringLiteral("two"))));
    QCOMPARE(listed(tree, false), (QStringList{QStringLiteral("one/a.png"), QStringLiteral("two/a.png")}));
#endif
}

ORV_TEST_MAIN(tst_imagehelpers)

#include "tst_imagehelpers.moc"
