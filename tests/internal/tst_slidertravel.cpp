#include "slidertesting.h"
#include "slidertravel.h"
#include "testmain.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr int kNothingFound = -987654;

int found(const SliderTravel &travel, double position)
{
    int value = kNothingFound;
    travel.valueAt(position, &value);
    return value;
}

int searched(const SliderTravel &travel, double position)
{
    int value = kNothingFound;
    SliderTesting::searchValue(position, travel.minimum, travel.maximum, int(travel.half), travel.step,
                               &value);
    return value;
}

SliderTravel travelOf(int minimum, int maximum, int half, double length)
{
    return {minimum, maximum, double(half), SliderTravel::stepFor(length, minimum, maximum)};
}

// Positions around an edge: itself, the next doubles on both sides, and the half way to the next edge.
QVector<double> around(const SliderTravel &travel, qint64 i)
{
    const double edge = travel.edge(i);
    const double middle = edge + (travel.edge(i + 1) - edge) / 2;
    constexpr double far = std::numeric_limits<double>::infinity();
    return {edge,   std::nextafter(edge, -far),   std::nextafter(edge, far),
            middle, std::nextafter(middle, -far), std::nextafter(middle, far)};
}

} // namespace

class tst_slidertravel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatTheLoopFinds_data();
    void findsWhatTheLoopFinds();
    void findsWhatTheLoopFindsInRandomTravels();
    void knowsTheWidestRange_data();
    void knowsTheWidestRange();
    void halfwayGoesUp();
    void outsideIsNothing();
    void emptyRangeHasNoStep();
};

void tst_slidertravel::findsWhatTheLoopFinds_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("half");
    QTest::addColumn<double>("length");

    QTest::newRow("ten") << 0 << 10 << 7 << 192.0;
    QTest::newRow("hundred") << 0 << 100 << 7 << 192.0;
    QTest::newRow("pixel by pixel") << 0 << 192 << 7 << 192.0;
    QTest::newRow("third of a pixel") << 0 << 576 << 7 << 192.0;
    QTest::newRow("tiny steps") << 0 << 20000 << 5 << 132.0;
    QTest::newRow("two values") << 0 << 1 << 5 << 132.0;
    QTest::newRow("negative") << -50 << -20 << 7 << 192.0;
    QTest::newRow("both signs") << -33 << 34 << 7 << 192.0;
    QTest::newRow("odd fractions") << 0 << 7 << 3 << 100.1;
    QTest::newRow("no travel") << 0 << 10 << 7 << 0.0;
    QTest::newRow("handle wider than the slider") << 0 << 10 << 7 << -20.0;
    QTest::newRow("edges that rounding makes equal") << 0 << 50 << 1000000000 << 1e-6;
    QTest::newRow("the same, backwards") << 0 << 50 << 1000000000 << -1e-6;
    QTest::newRow("empty") << 5 << 5 << 7 << 192.0;
    QTest::newRow("reversed") << 10 << 0 << 7 << 192.0;
    QTest::newRow("at the upper end of int") << kHighest - 300 << kHighest << 7 << 192.0;
    QTest::newRow("at the lower end of int") << kLowest << kLowest + 300 << 7 << 192.0;
}

void tst_slidertravel::findsWhatTheLoopFinds()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, half);
    QFETCH(double, length);
    const SliderTravel travel = travelOf(minimum, maximum, half, length);

    QVector<double> positions;
    for (int quarter = -40; quarter < 1000; ++quarter)
        positions << quarter / 4.0 << half + quarter / 4.0;
    const int edges = int(qBound(qint64(0), qint64(maximum) - minimum, qint64(300)));
    for (int i = -1; i <= edges; ++i)
        positions += around(travel, i);
    for (const double position : qAsConst(positions)) {
        if (found(travel, position) != searched(travel, position))
            QFAIL(qPrintable(QStringLiteral("at %1").arg(position, 0, 'g', 17)));
    }
}

void tst_slidertravel::findsWhatTheLoopFindsInRandomTravels()
{
    QRandomGenerator random(20240611);
    for (int round = 0; round < 3000; ++round) {
        const int minimum = random.bounded(-100000, 100000);
        const int maximum = minimum + random.bounded(-3, 500);
        const SliderTravel travel =
            travelOf(minimum, maximum, random.bounded(0, 60), random.bounded(1200.0) - 200.0);
        QVector<double> positions{random.bounded(1400.0) - 100.0, double(random.bounded(-100, 1300))};
        positions += around(travel, random.bounded(-2, 502));
        for (const double position : qAsConst(positions)) {
            if (found(travel, position) != searched(travel, position))
                QFAIL(qPrintable(QStringLiteral("round %1 at %2").arg(round).arg(position, 0, 'g', 17)));
        }
    }
}

void tst_slidertravel::knowsTheWidestRange_data()
{
    QTest::addColumn<double>("share");
    QTest::newRow("left") << 0.0;
    QTest::newRow("quarter") << 0.25;
    QTest::newRow("centre") << 0.5;
    QTest::newRow("right") << 1.0;
}

// Too wide for the loop: what it would find is checked by its own condition.
void tst_slidertravel::knowsTheWidestRange()
{
    QFETCH(double, share);
    const SliderTravel travel = travelOf(kLowest, kHighest, 7, 192);
    const double position = 7 + share * 192;
    const int value = found(travel, position);
    QVERIFY(std::abs(travel.position(value) - position) < 1e-6);
    QCOMPARE(travel.middle(), 0);
    QCOMPARE(found(travel, 7), kLowest + (travel.edge(1) - 7 <= 0 ? 1 : 0));
    QCOMPARE(found(travel, travel.edge(qint64(kHighest) - kLowest)), kHighest);
}

void tst_slidertravel::halfwayGoesUp()
{
    const SliderTravel travel = travelOf(0, 100, 7, 200);
    QCOMPARE(found(travel, 7 + 20), 10);
    QCOMPARE(found(travel, 7 + 21), 11);
    QCOMPARE(found(travel, 7 + 20.99), 10);
}

void tst_slidertravel::outsideIsNothing()
{
    const SliderTravel travel = travelOf(0, 100, 7, 200);
    QCOMPARE(found(travel, 6.999), kNothingFound);
    QCOMPARE(found(travel, 207.001), kNothingFound);
    QCOMPARE(found(travel, 7), 0);
    QCOMPARE(found(travel, 207), 100);
}

void tst_slidertravel::emptyRangeHasNoStep()
{
    const SliderTravel travel = travelOf(5, 5, 7, 192);
    QCOMPARE(travel.step, 0.0);
    QCOMPARE(travel.position(5), 7.0);
    QCOMPARE(travel.position(-1000), 7.0);
    QCOMPARE(travel.middle(), 5);
}

ORV_TEST_APPLESS_MAIN(tst_slidertravel)

#include "tst_slidertravel.moc"
