#include "horizontalslider.h"
#include "horizontalsliderchecks.h"
#include "logcapture.h"
#include "pictures.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>

using namespace SliderTesting;
namespace Checks = HorizontalSliderChecks;

namespace {

using Probe = Checks::Probe<HorizontalSlider>;

constexpr Checks::Measures kMeasures{7, 192, 7};

const QColor kGrounds[] = {Qt::transparent, QColor(250, 245, 240), QColor(30, 60, 90, 128)};

SliderPicture pictureOf(const HorizontalSlider &slider)
{
    SliderPicture picture;
    picture.skin = slider.getSkinPath();
    picture.size = slider.size();
    picture.handleSize = QSize(14, 14);
    picture.valueColor = QColor(QStringLiteral("#ABADBF"));
    return picture;
}

QImage plain(const HorizontalSlider &slider, const SliderPicture &picture,
             const QColor &ground = Qt::transparent)
{
    QImage image = canvas(slider, ground);
    QPainter painter(&image);
    picture.paintOld(&painter, slider.devicePixelRatioF());
    return image;
}

} // namespace

class tst_horizontalslider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsDocumented();
    void heightHasRoomForTheMark_data();
    void heightHasRoomForTheMark();
    void showZeroFlagDoesNotResize();

    void paintsLikeThePlainRecipe_data();
    void paintsLikeThePlainRecipe();
    void paintsEveryValueLikeThePlainRecipe();
    void paintsMarksOfAnySize_data();
    void paintsMarksOfAnySize();
    void paintsTheSameInItsWindow();
    void paintsEmbeddedSkin();
    void showsChangesAtTheNextPaint();
    void missingOrBrokenPiecesPaintNothing_data();
    void missingOrBrokenPiecesPaintNothing();
    void absurdMeasures_data();
    void absurdMeasures();

    void behaves_data();
    void behaves();
    void beforeTheFirstPaint();
    void protectedSteps();
    void destroyedInSlots();
    void lostPresses_data();
    void lostPresses();
    void lostToADialogInASlot();
    void destroyedByALoss();
    void skinIsWhatLiesThereNow();
};

