#include "orvcommonlib.h"

#include "logcapture.h"
#include "ninepatchrecipe.h"
#include "pictures.h"
#include "seed.h"
#include "testmain.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <limits>

namespace {

using Recipe = NinePatchRecipe;

/// Equal to the last bit, in the same format.
bool identical(const QImage &left, const QImage &right)
{
    return left.format() == right.format() && left.size() == right.size() && left == right;
}

/// An opaque image with anything in place of alpha, the same each time.
QImage unmarkedImage(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < height; ++y)
        random.fillRange(reinterpret_cast<QRgb *>(image.scanLine(y)), width);
    return image;
}

QImage randomImage(QRandomGenerator &random, QImage::Format format)
{
    // Bits as they come: colours above their alpha and, in formats without alpha, anything in its place.
    QImage image(1 + random.bounded(40), 1 + random.bounded(40), format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.bytesPerLine(); ++x)
            image.scanLine(y)[x] = uchar(random.bounded(256));
    }
    if (format == QImage::Format_ARGB32_Premultiplied) {
        // Colours without any alpha are the one thing that Qt paints differently from time to time.
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                reinterpret_cast<QRgb *>(image.scanLine(y))[x] |= 0x01000000U;
        }
    }
    const int kind = random.bounded(4);
    if (image.colorCount() > 0 || format == QImage::Format_Indexed8 || format == QImage::Format_Mono) {
        QVector<QRgb> colours(format == QImage::Format_Mono ? 2 : 256);
        for (QRgb &colour : colours)
            colour = kind == 0 ? random.generate() | 0xff000000U : random.generate();
        image.setColorTable(colours);
    } else if (kind != 0 && image.hasAlphaChannel()) {
        // Colours as a painter leaves them, or without any transparency, or with nothing but.
        image = image.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                const QRgb opaque = pixel | 0xff000000U;
                image.setPixel(x, y, kind == 1 ? pixel : kind == 2 ? opaque : (x + y) % 3 == 0 ? opaque : 0U);
            }
        }
        image = image.convertToFormat(format);
    }
    return image;
}

/// Mostly borders that leave a middle, some that do not, and targets around the size of the source.
Recipe randomRecipe(QRandomGenerator &random, QSize source)
{
    const auto borders = [&random](int length, int *before, int *after) {
        const int limit = random.bounded(4) == 0 ? length + 4 : qMax(1, length / 2);
        *before = random.bounded(limit);
        *after = random.bounded(limit);
        // A few pixels in the middle, which are stretched far.
        if (random.bounded(4) == 0 && *before < length)
            *after = qMax(0, length - *before - 1 - random.bounded(3));
    };
    Recipe recipe{};
    borders(source.width(), &recipe.left, &recipe.right);
    borders(source.height(), &recipe.top, &recipe.bottom);
    recipe.width = 1 + random.bounded(random.bounded(8) == 0 ? 3000 : 3 * source.width() + 8);
    recipe.height = 1 + random.bounded(random.bounded(8) == 0 ? 1200 : 3 * source.height() + 8);
    return recipe;
}

/// A picture with every pair of alpha and colour, straight, in 256 x 256 pixels.
QImage everyAlphaAndColour()
{
    QImage image(256, 256, QImage::Format_ARGB32);
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int colour = 0; colour < 256; ++colour)
            image.setPixel(colour, alpha, qRgba(colour, 255 - colour, colour ^ alpha, alpha));
    }
    return image;
}

} // namespace

Q_DECLARE_METATYPE(Recipe)

class tst_ninepatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keepsBordersAndFillsTheRest();
    void equalsTheRecipe_data();
    void equalsTheRecipe();
    void equalsTheRecipeForAllColours();
    void equalsTheRecipeForUnusualImages_data();
    void equalsTheRecipeForUnusualImages();
    void equalsTheRecipeForRandomFiles();
    void equalsTheRecipeForRandomPixmaps();
    void equalsTheRecipeBeyondWhatIsPainted_data();
    void equalsTheRecipeBeyondWhatIsPainted();
    void largePixmapsKeepTheirRatio();
    void unreadableFiles_data();
    void unreadableFiles();
    void nullPixmap();
    void noSize_data();
    void noSize();
    void absurdBorders_data();
    void absurdBorders();
    void wideTargetsKeepTheirSize();
    void leavesItsSourceAlone();
    void logsNothing();

