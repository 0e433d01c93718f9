#include "client.h"
#include "testmain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

constexpr int kTimeoutMs = 60000;

} // namespace

/// Each example starts, shows what it is about, warns of nothing and ends.
class tst_Examples : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runs_data();
    void runs();
};

void tst_Examples::runs_data()
{
    QTest::addColumn<QString>("widget");
    QTest::newRow("combo") << QStringLiteral("CustomShadowCombox/Resolution");
    QTest::newRow("mask") << QStringLiteral("QPushButton/Delete");
    QTest::newRow("messages") << QStringLiteral("QPushButton/loading");
    QTest::newRow("slider") << QStringLiteral("HorizontalSlider/Temperature");
    QTest::newRow("theme") << QStringLiteral("NewHorizontalSlider/Volume");
    QTest::newRow("toolbutton") << QStringLiteral("CustomToolButton/Brush");
}

void tst_Examples::runs()
{
    QFETCH(const QString, widget);
    Client example(QString::fromLatin1(QTest::currentDataTag()));
    example.start(Client::QuitSoon);
    QTRY_VERIFY_WITH_TIMEOUT(example.hasEnded(), kTimeoutMs);
    QVERIFY2(example.sees(widget), qPrintable(example.all().join(QLatin1Char(','))));
    QCOMPARE(example.exitCode(), 0);
    QCOMPARE(example.warnings(), QString());
}

ORV_TEST_MAIN(tst_Examples)
#include "tst_examples.moc"
