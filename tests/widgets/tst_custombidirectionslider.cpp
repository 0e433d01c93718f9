#include "custombidirectionslider.h"
#include "logcapture.h"
#include "pictures.h"
#include "slidertesting.h"
#include "testmain.h"

#include <QtTest/QTest>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <cmath>
#include <limits>

using namespace SliderTesting;

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
const char kHandleImage[] = "Could not create pixmap from :/resources/channels/slider_handle.png";

// What a stock slider with that style sheet paints, and the lines on top of it, step by step.
QImage plain(const CustomBidirectionSlider &slider, int lineWidth, int handleWidth, const QColor &lineColor)
{
    QSlider stock;
    stock.setOrientation(Qt::Horizontal);
    stock.setStyleSheet(slider.styleSheet());
    stock.setRange(slider.minimum(), slider.maximum());
    stock.setValue(slider.value());
    stock.setFixedSize(slider.size());
    QImage image = painted(&stock, Qt::white);

    const int minimum = slider.minimum();
    const int maximum = slider.maximum();
    const int value = slider.value();
    const int w = slider.width();
    const int h = slider.height();
    const int mid = (maximum + minimum) / 2;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(QStringLiteral("#E0E0E0")));
    const int centerX = int(double(mid - minimum) / (maximum - minimum) * w);
    painter.drawLine(centerX, h - 4, centerX, h);
    if (value == mid)
        return image;
    painter.setPen(QPen(lineColor, lineWidth));
    painter.setBrush(QBrush(lineColor, Qt::SolidPattern));
    const float k = float(handleWidth) / 2 / float(maximum - mid);
    const int sign = value >= mid ? 1 : -1;
    const int half = (sign * handleWidth) / 2;
    const float offset = float(value - mid) * k + float(half);
    const int valueX = int(double(value - minimum) / (maximum - minimum) * w - double(offset));
    if (valueX == centerX || (value > mid && valueX < centerX) || (value < mid && valueX > centerX))
        return image;
    painter.drawLine(valueX, h / 2, centerX, h / 2);
    return image;
}

// Only an event that comes from outside goes on to the parent when it is ignored.
void turnWheel(QWidget *widget, int delta)
{
    const QPoint center = widget->rect().center();
    QWheelEvent event(center, widget->mapToGlobal(center), QPoint(), QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

} // namespace

class tst_custombidirectionslider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsDocumented();
    void hasRoomForItsHandle();
    void paintsLikeThePlainRecipe_data();
    void paintsLikeThePlainRecipe();
    void centreHasTheTickAlone();
    void lineRunsFromTheCentreToTheHandle();
    void lineThatWouldRunAwayIsNone();
    void absurdMeasures();
    void lineThatEndsFarOutsideIsCutOff_data();
    void lineThatEndsFarOutsideIsCutOff();
    void wheelIsLeftToTheParent();
};

void tst_custombidirectionslider::startsAsDocumented()
{
    QWidget parent;
    const CustomBidirectionSlider slider(4, 24, Qt::red, &parent);
    QCOMPARE(slider.parentWidget(), &parent);
    QCOMPARE(slider.orientation(), Qt::Horizontal);
    const QStringList rules = slider.styleSheet().split(QLatin1Char('}'), Qt::SkipEmptyParts);
    const auto declarations = [&](int rule) {
        QStringList list =
            rules.at(rule).section(QLatin1Char('{'), 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString &declaration : list)
            declaration = declaration.trimmed();
        return list.join(QLatin1Char('|'));
    };
    QCOMPARE(rules.size(), 2);
    QCOMPARE(rules.at(0).section(QLatin1Char('{'), 0, 0).trimmed(),
             QStringLiteral("QSlider::groove:horizontal"));
    QCOMPARE(declarations(0),
             QStringLiteral("height: 6px|left: 0px|right: 0px|border: 0px|border-radius: 3px|"
                            "background: #ebebeb"));
    QCOMPARE(rules.at(1).section(QLatin1Char('{'), 0, 0).trimmed(),
             QStringLiteral("QSlider::handle:horizontal"));
    QCOMPARE(declarations(1),
             QStringLiteral("width: 24px|height: 24px|margin-top: -9px|margin-left: -4px|margin-bottom: -9px|"
                            "margin-right: -4px|border-image: url(:/resources/channels/slider_handle.png)"));
}