private:
    void compare(const QString &path, const Recipe &recipe, const QString &description);
    void compare(const QPixmap &pixmap, const Recipe &recipe, const QString &description);
    QString saved(const QImage &image, const char *format);

    QTemporaryDir m_folder;
    int m_files = 0;
};

void tst_ninepatch::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_ninepatch::compare(const QString &path, const Recipe &recipe, const QString &description)
{
    QString fileName = path;
    const QImage image = totalcommon::NinePatch(fileName, recipe.left, recipe.top, recipe.right,
                                                recipe.bottom, recipe.width, recipe.height);
    QVERIFY2(identical(image, recipe.ofImage(path)), qPrintable(description + recipe.text()));
}

void tst_ninepatch::compare(const QPixmap &pixmap, const Recipe &recipe, const QString &description)
{
    QPixmap source = pixmap;
    const QPixmap result = totalcommon::NinePatch(source, recipe.left, recipe.top, recipe.right,
                                                  recipe.bottom, recipe.width, recipe.height);
    const QPixmap expected = recipe.ofPixmap(pixmap);
    QVERIFY2(identical(result.toImage(), expected.toImage()), qPrintable(description + recipe.text()));
    QCOMPARE(result.isNull(), expected.isNull());
    QCOMPARE(result.hasAlphaChannel(), expected.hasAlphaChannel());
    QCOMPARE(result.depth(), expected.depth());
    QCOMPARE(result.devicePixelRatio(), 1.0);
}

/// The path of a new file with this image.
QString tst_ninepatch::saved(const QImage &image, const char *format)
{
    const QString path = m_folder.filePath(QString::number(++m_files));
    return image.save(path, format) ? path : QString();
}

