#include "logcapture.h"
#include "orvcommonlib.h"
#include "testmain.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QResource>
#include <QtCore/QSet>
#include <QtGui/QImage>
#include <QtGui/QImageReader>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>
#include <QtTest/QTest>

#include <algorithm>

/// The images of the embedded tree, and how the tree is stored. Its style sheets have a program of their own.
class tst_resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void entry_data();
    void entry();
    void treeHoldsNothingElse();
    void doubledSlashFindsTheEntry();

    void vectorSize_data();
    void vectorSize();
    void vectorNeedsOnlyPlainSvg_data();
    void vectorNeedsOnlyPlainSvg();
    void vectorColour_data();
    void vectorColour();
    void grooveIsRounded();
    void disabledSkinHasTheSameShape_data();
    void disabledSkinHasTheSameShape();

    void rasterShape_data();
    void rasterShape();
    void popupStretchesWithoutSeams_data();
    void popupStretchesWithoutSeams();
    void popupShadowFadesOutwards_data();
    void popupShadowFadesOutwards();
    void maskIsOneTranslucentDarkTone();
    void arrowsPointAgainstEachOther();

    void spinnerTurnsWithoutEnd();
    void spinnerIsSmall();
    void spinnerRimIsSmoothOnWhite();
};

namespace {

const QString kImages = QStringLiteral(":/images/images/");

constexpr int kSpinnerBytesAtMost = 150 * 1024;
constexpr int kShadesAtLeast = 40;
constexpr int kNearlyWhite = 245;
constexpr int kPopupBorder = 8;
constexpr int kPopupShadow = 4;

struct Entry
{
    const char *path;
    bool compressed;
};

constexpr Entry kTree[] = {
    {":/qssFromResource/resourceplugins.qss", true},
    {":/qssFromResource/resourceGlobal.qss", true},
    {":/qssFromResource/resourceGeneratedStyle_BrixelCam.qss", true},
    {":/qssFromResource/global_QScrollBar.qss", true},
    {":/images/images/loading.gif", false},
    {":/images/images/combox/checked.png", false},
    {":/images/images/combox/checked.svg", false},
    {":/images/images/combox/down.png", false},
    {":/images/images/combox/up.png", false},
    {":/images/images/combox/editbtn.png", false},
    {":/images/images/combox/addbtn.png", false},
    {":/images/images/combox/deletebtn.png", false},
    {":/images/images/combox/popup_bg.png", false},
    {":/images/images/combox/popup_small.png", false},
    {":/images/images/combox/novip.png", false},
    {":/images/images/combox/novip_zh.png", false},
    {":/images/images/slider/background.svg", false},
    {":/images/images/slider/item.svg", false},
    {":/images/images/slider/item_active.svg", false},
    {":/images/images/slider/select.svg", false},
    {":/images/images/mask.png", true},
    {":/images/images/hslider/groove.svg", false},
    {":/images/images/hslider/handle.svg", false},
    {":/images/images/hslider/handle.png", false},
    {":/images/images/hslider/zero.svg", false},
    {":/images/images/hslider2/groove.svg", false},
    {":/images/images/hslider2/groove_disabled.svg", false},
    {":/images/images/hslider2/groove_bidirection.svg", false},
    {":/images/images/hslider2/groove_bidirection_disabled.svg", false},
    {":/images/images/hslider2/handle.svg", false},
    {":/images/images/hslider2/handle_disabled.svg", false},
    {":/orvcommonlib/pictures/message_bg.png", false},
    {":/orvcommonlib/pictures/message_bg_dark.png", false},
};

QStringList filesBelow(const QString &folder)
{
    QStringList result;
    QDirIterator entry(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext())
        result << entry.next();
    result.sort();
    return result;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The vector image at a multiple of its own size.
QImage rendered(const QString &path, int scale)
{
    QSvgRenderer renderer(path);
    QImage image(renderer.defaultSize() * scale, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/// Where something is painted at all.
QImage coverage(const QImage &image)
{
    return image.convertToFormat(QImage::Format_Alpha8);
}

} // namespace

void tst_resources::initTestCase()
{
    // Linkers leave out a library of which nothing is used.
    const orvcommonlib library;
    Q_UNUSED(library)
}

void tst_resources::entry_data()
{
    QTest::addColumn<bool>("compressed");
    for (const Entry &entry : kTree)
        QTest::newRow(entry.path) << entry.compressed;
}

void tst_resources::entry()
{
    QFETCH(bool, compressed);
    const QResource resource(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(resource.isValid());
    QVERIFY(resource.size() > 0);
    QCOMPARE(resource.compressionAlgorithm(),
             compressed ? QResource::ZlibCompression : QResource::NoCompression);
    QCOMPARE(contents(resource.absoluteFilePath()), resource.uncompressedData());
    QVERIFY(!resource.uncompressedData().isEmpty());
}

void tst_resources::treeHoldsNothingElse()
{
    QStringList listed;
    for (const Entry &entry : kTree)
        listed << QString::fromLatin1(entry.path);
    listed.sort();
    QStringList found;
    for (const char *folder : {":/images", ":/orvcommonlib/pictures", ":/qssFromResource"})
        found << filesBelow(QString::fromLatin1(folder));
    found.sort();
    QCOMPARE(found, listed);
}

void tst_resources::doubledSlashFindsTheEntry()
{
    // Skin folders end in a slash, and "%1/groove.svg" adds another one.
    QVERIFY(QFile::exists(kImages + QStringLiteral("hslider//groove.svg")));
    QVERIFY(QSvgRenderer(kImages + QStringLiteral("slider//background.svg")).isValid());
}

void tst_resources::vectorSize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("combox/checked.svg") << QSize(16, 16);
    QTest::newRow("slider/background.svg") << QSize(116, 12);
    QTest::newRow("slider/item.svg") << QSize(12, 12);
    QTest::newRow("slider/item_active.svg") << QSize(12, 12);
    QTest::newRow("slider/select.svg") << QSize(16, 16);
    QTest::newRow("hslider/groove.svg") << QSize(206, 10);
    QTest::newRow("hslider/handle.svg") << QSize(14, 14);
    QTest::newRow("hslider/zero.svg") << QSize(4, 4);
    QTest::newRow("hslider2/groove.svg") << QSize(483, 10);
    QTest::newRow("hslider2/groove_disabled.svg") << QSize(483, 10);
    QTest::newRow("hslider2/groove_bidirection.svg") << QSize(142, 10);
    QTest::newRow("hslider2/groove_bidirection_disabled.svg") << QSize(142, 10);
    QTest::newRow("hslider2/handle.svg") << QSize(10, 10);
    QTest::newRow("hslider2/handle_disabled.svg") << QSize(10, 10);
}

void tst_resources::vectorSize()
{
    QFETCH(QSize, size);
    const LogCapture log;
    const QSvgRenderer renderer(kImages + QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(renderer.isValid());
    QCOMPARE(renderer.defaultSize(), size);
    QCOMPARE(renderer.viewBoxF(), QRectF(QPointF(), QSizeF(size)));
    QCOMPARE(log.texts(), QStringList());
}

void tst_resources::vectorNeedsOnlyPlainSvg_data()
{
    vectorSize_data();
}

void tst_resources::vectorNeedsOnlyPlainSvg()
{
    const QByteArray text = contents(kImages + QString::fromLatin1(QTest::currentDataTag()));
    for (const char *beyondTiny :
         {"<filter", "<mask", "<clipPath", "<style", "class=", "<use", "<image", "<text"})
        QVERIFY2(!text.contains(beyondTiny), beyondTiny);
}

void tst_resources::vectorColour_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<QColor>("colour");

    const auto row = [](const char *what, const char *file, QPointF point, const QColor &colour) {
        QTest::newRow(what) << QString::fromLatin1(file) << point << colour;
    };
    const QColor nothing(Qt::transparent);
    row("white groove", "hslider/groove.svg", {103, 5}, 0xffffff);
    row("handle's fill", "hslider/handle.svg", {7, 7}, 0xfcfcfd);
    row("handle's stroke", "hslider/handle.svg", {0.75, 7}, 0x1f1f22);
    row("zero mark", "hslider/zero.svg", {2, 2}, 0xabadbf);

    for (const char *file : {"hslider2/groove.svg", "hslider2/groove_disabled.svg",
                             "hslider2/groove_bidirection.svg", "hslider2/groove_bidirection_disabled.svg"}) {
        const auto part = [file](const char *what) {
            return QByteArray(file).append(": ").append(what);
        };
        row(part("above the bar"), file, {20, 3.8}, nothing);
        row(part("upper edge of the bar"), file, {20, 4.2}, 0xebebeb);
        row(part("lower edge of the bar"), file, {20, 5.8}, 0xebebeb);
        row(part("below the bar"), file, {20, 6.2}, nothing);
    }
    row("centre tick", "hslider2/groove_bidirection.svg", {71, 5}, 0x4b66eb);
    row("centre tick above the bar", "hslider2/groove_bidirection.svg", {71, 3}, 0x4b66eb);
    row("disabled centre tick", "hslider2/groove_bidirection_disabled.svg", {71, 5}, 0xcccccc);
    row("small handle's fill", "hslider2/handle.svg", {5, 5}, 0xffffff);
    row("small handle's stroke", "hslider2/handle.svg", {1, 5}, 0x4b66eb);
    row("disabled handle's fill", "hslider2/handle_disabled.svg", {5, 5}, 0xffffff);
    row("disabled handle's stroke", "hslider2/handle_disabled.svg", {1, 5}, 0xebebeb);
}

void tst_resources::vectorColour()
{
    QFETCH(QString, file);
    QFETCH(QPointF, point);
    QFETCH(QColor, colour);
    constexpr int scale = 10;
    QCOMPARE(rendered(kImages + file, scale).pixelColor((point * scale).toPoint()), colour);
}

void tst_resources::grooveIsRounded()
{
    const QImage groove = rendered(kImages + QStringLiteral("hslider/groove.svg"), 4);
    QCOMPARE(groove.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(groove.pixelColor(groove.width() - 1, groove.height() - 1).alpha(), 0);
}

void tst_resources::disabledSkinHasTheSameShape_data()
{
    QTest::addColumn<QString>("disabled");
    QTest::newRow("hslider2/groove.svg") << QStringLiteral("hslider2/groove_disabled.svg");
    QTest::newRow("hslider2/groove_bidirection.svg")
        << QStringLiteral("hslider2/groove_bidirection_disabled.svg");
    QTest::newRow("hslider2/handle.svg") << QStringLiteral("hslider2/handle_disabled.svg");
}

void tst_resources::disabledSkinHasTheSameShape()
{
    QFETCH(QString, disabled);
    const QString enabled = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(coverage(rendered(kImages + disabled, 3)), coverage(rendered(kImages + enabled, 3)));
}

void tst_resources::rasterShape_data()
{
    // The size on screen; the file may hold a multiple of it.
    QTest::addColumn<QSize>("size");
    QTest::newRow("combox/checked.png") << QSize(20, 20);
    QTest::newRow("combox/down.png") << QSize(20, 20);
    QTest::newRow("combox/up.png") << QSize(20, 20);
    QTest::newRow("combox/editbtn.png") << QSize(20, 20);
    QTest::newRow("combox/addbtn.png") << QSize(20, 20);
    QTest::newRow("combox/deletebtn.png") << QSize(20, 20);
    QTest::newRow("combox/novip.png") << QSize(56, 18);
    QTest::newRow("combox/novip_zh.png") << QSize(67, 18);
    QTest::newRow("hslider/handle.png") << QSize(14, 14);
}

void tst_resources::rasterShape()
{
    QFETCH(QSize, size);
    const QImage image(kImages + QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!image.isNull());
    QVERIFY(image.hasAlphaChannel());
    const int multiple = image.width() / size.width();
    QVERIFY(multiple >= 1);
    QCOMPARE(image.size(), size * multiple);
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
}

void tst_resources::popupStretchesWithoutSeams_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("normal") << QStringLiteral("combox/popup_bg.png");
    QTest::newRow("small") << QStringLiteral("combox/popup_small.png");
}

void tst_resources::popupStretchesWithoutSeams()
{
    QFETCH(QString, file);
    const QImage image(kImages + file);
    const int right = image.width() - kPopupBorder;
    const int bottom = image.height() - kPopupBorder;
    QVERIFY(right > kPopupBorder);
    QVERIFY(bottom > kPopupBorder);
    for (int x = kPopupBorder; x < right; ++x) {
        for (int y = 0; y < image.height(); ++y)
            QCOMPARE(image.pixel(x, y), image.pixel(kPopupBorder, y));
    }
    for (int y = kPopupBorder; y < bottom; ++y) {
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixel(x, y), image.pixel(x, kPopupBorder));
    }
}

void tst_resources::popupShadowFadesOutwards_data()
{
    popupStretchesWithoutSeams_data();
}

void tst_resources::popupShadowFadesOutwards()
{
    QFETCH(QString, file);
    const QImage image(kImages + file);
    const int middle = image.width() / 2;
    for (int depth = 1; depth < kPopupShadow; ++depth) {
        QVERIFY(image.pixelColor(middle, depth).alpha() > image.pixelColor(middle, depth - 1).alpha());
        QVERIFY(image.pixelColor(depth, middle).alpha() > image.pixelColor(depth - 1, middle).alpha());
    }
    const int last = image.width() - 1;
    for (const QPoint corner : {QPoint(0, 0), QPoint(last, 0), QPoint(0, last), QPoint(last, last)})
        QVERIFY(image.pixelColor(corner).alpha() < 4);
    QVERIFY(image.pixelColor(kPopupShadow, kPopupShadow).alpha() < 255);
    QCOMPARE(image.pixelColor(kPopupShadow, middle), QColor(Qt::white));
    QCOMPARE(image.pixelColor(middle, kPopupShadow), QColor(Qt::white));
    QCOMPARE(image.pixelColor(middle, middle), QColor(Qt::white));
}

void tst_resources::maskIsOneTranslucentDarkTone()
{
    const QImage mask(kImages + QStringLiteral("mask.png"));
    const QColor tone = mask.pixelColor(0, 0);
    QVERIFY(tone.lightness() < 64);
    QVERIFY(tone.alpha() > 64);
    QVERIFY(tone.alpha() < 192);
    // It is stretched over whole windows by the fast transformation: any structure would turn into bars.
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x)
            QCOMPARE(mask.pixelColor(x, y), tone);
    }
}

