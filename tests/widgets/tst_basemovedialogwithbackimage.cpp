#include "basemovedialogwithbackimage.h"

#include "logcapture.h"
#include "notingdevice.h"
#include "orvcommonlib.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPixmapCache>
#include <QtTest/QTest>

namespace {

constexpr int kLeft = 7;
constexpr int kTop = 11;
constexpr int kRight = 13;
constexpr int kBottom = 17;
const QSize kSize(160, 120);

/// An image of the size and ratio of what renderWidget() makes of `widget`.
QImage canvasFor(const QWidget &widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    QImage canvas((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    return canvas;
}

QImage whiteRectangle(const QWidget &widget, int radius)
{
    QImage canvas = canvasFor(widget);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QPainterPath path;
    path.addRoundedRect(QRectF(widget.rect()), radius, radius, Qt::AbsoluteSize);
    painter.fillPath(path, QBrush(QColor(QStringLiteral("#FFFFFF")), Qt::SolidPattern));
    return canvas;
}

/// Notes which pixmap it is given.
class PixmapNotes : public NotingDevice
{
public:
    using NotingDevice::NotingDevice;

    qint64 key = 0;

protected:
    void drawPixmap(const QRectF &, const QPixmap &pixmap, const QRectF &) override
    {
        key = pixmap.cacheKey();
    }
};

/// The identity of the picture that a dialog paints.
qint64 pictureOf(BaseMoveDialogWithBackImage &dialog)
{
    PixmapNotes notes(dialog.size());
    dialog.render(&notes, QPoint(), QRegion(), QWidget::RenderFlags());
    return notes.key;
}

QImage sliced(const QWidget &widget, QString path, int left, int top, int right, int bottom)
{
    const QPixmap background = QPixmap::fromImage(
        totalcommon::NinePatch(path, left, top, right, bottom, widget.width(), widget.height()));
    QImage canvas = canvasFor(widget);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(widget.rect(), background);
    return canvas;
}

} // namespace

class tst_BaseMoveDialogWithBackImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isATranslucentMovableDialog_data();
    void isATranslucentMovableDialog();
    void paintsAWhiteRectangleWithoutImage_data();
    void paintsAWhiteRectangleWithoutImage();
    void slicesTheImage_data();
    void slicesTheImage();
    void slicesAgainOnlyWhenTheSizeChanges();
    void sharesWhatIsSliced();
    void showsWhatTheFileHoldsNow();
    void paintsWithoutRoomToShare();
    void staysTransparentWhenTheImageIsMissing();
    void leavesStyleSheetsUnpainted();
    void paintsItsRecipeWithAbsurdMeasures_data();
    void paintsItsRecipeWithAbsurdMeasures();
};

void tst_BaseMoveDialogWithBackImage::isATranslucentMovableDialog_data()
{
    QTest::addColumn<bool>("fourBorders");
    QTest::addColumn<bool>("canMove");
    QTest::addColumn<bool>("asDialog");
    for (int bits = 0; bits < 8; ++bits)
        QTest::addRow("%d", bits) << bool(bits & 1) << bool(bits & 2) << bool(bits & 4);
}

void tst_BaseMoveDialogWithBackImage::isATranslucentMovableDialog()
{
    QFETCH(bool, fourBorders);
    QFETCH(bool, canMove);
    QFETCH(bool, asDialog);
    QWidget parent;
    BaseMoveDialogWithBackImage *dialog =
        fourBorders ? new BaseMoveDialogWithBackImage(QString(), 1, 2, 3, 4, canMove, asDialog, &parent)
                    : new BaseMoveDialogWithBackImage(QString(), 5, canMove, asDialog, &parent);
    QCOMPARE(dialog->parentWidget(), &parent);
    QVERIFY(dialog->testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(dialog->windowFlags().testFlag(Qt::Dialog), asDialog);
    QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));

    QTest::mousePress(dialog, Qt::LeftButton, {}, {20, 20});
    QTest::mouseRelease(dialog, Qt::LeftButton, {}, {20, 20});
    QCOMPARE(dialog->isMoving(), !canMove);
}

void tst_BaseMoveDialogWithBackImage::paintsAWhiteRectangleWithoutImage_data()
{
    QTest::addColumn<bool>("fourBorders");
    QTest::addColumn<int>("radius");
    QTest::newRow("one border") << false << 8;
    QTest::newRow("no radius") << false << 0;
    QTest::newRow("the top border is the radius") << true << kTop;
}