void tst_ninepatch::keepsBordersAndFillsTheRest()
{
    QImage source(9, 9, QImage::Format_ARGB32);
    source.fill(Qt::blue);
    for (int i = 0; i < 9; ++i) {
        for (int k = 0; k < 3; ++k) {
            source.setPixelColor(i, k, Qt::red);
            source.setPixelColor(i, 8 - k, Qt::green);
        }
    }
    source.setPixelColor(0, 0, Qt::transparent);
    QString path = saved(source, "PNG");
    const QImage image = totalcommon::NinePatch(path, 3, 3, 3, 3, 40, 30);
    QCOMPARE(image.format(), QImage::Format_RGBA8888);
    QCOMPARE(image.size(), QSize(40, 30));
    QCOMPARE(image.pixelColor(0, 0), QColor(Qt::transparent));
    QCOMPARE(image.pixelColor(1, 0), QColor(Qt::red));
    QCOMPARE(image.pixelColor(39, 2), QColor(Qt::red));
    QCOMPARE(image.pixelColor(0, 3), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(20, 15), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(20, 26), QColor(Qt::blue));
    QCOMPARE(image.pixelColor(20, 27), QColor(Qt::green));
    QPixmap pixmap(path);
    QCOMPARE(totalcommon::NinePatch(pixmap, 3, 3, 3, 3, 40, 30).toImage(),
             image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void tst_ninepatch::equalsTheRecipe_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::newRow("larger") << Recipe{8, 9, 10, 11, 120, 90};
    QTest::newRow("same size") << Recipe{8, 9, 10, 11, 32, 32};
    QTest::newRow("smaller") << Recipe{8, 9, 10, 11, 25, 26};
    QTest::newRow("wider and lower") << Recipe{8, 9, 10, 11, 200, 22};
    QTest::newRow("higher and narrower") << Recipe{8, 9, 10, 11, 20, 200};
    QTest::newRow("only wider") << Recipe{8, 9, 10, 11, 200, 32};
    QTest::newRow("only higher") << Recipe{8, 9, 10, 11, 32, 200};
    QTest::newRow("borders fill the target") << Recipe{8, 9, 10, 11, 18, 20};
    QTest::newRow("narrower than the borders") << Recipe{8, 9, 10, 11, 12, 90};
    QTest::newRow("lower than the borders") << Recipe{8, 9, 10, 11, 120, 13};
    QTest::newRow("smaller than the borders") << Recipe{8, 9, 10, 11, 5, 6};
    QTest::newRow("one pixel") << Recipe{8, 9, 10, 11, 1, 1};
    QTest::newRow("no borders") << Recipe{0, 0, 0, 0, 70, 60};
    QTest::newRow("no left border") << Recipe{0, 5, 6, 7, 70, 60};
    QTest::newRow("no top border") << Recipe{5, 0, 6, 7, 70, 60};
    QTest::newRow("no right border") << Recipe{5, 6, 0, 7, 70, 60};
    QTest::newRow("no bottom border") << Recipe{5, 6, 7, 0, 70, 60};
    QTest::newRow("left and right border only") << Recipe{5, 0, 7, 0, 70, 60};
    QTest::newRow("top and bottom border only") << Recipe{0, 5, 0, 7, 70, 60};
    QTest::newRow("borders leave one pixel") << Recipe{16, 16, 15, 15, 70, 60};
    QTest::newRow("one pixel stretched far") << Recipe{16, 16, 15, 15, 1200, 1100};
    QTest::newRow("one column stretched far") << Recipe{16, 13, 15, 14, 1200, 300};
    QTest::newRow("two columns stretched far") << Recipe{15, 13, 15, 14, 1300, 238 + 27};
    QTest::newRow("one row stretched far") << Recipe{13, 16, 14, 15, 300, 1200};
    QTest::newRow("two rows stretched far") << Recipe{13, 15, 14, 15, 238 + 27, 1300};
    QTest::newRow("one column stretched to the width of a screen") << Recipe{16, 8, 15, 9, 1920, 60};
    QTest::newRow("seven columns stretched to the width of a screen") << Recipe{12, 8, 13, 9, 1920, 540};
    QTest::newRow("two columns and two rows stretched far") << Recipe{15, 15, 15, 15, 1920, 1080};
    QTest::newRow("two columns to the factor from which on it is far") << Recipe{15, 8, 15, 9, 512 + 30, 100};
    QTest::newRow("two columns to just below that factor") << Recipe{15, 8, 15, 9, 511 + 30, 101};
    QTest::newRow("borders fill the source") << Recipe{16, 16, 16, 16, 70, 60};
    QTest::newRow("borders larger than the source") << Recipe{40, 41, 42, 43, 200, 210};
    QTest::newRow("borders overlap in the source") << Recipe{20, 20, 20, 20, 200, 210};
    QTest::newRow("negative borders") << Recipe{-3, -4, -5, -6, 70, 60};
    QTest::newRow("wider than a line buffer") << Recipe{8, 9, 10, 11, 5000, 40};
    QTest::newRow("wider than a line buffer and high") << Recipe{8, 9, 10, 11, 5001, 200};
    QTest::newRow("very wide") << Recipe{8, 9, 10, 11, 12001, 201};
    QTest::newRow("very high") << Recipe{8, 9, 10, 11, 101, 12001};
    for (const int odd : {0, 1}) {
        for (const int border : {5, 6, 15}) {
            QTest::addRow("borders of %d, end %s", border, odd ? "odd" : "even")
                << Recipe{border, border, border + 1, border + 1, 300 + odd, 260 + odd};
        }
    }
}

void tst_ninepatch::equalsTheRecipe()
{
    QFETCH(const Recipe, recipe);
    QImage translucent = gradientImage(32, 32).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            translucent.setPixel(x, y, (translucent.pixel(x, y) & RGB_MASK) | (uint(x * 8 + y) << 24));
    }
    for (const QImage &source : {translucent, gradientImage(32, 32).convertToFormat(QImage::Format_RGB32)}) {
        const QString description =
            source.hasAlphaChannel() ? QStringLiteral("translucent, ") : QStringLiteral("opaque, ");
        compare(saved(source, "PNG"), recipe, description);
        compare(QPixmap::fromImage(source), recipe, description);
        // A name that gives the picture a device pixel ratio of its own.
        const QString large = m_folder.filePath(QStringLiteral("%1@2x.png").arg(++m_files));
        QVERIFY(source.save(large, "PNG"));
        QCOMPARE(QImage(large).devicePixelRatio(), 2.0);
        compare(large, recipe, description + QStringLiteral("@2x, "));
        compare(QPixmap(large), recipe, description + QStringLiteral("@2x pixmap, "));
    }
}

