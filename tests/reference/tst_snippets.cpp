#include "samples.h"
#include "testmain.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtGui/QImage>
#include <QtTest/QTest>

/// The examples of the reference make what they say.
class tst_Snippets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsSomething_data();
    void showsSomething();
    void guideShowsEveryNamedStyle();
};

void tst_Snippets::showsSomething_data()
{
    QTest::addColumn<int>("row");
    const QVector<Sample> all = samples();
    for (int row = 0; row < all.size(); ++row)
        QTest::newRow(qPrintable(all.at(row).name)) << row;
}

void tst_Snippets::showsSomething()
{
    QFETCH(int, row);
    QWidget page;
    page.resize(300, 200);
    QWidget *widget = samples().at(row).make(&page);
    QVERIFY(widget != nullptr);
    widget->adjustSize();
    const QImage picture = widget->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    const QRgb first = picture.pixel(picture.rect().center());
    bool isPlain = true;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            isPlain = isPlain && picture.pixel(x, y) == first;
    }
    QVERIFY2(!isPlain, "the example shows one colour");
}

void tst_Snippets::guideShowsEveryNamedStyle()
{
    QFile sheet(QStringLiteral(":/qssFromResource/resourceGeneratedStyle_BrixelCam.qss"));
    QVERIFY(sheet.open(QIODevice::ReadOnly));
    const QDir docs(QStringLiteral(ORV_DOCS));
    QFile guide(docs.filePath(QStringLiteral("guides/named-styles.md")));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    const QRegularExpression rule(QStringLiteral(R"(\[PropertyStyle_BrixelCam='(\w+)'\])"));
    QRegularExpressionMatchIterator matches = rule.globalMatch(QString::fromUtf8(sheet.readAll()));
    QVERIFY(matches.hasNext());
    while (matches.hasNext()) {
        const QString name = matches.next().captured(1);
        QVERIFY2(text.contains(QStringLiteral("`%1`").arg(name)), qPrintable(name));
        QVERIFY2(text.contains(QStringLiteral("(../pictures/style-%1.png)").arg(name)), qPrintable(name));
        QVERIFY2(docs.exists(QStringLiteral("pictures/style-%1.png").arg(name)), qPrintable(name));
    }
}

ORV_TEST_MAIN(tst_Snippets)
#include "tst_snippets.moc"