void tst_BaseMoveDialogWithBackImage::paintsAWhiteRectangleWithoutImage()
{
    QFETCH(bool, fourBorders);
    QFETCH(int, radius);
    const auto dialog =
        fourBorders ? std::make_unique<BaseMoveDialogWithBackImage>(QString(), kLeft, radius, kRight, kBottom,
                                                                    true, true, nullptr)
                    : std::make_unique<BaseMoveDialogWithBackImage>(QString(), radius, true, true, nullptr);
    dialog->resize(kSize);
    const QImage picture = renderWidget(dialog.get());
    QCOMPARE(differingPixels(picture, whiteRectangle(*dialog, radius)), 0);
    QCOMPARE(picture.pixel(picture.rect().center()), QColor(Qt::white).rgba());
    QCOMPARE(qAlpha(picture.pixel(0, 0)) == 255, radius == 0);
}

void tst_BaseMoveDialogWithBackImage::slicesTheImage_data()
{
    QTest::addColumn<bool>("fourBorders");
    QTest::addColumn<QSize>("size");
    for (const bool fourBorders : {false, true}) {
        const char *name = fourBorders ? "four borders" : "one border";
        QTest::addRow("%s", name) << fourBorders << kSize;
        QTest::addRow("%s, odd size", name) << fourBorders << QSize(201, 77);
        QTest::addRow("%s, smaller than its image", name) << fourBorders << QSize(40, 35);
        QTest::addRow("%s, smaller than its borders", name) << fourBorders << QSize(9, 9);
    }
}

void tst_BaseMoveDialogWithBackImage::slicesTheImage()
{
    QFETCH(bool, fourBorders);
    QFETCH(QSize, size);
    const QString path = savedImage(gradientImage(64, 48), QStringLiteral("gradient.png"));
    const auto dialog = fourBorders
                            ? std::make_unique<BaseMoveDialogWithBackImage>(path, kLeft, kTop, kRight,
                                                                            kBottom, true, true, nullptr)
                            : std::make_unique<BaseMoveDialogWithBackImage>(path, kLeft, true, true, nullptr);
    dialog->resize(size);
    const QImage expected = fourBorders ? sliced(*dialog, path, kLeft, kTop, kRight, kBottom)
                                        : sliced(*dialog, path, kLeft, kLeft, kLeft, kLeft);
    QCOMPARE(differingPixels(renderWidget(dialog.get()), expected), 0);
    QCOMPARE(differingPixels(renderWidget(dialog.get()), expected), 0);
}

void tst_BaseMoveDialogWithBackImage::slicesAgainOnlyWhenTheSizeChanges()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("background.png"));
    BaseMoveDialogWithBackImage dialog(path, 4, true, true, nullptr);

    // Each painting finds another picture in the file, so the picture tells whether the file was read for it.
    int generation = 0;
    int slices = 0;
    QRgb last = 0;
    const auto paintAt = [&](const QSize &size) {
        const QRgb colour = qRgb(10 * ++generation, 0, 0);
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(colour);
        QVERIFY(image.save(path));
        dialog.resize(size);
        const QImage painted = renderWidget(&dialog);
        const QRgb seen = painted.pixel(painted.rect().center());
        if (seen == colour)
            ++slices;
        else
            QCOMPARE(seen, last);
        last = seen;
    };

    paintAt({100, 80});
    QCOMPARE(slices, 1);
    paintAt({100, 80});
    paintAt({100, 80});
    QCOMPARE(slices, 1);
    paintAt({101, 80});
    QCOMPARE(slices, 2);
    paintAt({101, 81});
    QCOMPARE(slices, 3);
    paintAt({81, 101});
    QCOMPARE(slices, 4);
    paintAt({81, 101});
    QCOMPARE(slices, 4);
    dialog.resize(500, 500); // a size that is never painted is never sliced
    paintAt({81, 101});
    QCOMPARE(slices, 4);
}

void tst_BaseMoveDialogWithBackImage::sharesWhatIsSliced()
{
    const QString path = savedImage(gradientImage(64, 64), QStringLiteral("shared.png"));
    const auto pictureFor = [](const QString &image, int border, QSize size) {
        BaseMoveDialogWithBackImage dialog(image, border, true, true, nullptr);
        dialog.resize(size);
        return pictureOf(dialog);
    };
    const qint64 first = pictureFor(path, 8, kSize);
    QVERIFY(first != 0);
    QCOMPARE(pictureFor(path, 8, kSize), first);
    QVERIFY(pictureFor(path, 9, kSize) != first);
    QVERIFY(pictureFor(path, 8, kSize + QSize(1, 0)) != first);
    QVERIFY(pictureFor(savedImage(gradientImage(63, 64), QStringLiteral("other.png")), 8, kSize) != first);
}

