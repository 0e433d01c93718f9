#include "figures.h"
#include "testmain.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

namespace {

QJsonObject row(double ours, double stock)
{
    return {{QStringLiteral("ours"), ours},
            {QStringLiteral("stock"), stock},
            {QStringLiteral("unit"), QStringLiteral("ns")}};
}

QJsonObject run(const QString &group, const QString &what, const QJsonObject &figures)
{
    return {{group, QJsonObject{{what, figures}}}};
}

QJsonObject run(const QJsonObject &figures)
{
    return run(QStringLiteral("sliders"), QStringLiteral("paint"), figures);
}

} // namespace

class tst_figures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatBecameSlower_data();
    void tellsWhatBecameSlower();
    void tellsOfRowsInBothRunsOnly();
    void runsAddUpToOneFile();
    void filesWithoutFigures_data();
    void filesWithoutFigures();
    void filesThatCannotBeWritten();

private:
    QTemporaryDir m_folder;
};

void tst_figures::tellsWhatBecameSlower_data()
{
    QTest::addColumn<QJsonObject>("before");
    QTest::addColumn<QJsonObject>("now");
    QTest::addColumn<QString>("line");
    const QString none;
    QTest::newRow("as before") << row(10, 20) << row(10, 20) << none;
    QTest::newRow("faster") << row(10, 20) << row(5, 20) << none;
    QTest::newRow("a fifth slower") << row(10, 20) << row(12, 20) << none;
    QTest::newRow("slower") << row(10, 20) << row(13, 20)
                            << QStringLiteral("sliders: paint: ratio 0.50 -> 0.65 (10.0 -> 13.0 ns)");
    QTest::newRow("busy machine") << row(10, 20) << row(30, 60) << none;
    QTest::newRow("slower on a faster machine")
        << row(10, 20) << row(9, 10) << QStringLiteral("sliders: paint: ratio 0.50 -> 0.90 (10.0 -> 9.0 ns)");
    QTest::newRow("nothing stock") << row(10, 0) << row(13, 0)
                                   << QStringLiteral("sliders: paint: 10.0 -> 13.0 ns");
    QTest::newRow("nothing stock, as before") << row(10, 0) << row(11, 0) << none;
    QTest::newRow("took nothing") << row(0, 20) << row(10, 20) << none;
}

void tst_figures::tellsWhatBecameSlower()
{
    QFETCH(const QJsonObject, before);
    QFETCH(const QJsonObject, now);
    QFETCH(const QString, line);
    QCOMPARE(Figures::slowerRows(run(before), run(now)), line.isEmpty() ? QStringList() : QStringList{line});
}

void tst_figures::tellsOfRowsInBothRunsOnly()
{
    const QJsonObject before = run(row(10, 20));
    const QString group = QStringLiteral("sliders");
    const QString what = QStringLiteral("paint");
    QCOMPARE(Figures::slowerRows(before, run(group, what, row(90, 20))).size(), 1);
    QCOMPARE(Figures::slowerRows(before, run(group, QStringLiteral("drag"), row(90, 20))), QStringList());
    QCOMPARE(Figures::slowerRows(before, run(QStringLiteral("buttons"), what, row(90, 20))), QStringList());
    QCOMPARE(Figures::slowerRows(before, {}), QStringList());
    QCOMPARE(Figures::slowerRows({}, before), QStringList());
}

void tst_figures::runsAddUpToOneFile()
{
    const QString group = QStringLiteral("sliders");
    const QString fileName = m_folder.filePath(QStringLiteral("figures.json"));
    const QString paint = QStringLiteral("paint");
    const QString drag = QStringLiteral("drag");
    QVERIFY(Figures::write(fileName, run(group, paint, row(1, 2))));
    QVERIFY(Figures::write(fileName, run(group, drag, row(3, 4))));
    QVERIFY(Figures::write(fileName, run(QStringLiteral("loading"), paint, row(5, 6))));
    QVERIFY(Figures::write(fileName, run(group, paint, row(7, 8))));

    QJsonObject figures;
    QVERIFY(Figures::read(fileName, &figures));
    QCOMPARE(figures.size(), 2);
    QCOMPARE(figures.value(group).toObject(), (QJsonObject{{paint, row(7, 8)}, {drag, row(3, 4)}}));
    QCOMPARE(figures.value(QStringLiteral("loading")).toObject(), (QJsonObject{{paint, row(5, 6)}}));
}

void tst_figures::filesWithoutFigures_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no figures");
    QTest::newRow("list") << QByteArray("[1, 2]");
    QTest::newRow("cut off") << QByteArray("{ \"sliders\": {");
}

void tst_figures::filesWithoutFigures()
{
    QFETCH(const QByteArray, content);
    QFile file(m_folder.filePath(QStringLiteral("other.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();
    QJsonObject figures;
    QVERIFY(!Figures::read(file.fileName(), &figures));
    QVERIFY(figures.isEmpty());
    QVERIFY(Figures::write(file.fileName(), run(row(1, 2))));
    QVERIFY(Figures::read(file.fileName(), &figures));
    QCOMPARE(figures, run(row(1, 2)));
}

void tst_figures::filesThatCannotBeWritten()
{
    QJsonObject figures;
    QVERIFY(!Figures::read(m_folder.filePath(QStringLiteral("missing.json")), &figures));
    QVERIFY(!Figures::write(m_folder.path(), run(row(1, 2))));
    QVERIFY(!Figures::write(m_folder.filePath(QStringLiteral("missing/figures.json")), run(row(1, 2))));
}

ORV_TEST_MAIN(tst_figures)

#include "tst_figures.moc"