void tst_custombidirectionslider::hasRoomForItsHandle()
{
    const ExpectedWarnings warnings(kHandleImage);
    QWidget window;
    QVBoxLayout layout(&window);
    CustomBidirectionSlider slider(6, 24, QColor(Qt::blue), &window);
    layout.addWidget(&slider);
    QSlider stock;
    stock.setOrientation(Qt::Horizontal);
    stock.setStyleSheet(slider.styleSheet());
    QVERIFY(stock.sizeHint().height() < 24);
    QCOMPARE(slider.sizeHint(), QSize(stock.sizeHint().width(), 24));
    QCOMPARE(slider.minimumSizeHint(), QSize(stock.minimumSizeHint().width(), 24));
    window.resize(200, 10);
    window.show();
    QCOMPARE(slider.height(), 24);
}

void tst_custombidirectionslider::paintsLikeThePlainRecipe_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("lineWidth");
    QTest::addColumn<int>("handleWidth");
    QTest::addColumn<QSize>("size");
    QTest::newRow("hundred") << 0 << 100 << 6 << 24 << QSize(200, 24);
    QTest::newRow("both signs") << -50 << 50 << 6 << 24 << QSize(200, 24);
    QTest::newRow("odd range") << -3 << 4 << 6 << 24 << QSize(200, 24);
    QTest::newRow("negative") << -101 << -10 << 2 << 24 << QSize(301, 30);
    QTest::newRow("odd measures") << 0 << 7 << 3 << 23 << QSize(173, 27);
    QTest::newRow("as wide as its range") << 0 << 101 << 1 << 1 << QSize(101, 24);
    QTest::newRow("hairline") << 0 << 100 << 0 << 24 << QSize(200, 24);
    QTest::newRow("no handle") << 0 << 100 << 6 << 0 << QSize(200, 24);
    QTest::newRow("wide handle") << 0 << 100 << 6 << 300 << QSize(200, 24);
    QTest::newRow("negative handle") << 0 << 100 << 6 << -24 << QSize(200, 24);
    QTest::newRow("two values") << 0 << 1 << 6 << 24 << QSize(200, 24);
    QTest::newRow("thousands") << 0 << 30000 << 6 << 24 << QSize(1000, 24);
}

void tst_custombidirectionslider::paintsLikeThePlainRecipe()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, lineWidth);
    QFETCH(int, handleWidth);
    QFETCH(QSize, size);
    const LogCapture log;
    CustomBidirectionSlider slider(lineWidth, handleWidth, QColor(20, 40, 200, 150), nullptr);
    slider.setRange(minimum, maximum);
    slider.setFixedSize(size);
    const int steps = qMin(maximum - minimum, 25);
    for (int step = 0; step <= steps; ++step) {
        slider.setValue(minimum + int(qint64(maximum - minimum) * step / steps));
        const QImage expected = plain(slider, lineWidth, handleWidth, QColor(20, 40, 200, 150));
        QCOMPARE(differingPixels(painted(&slider, Qt::white), expected), 0);
    }
    const QStringList texts = log.texts();
    for (const QString &text : texts)
        QCOMPARE(text, QString::fromLatin1(kHandleImage));
}

void tst_custombidirectionslider::centreHasTheTickAlone()
{
    const LogCapture log;
    CustomBidirectionSlider slider(6, 24, Qt::red, nullptr);
    slider.setRange(-50, 50);
    slider.setFixedSize(200, 40);
    const auto has = [&](const QColor &color) {
        const QImage image = painted(&slider, Qt::white);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color)
                    return true;
            }
        }
        return false;
    };
    slider.setValue(0);
    QVERIFY(!has(Qt::red));
    const QImage image = painted(&slider, Qt::white);
    const qreal ratio = slider.devicePixelRatioF();
    QVERIFY(image.pixelColor(int(100 * ratio), int(38 * ratio)) != QColor(Qt::white));
    QCOMPARE(image.pixelColor(int(100 * ratio), int(34 * ratio)), QColor(Qt::white));
    slider.setValue(25);
    QVERIFY(has(Qt::red));
}

