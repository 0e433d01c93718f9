#include "horizontalsliderchecks.h"
#include "logcapture.h"
#include "newhorizontalslider.h"
#include "pictures.h"
#include "testmain.h"

using namespace SliderTesting;
namespace Checks = HorizontalSliderChecks;

namespace {

constexpr QSize kSize(142, 10);
constexpr QSize kHandleSize(10, 10);
constexpr Checks::Measures kMeasures{5, 132, 5};

const QColor kGrounds[] = {Qt::transparent, QColor(250, 245, 240), QColor(30, 60, 90, 128)};

// The slider that most tests use.
class Slider : public Checks::Probe<NewHorizontalSlider>
{
public:
    explicit Slider(bool bidirectional = false, QWidget *parent = nullptr)
        : Checks::Probe<NewHorizontalSlider>(kSize, kHandleSize, bidirectional, parent)
    {
    }
};

SliderPicture pictureOf(const NewHorizontalSlider &slider)
{
    SliderPicture picture;
    picture.skin = slider.getSkinPath();
    picture.size = kSize;
    picture.handleSize = kHandleSize;
    picture.valueColor = QColor(QStringLiteral("#4B66EB"));
    return picture;
}

QImage plain(const NewHorizontalSlider &slider, const SliderPicture &picture,
             const QColor &ground = Qt::transparent)
{
    QImage image = canvas(slider, ground);
    QPainter painter(&image);
    picture.paintNew(&painter);
    return image;
}

} // namespace

class tst_newhorizontalslider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsDocumented();

    void paintsLikeThePlainRecipe_data();
    void paintsLikeThePlainRecipe();
    void paintsEveryValueLikeThePlainRecipe();
    void paintsTheSameInItsWindow();
    void paintsEmbeddedSkin();
    void colorEndsBeforeTheHandleOnThePositiveSideOnly();
    void grooveHeightIsNotUsed();
    void showsChangesAtTheNextPaint();
    void missingOrBrokenPiecesPaintNothing_data();
    void missingOrBrokenPiecesPaintNothing();
    void absurdMeasures();

    void disabledLeavesTheMouseToItsBase();
    void disabledInTheMiddleOfADrag();
    void pressAfterAnIgnoredReleaseGoesOnWithTheDrag();
    void setSliderEnabledPaints();

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