void tst_resources::arrowsPointAgainstEachOther()
{
    const QImage up(kImages + QStringLiteral("combox/up.png"));
    const QImage down(kImages + QStringLiteral("combox/down.png"));
    const QPoint upTip(up.width() / 2, up.height() * 3 / 8);
    const QPoint downTip(down.width() / 2, down.height() * 5 / 8 - 1);
    QCOMPARE(up.pixelColor(upTip).alpha(), 255);
    QCOMPARE(down.pixelColor(downTip).alpha(), 255);
    QCOMPARE(up.pixelColor(downTip).alpha(), 0);
    QCOMPARE(down.pixelColor(upTip).alpha(), 0);
}

void tst_resources::spinnerTurnsWithoutEnd()
{
    const QString path = kImages + QStringLiteral("loading.gif");
    QImageReader reader(path);
    QVERIFY(reader.supportsAnimation());
    const int frames = reader.imageCount();
    QVERIFY(frames >= 12);
    QImage previous;
    for (int frame = 0; frame < frames; ++frame) {
        const QImage image = reader.read();
        QVERIFY2(!image.isNull(), qPrintable(reader.errorString()));
        QVERIFY(image != previous);
        QVERIFY(reader.nextImageDelay() > 0);
        previous = image;
    }
    QCOMPARE(reader.loopCount(), -1);

    QMovie movie(path);
    QVERIFY(movie.isValid());
    QVERIFY(movie.jumpToFrame(0));
    const QImage first = movie.currentImage();
    for (int frame = 1; frame < frames; ++frame)
        QVERIFY(movie.jumpToNextFrame());
    QVERIFY(movie.currentImage() != first);
    QVERIFY(movie.jumpToNextFrame());
    QCOMPARE(movie.currentFrameNumber(), 0);
    QCOMPARE(movie.currentImage(), first);
    QCOMPARE(movie.loopCount(), -1);
}

void tst_resources::spinnerIsSmall()
{
    QVERIFY(QFile(kImages + QStringLiteral("loading.gif")).size() < kSpinnerBytesAtMost);
}

void tst_resources::spinnerRimIsSmoothOnWhite()
{
    // A GIF pixel is there or not; what smooths the rim is a scale of shades between white and the colour.
    QImageReader reader(kImages + QStringLiteral("loading.gif"));
    const QImage frame = reader.read().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(frame.width(), frame.height());
    QCOMPARE(frame.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(frame.pixelColor(frame.rect().center()).alpha(), 0);
    QSet<QRgb> shades;
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            const QRgb pixel = frame.pixel(x, y);
            QVERIFY(qAlpha(pixel) == 0 || qAlpha(pixel) == 255);
            if (qAlpha(pixel) == 255)
                shades.insert(pixel);
        }
    }
    QVERIFY(shades.size() >= kShadesAtLeast);
    QVERIFY(
        std::any_of(shades.cbegin(), shades.cend(), [](QRgb shade) { return qGray(shade) > kNearlyWhite; }));
}

ORV_TEST_MAIN(tst_resources)

#include "tst_resources.moc"
