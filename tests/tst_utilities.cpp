#include "orvcommonlib.h"

#include "logcapture.h"
#include "orvqtcompat.h"
#include "seed.h"
#include "testmain.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtTest/QTest>

#include <limits>

#ifdef Q_OS_UNIX
#    include <sys/stat.h>
#endif

namespace {

constexpr int kDigestedBytes = 10240;

QString md5(const QByteArray &bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
}

/// The sum that getDirSize() stands for: `counting` holds the folders that are just being counted.
quint64 plainSize(const QString &path, QStringList counting = {})
{
    const QString canonicalPath = QDir(path).canonicalPath();
    if (counting.contains(canonicalPath))
        return 0;
    counting << canonicalPath;
    quint64 size = 0;
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::Unsorted);
    for (const QFileInfo &file : files)
        size += quint64(file.size());
    const QStringList folders = QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QString &name : folders)
        size += plainSize(path + QDir::separator() + name, counting);
    return size;
}

/// Receives the URLs that the library opens.
class UrlCatcher : public QObject
{
    Q_OBJECT

public:
    UrlCatcher() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QList<QUrl> urls;

public Q_SLOTS:
    void open(const QUrl &url) { urls << url; }
};

/// Sets an environment variable for as long as it lives.
class Variable
{
public:
    Variable(const char *name, const QByteArray &value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Variable() { qputenv(m_name, m_before); }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

} // namespace

class tst_utilities : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fontIsChangedInPlace();
    void fontWidthIsTheMetricsWidthPlusTwo_data();
    void fontWidthIsTheMetricsWidthPlusTwo();
    void fontWidthOfAbsurdValues();

    void everyUnitToFull();
    void everyUnitToHalf();
    void fullAndBack();
    void convertsWholeTexts_data();
    void convertsWholeTexts();
    void longTexts();

    void digestOfText_data();
    void digestOfText();
    void digestOfNoText();

    void digestOfFile_data();
    void digestOfFile();
    void digestOfMissingFile_data();
    void digestOfMissingFile();
    void digestOfWhatCannotBeRead_data();
    void digestOfWhatCannotBeRead();
    void digestOfUnreadableFile();
    void digestOfShorterFileThanItsSize();
    void digestOfResource();

    void sizeOfFolder();
    void sizeOfNothing_data();
    void sizeOfNothing();
    void sizeOfHiddenFiles();
    void sizeOfLinks();
    void sizeOfLoops();
    void sizeOfFoldersThatLinkEachOther_data();
    void sizeOfFoldersThatLinkEachOther();
    void sizeOfLinksAtRandom();
    void sizeOfManyLinks();
    void sizeOfDeepFolders();
    void sizeOfResources();
    void sizeEqualsThePlainSum();

    void showsInFileManager();
    void showsFolderWithoutFileManager_data();
    void showsFolderWithoutFileManager();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QString file(const QString &name, const QByteArray &content) const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_utilities::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
}

/// A file of the test's own folder, in which missing folders are made. Its path.
QString tst_utilities::file(const QString &name, const QByteArray &content) const
{
    QDir(m_folder->path()).mkpath(QFileInfo(name).path());
    QFile created(path(name));
    const bool written = created.open(QIODevice::WriteOnly) && created.write(content) == content.size();
    return written ? created.fileName() : QString();
}

void tst_utilities::fontIsChangedInPlace()
{
    QFont font(QStringLiteral("Something"), 30, QFont::Black, true);
    totalcommon::getFontWidth(17, QStringLiteral("text"), font, QFont::DemiBold);
    QCOMPARE(font.family(), QStringLiteral("Microsoft Yahei"));
    QCOMPARE(font.pixelSize(), 17);
    QCOMPARE(int(font.weight()), int(QFont::DemiBold));
    QVERIFY(font.italic());
}

void tst_utilities::fontWidthIsTheMetricsWidthPlusTwo_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("words") << QStringLiteral("Some words");
    QTest::newRow("blanks") << QStringLiteral("   ");
    QTest::newRow("Chinese") << QString::fromUtf8("\xe4\xb8\xad\xe6\x96\x87");
    QTest::newRow("lines") << QStringLiteral("one\ntwo");
}

