#include "testmain.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QLibrary>
#include <QtTest/QTest>

/// The library is loaded and unloaded by this program itself, which links nothing of it.
class tst_loading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void treeComesAndGoesWithTheLibrary();
    void libraryComesBack();
    void everyEntryOpensRightAfterLoading();
    void loadingLeavesOtherResourcesAlone();
};

namespace {

constexpr int kEntries = 31;

QString libraryFile()
{
    return QStringLiteral(ORVCOMMONLIB_FILE);
}

QStringList rootFolders()
{
    return QDir(QStringLiteral(":/")).entryList();
}

QStringList filesBelow(const QString &folder)
{
    QStringList result;
    QDirIterator entry(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext())
        result << entry.next();
    return result;
}

QStringList libraryEntries()
{
    return filesBelow(QStringLiteral(":/images")) + filesBelow(QStringLiteral(":/qssFromResource"));
}

} // namespace

void tst_loading::treeComesAndGoesWithTheLibrary()
{
    const QString mask = QStringLiteral(":/images/images/mask.png");
    const QString sheet = QStringLiteral(":/qssFromResource/global_QScrollBar.qss");
    QVERIFY(!QFile::exists(mask));
    QVERIFY(!QFile::exists(sheet));

    QLibrary library(libraryFile());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(QFile::exists(mask));
    QVERIFY(QFile::exists(sheet));

    QVERIFY2(library.unload(), qPrintable(library.errorString()));
    QVERIFY(!QFile::exists(mask));
    QVERIFY(!QFile::exists(sheet));
}

void tst_loading::libraryComesBack()
{
    for (int round = 0; round < 5; ++round) {
        QVERIFY(libraryEntries().isEmpty());
        QLibrary library(libraryFile());
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QCOMPARE(libraryEntries().size(), kEntries);
        QVERIFY2(library.unload(), qPrintable(library.errorString()));
    }
    QVERIFY(libraryEntries().isEmpty());
}

void tst_loading::everyEntryOpensRightAfterLoading()
{
    QLibrary library(libraryFile());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    const QStringList entries = libraryEntries();
    QCOMPARE(entries.size(), kEntries);
    for (const QString &path : entries) {
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        QVERIFY2(!file.readAll().isEmpty(), qPrintable(path));
    }
    QVERIFY(library.unload());
}

void tst_loading::loadingLeavesOtherResourcesAlone()
{
    const QStringList before = rootFolders();
    QLibrary library(libraryFile());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QStringList added = rootFolders();
    for (const QString &folder : before)
        QVERIFY2(added.removeOne(folder), qPrintable(folder));
    QCOMPARE(added, (QStringList{QStringLiteral("images"), QStringLiteral("orvcommonlib"),
                                 QStringLiteral("qssFromResource")}));
    QVERIFY(library.unload());
    QCOMPARE(rootFolders(), before);
}

ORV_TEST_MAIN(tst_loading)

#include "tst_loading.moc"
