#include "testmain.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtHelp/QHelpEngineCore>
#include <QtHelp/QHelpLink>
#include <QtTest/QTest>

/// The help file, as Assistant and Creator open it.
class tst_HelpFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsClasses_data();
    void findsClasses();
    void findsMembers_data();
    void findsMembers();
    void linksToQt();
    void writesTags();

private:
    QString textOf(const QUrl &url) const;

    QTemporaryDir m_folder;
    std::unique_ptr<QHelpEngineCore> m_engine;
};

void tst_HelpFile::initTestCase()
{
    m_engine = std::make_unique<QHelpEngineCore>(m_folder.filePath(QStringLiteral("collection.qhc")));
    QVERIFY2(m_engine->setupData(), qPrintable(m_engine->error()));
    QVERIFY2(m_engine->registerDocumentation(QStringLiteral(ORV_REFERENCE "/orvcommonlib.qch")),
             qPrintable(m_engine->error()));
    QCOMPARE(m_engine->registeredDocumentations(), QStringList(QStringLiteral("orvcommonlib")));
}

QString tst_HelpFile::textOf(const QUrl &url) const
{
    QUrl file = url;
    file.setFragment(QString());
    return QString::fromUtf8(m_engine->fileData(file));
}

void tst_HelpFile::findsClasses_data()
{
    QTest::addColumn<QString>("name");
    QFile file(QStringLiteral(ORV_EXPORTED_CLASSES));
    QVERIFY(file.open(QIODevice::ReadOnly));
    int count = 0;
    while (!file.atEnd()) {
        const QByteArrayList words = file.readLine().simplified().split(' ');
        if (words.value(0).startsWith('#') || words.contains("function") || words.size() < 2)
            continue;
        const QByteArray &name = words.constFirst();
        QTest::newRow(name.constData()) << QString::fromUtf8(name);
        ++count;
    }
    QVERIFY(count > 20);
}

void tst_HelpFile::findsClasses()
{
    QFETCH(QString, name);
    const QList<QHelpLink> found = m_engine->documentsForKeyword(name);
    QCOMPARE(found.size(), 1); // for several Assistant would ask which
    QVERIFY(textOf(found.constFirst().url).contains(name.section(QStringLiteral("::"), -1)));
}

void tst_HelpFile::findsMembers_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"BaseMoveDialog::moveOver", "HorizontalSlider::setSkinPath",
          "CustomShadowCombox::currentGrayIndexChanged", "totalcommon::NinePatch", "QHotkey::isRegistered"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_HelpFile::findsMembers()
{
    QFETCH(QString, name);
    QVERIFY(!m_engine->documentsForKeyword(name.section(QStringLiteral("::"), 1)).isEmpty());
    QVERIFY(!m_engine->documentsForIdentifier(name).isEmpty()); // as Creator asks
}

void tst_HelpFile::linksToQt()
{
    const QList<QHelpLink> found = m_engine->documentsForKeyword(QStringLiteral("CustomSlider"));
    QVERIFY(!found.isEmpty());
    QVERIFY(textOf(found.constFirst().url).contains(QLatin1String("https://doc.qt.io/qt-5/qslider.html")));
}

void tst_HelpFile::writesTags()
{
    QFile file(QStringLiteral(ORV_REFERENCE "/orvcommonlib.tag"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray tags = file.readAll();
    QVERIFY(tags.contains("<name>FramelessHelper</name>"));
    QVERIFY(!tags.contains("<name>QWidget</name>"));
}

ORV_TEST_MAIN(tst_HelpFile)
#include "tst_helpfile.moc"