void tst_ninepatch::equalsTheRecipeForAllColours()
{
    const QImage image = everyAlphaAndColour();
    const QString path = saved(image, "PNG");
    // All of the picture once in the corners, once in the edges, once stretched both ways, once as it is.
    const QVector<Recipe> recipes{
        {127, 127, 127, 127, 300, 290}, {127, 1, 128, 1, 300, 801}, {126, 1, 127, 2, 259, 700},
        {1, 127, 1, 128, 801, 300},     {1, 1, 1, 1, 701, 603},     {1, 1, 1, 1, 702, 602},
        {1, 1, 1, 1, 256, 700},         {1, 1, 1, 1, 256, 256},     {3, 2, 1, 4, 257, 256}};
    for (const Recipe &recipe : recipes) {
        compare(path, recipe, QStringLiteral("file, "));
        compare(QPixmap::fromImage(image), recipe, QStringLiteral("pixmap, "));
    }
}

void tst_ninepatch::equalsTheRecipeForUnusualImages_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<Recipe>("recipe");
    QImage unused = gradientImage(31, 31).convertToFormat(QImage::Format_RGB32);
    for (int x = 0; x < 31; ++x)
        reinterpret_cast<QRgb *>(unused.scanLine(15))[x] &= RGB_MASK | (QRgb(x) << 24);
    QTest::newRow("anything in place of alpha, one pixel") << unused << Recipe{15, 15, 15, 15, 1200, 1100};
    QTest::newRow("anything in place of alpha, one column") << unused << Recipe{15, 13, 15, 14, 1200, 1100};
    QTest::newRow("anything in place of alpha") << unused << Recipe{8, 9, 10, 11, 120, 90};
    QTest::newRow("anything in place of alpha, one row")
        << unmarkedImage(10, 20) << Recipe{1, 11, 2, 8, 22, 26};
    QTest::newRow("anything in place of alpha, one row and no higher")
        << unmarkedImage(9, 7) << Recipe{4, 4, 1, 2, 112, 13};
    QTest::newRow("anything in place of alpha, high") << unmarkedImage(7, 30) << Recipe{1, 8, 3, 18, 20, 62};
    QTest::newRow("anything in place of alpha, wide") << unmarkedImage(9, 26) << Recipe{1, 19, 2, 6, 94, 31};
    QImage indexed(20, 600, QImage::Format_Indexed8);
    for (int i = 0; i < 256; ++i)
        indexed.setColor(i, qRgb(i, 255 - i, i * 7));
    for (int y = 0; y < 600; ++y) {
        for (int x = 0; x < 20; ++x)
            indexed.setPixel(x, y, uint(x + 7 * y) & 0xff);
    }
    QTest::newRow("more rows than a byte counts, colour table") << indexed << Recipe{5, 6, 7, 8, 30, 900};
    QTest::newRow("more rows than a byte counts, grey")
        << indexed.convertToFormat(QImage::Format_Grayscale8) << Recipe{5, 6, 7, 8, 30, 900};
    QTest::newRow("more rows than a byte counts") << gradientImage(20, 600) << Recipe{5, 6, 7, 8, 30, 900};
}

void tst_ninepatch::equalsTheRecipeForUnusualImages()
{
    QFETCH(const QImage, image);
    QFETCH(const Recipe, recipe);
    compare(saved(image, "PNG"), recipe, QStringLiteral("file, "));
    compare(QPixmap::fromImage(image), recipe, QStringLiteral("pixmap, "));
}

