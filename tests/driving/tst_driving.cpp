#include "insideloop.h"
#include "orvmaskctrl.h"
#include "scene.h"
#include "shrink.h"
#include "testmain.h"

#include <QtTest/QTest>

#include <algorithm>
#include <numeric>

using namespace Driving;

/// Everything that the library exports to be shown, driven at random. The seeds are fixed: tests/driving/drive tries
/// others, for as long as one likes.
class tst_Driving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void holdsWhateverHappens_data();
    void holdsWhateverHappens();
    void theSameStepsDoTheSame();
    void seesAMaskWithoutOwner();
    void seesALoopWithoutDialog();
    void seesAValueOutOfRange();
    void shrinksToTheShortest_data();
    void shrinksToTheShortest();

private:
    static QString playedBy(quint32 seed, const QVector<Step> &steps);
};

void tst_Driving::initTestCase()
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

/// What is broken in the end.
QString tst_Driving::playedBy(quint32 seed, const QVector<Step> &steps)
{
    Scene scene(allKinds(), seed);
    scene.play(steps);
    scene.end();
    return scene.broken();
}

void tst_Driving::holdsWhateverHappens_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 12; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_Driving::holdsWhateverHappens()
{
    QFETCH(const quint32, seed);
    const QVector<Step> steps = randomSteps(seed, 300);
    const QString broken = playedBy(seed, steps);
    if (broken.isEmpty())
        return;
    const QVector<Step> shortest =
        shrunk(steps, [seed](const QVector<Step> &some) { return !playedBy(seed, some).isEmpty(); });
    QString trace;
    Scene scene(allKinds(), seed);
    scene.trace = [&trace](const QString &step) {
        trace += QLatin1Char('\n') + step;
    };
    scene.play(shortest);
    QFAIL(qPrintable(broken + QStringLiteral("; shortest:") + trace + QLatin1Char('\n') + scene.broken()));
}

void tst_Driving::theSameStepsDoTheSame()
{
    QStringList traces[2];
    for (QStringList &trace : traces) {
        Scene scene(allKinds(), 77);
        scene.trace = [&trace](const QString &step) {
            trace << step;
        };
        scene.play(randomSteps(77, 200));
    }
    QVERIFY(traces[0].size() > 100);
    QCOMPARE(traces[0], traces[1]);
}

namespace {

Kind faulty(const char *name, std::function<void(QWidget *)> fault)
{
    return {name,
            [](QWidget *parent, quint8) { return new QWidget(parent); },
            {[fault](QWidget *widget, quint8, quint8) {
                fault(widget);
            }},
            {},
            {},
            {}};
}

} // namespace

// The scene would notice: each of these is broken on purpose.

void tst_Driving::seesAMaskWithoutOwner()
{
    void *owner = nullptr;
    Scene scene({faulty("mask", [&owner](QWidget *widget) {
        owner = widget;
        OrvMaskCtrl::getInstance(widget->window())->showMasking(owner);
    })});
    scene.play({Scene::step("own", 0, 0, 0)});
    QVERIFY2(scene.broken().contains(QStringLiteral("the mask is shown without an owner")),
             qPrintable(scene.broken()));
    OrvMaskCtrl::getInstance(nullptr)->hideMasking(owner);
}

void tst_Driving::seesALoopWithoutDialog()
{
    Kind kind = faulty("loop", [](QWidget *) {});
    kind.exec = [](QWidget *widget, quint8) {
        QEventLoop loop;
        QObject::connect(widget, &QObject::destroyed, &loop, &QEventLoop::quit);
        loop.exec();
    };
    Scene scene({kind});
    scene.play({Scene::step("run", 0, 0, 0)});
    QVERIFY2(scene.broken().contains(QStringLiteral("exec() goes on without its dialog")),
             qPrintable(scene.broken()));
}

void tst_Driving::seesAValueOutOfRange()
{
    Kind kind = faulty("range", [](QWidget *) {});
    int presses = 0;
    InsideLoop::EventHook *hook = nullptr;
    kind.make = [&](QWidget *parent, quint8) {
        auto *widget = new QWidget(parent);
        hook = new InsideLoop::EventHook(widget, QEvent::MouseButtonPress, [&presses](QEvent *) {
            ++presses;
            return true;
        });
        hook->setParent(widget);
        return widget;
    };
    kind.isInRange = [&presses](const QWidget *) {
        return presses == 0;
    };
    Scene scene({kind});
    scene.play({Scene::step("press", 0, 0x44, 3)});
    QVERIFY2(scene.broken().contains(QStringLiteral("range is moved out of its range")),
             qPrintable(scene.broken()));
}

void tst_Driving::shrinksToTheShortest_data()
{
    QTest::addColumn<QVector<int>>("needed");
    QTest::newRow("the first") << QVector<int>{0};
    QTest::newRow("the last") << QVector<int>{99};
    QTest::newRow("three apart") << QVector<int>{3, 50, 98};
    QTest::newRow("neighbours") << QVector<int>{49, 50};
    QTest::newRow("nothing") << QVector<int>{};
}

void tst_Driving::shrinksToTheShortest()
{
    QFETCH(const QVector<int>, needed);
    QVector<int> all(100);
    std::iota(all.begin(), all.end(), 0);
    const QVector<int> shortest = shrunk(all, [&needed](const QVector<int> &some) {
        return std::all_of(needed.begin(), needed.end(), [&some](int one) { return some.contains(one); });
    });
    QCOMPARE(shortest, needed);
}

ORV_TEST_MAIN(tst_Driving)

#include "tst_driving.moc"
