#include "logcapture.h"
#include "orvlook.h"
#include "orvresloader.h"
#include "testmain.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <functional>
#include <thread>

namespace {

const QString kLight = QStringLiteral(":/orvcommonlib/themes/light.ini");
const QString kDark = QStringLiteral(":/orvcommonlib/themes/dark.ini");

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QString> valuesOf(const QString &theme)
{
    QMap<QString, QString> values;
    QSettings file(theme, QSettings::IniFormat);
    const QStringList keys = file.allKeys();
    for (const QString &key : keys)
        values.insert(key.section(QLatin1Char('/'), -1), file.value(key).toString());
    values.remove(QStringLiteral("ThemeName"));
    return values;
}

void fromAnotherThread(const std::function<void()> &call)
{
    std::thread thread(call);
    thread.join();
}

} // namespace

/// The table of named colours, and what switches it.
Q_DECLARE_METATYPE(std::function<bool()>)

class tst_OrvLook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void themesNameTheSameColors();
    void noNameBeginsAnother();
    void namesAreSorted();
    void lightIsInForceAtFirst();
    void unknownName();
    void darkIsDark();
    void namedSheetsHaveLightColors_data();
    void namedSheetsHaveLightColors();
    void namedSheetsInAnyLook_data();
    void namedSheetsInAnyLook();

    void guideTellsEveryColor();
    void themeOfTheClient_data();
    void themeOfTheClient();
    void missingNamesKeepLight();
    void namesOfTheClientAreIgnored();
    void referencesAreResolved();
    void missingFile();
    void folder();

    void changedOnceForEachChange();
    void changedInsideItsOwnSlot();
    void otherThreads_data();
    void otherThreads();
    void instanceFromAnotherThread();

private:
    QString themeFile(const QString &text);

    QTemporaryDir m_folder;
    int m_files = 0;
};

void tst_OrvLook::cleanup()
{
    OrvLook::setDark(false);
}

QString tst_OrvLook::themeFile(const QString &text)
{
    QString path = m_folder.filePath(QStringLiteral("theme%1.ini").arg(++m_files));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        return {};
    return path;
}

void tst_OrvLook::themesNameTheSameColors()
{
    QVERIFY(!valuesOf(kLight).isEmpty());
    QCOMPARE(valuesOf(kDark).keys(), valuesOf(kLight).keys());
    QCOMPARE(OrvLook::names(), valuesOf(kLight).keys());
}

void tst_OrvLook::noNameBeginsAnother()
{
    // Loaders replace "@name" wherever it stands, at the beginning of a longer name too.
    const QStringList names = OrvLook::names();
    for (int i = 1; i < names.size(); ++i)
        QVERIFY2(!names.at(i).startsWith(names.at(i - 1)), qPrintable(names.at(i)));
}

void tst_OrvLook::namesAreSorted()
{
    QStringList sorted = OrvLook::names();
    sorted.sort();
    QCOMPARE(OrvLook::names(), sorted);
}

void tst_OrvLook::lightIsInForceAtFirst()
{
    QVERIFY(!OrvLook::isDark());
    QCOMPARE(OrvLook::color(QStringLiteral("titleText")), QColor(0x1F, 0x1F, 0x22));
    QCOMPARE(OrvLook::color(QStringLiteral("loadingVeil")), QColor(128, 128, 128, 30));
    QColor bubble(31, 31, 34);
    bubble.setAlphaF(0.9);
    QCOMPARE(OrvLook::color(QStringLiteral("bubbleGround")), bubble);
}

void tst_OrvLook::unknownName()
{
    QVERIFY(!OrvLook::color(QStringLiteral("noSuchName")).isValid());
    QVERIFY(!OrvLook::color(QString()).isValid());
}

void tst_OrvLook::darkIsDark()
{
    OrvLook::setDark(true);
    QVERIFY(OrvLook::isDark());
    const QMap<QString, QString> values = valuesOf(kDark);
    QCOMPARE(OrvLook::color(QStringLiteral("dialogGround")),
             QColor(values.value(QStringLiteral("dialogGround"))));
    OrvLook::setDark(false);
    QVERIFY(!OrvLook::isDark());
}

void tst_OrvLook::namedSheetsHaveLightColors_data()
{
    QTest::addColumn<QByteArray>("md5");
    QTest::newRow("global_QScrollBar.qss") << QByteArray("4d7e3a73d47ea338e546f1e79fa87e02");
    QTest::newRow("resourceGeneratedStyle_BrixelCam.qss") << QByteArray("831d61145dca02591a5f8d99110ccfd4");
    QTest::newRow("resourceGlobal.qss") << QByteArray("4ff61fa7b1d2a2d0b0c8b23ad3a4c502");
    QTest::newRow("resourceplugins.qss") << QByteArray("1a23c5c3bfd4a8c5d05eccb329479cc4");
}