void tst_horizontalslider::startsAsDocumented()
{
    QWidget parent;
    const HorizontalSlider slider(&parent);
    QCOMPARE(slider.parentWidget(), &parent);
    QCOMPARE(slider.minimumSize(), QSize(206, 14));
    QCOMPARE(slider.maximumSize(), QSize(206, 14));
    QVERIFY(slider.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(slider.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(!slider.isWindow());
    QCOMPARE(slider.cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(slider.contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(slider.value(), 0);
    QCOMPARE(slider.getSkinPath(), QStringLiteral(":/images/images/hslider/"));
    QVERIFY(HorizontalSlider().isWindow());
}

void tst_horizontalslider::heightHasRoomForTheMark_data()
{
    QTest::addColumn<bool>("zeroFlag");
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QSize>("zeroSize");
    QTest::addColumn<int>("height");
    QTest::newRow("defaults") << true << 3 << QSize(4, 4) << 21;
    QTest::newRow("large mark") << true << 5 << QSize(8, 12) << 31;
    QTest::newRow("no mark") << false << 5 << QSize(8, 12) << 14;
    QTest::newRow("no room") << true << -20 << QSize(4, 4) << 0;
    QTest::newRow("absurd") << true << 0x7fffffff << QSize(4, 0x7fffffff) << QWIDGETSIZE_MAX;
}

void tst_horizontalslider::heightHasRoomForTheMark()
{
    QFETCH(bool, zeroFlag);
    QFETCH(int, spacing);
    QFETCH(QSize, zeroSize);
    const LogCapture log;
    const HorizontalSlider slider(nullptr, false, zeroFlag, spacing, zeroSize);
    QTEST(slider.maximumHeight(), "height");
    QCOMPARE(slider.maximumWidth(), 206);
    QCOMPARE(log.texts(), QStringList());
}

void tst_horizontalslider::showZeroFlagDoesNotResize()
{
    const SkinFolder skin;
    HorizontalSlider slider;
    slider.setSkinPath(skin.path());
    slider.showZeroFlag();
    QCOMPARE(slider.minimumHeight(), 14);

    // The mark shows where a client makes room for it, and the groove stays where the handle is.
    HorizontalSlider built(nullptr, false, true);
    built.setSkinPath(skin.path());
    slider.setFixedHeight(21);
    QCOMPARE(painted(&slider), painted(&built));
}

void tst_horizontalslider::paintsLikeThePlainRecipe_data()
{
    QTest::addColumn<bool>("bidirectional");
    QTest::addColumn<bool>("zeroFlag");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QSize>("handleSize");
    QTest::addColumn<int>("grooveHeight");

    const QPair<int, int> ranges[] = {{0, 100},  {-50, 50}, {-7, 30}, {3, 10},
                                      {0, 1000}, {0, 1},    {-9, 0},  {9, -9}};
    for (const bool bidirectional : {false, true}) {
        for (const bool zeroFlag : {false, true}) {
            for (const QPair<int, int> &range : ranges) {
                QTest::addRow("%d %d %d..%d", bidirectional, zeroFlag, range.first, range.second)
                    << bidirectional << zeroFlag << range.first << range.second << QSize(14, 14) << 10;
            }
            QTest::addRow("%d %d odd handle", bidirectional, zeroFlag)
                << bidirectional << zeroFlag << 0 << 100 << QSize(13, 11) << 10;
            QTest::addRow("%d %d odd groove", bidirectional, zeroFlag)
                << bidirectional << zeroFlag << 0 << 100 << QSize(14, 14) << 5;
            QTest::addRow("%d %d high groove", bidirectional, zeroFlag)
                << bidirectional << zeroFlag << 0 << 100 << QSize(20, 9) << 33;
        }
    }
}

void tst_horizontalslider::paintsLikeThePlainRecipe()
{
    QFETCH(bool, bidirectional);
    QFETCH(bool, zeroFlag);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(QSize, handleSize);
    QFETCH(int, grooveHeight);
    const SkinFolder skin;
    HorizontalSlider slider(nullptr, bidirectional, zeroFlag);
    slider.setSkinPath(skin.path());
    slider.setRange(minimum, maximum);
    slider.setHandleSize(handleSize);
    slider.setGrooveHeight(grooveHeight);

    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = bidirectional;
    picture.zeroFlag = zeroFlag;
    picture.minimum = minimum;
    picture.maximum = maximum;
    picture.handleSize = handleSize;
    picture.grooveHeight = grooveHeight;
    for (int eighth = -1; eighth <= 9; ++eighth) {
        picture.value = minimum + (maximum - minimum) * eighth / 8;
        slider.setValue(picture.value);
        for (const QColor &ground : kGrounds)
            QCOMPARE(
                differingPixels(painted(&slider, ground), plain(slider, picture, ground), kOfTranslucent), 0);
    }
}

// The whole range forwards and backwards, so that pictures that were kept are drawn as well as new ones.
void tst_horizontalslider::paintsEveryValueLikeThePlainRecipe()
{
    HorizontalSlider slider(nullptr, true, true);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    picture.zeroFlag = true;
    for (int step = 0; step <= 200; ++step) {
        picture.value = step <= 100 ? step : 200 - step;
        picture.valueColor = QColor::fromHsv(step % 7 * 50, 200, 200, step % 2 == 0 ? 255 : 100);
        slider.setValue(picture.value);
        slider.setValueColor(picture.valueColor);
        QCOMPARE(differingPixels(painted(&slider, Qt::white), plain(slider, picture, Qt::white), kOfOpaque),
                 0);
    }
}

void tst_horizontalslider::paintsMarksOfAnySize_data()
{
    QTest::addColumn<int>("spacing");
    QTest::addColumn<QSize>("zeroSize");
    QTest::newRow("wide") << 3 << QSize(9, 3);
    QTest::newRow("high") << 5 << QSize(3, 8);
    QTest::newRow("below the handle's centre") << -6 << QSize(20, 4);
}

void tst_horizontalslider::paintsMarksOfAnySize()
{
    QFETCH(int, spacing);
    QFETCH(QSize, zeroSize);
    HorizontalSlider slider(nullptr, true, true, spacing, zeroSize);
    slider.setRange(-20, 30);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    picture.zeroFlag = true;
    picture.zeroSpacing = spacing;
    picture.zeroSize = zeroSize;
    picture.minimum = -20;
    picture.maximum = 30;
    for (const QColor &ground : kGrounds)
        QCOMPARE(differingPixels(painted(&slider, ground), plain(slider, picture, ground), kOfOpaque), 0);
}

// Through the window's own store, at an odd place; over and over, since what is kept is made at the second
// paint.
void tst_horizontalslider::paintsTheSameInItsWindow()
{
    QWidget window;
    window.resize(250, 50);
    HorizontalSlider slider(&window, true, true);
    slider.move(13, 7);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    picture.zeroFlag = true;
    for (int paint = 0; paint < 30; ++paint) {
        picture.value = paint % 10 * 11;
        slider.setValue(picture.value);
        QImage expected = canvas(window, window.palette().color(QPalette::Window));
        QPainter painter(&expected);
        painter.setClipRect(slider.geometry());
        painter.translate(slider.pos());
        picture.paintOld(&painter, slider.devicePixelRatioF());
        painter.end();
        QCOMPARE(
            differingPixels(window.grab().toImage().convertToFormat(expected.format()), expected, kOfOpaque),
            0);
    }
}

// Against the colours that the design names.
void tst_horizontalslider::paintsEmbeddedSkin()
{
    HorizontalSlider slider(nullptr, false, true);
    slider.setValue(50);
    const QImage image = painted(&slider, Qt::black);
    const qreal ratio = slider.devicePixelRatioF();
    const auto colorAt = [&](double x, double y) {
        return image.pixelColor(int(x * ratio), int(y * ratio)).name();
    };
    QCOMPARE(colorAt(60, 7), QStringLiteral("#abadbf"));
    QCOMPARE(colorAt(150, 7), QStringLiteral("#ffffff"));
    QCOMPARE(colorAt(103, 7), QStringLiteral("#fcfcfd"));
    QCOMPARE(colorAt(103, 19), QStringLiteral("#abadbf"));
    QCOMPARE(colorAt(60, 0), QStringLiteral("#000000"));
    QCOMPARE(colorAt(60, 19), QStringLiteral("#000000"));
}

void tst_horizontalslider::showsChangesAtTheNextPaint()
{
    const SkinFolder first;
    SkinFolder second;
    second.write("handle.svg", "<rect width='14' height='14' fill='#00ff00'/>", 14, 14);
    HorizontalSlider slider;
    SliderPicture picture = pictureOf(slider);
    for (const QString &path : {first.path(), second.path(), first.path()}) {
        slider.setSkinPath(path);
        QCOMPARE(slider.getSkinPath(), path);
        picture.skin = path;
        slider.setValue(70);
        picture.value = 70;
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
        picture.valueColor = QColor(picture.valueColor.red() / 2, 80, 90);
        slider.setValueColor(picture.valueColor);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
        picture.grooveHeight -= 2;
        slider.setGrooveHeight(picture.grooveHeight);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
        picture.handleSize += QSize(1, -1);
        slider.setHandleSize(picture.handleSize);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
    }
}

void tst_horizontalslider::missingOrBrokenPiecesPaintNothing_data()
{
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<bool>("exists");
    for (const char *piece : {"groove.svg", "handle.svg", "zero.svg"}) {
        QTest::addRow("%s missing", piece) << QByteArray(piece) << QByteArray() << false;
        QTest::addRow("%s empty", piece) << QByteArray(piece) << QByteArray() << true;
        QTest::addRow("%s cut off", piece) << QByteArray(piece) << QByteArray("<svg><rect") << true;
        QTest::addRow("%s text", piece) << QByteArray(piece) << QByteArray("no picture") << true;
        QTest::addRow("%s other root", piece)
            << QByteArray(piece) << QByteArray("<rect width='9' height='9'/>") << true;
        QTest::addRow("%s binary", piece) << QByteArray(piece) << QByteArray("\0\xff\x89PNG\0", 7) << true;
        QTest::addRow("%s nothing drawn", piece)
            << QByteArray(piece) << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>") << true;
    }
}

void tst_horizontalslider::missingOrBrokenPiecesPaintNothing()
{
    QFETCH(QByteArray, piece);
    QFETCH(QByteArray, contents);
    QFETCH(bool, exists);
    SkinFolder skin;
    SkinFolder expectedSkin;
    expectedSkin.remove(piece.constData());
    if (exists)
        skin.writeRaw(piece.constData(), contents);
    else
        skin.remove(piece.constData());

    HorizontalSlider slider(nullptr, false, true);
    slider.setSkinPath(skin.path());
    slider.setValue(30);
    SliderPicture picture = pictureOf(slider);
    picture.zeroFlag = true;
    picture.value = 30;
    picture.skin = expectedSkin.path();
    const LogCapture log;
    for (int paint = 0; paint < 3; ++paint)
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
    QCOMPARE(log.texts(), QStringList());
}

// No measure crashes or takes the machine's memory; what is too small or too far away is not there, and the rest
// is what it would be without it.
void tst_horizontalslider::absurdMeasures_data()
{
    QTest::addColumn<int>("side");
    constexpr int kHighest = std::numeric_limits<int>::max();
    constexpr int kLowest = std::numeric_limits<int>::min();
    for (const int side : {0, -1, -300, kLowest, kHighest})
        QTest::addRow("%d", side) << side;
}

void tst_horizontalslider::absurdMeasures()
{
    QFETCH(int, side);
    const SkinFolder skin;
    SkinFolder bareSkin; // of which the groove is left
    bareSkin.remove("zero.svg");
    bareSkin.remove("handle.svg");
    const LogCapture log;
    HorizontalSlider slider(nullptr, true, true, side, QSize(side, side));
    slider.setFixedHeight(30);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    picture.zeroFlag = true;
    const auto paints = [&](const QString &path) {
        slider.setSkinPath(skin.path());
        picture.skin = path;
        return differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent) == 0;
    };
    SkinFolder withoutMark;
    withoutMark.remove("zero.svg");
    QVERIFY(paints(withoutMark.path()));
    slider.setValue(70);
    picture.value = 70;
    QVERIFY(paints(withoutMark.path()));

    slider.setGrooveHeight(side);
    SkinFolder handleAlone;
    handleAlone.remove("zero.svg");
    handleAlone.remove("groove.svg");
    QVERIFY(paints(handleAlone.path()));
    slider.setGrooveHeight(10);

    slider.setHandleSize(QSize(14, side));
    const QImage withoutHandle = painted(&slider);
    slider.setSkinPath(bareSkin.path());
    QCOMPARE(painted(&slider), withoutHandle);
    slider.setHandleSize(QSize(side, side));
    painted(&slider);
    click(&slider, QPoint(60, -5));
    painted(&slider);
    QCOMPARE(log.texts(), QStringList());
}

void tst_horizontalslider::behaves_data()
{
    Checks::addRows<Probe>();
}

void tst_horizontalslider::behaves()
{
    Probe slider;
    Checks::runRow(&slider, kMeasures);
}

void tst_horizontalslider::beforeTheFirstPaint()
{
    HorizontalSlider slider;
    Checks::checkBeforeTheFirstPaint(&slider);
}

// A subclass may drive the slider itself; nothing is reported as moved outside a drag.
void tst_horizontalslider::protectedSteps()
{
    Probe slider;
    Checks::prepare(&slider, kMeasures);
    Checks::Recorder<HorizontalSlider> recorder(&slider);
    slider.updateState(QPoint(30, 0));
    QCOMPARE(recorder.taken(), QStringLiteral("changed 30"));
    slider.updateValue();
    QCOMPARE(recorder.taken(), QString());
    slider.setRange(0, 96);
    slider.updateValue();
    QCOMPARE(recorder.taken(), QString());
    painted(&slider);
    QCOMPARE(slider.value(), 30);
}

void tst_horizontalslider::destroyedInSlots()
{
    Checks::checkDestroyedInSlots<HorizontalSlider>([] { return new HorizontalSlider; }, kMeasures);
}

void tst_horizontalslider::lostPresses_data()
{
    LostPresses::addRows();
}

void tst_horizontalslider::lostPresses()
{
    QFETCH(Loss, loss);
    QWidget window;
    Probe slider(&window);
    Checks::checkLostPress(&slider, kMeasures, loss);
}

void tst_horizontalslider::lostToADialogInASlot()
{
    QWidget window;
    Probe slider(&window);
    Checks::checkDialogInASlot(&slider, kMeasures);
}

void tst_horizontalslider::destroyedByALoss()
{
    QWidget window;
    Checks::checkDestroyedByALoss(new Probe(&window), kMeasures);
}

void tst_horizontalslider::skinIsWhatLiesThereNow()
{
    Checks::checkSkinIsWhatLiesThereNow<HorizontalSlider>([] { return new HorizontalSlider; });
}

ORV_TEST_MAIN(tst_horizontalslider)

#include "tst_horizontalslider.moc"
