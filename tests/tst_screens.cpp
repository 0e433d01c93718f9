#include "orvcommonlib.h"

#include "fakescreens.h"
#include "testmain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <limits>

namespace {

constexpr int kLargest = std::numeric_limits<int>::max();
constexpr int kSmallest = std::numeric_limits<int>::min();

/// Far from the screens of any platform that the tests run on.
constexpr int kFar = 20000;

/// The names of the screens in the order that getScreen() counts, as many as the fake ones.
QStringList namesFrom(int first, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << totalcommon::getScreen(first + i)->name();
    return names;
}

} // namespace

class tst_screens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void countsFromLeftToRight_data();
    void countsFromLeftToRight();
    void negativeNumbers();
    void numbersPastTheEnd();
    void screensLeftOfTheFirst();
    void screenUnderAPoint();
    void centres_data();
    void centres();
    void centresOnAnyNumber();
    void doesNotCentre();
};

void tst_screens::countsFromLeftToRight_data()
{
    QTest::addColumn<QVector<QRect>>("geometries");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QVector<QPoint> &origins, const char *expected) {
        QVector<QRect> geometries;
        for (const QPoint &origin : origins)
            geometries << QRect(origin + QPoint(kFar, 0), QSize(100, 80));
        QTest::newRow(name) << geometries << QString::fromLatin1(expected).split(QLatin1Char(' '));
    };
    row("in order", {{0, 0}, {100, 0}, {200, 0}}, "0 1 2");
    row("from right to left", {{200, 0}, {100, 0}, {0, 0}}, "2 1 0");
    row("one above the other", {{0, 0}, {0, 80}, {0, -80}}, "2 0 1");
    row("left edge before top edge", {{10, -500}, {0, 500}, {10, -600}}, "1 2 0");
    row("two with one origin", {{0, 0}, {0, 0}}, "1 0");
    row("mirrored beside others", {{100, 0}, {0, 0}, {100, 0}, {50, 0}, {100, 0}}, "1 3 4 2 0");
    row("all with one origin",
        {{0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0},
         {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}},
        "19 18 17 16 15 14 13 12 11 10 9 8 7 6 5 4 3 2 1 0");
}

void tst_screens::countsFromLeftToRight()
{
    QFETCH(const QVector<QRect>, geometries);
    QFETCH(const QStringList, expected);
    const int own = QGuiApplication::screens().size();
    const FakeScreens screens(geometries);
    QCOMPARE(QGuiApplication::screens().size(), own + geometries.size());
    QCOMPARE(namesFrom(own, geometries.size()), expected);
}

void tst_screens::negativeNumbers()
{
    const FakeScreens screens({QRect(kFar, 0, 100, 80)});
    QCOMPARE(totalcommon::getScreen(-1), nullptr);
    QCOMPARE(totalcommon::getScreen(-2), nullptr);
    QCOMPARE(totalcommon::getScreen(kSmallest), nullptr);
}

void tst_screens::numbersPastTheEnd()
{
    QScreen *const own = totalcommon::getScreen(0);
    QVERIFY(own);
    QCOMPARE(totalcommon::getScreen(5)->name(), QGuiApplication::screens().constLast()->name());
    const FakeScreens screens({QRect(kFar, 0, 100, 80), QRect(kFar, 80, 100, 80)});
    QCOMPARE(totalcommon::getScreen(0), own);
    for (const int number : {50, 500, kLargest})
        QCOMPARE(totalcommon::getScreen(number)->name(), QStringLiteral("1"));
}

void tst_screens::screensLeftOfTheFirst()
{
    const FakeScreens screens(
        {QRect(-1000, 0, 1000, 800), QRect(-1000, -800, 1000, 800), QRect(-3000, 5, 100, 80)});
    QCOMPARE(namesFrom(0, 3), (QStringList{QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("0")}));
    QCOMPARE(totalcommon::getScreen(3)->geometry().topLeft(), QPoint(0, 0));
}