void tst_ninepatch::equalsTheRecipeForRandomFiles()
{
    constexpr int kRounds = 500;
    const QVector<QImage::Format> formats{
        QImage::Format_ARGB32, QImage::Format_RGB32,      QImage::Format_RGB888,      QImage::Format_Indexed8,
        QImage::Format_Mono,   QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_RGBA64};
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        const QImage::Format format = formats.at(int(random.bounded(quint32(formats.size()))));
        const QString path = saved(randomImage(random, format), random.bounded(4) == 0 ? "BMP" : "PNG");
        const QImage source(path);
        compare(path, randomRecipe(random, source.size()),
                QStringLiteral("seed %1, format %2, ").arg(seed).arg(int(source.format())));
        QFile::remove(path);
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_ninepatch::equalsTheRecipeForRandomPixmaps()
{
    constexpr int kRounds = 2000;
    const QVector<QImage::Format> formats{QImage::Format_ARGB32_Premultiplied,
                                          QImage::Format_RGB32,
                                          QImage::Format_ARGB32,
                                          QImage::Format_RGB888,
                                          QImage::Format_RGB16,
                                          QImage::Format_RGBA8888,
                                          QImage::Format_RGB30};
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        const QImage::Format format = formats.at(int(random.bounded(quint32(formats.size()))));
        const bool converted = random.bounded(3) != 0;
        QPixmap pixmap = QPixmap::fromImage(randomImage(random, format),
                                            converted ? Qt::AutoColor : Qt::NoFormatConversion);
        if (random.bounded(4) == 0 && format != QImage::Format_ARGB32_Premultiplied)
            pixmap.setDevicePixelRatio(random.bounded(4) == 0 ? 1.25 : 2.0);
        compare(pixmap, randomRecipe(random, pixmap.size()),
                QStringLiteral("seed %1, format %2, ratio %3, ")
                    .arg(seed)
                    .arg(int(pixmap.toImage().format()))
                    .arg(pixmap.devicePixelRatio()));
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_ninepatch::equalsTheRecipeBeyondWhatIsPainted_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("widest") << 32767 << 40;
    QTest::newRow("wider") << 32768 << 40;
    QTest::newRow("much wider") << 70000 << 40;
    QTest::newRow("highest") << 40 << 32767;
    QTest::newRow("higher") << 40 << 32768;
    QTest::newRow("much higher") << 40 << 70000;
}

void tst_ninepatch::equalsTheRecipeBeyondWhatIsPainted()
{
    QFETCH(const int, width);
    QFETCH(const int, height);
    const Recipe recipe{8, 9, 10, 11, width, height};
    const QImage source = gradientImage(32, 32);
    compare(saved(source, "PNG"), recipe, QString());
    compare(QPixmap::fromImage(source), recipe, QString());
}

void tst_ninepatch::largePixmapsKeepTheirRatio()
{
    QPixmap pixmap = QPixmap::fromImage(gradientImage(64, 64));
    pixmap.setDevicePixelRatio(2.0);
    const QPixmap result = totalcommon::NinePatch(pixmap, 10, 10, 10, 10, 100, 80);
    QCOMPARE(result.size(), QSize(100, 80));
    QCOMPARE(result.devicePixelRatio(), 1.0);
    QCOMPARE(pixmap.devicePixelRatio(), 2.0);
}

void tst_ninepatch::unreadableFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing.png"));
    QTest::newRow("no name") << QString();
    QTest::newRow("folder") << m_folder.path();
    QFile text(m_folder.filePath(QStringLiteral("text.png")));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    QTest::newRow("no picture") << text.fileName();
}

void tst_ninepatch::unreadableFiles()
{
    QFETCH(QString, path);
    QImage expected(30, 20, QImage::Format_RGBA8888);
    expected.fill(Qt::transparent);
    const ExpectedWarnings noName("QFSFileEngine::open: No file name specified");
    QVERIFY(identical(totalcommon::NinePatch(path, 1, 2, 3, 4, 30, 20), expected));
    QVERIFY(identical(totalcommon::NinePatch(path, 0, 0, 0, 0, 30, 20), expected));
    QVERIFY(totalcommon::NinePatch(path, 1, 2, 3, 4, 0, 20).isNull());
}