void tst_OrvLook::namedSheetsHaveLightColors()
{
    QFETCH(QByteArray, md5);
    const QByteArray sheet =
        contents(QLatin1String(":/qssFromResource/") + QLatin1String(QTest::currentDataTag()));
    QCOMPARE(QCryptographicHash::hash(sheet, QCryptographicHash::Md5).toHex(), md5);
}

void tst_OrvLook::namedSheetsInAnyLook_data()
{
    namedSheetsHaveLightColors_data();
}

void tst_OrvLook::namedSheetsInAnyLook()
{
    const QLatin1String name(QTest::currentDataTag());
    const LogCapture log; // of the theme's name
    OrvResourceLoader light;
    light.loadThemeFile(kLight);
    QCOMPARE(light.loadQssFile(QLatin1String(":/orvcommonlib/sheets/") + name),
             QString::fromUtf8(contents(QLatin1String(":/qssFromResource/") + name)));

    OrvResourceLoader dark;
    dark.loadThemeFile(kDark);
    const QString sheet = dark.loadQssFile(QLatin1String(":/orvcommonlib/sheets/") + name);
    QVERIFY(!sheet.contains(QLatin1Char('@')));
    QCOMPARE(sheet.count(QLatin1Char('{')),
             light.loadQssFile(QLatin1String(":/orvcommonlib/sheets/") + name).count(QLatin1Char('{')));
    QVERIFY(log.texts().filter(QStringLiteral("not exist")).isEmpty());
}

void tst_OrvLook::guideTellsEveryColor()
{
    const QString guide = QString::fromUtf8(contents(QStringLiteral(ORV_GUIDE)));
    const QMap<QString, QString> light = valuesOf(kLight);
    const QMap<QString, QString> dark = valuesOf(kDark);
    const QStringList names = light.keys();
    for (const QString &name : names) {
        const QString row =
            QStringLiteral("| `%1` | `%2` | `%3` |").arg(name, light.value(name), dark.value(name));
        QVERIFY2(guide.contains(row), qPrintable(row));
    }
    QCOMPARE(guide.count(QStringLiteral("\n| `")), light.size());
}

void tst_OrvLook::themeOfTheClient_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QColor>("color");
    const QColor light(0x4B, 0x66, 0xEB); // confirmGround
    QTest::newRow("six digits") << "\"#102030\"" << QColor(0x10, 0x20, 0x30);
    QTest::newRow("three digits") << "#123" << QColor(0x11, 0x22, 0x33);
    QTest::newRow("eight digits") << "#80102030" << QColor(0x10, 0x20, 0x30, 0x80);
    QTest::newRow("name") << "red" << QColor(255, 0, 0);
    QTest::newRow("transparent") << "transparent" << QColor(0, 0, 0, 0);
    QTest::newRow("rgb") << "\"rgb(1, 2, 3)\"" << QColor(1, 2, 3);
    QTest::newRow("rgba, parts of 255") << "\"rgba(1,2,3,51)\"" << QColor(1, 2, 3, 51);
    QTest::newRow("rgba, parts of 1") << "\"RGBA( 1, 2, 3, 0.2 )\"" << QColor(1, 2, 3, 51);
    QTest::newRow("rgba, percent") << "\"rgba(1, 2, 3, 20%)\"" << QColor(1, 2, 3, 51);
    QTest::newRow("too large") << "\"rgb(300, 2, 3)\"" << light;
    QTest::newRow("too large for a number") << "\"rgb(99999999999, 2, 3)\"" << light;
    QTest::newRow("too few") << "\"rgb(1, 2)\"" << light;
    QTest::newRow("no colour") << "nonsense" << light;
    QTest::newRow("a list, for want of quotes") << "rgb(1, 2, 3)" << light;
    QTest::newRow("a rule") << "\"#102030;} QLabel{color:red\"" << light;
    QTest::newRow("empty") << "" << light;
}

void tst_OrvLook::themeOfTheClient()
{
    QFETCH(QString, value);
    QFETCH(QColor, color);
    const QString file = themeFile(QStringLiteral("confirmGround=%1\n").arg(value));
    QVERIFY(OrvLook::setTheme(file));
    QCOMPARE(OrvLook::color(QStringLiteral("confirmGround")).rgba(), color.rgba());
}

void tst_OrvLook::missingNamesKeepLight()
{
    OrvLook::setDark(true);
    QVERIFY(OrvLook::setTheme(themeFile(QStringLiteral("[Any]\nconfirmGround=#102030\n"))));
    const QMap<QString, QString> light = valuesOf(kLight);
    const QStringList names = OrvLook::names();
    const QColor own(0x10, 0x20, 0x30);
    QCOMPARE(OrvLook::color(QStringLiteral("confirmGround")), own);
    QCOMPARE(OrvLook::color(QStringLiteral("titleText")), QColor(light.value(QStringLiteral("titleText"))));
    QVERIFY(!OrvLook::isDark());
    QVERIFY(OrvLook::setTheme(kLight));
    for (const QString &name : names) {
        if (QColor::isValidColor(light.value(name)))
            QCOMPARE(OrvLook::color(name), QColor(light.value(name)));
    }
}