void tst_screens::screenUnderAPoint()
{
    const FakeScreens screens({QRect(kFar, 0, 100, 80), QRect(-kFar, -80, 100, 80)});
    bool found = false;
    QCOMPARE(totalcommon::getScreen(QPoint(kFar + 99, 79), &found)->name(), QStringLiteral("0"));
    QVERIFY(found);
    found = false;
    QCOMPARE(totalcommon::getScreen(QPoint(-kFar, -80), &found)->name(), QStringLiteral("1"));
    QVERIFY(found);
    for (const QPoint point : {QPoint(kFar + 100, 79), QPoint(kFar, 80), QPoint(kLargest, kLargest),
                               QPoint(kSmallest, kSmallest)}) {
        found = true;
        QCOMPARE(totalcommon::getScreen(point, &found), QGuiApplication::primaryScreen());
        QVERIFY(!found);
    }
    QCOMPARE(totalcommon::getScreen(QPoint(kFar, 0), nullptr)->name(), QStringLiteral("0"));
    QCOMPARE(totalcommon::getScreen(QPoint(kFar, 800), nullptr), QGuiApplication::primaryScreen());
}

void tst_screens::centres_data()
{
    QTest::addColumn<QRect>("available");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("even") << QRect(-4000, -2000, 1000, 800) << QSize(200, 100) << QPoint(-3600, -1650);
    // -3000.5 and -1600.5: towards zero, not down.
    QTest::newRow("odd, left of the first")
        << QRect(-4000, -2000, 2201, 901) << QSize(202, 102) << QPoint(-3000, -1600);
    // 0.5 and -0.5 become 0.
    QTest::newRow("around zero") << QRect(-500, -500, 1301, 1199) << QSize(300, 200) << QPoint(0, 0);
    QTest::newRow("odd size") << QRect(-4000, -2000, 1000, 800) << QSize(201, 101) << QPoint(-3600, -1650);
    QTest::newRow("larger than the screen")
        << QRect(-4000, -2000, 300, 200) << QSize(501, 403) << QPoint(-4100, -2101);
}

void tst_screens::centres()
{
    QFETCH(const QRect, available);
    QFETCH(const QSize, size);
    QFETCH(const QPoint, expected);
    FakeScreens screens;
    screens.add(QRect(-9000, -9000, 9000, 9000), available); // the first from the left
    QWidget widget;
    widget.resize(size);
    totalcommon::moveToScreenCenter(&widget, 0);
    QCOMPARE(widget.pos(), expected);
    QCOMPARE(widget.size(), size);
}

void tst_screens::centresOnAnyNumber()
{
    const FakeScreens screens({QRect(kFar, 0, 1000, 800), QRect(kFar, 800, 400, 300)});
    QWidget widget;
    widget.resize(100, 100);
    totalcommon::moveToScreenCenter(&widget, 100);
    QCOMPARE(widget.pos(), QPoint(kFar + 150, 900));
}

void tst_screens::doesNotCentre()
{
    totalcommon::moveToScreenCenter(nullptr, 0);
    QWidget window;
    window.setGeometry(7, 8, 100, 100);
    totalcommon::moveToScreenCenter(&window, -1);
    QCOMPARE(window.pos(), QPoint(7, 8));
    QWidget child(&window);
    child.setGeometry(3, 4, 10, 10);
    totalcommon::moveToScreenCenter(&child, 0);
    QCOMPARE(child.pos(), QPoint(3, 4));
    // A window of its own that has a parent is not centred either.
    QWidget dialog(&window, Qt::Dialog);
    dialog.setGeometry(5, 6, 50, 50);
    totalcommon::moveToScreenCenter(&dialog, 0);
    QCOMPARE(dialog.pos(), QPoint(5, 6));
}

ORV_TEST_MAIN(tst_screens)

#include "tst_screens.moc"