void tst_utilities::fontWidthIsTheMetricsWidthPlusTwo()
{
    QFETCH(const QString, text);
    for (const int weight : {int(QFont::Normal), int(QFont::Bold)}) {
        for (const int pixelSize : {9, 14, 40}) {
            QFont expected;
            expected.setFamily(QStringLiteral("Microsoft Yahei"));
            expected.setPixelSize(pixelSize);
            expected.setWeight(QFont::Weight(weight));
            QFont font;
            QCOMPARE(totalcommon::getFontWidth(pixelSize, text, font, weight),
                     QFontMetrics(expected).boundingRect(text).width() + 2);
            QCOMPARE(font, expected);
        }
    }
}

void tst_utilities::fontWidthOfAbsurdValues()
{
    QFont font;
    totalcommon::getFontWidth(12, QStringLiteral("text"), font, -5);
    QCOMPARE(int(font.weight()), orvqt::kLightestFont);
    totalcommon::getFontWidth(12, QStringLiteral("text"), font, 7000);
    QCOMPARE(int(font.weight()), orvqt::kHeaviestFont);
    // QFont refuses the size, tells so, and keeps the one before.
    for (const int pixelSize : {0, -3}) {
        const ExpectedWarnings refusal("QFont::setPixelSize: Pixel size <= 0");
        QVERIFY(totalcommon::getFontWidth(pixelSize, QStringLiteral("text"), font, QFont::Normal) > 2);
        QCOMPARE(font.pixelSize(), 12);
    }
}

void tst_utilities::everyUnitToFull()
{
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        int expected = unit;
        if (unit == 0x20)
            expected = 0x3000;
        else if (unit == 0x2E)
            expected = 0x3002;
        else if (unit < 0x7F)
            expected = unit + 0xFEE0;
        QCOMPARE(int(totalcommon::HalfToFull(QString(QChar(unit))).at(0).unicode()), expected);
    }
}

void tst_utilities::everyUnitToHalf()
{
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        int expected = unit;
        if (unit >= 0xFF01 && unit <= 0xFF5E)
            expected = unit - 0xFEE0;
        else if (unit == 0x3000)
            expected = 0x20;
        else if (unit == 0x3002)
            expected = 0x2E;
        QCOMPARE(int(totalcommon::FullToHalf(QString(QChar(unit))).at(0).unicode()), expected);
    }
}

void tst_utilities::fullAndBack()
{
    QString printable;
    for (char letter = ' '; letter <= '~'; ++letter)
        printable += QLatin1Char(letter);
    QCOMPARE(totalcommon::FullToHalf(totalcommon::HalfToFull(printable)), printable);
    QCOMPARE(totalcommon::FullToHalf(totalcommon::HalfToFull(QStringLiteral("\n"))), QString(QChar(0xFEEA)));
}

void tst_utilities::convertsWholeTexts_data()
{
    QTest::addColumn<QString>("half");
    QTest::addColumn<QString>("full");
    const QString emoji = QString::fromUtf8("\xf0\x9f\x98\x80");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("letters, space, full stop")
        << QStringLiteral("a b.") << QStringLiteral(u"\uFF41\u3000\uFF42\u3002");
    QTest::newRow("surrogate pairs stay") << QStringLiteral("a") + emoji + QStringLiteral("b")
                                          << QStringLiteral(u"\uFF41") + emoji + QStringLiteral(u"\uFF42");
    QTest::newRow("half a pair stays") << QString(QChar(0xD83D)) << QString(QChar(0xD83D));
    QTest::newRow("other scripts stay") << QStringLiteral(u"\u4E2D\u00E9") << QStringLiteral(u"\u4E2D\u00E9");
}

void tst_utilities::convertsWholeTexts()
{
    QFETCH(const QString, half);
    QFETCH(const QString, full);
    QCOMPARE(totalcommon::HalfToFull(half), full);
    QCOMPARE(totalcommon::FullToHalf(full), half);
    // Zeros do not end a text.
    const QString zero(QChar(0));
    QCOMPARE(totalcommon::HalfToFull(zero + half), QChar(0xFEE0) + full);
    QCOMPARE(totalcommon::FullToHalf(zero + full), zero + half);
}

void tst_utilities::longTexts()
{
    constexpr int kLength = 1000000;
    const QString half(kLength, QLatin1Char('a'));
    const QString full(kLength, QChar(0xFF41));
    QVERIFY(totalcommon::HalfToFull(half) == full);
    QVERIFY(totalcommon::FullToHalf(full) == half);
    QCOMPARE(totalcommon::generateMd5(half), md5(half.toLatin1()));
}