// 200 pixels for 100 values, a handle of 24: the right end stands at 200 - 24.
void tst_custombidirectionslider::lineRunsFromTheCentreToTheHandle()
{
    const LogCapture log;
    CustomBidirectionSlider slider(6, 24, Qt::red, nullptr);
    slider.setRange(-50, 50);
    slider.setFixedSize(200, 40);
    const auto isRedAt = [&](int x) {
        QImage image(slider.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        slider.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image.pixelColor(x, 20) == QColor(Qt::red);
    };
    slider.setValue(50);
    QVERIFY(isRedAt(102));
    QVERIFY(isRedAt(174));
    QVERIFY(!isRedAt(181));
    QVERIFY(!isRedAt(94));
    slider.setValue(-50);
    QVERIFY(isRedAt(98));
    QVERIFY(isRedAt(26));
    QVERIFY(!isRedAt(19));
    QVERIFY(!isRedAt(106));
}

// One value beside the centre the handle covers more than the line is long.
void tst_custombidirectionslider::lineThatWouldRunAwayIsNone()
{
    const LogCapture log;
    CustomBidirectionSlider slider(6, 24, Qt::red, nullptr);
    slider.setRange(-50, 50);
    slider.setFixedSize(200, 40);
    CustomBidirectionSlider unseen(6, 24, Qt::transparent, nullptr);
    unseen.setRange(-50, 50);
    unseen.setFixedSize(200, 40);
    for (const int value : {-3, -1, 1, 3}) {
        slider.setValue(value);
        unseen.setValue(value);
        QCOMPARE(painted(&slider, Qt::white), painted(&unseen, Qt::white));
    }
    slider.setValue(40);
    unseen.setValue(40);
    QVERIFY(painted(&slider, Qt::white) != painted(&unseen, Qt::white));
}

// Ranges without an upper half, without any width at all, and as wide as QSlider itself can paint.
void tst_custombidirectionslider::absurdMeasures()
{
    const LogCapture log;
    const QPair<int, int> ranges[] = {{0, 0},
                                      {5, 5},
                                      {-1, 0},
                                      {-7, -6},
                                      {kLowest, kLowest},
                                      {kLowest, -1},
                                      {0, kHighest},
                                      {kHighest, kHighest}};
    for (const int measure : {0, 6, -5, 40000, kLowest, kHighest}) {
        for (const QPair<int, int> &range : ranges) {
            CustomBidirectionSlider slider(measure, measure, Qt::red, nullptr);
            slider.setRange(range.first, range.second);
            slider.setFixedSize(200, 40);
            for (const int value :
                 {range.first, range.second, int((qint64(range.first) + range.second) / 2)}) {
                slider.setValue(value);
                painted(&slider);
            }
        }
    }
    const QStringList texts = log.texts();
    for (const QString &text : texts)
        QCOMPARE(text, QString::fromLatin1(kHandleImage));
}

void tst_custombidirectionslider::lineThatEndsFarOutsideIsCutOff_data()
{
    QTest::addColumn<int>("handleWidth");
    QTest::newRow("a little") << -1000;
    QTest::newRow("more than a pen is wide") << -100000;
    QTest::newRow("more than a painter counts") << -100000000;
    QTest::newRow("all that there is") << kLowest;
}

void tst_custombidirectionslider::lineThatEndsFarOutsideIsCutOff()
{
    QFETCH(int, handleWidth);
    const LogCapture log;
    for (const int lineWidth : {5, 6}) {
        CustomBidirectionSlider slider(lineWidth, handleWidth, Qt::red, nullptr);
        CustomBidirectionSlider justOutside(lineWidth, -500, Qt::red, nullptr);
        for (const int value : {0, 100}) {
            for (CustomBidirectionSlider *one : {&slider, &justOutside}) {
                one->setRange(0, 100);
                one->setFixedSize(200, 40);
                one->setValue(value);
            }
            QCOMPARE(differingPixels(painted(&slider), painted(&justOutside)), 0);
        }
    }
    const QStringList texts = log.texts();
    for (const QString &text : texts)
        QCOMPARE(text, QString::fromLatin1(kHandleImage));
}

void tst_custombidirectionslider::wheelIsLeftToTheParent()
{
    const LogCapture log;
    QScrollArea area;
    auto *contents = new QWidget;
    contents->setFixedSize(300, 3000);
    auto *slider = new CustomBidirectionSlider(6, 24, Qt::red, contents);
    slider->setFixedSize(200, 40);
    area.setWidget(contents);
    area.resize(320, 200);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));

    slider->setValue(50);
    turnWheel(slider, -120);
    QCOMPARE(slider->value(), 50);
    QVERIFY(area.verticalScrollBar()->value() > 0);

    slider->enableWheel(true);
    const int scrolled = area.verticalScrollBar()->value();
    turnWheel(slider, -120);
    QVERIFY(slider->value() < 50);
    QCOMPARE(area.verticalScrollBar()->value(), scrolled);

    slider->enableWheel(false);
    const int value = slider->value();
    turnWheel(slider, 120);
    QCOMPARE(slider->value(), value);
    QVERIFY(area.verticalScrollBar()->value() < scrolled);
}

ORV_TEST_MAIN(tst_custombidirectionslider)

#include "tst_custombidirectionslider.moc"
