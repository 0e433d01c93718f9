#include "resources.h"
#include "soak.h"
#include "testmain.h"

#include <QtTest/QTest>

#include <algorithm>

/// Opens and closes everything a few times, and looks whether anything stays. ./dev soak does so for minutes, and counts
/// memory as well.
class tst_Soak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setQuitOnLastWindowClosed(false); }
    void nothingStays();
    void tellsWhatGrows_data();
    void tellsWhatGrows();
};

void tst_Soak::nothingStays()
{
    constexpr quint8 kWays = 8;
    const auto round = [] {
        for (quint8 how = 0; how < kWays; ++how)
            Soak::openAndCloseEverything(how);
        Resources::Counts counts = Resources::counted();
        counts.remove(QStringLiteral("memory in KiB")); // so few rounds tell nothing of it
        return counts;
    };
    round();
    const Resources::Counts before = round();
    QVERIFY(before.value(QStringLiteral("objects")) > 0);
    const QStringList grown = Resources::grown(before, round());
    QVERIFY2(grown.isEmpty(), qPrintable(grown.join(QLatin1String("; "))));
}

void tst_Soak::tellsWhatGrows_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::addColumn<bool>("grown");
    QTest::newRow("one object") << QStringLiteral("objects") << 100 << 101 << true;
    QTest::newRow("no object") << QStringLiteral("objects") << 100 << 100 << false;
    QTest::newRow("fewer objects") << QStringLiteral("objects") << 100 << 99 << false;
    QTest::newRow("a new kind") << QStringLiteral("X PIXMAP") << 0 << 1 << true;
    QTest::newRow("some memory") << QStringLiteral("memory in KiB") << 10000 << 10512 << false;
    QTest::newRow("more memory") << QStringLiteral("memory in KiB") << 10000 << 10513 << true;
    QTest::newRow("a hundredth") << QStringLiteral("memory in KiB") << 100000 << 101000 << false;
    QTest::newRow("more than that") << QStringLiteral("memory in KiB") << 100000 << 101001 << true;
}

void tst_Soak::tellsWhatGrows()
{
    QFETCH(const QString, name);
    QFETCH(const int, before);
    QFETCH(const int, after);
    QFETCH(const bool, grown);
    QCOMPARE(!Resources::grown({{name, before}}, {{name, after}}).isEmpty(), grown);
}

int main(int argc, char **argv)
{
    Resources::begin();
    QApplication application(argc, argv);
    tst_Soak test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_soak.moc"