void tst_utilities::digestOfText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString zero(QChar(0));
    QTest::newRow("abc") << QStringLiteral("abc") << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("a digest that begins with 0")
        << QStringLiteral("jk8ssl") << QStringLiteral("0000000018e6137ac2caab16074784a6");
    QTest::newRow("UTF-8") << QString::fromUtf8("\xe4\xb8\xad\xf0\x9f\x98\x80")
                           << md5("\xe4\xb8\xad\xf0\x9f\x98\x80");
    QTest::newRow("ends at a zero") << QStringLiteral("abc") + zero + QStringLiteral("def")
                                    << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("begins with a zero")
        << zero + QStringLiteral("abc") << QStringLiteral("d41d8cd98f00b204e9800998ecf8427e");
    QTest::newRow("half a surrogate pair") << QString(QChar(0xD83D)) << md5(QString(QChar(0xD83D)).toUtf8());
}

void tst_utilities::digestOfText()
{
    QFETCH(const QString, text);
    QFETCH(const QString, expected);
    const LogCapture log;
    QCOMPARE(totalcommon::generateMd5(text), expected);
    QCOMPARE(log.count(), 0);
}

void tst_utilities::digestOfNoText()
{
    for (const QString &text : {QString(), QString(QLatin1String(""))}) {
        const LogCapture log;
        QCOMPARE(totalcommon::generateMd5(text), QString());
        QCOMPARE(log.count(), 1);
        const LogLine line = log.lines().constFirst();
        QCOMPARE(line.text, QStringLiteral("str info is empty"));
        QCOMPARE(line.type, QtInfoMsg);
        QCOMPARE(line.category, QStringLiteral("default"));
        QVERIFY2(line.function.contains(QLatin1String("totalcommon::generateMd5(QString)")),
                 qPrintable(line.function));
        QVERIFY(line.file.endsWith(QLatin1String("orvcommonlib.cpp")));
        QVERIFY(line.line > 0);
    }
}

void tst_utilities::digestOfFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("extra");
    QTest::addColumn<QString>("expected");
    QByteArray large;
    for (int i = 0; i < 20000; ++i)
        large += char(i * 31 + i / 256);
    QByteArray other = large;
    other[kDigestedBytes] = char(other.at(kDigestedBytes) + 1);
    const QByteArray head = large.left(kDigestedBytes);
    const QString chinese = QString::fromUtf8("\xe4\xb8\xad");
    QTest::newRow("empty") << QByteArray() << QString() << QStringLiteral("d41d8cd98f00b204e9800998ecf8427e");
    QTest::newRow("empty, with text")
        << QByteArray() << QStringLiteral("abc") << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("empty, with UTF-8") << QByteArray() << chinese << md5("\xe4\xb8\xad");
    QTest::newRow("small") << QByteArray("a\0b\nc\r\n", 7) << QString() << md5(QByteArray("a\0b\nc\r\n", 7));
    QTest::newRow("small, with text")
        << QByteArray("ab") << QStringLiteral("c") << QStringLiteral("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("one less than the limit")
        << large.left(kDigestedBytes - 1) << QString() << md5(large.left(kDigestedBytes - 1));
    QTest::newRow("the limit") << head << QString() << md5(head);
    QTest::newRow("large") << large << QString() << md5(head);
    QTest::newRow("large, different below the limit") << other << QString() << md5(head);
    QTest::newRow("large, with text") << large << QStringLiteral("x") << md5(head + 'x');
    QTest::newRow("zeros in the text are kept")
        << QByteArray("a") << QString(QChar(0)) << md5(QByteArray("a\0", 2));
}

void tst_utilities::digestOfFile()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, extra);
    QFETCH(const QString, expected);
    const LogCapture log;
    QCOMPARE(totalcommon::FileMD5(file(QStringLiteral("file"), content), extra), expected);
    QCOMPARE(log.count(), 0);
}

void tst_utilities::digestOfMissingFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing") << QStringLiteral("/missing folder/missing file");
    QTest::newRow("name too long") << QDir::tempPath() + QLatin1Char('/') + QString(100000, QLatin1Char('x'));
    QTest::newRow("missing resource") << QStringLiteral(":/missing");
}

