#include "orvcommonlib.h"

#include "testmain.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QResource>
#include <QtCore/QSet>
#include <QtGui/QImageReader>
#include <QtTest/QTest>

namespace {

QString collection()
{
    return QString::fromUtf8(ORV_CLIENT_PICTURES);
}

/// The pictures that the library's classes name and that are not the library's own.
QStringList namedInTheSources()
{
    static const QRegularExpression path(
        QStringLiteral(":/(surface|resources|noviceguide|graffiti)/[\\w/]+\\.\\w+"));
    QSet<QString> named;
    QDirIterator source(QString::fromUtf8(ORV_LIBRARY_SOURCES),
                        {QStringLiteral("*.cpp"), QStringLiteral("*.qss")}, QDir::Files,
                        QDirIterator::Subdirectories);
    while (source.hasNext()) {
        QFile file(source.next());
        if (source.fileName() == QLatin1String("clientpictures.cpp") || !file.open(QIODevice::ReadOnly))
            continue;
        auto match = path.globalMatch(QString::fromUtf8(file.readAll()));
        while (match.hasNext())
            named.insert(match.next().captured());
    }
    QStringList sorted(named.cbegin(), named.cend());
    sorted.sort();
    return sorted;
}

} // namespace

/// The pictures that the library's classes expect of the client, and the library's own drawings of them in a file.
class tst_clientpictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void listsWhatTheClassesName();
    void tellsWhatIsMissing();
    void sizes_data();
    void sizes();
};

void tst_clientpictures::cleanup()
{
    QResource::unregisterResource(collection());
}

void tst_clientpictures::listsWhatTheClassesName()
{
    const QStringList named = namedInTheSources();
    QVERIFY(!named.isEmpty());
    QCOMPARE(totalcommon::clientPictures(), named);
}

void tst_clientpictures::tellsWhatIsMissing()
{
    QCOMPARE(totalcommon::missingClientPictures(), totalcommon::clientPictures());
    QVERIFY(QResource::registerResource(collection()));
    QCOMPARE(totalcommon::missingClientPictures(), QStringList());
    QVERIFY(QResource::unregisterResource(collection()));
    QCOMPARE(totalcommon::missingClientPictures(), totalcommon::clientPictures());
}

void tst_clientpictures::sizes_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("twoDensities");
    QTest::addColumn<bool>("twoLooks");
    const QStringList paths = totalcommon::clientPictures();
    const auto row = [&paths](const char *name, QSize size, bool twoDensities, bool twoLooks) {
        for (const QString &path : paths) {
            if (path.endsWith(QLatin1Char('/') + QLatin1String(name)))
                QTest::newRow(qPrintable(path)) << size << twoDensities << twoLooks;
        }
    };
    row("downarrow.svg", {16, 16}, false, true);
    row("closebtn.png", {16, 16}, true, true);
    row("slider_handle.png", {24, 24}, true, false);
    row("check.png", {18, 18}, true, false);
    row("uncheck.png", {18, 18}, true, true);
    row("close.png", {20, 20}, true, true);
    row("close_hover.png", {20, 20}, true, true);
    row("warning.png", {13, 14}, true, false);
    row("dialog_bg.png", {80, 80}, false, true);
    row("connecting.gif", {100, 100}, false, true);
}

void tst_clientpictures::sizes()
{
    QFETCH(QSize, size);
    QFETCH(bool, twoDensities);
    QFETCH(bool, twoLooks);
    QVERIFY(QResource::registerResource(collection()));
    const QString path = QString::fromUtf8(QTest::currentDataTag());
    const auto with = [&path](const char *addition) {
        return QString(path).insert(path.lastIndexOf(QLatin1Char('.')), QLatin1String(addition));
    };
    QCOMPARE(QImageReader(path).size(), size);
    QCOMPARE(QFile::exists(with("@2x")), twoDensities);
    if (twoDensities)
        QCOMPARE(QImageReader(with("@2x")).size(), 2 * size);
    QCOMPARE(QFile::exists(with("_dark")), twoLooks);
    if (twoLooks) {
        QCOMPARE(QImageReader(with("_dark")).size(), size);
        QCOMPARE(QFile::exists(with("_dark@2x")), twoDensities);
    }
}

ORV_TEST_MAIN(tst_clientpictures)

#include "tst_clientpictures.moc"