void tst_OrvLook::namesOfTheClientAreIgnored()
{
    const QStringList names = OrvLook::names();
    QVERIFY(OrvLook::setTheme(themeFile(QStringLiteral("another=#102030\n"))));
    QCOMPARE(OrvLook::names(), names);
    QVERIFY(!OrvLook::color(QStringLiteral("another")).isValid());
}

void tst_OrvLook::referencesAreResolved()
{
    QVERIFY(OrvLook::setTheme(themeFile(QStringLiteral("brand=#102030\nconfirmGround=@brand\n"))));
    QCOMPARE(OrvLook::color(QStringLiteral("confirmGround")), QColor(0x10, 0x20, 0x30));
}

void tst_OrvLook::missingFile()
{
    OrvLook::setDark(true);
    const QSignalSpy changed(OrvLook::instance(), &OrvLook::changed);
    const LogCapture log;
    QVERIFY(!OrvLook::setTheme(m_folder.filePath(QStringLiteral("none.ini"))));
    QCOMPARE(log.count(), 1);
    QCOMPARE(log.lines().constFirst().type, QtWarningMsg);
    QVERIFY(log.texts().constFirst().contains(QLatin1String("none.ini")));
    QVERIFY(OrvLook::isDark());
    QCOMPARE(changed.count(), 0);
}

void tst_OrvLook::folder()
{
    const LogCapture log;
    QVERIFY(!OrvLook::setTheme(m_folder.path()));
    QVERIFY(!OrvLook::setTheme(QString()));
    QCOMPARE(log.count(), 2);
}

void tst_OrvLook::changedOnceForEachChange()
{
    QSignalSpy changed(OrvLook::instance(), &OrvLook::changed);
    OrvLook::setDark(false);
    QCOMPARE(changed.count(), 0);
    OrvLook::setDark(true);
    QCOMPARE(changed.count(), 1);
    OrvLook::setDark(true);
    QVERIFY(OrvLook::setTheme(kDark));
    QCOMPARE(changed.count(), 1);
    OrvLook::setDark(false);
    QCOMPARE(changed.count(), 2);
    // The same colour in another form is the same colour.
    QVERIFY(OrvLook::setTheme(themeFile(QStringLiteral("cancelGround=#fff\nrowGround=white\n"))));
    QCOMPARE(changed.count(), 2);
    QVERIFY(OrvLook::setTheme(themeFile(QStringLiteral("cancelGround=#fffffe\n"))));
    QCOMPARE(changed.count(), 3);
}

void tst_OrvLook::changedInsideItsOwnSlot()
{
    QList<bool> seen;
    QObject context;
    connect(OrvLook::instance(), &OrvLook::changed, &context, [&seen] {
        seen << OrvLook::isDark();
        OrvLook::setDark(false);
    });
    OrvLook::setDark(true);
    QCOMPARE(seen, (QList<bool>{true, false}));
    QVERIFY(!OrvLook::isDark());
}

void tst_OrvLook::otherThreads_data()
{
    QTest::addColumn<std::function<bool()>>("isRefused");
    const auto row = [](const char *name, const std::function<bool()> &isRefused) {
        QTest::newRow(name) << isRefused;
    };
    row("setTheme", [] { return !OrvLook::setTheme(kLight); });
    row("setDark", [] {
        OrvLook::setDark(false);
        return true;
    });
    row("isDark", [] { return !OrvLook::isDark(); });
    row("color", [] { return !OrvLook::color(QStringLiteral("titleText")).isValid(); });
    row("names", [] { return OrvLook::names().isEmpty(); });
}

void tst_OrvLook::otherThreads()
{
    QFETCH(std::function<bool()>, isRefused);
    OrvLook::setDark(true);
    const LogCapture log;
    bool refused = false;
    fromAnotherThread([&] { refused = isRefused(); });
    QVERIFY(refused);
    QVERIFY(OrvLook::isDark());
    QCOMPARE(log.texts(), QStringList{QStringLiteral("OrvLook::%1: only the GUI thread may call this")
                                          .arg(QLatin1String(QTest::currentDataTag()))});
    QCOMPARE(log.lines().constFirst().type, QtWarningMsg);
}

void tst_OrvLook::instanceFromAnotherThread()
{
    OrvLook *other = nullptr;
    fromAnotherThread([&other] { other = OrvLook::instance(); });
    QCOMPARE(other, OrvLook::instance());
    QCOMPARE(other->thread(), qApp->thread());
}

ORV_TEST_MAIN(tst_OrvLook)

#include "tst_orvlook.moc"