void tst_utilities::digestOfMissingFile()
{
    QFETCH(const QString, path);
    const LogCapture log;
    QCOMPARE(totalcommon::FileMD5(path, QStringLiteral("extra")), QString());
    QCOMPARE(log.texts(), QStringList{QStringLiteral("AAAAA--file not exist")});
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtInfoMsg);
    QCOMPARE(line.category, QStringLiteral("default"));
    QVERIFY2(line.function.contains(QLatin1String("totalcommon::FileMD5(QString, QString)")),
             qPrintable(line.function));
}

void tst_utilities::digestOfWhatCannotBeRead_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("folder") << QStringLiteral("folder");
#ifdef Q_OS_UNIX
    QTest::newRow("pipe") << QStringLiteral("pipe");
    QTest::newRow("device") << QStringLiteral("/dev/zero");
    QTest::newRow("link to a pipe") << QStringLiteral("link");
#endif
}

void tst_utilities::digestOfWhatCannotBeRead()
{
    QFETCH(const QString, kind);
    const QString name = kind.startsWith(QLatin1Char('/')) ? kind : path(kind);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
#ifdef Q_OS_UNIX
    QCOMPARE(mkfifo(QFile::encodeName(path(QStringLiteral("pipe"))).constData(), 0600), 0);
    QVERIFY(QFile::link(path(QStringLiteral("pipe")), path(QStringLiteral("link"))));
#endif
    QVERIFY(QFile::exists(name));
    const LogCapture log;
    QCOMPARE(totalcommon::FileMD5(name, QStringLiteral("extra")), QString());
    QCOMPARE(log.count(), 0);
}

void tst_utilities::digestOfUnreadableFile()
{
    const QString name = file(QStringLiteral("secret"), "abc");
    QFile::setPermissions(name, QFile::Permissions());
    // Some users and file systems can read it nevertheless.
    const bool isReadable = QFile(name).open(QIODevice::ReadOnly);
    const LogCapture log;
    QCOMPARE(totalcommon::FileMD5(name, QString()), isReadable ? md5("abc") : QString());
    QCOMPARE(log.count(), 0);
    QFile::setPermissions(name, QFile::ReadOwner | QFile::WriteOwner);
}

void tst_utilities::digestOfShorterFileThanItsSize()
{
    // The system's own files claim a page and hold less, as a file does that is cut off between the two looks
    // at it.
    const QString name = QStringLiteral("/sys/kernel/mm/transparent_hugepage/enabled");
    QFile shorter(name);
    if (!shorter.open(QIODevice::ReadOnly))
        return;
    const QByteArray content = shorter.read(kDigestedBytes);
    QVERIFY(content.size() < shorter.size());
    QCOMPARE(totalcommon::FileMD5(name, QStringLiteral("x")), md5(content + 'x'));
}

void tst_utilities::digestOfResource()
{
    const QString name = QStringLiteral(":/images/images/mask.png");
    QFile resource(name);
    QVERIFY(resource.open(QIODevice::ReadOnly));
    QCOMPARE(totalcommon::FileMD5(name, QString()), md5(resource.read(kDigestedBytes)));
}

void tst_utilities::sizeOfFolder()
{
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(0));
    file(QStringLiteral("a"), QByteArray(10, 'a'));
    file(QStringLiteral("b"), QByteArray());
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(10));
    file(QStringLiteral("one/two/three/c"), QByteArray(100, 'c'));
    file(QStringLiteral("one/d"), QByteArray(1000, 'd'));
    file(QStringLiteral("name with blanks/e"), QByteArray(10000, 'e'));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(11110));
    QCOMPARE(totalcommon::getDirSize(path(QStringLiteral("one"))), quint64(1100));
    QCOMPARE(totalcommon::getDirSize(path(QStringLiteral("one/"))), quint64(1100));
}

void tst_utilities::sizeOfNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << QStringLiteral("/missing folder");
    QTest::newRow("a file") << QCoreApplication::applicationFilePath();
    QTest::newRow("name too long") << QDir::tempPath() + QLatin1Char('/') + QString(100000, QLatin1Char('x'));
}

void tst_utilities::sizeOfNothing()
{
    QFETCH(const QString, path);
    QCOMPARE(totalcommon::getDirSize(path), quint64(0));
}