void tst_BaseMoveDialogWithBackImage::showsWhatTheFileHoldsNow()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("background.png"));
    for (const Qt::GlobalColor colour : {Qt::red, Qt::green, Qt::red}) {
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(colour);
        QVERIFY(image.save(path));
        BaseMoveDialogWithBackImage dialog(path, 4, true, true, nullptr);
        dialog.resize(kSize);
        const QImage painted = renderWidget(&dialog);
        QCOMPARE(painted.pixelColor(painted.rect().center()), QColor(colour));
    }
}

void tst_BaseMoveDialogWithBackImage::paintsWithoutRoomToShare()
{
    const int limit = QPixmapCache::cacheLimit();
    QPixmapCache::setCacheLimit(0);
    const QString path = savedImage(gradientImage(64, 64), QStringLiteral("alone.png"));
    BaseMoveDialogWithBackImage dialog(path, 8, true, true, nullptr);
    dialog.resize(kSize);
    QCOMPARE(differingPixels(renderWidget(&dialog), sliced(dialog, path, 8, 8, 8, 8)), 0);
    QPixmapCache::setCacheLimit(limit);
}

void tst_BaseMoveDialogWithBackImage::staysTransparentWhenTheImageIsMissing()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("missing.png"));
    BaseMoveDialogWithBackImage dialog(path, 4, true, true, nullptr);
    dialog.resize(kSize);
    const LogCapture log;
    QCOMPARE(differingPixels(renderWidget(&dialog), canvasFor(dialog)), 0);

    // Also when it turns up later, until the size changes.
    QVERIFY(gradientImage(32, 32).save(path));
    QCOMPARE(differingPixels(renderWidget(&dialog), canvasFor(dialog)), 0);
    dialog.resize(kSize + QSize(1, 0));
    QCOMPARE(differingPixels(renderWidget(&dialog), sliced(dialog, path, 4, 4, 4, 4)), 0);
    QCOMPARE(log.texts(), QStringList());
}

void tst_BaseMoveDialogWithBackImage::leavesStyleSheetsUnpainted()
{
    BaseMoveDialogWithBackImage dialog(QString(), 8, true, true, nullptr);
    dialog.setStyleSheet(QStringLiteral("background-color: #FF0000; border: 3px solid #00FF00;"));
    dialog.resize(kSize);
    QCOMPARE(differingPixels(renderWidget(&dialog), whiteRectangle(dialog, 8)), 0);
}

void tst_BaseMoveDialogWithBackImage::paintsItsRecipeWithAbsurdMeasures_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("border");
    QTest::addColumn<QSize>("size");
    const QString image = savedImage(gradientImage(32, 32), QStringLiteral("absurd.png"));
    for (const QString &path :
         {QString(), image, QStringLiteral("/no/such/image.png"), QStringLiteral(".")}) {
        for (const int border : {INT_MIN, -1, 0, 1000, INT_MAX}) {
            for (const QSize &size : {QSize(0, 0), QSize(1, 1), QSize(0, 50), kSize})
                QTest::addRow("%s, %d, %d x %d", qPrintable(path), border, size.width(), size.height())
                    << path << border << size;
        }
    }
}

void tst_BaseMoveDialogWithBackImage::paintsItsRecipeWithAbsurdMeasures()
{
    QFETCH(QString, path);
    QFETCH(int, border);
    QFETCH(QSize, size);
    BaseMoveDialogWithBackImage dialog(path, border, true, true, nullptr);
    const auto recipe = [&] {
        return path.isEmpty() ? whiteRectangle(dialog, border)
                              : sliced(dialog, path, border, border, border, border);
    };
    const ExpectedWarnings onSuchSizes("^QPainter::");
    dialog.resize(size);
    QCOMPARE(dialog.size(), size);
    QCOMPARE(differingPixels(renderWidget(&dialog), recipe()), 0);
    dialog.show();
    dialog.repaint();

    // What it has kept of that does not spoil the next picture.
    dialog.resize(kSize);
    QCOMPARE(differingPixels(renderWidget(&dialog), recipe()), 0);
}

ORV_TEST_MAIN(tst_BaseMoveDialogWithBackImage)

#include "tst_basemovedialogwithbackimage.moc"