void tst_ninepatch::nullPixmap()
{
    QPixmap none;
    const QPixmap result = totalcommon::NinePatch(none, 1, 2, 3, 4, 30, 20);
    QImage expected(30, 20, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QVERIFY(identical(result.toImage(), expected));
    QVERIFY(none.isNull());
}

void tst_ninepatch::noSize_data()
{
    constexpr int kLargest = std::numeric_limits<int>::max();
    constexpr int kSmallest = std::numeric_limits<int>::min();
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("no width") << 0 << 60;
    QTest::newRow("no height") << 70 << 0;
    QTest::newRow("nothing") << 0 << 0;
    QTest::newRow("negative width") << -1 << 60;
    QTest::newRow("negative height") << 70 << -1;
    QTest::newRow("smallest") << kSmallest << kSmallest;
    QTest::newRow("largest") << kLargest << kLargest;
    QTest::newRow("more than fits into memory") << 100000 << 100000;
    QTest::newRow("a pixel more than there can be") << (1 << 15) << (1 << 14);
}

void tst_ninepatch::noSize()
{
    QFETCH(const int, width);
    QFETCH(const int, height);
    const QImage source = gradientImage(32, 32);
    QString path = saved(source, "PNG");
    QPixmap pixmap = QPixmap::fromImage(source);
    QVERIFY(totalcommon::NinePatch(path, 8, 8, 8, 8, width, height).isNull());
    QVERIFY(totalcommon::NinePatch(pixmap, 8, 8, 8, 8, width, height).isNull());
}

void tst_ninepatch::absurdBorders_data()
{
    constexpr int kLargest = std::numeric_limits<int>::max();
    constexpr int kSmallest = std::numeric_limits<int>::min();
    QTest::addColumn<Recipe>("recipe");
    QTest::newRow("largest") << Recipe{kLargest, kLargest, kLargest, kLargest, 70, 60};
    QTest::newRow("smallest") << Recipe{kSmallest, kSmallest, kSmallest, kSmallest, 70, 60};
    QTest::newRow("both") << Recipe{kSmallest, kLargest, kLargest, kSmallest, 70, 60};
    QTest::newRow("more than fits into memory") << Recipe{60000, 60000, 60000, 60000, 70, 60};
    QTest::newRow("negative, more than fits into memory") << Recipe{-60000, -60000, -60000, -60000, 70, 60};
}

void tst_ninepatch::absurdBorders()
{
    QFETCH(const Recipe, recipe);
    const QImage source = gradientImage(32, 32);
    QString path = saved(source, "PNG");
    QPixmap pixmap = QPixmap::fromImage(source);
    QCOMPARE(
        totalcommon::NinePatch(path, recipe.left, recipe.top, recipe.right, recipe.bottom, 70, 60).size(),
        QSize(70, 60));
    QCOMPARE(
        totalcommon::NinePatch(pixmap, recipe.left, recipe.top, recipe.right, recipe.bottom, 70, 60).size(),
        QSize(70, 60));
}

void tst_ninepatch::wideTargetsKeepTheirSize()
{
    QString path = saved(gradientImage(32, 32), "PNG");
    QCOMPARE(totalcommon::NinePatch(path, 8, 8, 8, 8, 20000000, 1).size(), QSize(20000000, 1));
}

void tst_ninepatch::leavesItsSourceAlone()
{
    QString path = saved(gradientImage(32, 32), "PNG");
    const QString samePath = path;
    QPixmap pixmap(path);
    const QImage before = pixmap.toImage().copy();
    const qint64 key = pixmap.cacheKey();
    totalcommon::NinePatch(path, 8, 8, 8, 8, 100, 100);
    totalcommon::NinePatch(pixmap, 8, 8, 8, 8, 100, 100);
    totalcommon::NinePatch(pixmap, 0, 8, 8, 8, 100, 100);
    QCOMPARE(path, samePath);
    QCOMPARE(pixmap.cacheKey(), key);
    QVERIFY(identical(pixmap.toImage(), before));
}

void tst_ninepatch::logsNothing()
{
    LogCapture log;
    QString missing = m_folder.filePath(QStringLiteral("missing.png"));
    QString path = saved(gradientImage(32, 32), "PNG");
    QPixmap none;
    QPixmap pixmap(path);
    for (const QSize size : {QSize(100, 100), QSize(10, 10), QSize(0, 10), QSize(100000, 100000)}) {
        for (const int border : {8, 0, 16, -3, 40}) {
            for (QString *fileName : {&missing, &path})
                totalcommon::NinePatch(*fileName, border, border, border, border, size.width(),
                                       size.height());
            for (QPixmap *source : {&none, &pixmap})
                totalcommon::NinePatch(*source, border, border, border, border, size.width(), size.height());
        }
    }
    QCOMPARE(log.texts(), QStringList());
}

ORV_TEST_MAIN(tst_ninepatch)

#include "tst_ninepatch.moc"