void tst_utilities::sizeOfHiddenFiles()
{
#ifdef Q_OS_UNIX
    file(QStringLiteral(".a"), QByteArray(10, 'a'));
    file(QStringLiteral(".b/c"), QByteArray(100, 'c'));
    file(QStringLiteral("d"), QByteArray(1000, 'd'));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(1000));
#endif
}

void tst_utilities::sizeOfLinks()
{
#ifdef Q_OS_UNIX
    file(QStringLiteral("one/a"), QByteArray(10, 'a'));
    QVERIFY(QFile::link(path(QStringLiteral("one")), path(QStringLiteral("two"))));
    QVERIFY(QFile::link(path(QStringLiteral("one/a")), path(QStringLiteral("b"))));
    QVERIFY(QFile::link(path(QStringLiteral("missing")), path(QStringLiteral("dangling"))));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), plainSize(m_folder->path()));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(30));
#endif
}

void tst_utilities::sizeOfLoops()
{
#ifdef Q_OS_UNIX
    file(QStringLiteral("a"), QByteArray(10, 'a'));
    file(QStringLiteral("one/b"), QByteArray(100, 'b'));
    for (const char *name : {"again", "once more", "one/up", "one/top"})
        QVERIFY(QFile::link(m_folder->path(), path(QLatin1String(name))));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(110));
    // Seen from inside, each of the two links to the folder above counts what is in that and not in this one.
    QCOMPARE(totalcommon::getDirSize(path(QStringLiteral("one"))), quint64(120));
#endif
}

void tst_utilities::sizeOfFoldersThatLinkEachOther_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    // Whichever of the two the system lists first.
    for (const char *name : {"a", "z", "Z", "0", "folder", "x1", "x2", "x3"})
        QTest::addRow("%s", name) << QString::fromLatin1(name) << QStringLiteral("m");
}

void tst_utilities::sizeOfFoldersThatLinkEachOther()
{
#ifdef Q_OS_UNIX
    QFETCH(const QString, one);
    QFETCH(const QString, other);
    file(one + QStringLiteral("/file"), QByteArray(100, 'a'));
    file(other + QStringLiteral("/file"), QByteArray(1000, 'b'));
    QVERIFY(QFile::link(path(one), path(other + QStringLiteral("/link"))));
    QVERIFY(QFile::link(path(other), path(one + QStringLiteral("/link"))));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(2200));
    QCOMPARE(totalcommon::getDirSize(path(one)), quint64(1100));
    // A link from outside counts both once more.
    QVERIFY(QFile::link(path(one), path(QStringLiteral("again"))));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(3300));
#endif
}

void tst_utilities::sizeOfLinksAtRandom()
{
#ifdef Q_OS_UNIX
    constexpr quint32 kRounds = 100;
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        const QString root = QStringLiteral("tree%1").arg(seed);
        QStringList folders{root};
        for (int i = 0; i < 6; ++i) {
            folders << folders.at(random.bounded(folders.size())) +
                           QStringLiteral("/%1").arg(random.bounded(1000));
            file(folders.constLast() + QStringLiteral("/file"), QByteArray(1 << i, 'x'));
        }
        const auto anyFolder = [&] {
            return path(folders.at(random.bounded(folders.size())));
        };
        for (int i = 0; i < 5; ++i)
            QFile::link(anyFolder(), anyFolder() + QStringLiteral("/link%1").arg(random.bounded(1000)));
        for (const QString &folder : qAsConst(folders)) {
            const quint64 size = totalcommon::getDirSize(path(folder));
            QVERIFY2(size == plainSize(path(folder)),
                     qPrintable(QStringLiteral("seed %1, %2").arg(seed).arg(folder)));
        }
    }
#endif
}

void tst_utilities::sizeOfManyLinks()
{
#ifdef Q_OS_UNIX
    // Each folder leads twice to the next: there are 2^30 ways down.
    for (int i = 0; i < 30; ++i) {
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("level%1").arg(i)));
        for (const char *name : {"left", "right"})
            QVERIFY(QFile::link(path(QStringLiteral("level%1").arg(i + 1)),
                                path(QStringLiteral("level%1/%2").arg(i).arg(QLatin1String(name)))));
    }
    file(QStringLiteral("level30/a"), "a");
    QCOMPARE(totalcommon::getDirSize(path(QStringLiteral("level0"))), quint64(1) << 30);
    // And back, too, which adds nothing on the way down.
    for (int i = 0; i < 30; ++i)
        QVERIFY(QFile::link(path(QStringLiteral("level%1").arg(i)),
                            path(QStringLiteral("level%1/up").arg(i + 1))));
    QCOMPARE(totalcommon::getDirSize(path(QStringLiteral("level0"))), quint64(1) << 30);