void tst_newhorizontalslider::startsAsDocumented()
{
    QWidget parent;
    const NewHorizontalSlider slider(QSize(300, 20), QSize(20, 20), false, &parent);
    QCOMPARE(slider.parentWidget(), &parent);
    QCOMPARE(slider.minimumSize(), QSize(300, 20));
    QCOMPARE(slider.maximumSize(), QSize(300, 20));
    QVERIFY(slider.testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(slider.windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(!slider.isWindow());
    QCOMPARE(slider.cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(slider.contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(slider.value(), 0);
    QCOMPARE(slider.getSkinPath(), QStringLiteral(":/images/images/hslider2/"));
}

void tst_newhorizontalslider::paintsLikeThePlainRecipe_data()
{
    QTest::addColumn<bool>("bidirectional");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("handleSize");

    const QPair<int, int> ranges[] = {{0, 100},  {-50, 50}, {-7, 30}, {3, 10},
                                      {0, 1000}, {0, 1},    {-9, 0},  {9, -9}};
    for (const bool bidirectional : {false, true}) {
        for (const bool enabled : {false, true}) {
            for (const QPair<int, int> &range : ranges) {
                QTest::addRow("%d %d %d..%d", bidirectional, enabled, range.first, range.second)
                    << bidirectional << enabled << range.first << range.second << kSize << kHandleSize;
            }
            QTest::addRow("%d %d odd handle", bidirectional, enabled)
                << bidirectional << enabled << 0 << 100 << kSize << QSize(13, 11);
            QTest::addRow("%d %d odd size", bidirectional, enabled)
                << bidirectional << enabled << 0 << 100 << QSize(333, 17) << QSize(15, 15);
            QTest::addRow("%d %d small", bidirectional, enabled)
                << bidirectional << enabled << 0 << 100 << QSize(12, 12) << QSize(20, 20);
        }
    }
}

void tst_newhorizontalslider::paintsLikeThePlainRecipe()
{
    QFETCH(bool, bidirectional);
    QFETCH(bool, enabled);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(QSize, size);
    QFETCH(QSize, handleSize);
    const SkinFolder skin;
    NewHorizontalSlider slider(size, handleSize, bidirectional, nullptr);
    slider.setSkinPath(skin.path());
    slider.setRange(minimum, maximum);
    slider.setSliderEnabled(enabled);

    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = bidirectional;
    picture.sliderEnabled = enabled;
    picture.minimum = minimum;
    picture.maximum = maximum;
    picture.size = size;
    picture.handleSize = handleSize;
    for (int eighth = -1; eighth <= 9; ++eighth) {
        picture.value = minimum + (maximum - minimum) * eighth / 8;
        slider.setValue(picture.value);
        for (const QColor &ground : kGrounds)
            QCOMPARE(
                differingPixels(painted(&slider, ground), plain(slider, picture, ground), kOfTranslucent), 0);
    }
}

// The whole range forwards and backwards, so that pictures that were kept are drawn as well as new ones.
void tst_newhorizontalslider::paintsEveryValueLikeThePlainRecipe()
{
    Slider slider(true);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    for (int step = 0; step <= 200; ++step) {
        picture.value = step <= 100 ? step : 200 - step;
        picture.sliderEnabled = step % 5 != 0;
        picture.valueColor = QColor::fromHsv(step % 7 * 50, 200, 200, step % 2 == 0 ? 255 : 100);
        slider.setValue(picture.value);
        slider.setSliderEnabled(picture.sliderEnabled);
        slider.setValueColor(picture.valueColor);
        QCOMPARE(differingPixels(painted(&slider, Qt::white), plain(slider, picture, Qt::white), kOfOpaque),
                 0);
    }
}

// Through the window's own store, at an odd place; over and over, since what is kept is made at the second
// paint.
void tst_newhorizontalslider::paintsTheSameInItsWindow()
{
    QWidget window;
    window.resize(250, 50);
    NewHorizontalSlider slider(kSize, kHandleSize, true, &window);
    slider.move(13, 7);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = true;
    for (int paint = 0; paint < 30; ++paint) {
        picture.value = paint % 10 * 11;
        slider.setValue(picture.value);
        QImage expected = canvas(window, window.palette().color(QPalette::Window));
        QPainter painter(&expected);
        painter.setClipRect(slider.geometry());
        painter.translate(slider.pos());
        picture.paintNew(&painter);
        painter.end();
        QCOMPARE(
            differingPixels(window.grab().toImage().convertToFormat(expected.format()), expected, kOfOpaque),
            0);
    }
}

// Against the colours that the design names.
void tst_newhorizontalslider::paintsEmbeddedSkin()
{
    Slider slider;
    slider.setValue(50);
    const qreal ratio = slider.devicePixelRatioF();
    const auto colorAt = [&](double x, double y) {
        return painted(&slider, Qt::black).pixelColor(int(x * ratio), int(y * ratio)).name();
    };
    QCOMPARE(colorAt(30, 5), QStringLiteral("#4b66eb"));
    QCOMPARE(colorAt(110, 5), QStringLiteral("#ebebeb"));
    QCOMPARE(colorAt(71, 5), QStringLiteral("#ffffff"));
    QCOMPARE(colorAt(30, 1), QStringLiteral("#000000"));
    slider.setSliderEnabled(false);
    QCOMPARE(colorAt(30, 5), QStringLiteral("#cccccc"));
    QCOMPARE(colorAt(110, 5), QStringLiteral("#ebebeb"));
}

// The handle is made invisible to see how far the colour reaches.
void tst_newhorizontalslider::colorEndsBeforeTheHandleOnThePositiveSideOnly()
{
    SkinFolder skin;
    skin.remove("handle.svg");
    Slider slider(true);
    slider.setSkinPath(skin.path());
    slider.setRange(-66, 66);
    slider.setValueColor(Qt::red);
    const auto redColumns = [&] {
        QImage image(kSize, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        slider.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        QPair<int, int> columns(-1, -1);
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, 5) != Qt::red)
                continue;
            columns = {columns.first < 0 ? x : columns.first, x};
        }
        return columns;
    };
    slider.setValue(30);
    QCOMPARE(redColumns(), qMakePair(5 + 66, 5 + 66 + 30 - 5 - 1));
    slider.setValue(-30);
    QCOMPARE(redColumns(), qMakePair(5 + 66 - 30, 5 + 66 - 1));
}

void tst_newhorizontalslider::grooveHeightIsNotUsed()
{
    Slider slider;
    const QImage before = painted(&slider);
    slider.setGrooveHeight(3);
    QCOMPARE(painted(&slider), before);
}

void tst_newhorizontalslider::showsChangesAtTheNextPaint()
{
    const SkinFolder first;
    SkinFolder second;
    second.write("handle.svg", "<rect width='14' height='14' fill='#00ff00'/>", 14, 14);
    Slider slider;
    SliderPicture picture = pictureOf(slider);
    slider.setValue(70);
    picture.value = 70;
    for (const QString &path : {first.path(), second.path(), first.path()}) {
        slider.setSkinPath(path);
        QCOMPARE(slider.getSkinPath(), path);
        picture.skin = path;
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
        picture.valueColor = QColor(picture.valueColor.red() / 2, 80, 90);
        slider.setValueColor(picture.valueColor);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
        picture.handleSize += QSize(1, -1);
        slider.setHandleSize(picture.handleSize);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
    }
}

void tst_newhorizontalslider::missingOrBrokenPiecesPaintNothing_data()
{
    QTest::addColumn<bool>("bidirectional");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QByteArray>("piece");
    QTest::newRow("groove") << false << true << QByteArray("groove.svg");
    QTest::newRow("disabled groove") << false << false << QByteArray("groove_disabled.svg");
    QTest::newRow("bidirectional groove") << true << true << QByteArray("groove_bidirection.svg");
    QTest::newRow("disabled bidirectional groove")
        << true << false << QByteArray("groove_bidirection_disabled.svg");
    QTest::newRow("handle") << false << true << QByteArray("handle.svg");
    QTest::newRow("disabled handle") << false << false << QByteArray("handle_disabled.svg");
}

void tst_newhorizontalslider::missingOrBrokenPiecesPaintNothing()
{
    QFETCH(bool, bidirectional);
    QFETCH(bool, enabled);
    QFETCH(QByteArray, piece);
    SkinFolder broken;
    broken.writeRaw(piece.constData(), "<svg><rect");
    SkinFolder incomplete;
    incomplete.remove(piece.constData());

    Slider slider(bidirectional);
    slider.setSliderEnabled(enabled);
    SliderPicture picture = pictureOf(slider);
    picture.bidirectional = bidirectional;
    picture.sliderEnabled = enabled;
    picture.skin = incomplete.path();
    const LogCapture log;
    for (const QString &path : {broken.path(), incomplete.path(), broken.path()}) {
        slider.setSkinPath(path);
        QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
    }
    QCOMPARE(log.texts(), QStringList());
    // A piece that comes later is noticed.
    incomplete.write(piece.constData(), "<rect width='8' height='8' fill='#123456'/>", 8, 8);
    slider.setSkinPath(incomplete.path());
    QCOMPARE(differingPixels(painted(&slider), plain(slider, picture), kOfTranslucent), 0);
}

// No measure crashes or takes the machine's memory; what is too small or too far away is not there.
void tst_newhorizontalslider::absurdMeasures()
{
    constexpr int kHighest = std::numeric_limits<int>::max();
    constexpr int kLowest = std::numeric_limits<int>::min();
    for (const int side : {0, -1, -300, kHighest, kLowest}) {
        const LogCapture log; // QWidget itself complains of a fixed size that it cannot take
        NewHorizontalSlider slider(QSize(side, side), QSize(side, side), true, nullptr);
        slider.setFixedSize(60, 30);
        QCOMPARE(painted(&slider), canvas(slider, Qt::transparent));
        slider.setValue(70);
        QCOMPARE(painted(&slider), canvas(slider, Qt::transparent));
        slider.setHandleSize(QSize(4, side));
        QCOMPARE(painted(&slider), canvas(slider, Qt::transparent));
        click(&slider, QPoint(60, -5));
        QVERIFY(slider.value() >= 0 && slider.value() <= 100);
        painted(&slider);
        const QStringList lines = log.texts();
        for (const QString &line : lines)
            QVERIFY2(line.startsWith(QLatin1String("QWidget::set")), qPrintable(line));
    }
}

// The parent takes what the slider leaves.
void tst_newhorizontalslider::disabledLeavesTheMouseToItsBase()
{
    Slider slider;
    Checks::prepare(&slider, kMeasures);
    Checks::Recorder<NewHorizontalSlider> recorder(&slider);
    slider.setSliderEnabled(false);
    QVERIFY(!press(&slider, kMeasures.at(0)));
    QVERIFY(!move(&slider, kMeasures.at(30)));
    QVERIFY(!release(&slider, kMeasures.at(30)));
    QVERIFY(!press(&slider, kMeasures.at(60)));
    QVERIFY(!release(&slider, kMeasures.at(60)));
    QCOMPARE(recorder.taken(), QString());
    slider.setValue(12);
    QCOMPARE(recorder.taken(), QStringLiteral("changed 12"));
    slider.setSliderEnabled(true);
    release(&slider, kMeasures.at(60));
    QCOMPARE(recorder.taken(), QString());
    click(&slider, kMeasures.at(60));
    QCOMPARE(recorder.taken(), QStringLiteral("changed 60"));
}

// Moves are still followed; the release is not, so that the drag goes on when the slider is enabled again.
void tst_newhorizontalslider::disabledInTheMiddleOfADrag()
{
    Slider slider;
    Checks::prepare(&slider, kMeasures);
    Checks::Recorder<NewHorizontalSlider> recorder(&slider);
    press(&slider, kMeasures.at(0));
    move(&slider, kMeasures.at(30));
    slider.setSliderEnabled(false);
    recorder.taken();
    move(&slider, kMeasures.at(40));
    QCOMPARE(recorder.taken(), QStringLiteral("moving 1, changed 40, moved 40"));
    release(&slider, kMeasures.at(50));
    QCOMPARE(recorder.taken(), QString());
    slider.setSliderEnabled(true);
    release(&slider, kMeasures.at(50));
    QCOMPARE(recorder.taken(), QStringLiteral("changed 50, moved 50, moving 0"));
}

void tst_newhorizontalslider::pressAfterAnIgnoredReleaseGoesOnWithTheDrag()
{
    Slider slider;
    Checks::prepare(&slider, kMeasures);
    Checks::Recorder<NewHorizontalSlider> recorder(&slider);
    press(&slider, kMeasures.at(0));
    slider.setSliderEnabled(false);
    release(&slider, kMeasures.at(0));
    slider.setSliderEnabled(true);
    press(&slider, kMeasures.at(60)); // on the groove
    move(&slider, kMeasures.at(70));
    QCOMPARE(recorder.taken(), QStringLiteral("moving 1, changed 10, moved 10"));
}

void tst_newhorizontalslider::setSliderEnabledPaints()
{
    Slider slider;
    QVERIFY(showPainted(&slider));
    QVERIFY(paintsAfter(&slider, [&] { slider.setSliderEnabled(false); }));
}

void tst_newhorizontalslider::behaves_data()
{
    Checks::addRows<Slider>();
}

void tst_newhorizontalslider::behaves()
{
    Slider slider;
    Checks::runRow(&slider, kMeasures);
}

void tst_newhorizontalslider::beforeTheFirstPaint()
{
    Slider slider;
    Checks::checkBeforeTheFirstPaint(&slider);
}

// A subclass may drive the slider itself; nothing is reported as moved outside a drag.
void tst_newhorizontalslider::protectedSteps()
{
    Slider slider;
    Checks::prepare(&slider, kMeasures);
    Checks::Recorder<NewHorizontalSlider> recorder(&slider);
    slider.updateState(QPoint(33, 0));
    QCOMPARE(recorder.taken(), QStringLiteral("changed 33"));
    slider.updateValue();
    QCOMPARE(recorder.taken(), QString());
    painted(&slider);
    QCOMPARE(slider.value(), 33);
}

void tst_newhorizontalslider::destroyedInSlots()
{
    Checks::checkDestroyedInSlots<NewHorizontalSlider>([] { return new Slider; }, kMeasures);
}

void tst_newhorizontalslider::lostPresses_data()
{
    LostPresses::addRows();
}

void tst_newhorizontalslider::lostPresses()
{
    QFETCH(Loss, loss);
    QWidget window;
    Slider slider(false, &window);
    Checks::checkLostPress(&slider, kMeasures, loss);
}

void tst_newhorizontalslider::lostToADialogInASlot()
{
    QWidget window;
    Slider slider(false, &window);
    Checks::checkDialogInASlot(&slider, kMeasures);
}

void tst_newhorizontalslider::destroyedByALoss()
{
    QWidget window;
    Checks::checkDestroyedByALoss(new Slider(false, &window), kMeasures);
}

void tst_newhorizontalslider::skinIsWhatLiesThereNow()
{
    Checks::checkSkinIsWhatLiesThereNow<NewHorizontalSlider>([] { return new Slider; });
}

ORV_TEST_MAIN(tst_newhorizontalslider)

#include "tst_newhorizontalslider.moc"