#endif
}

void tst_utilities::sizeOfDeepFolders()
{
#ifdef Q_OS_UNIX
    // More levels than a process may have open files.
    const QString start = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_folder->path()));
    constexpr int kLevels = 1200;
    for (int level = 0; level < kLevels; ++level)
        QVERIFY(QDir().mkdir(QStringLiteral("d")) && QDir::setCurrent(QStringLiteral("d")));
    QVERIFY(QDir::setCurrent(start));
    const QString deepest = QStringLiteral("d/").repeated(kLevels);
    file(deepest + QStringLiteral("file"), QByteArray(10, 'a'));
    QVERIFY(QFile::link(m_folder->path(), path(deepest + QStringLiteral("up"))));
    QCOMPARE(totalcommon::getDirSize(m_folder->path()), quint64(10));
#endif
}

void tst_utilities::sizeOfResources()
{
    const QString folder = QStringLiteral(":/images/images/slider");
    QVERIFY(plainSize(folder) > 0);
    QCOMPARE(totalcommon::getDirSize(folder), plainSize(folder));
    QCOMPARE(totalcommon::getDirSize(QStringLiteral(":/images")), plainSize(QStringLiteral(":/images")));
}

void tst_utilities::sizeEqualsThePlainSum()
{
    constexpr quint32 kRounds = 20;
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds; ++seed) {
        QRandomGenerator random(seed);
        const QString root = QStringLiteral("tree%1").arg(seed);
        QStringList folders{root};
        for (int i = 0; i < 20; ++i) {
            const QString parent = folders.at(int(random.bounded(quint32(folders.size()))));
            const QString name = parent + QStringLiteral("/%1").arg(i);
            if (random.bounded(2) == 0) {
                file(name, QByteArray(int(random.bounded(1000)), 'x'));
            } else {
                QVERIFY(QDir(m_folder->path()).mkpath(name));
                folders << name;
            }
        }
        const quint64 size = totalcommon::getDirSize(path(root));
        QVERIFY2(size == plainSize(path(root)), qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void tst_utilities::showsInFileManager()
{
#ifdef Q_OS_UNIX
    UrlCatcher catcher;
    // A file manager that writes down what it was asked for.
    const QString script =
        file(QStringLiteral("explorer.exe"),
             "#!/bin/sh\nprintf '%s\\n' \"$#\" \"$@\" > \"$0.new\" && /bin/mv \"$0.new\" \"$0.asked\"\n");
    QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
    const Variable search("PATH", QFile::encodeName(m_folder->path()));
    totalcommon::desktopShowInFolder(QStringLiteral("/some folder/a, b.png"));
    QFile asked(script + QStringLiteral(".asked"));
    QTRY_VERIFY(asked.exists());
    QVERIFY(asked.open(QIODevice::ReadOnly));
    QCOMPARE(asked.readAll(), QByteArray("2\n/select,\n/some folder/a, b.png\n"));
    QCOMPARE(catcher.urls, QList<QUrl>());
#endif
}

void tst_utilities::showsFolderWithoutFileManager_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::newRow("file") << QStringLiteral("/some folder/a.png") << QStringLiteral("/some folder");
    QTest::newRow("folder") << QStringLiteral("/some folder/") << QStringLiteral("/some folder");
    QTest::newRow("name only") << QStringLiteral("a.png") << QDir::currentPath();
    QTest::newRow("special characters") << QStringLiteral("/a#b%20c/d.png") << QStringLiteral("/a#b%20c");
    QTest::newRow("no name") << QString() << QDir::currentPath();
}

void tst_utilities::showsFolderWithoutFileManager()
{
#ifdef Q_OS_UNIX
    QFETCH(const QString, path);
    QFETCH(const QString, folder);
    UrlCatcher catcher;
    const Variable search("PATH", QFile::encodeName(m_folder->path()));
    totalcommon::desktopShowInFolder(path);
    QCOMPARE(catcher.urls, QList<QUrl>{QUrl::fromLocalFile(folder)});
#endif
}

ORV_TEST_MAIN(tst_utilities)

#include "tst_utilities.moc"
