#include "orvresloader.h"

#include "logcapture.h"
#include "testmain.h"
#include "themefolder.h"

#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>

#include <algorithm>
#include <memory>
#include <type_traits>

class tst_orvresloader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isPlain();
    void startsEmpty();
    void resolvesBothForms();
    void resolvesReferences_data();
    void resolvesReferences();
    void sectionsAreFlat();
    void themesAddUp();
    void resolvesValuesOnceInKeyOrder_data();
    void resolvesValuesOnceInKeyOrder();
    void repeatedReferencesOfValuesAreAskedAgain();
    void loadStartsAnew();
    void appendAddsUp();
    void missingSheet_data();
    void missingSheet();
    void unusableTheme_data();
    void unusableTheme();
    void logsItsOwnCallSites();
    void tellsEachMissingNameOnce();
    void encodings_data();
    void encodings();
    void themeValuesAreReadByQSettings_data();
    void themeValuesAreReadByQSettings();
    void readsResources();
    void copiesAreIndependent();
    void copiesOutliveTheOriginal();
    void resultStylesWidgets();
    void valuesMayEnlargeTheSheet();
    void whatWouldGrowTooLongStays_data();
    void whatWouldGrowTooLongStays();
    void whatWouldGrowTooLongStaysInTheTheme();
    void sheetsAddUpToTheLimit();
    void largeSheetsAndThemes();

private:
    QString file(const QByteArray &content) { return m_folder.file(content); }
    QString resolved(const QByteArray &theme, const QByteArray &sheet);

    ThemeFolder m_folder;
};

QString tst_orvresloader::resolved(const QByteArray &theme, const QByteArray &sheet)
{
    const LogCapture quiet;
    OrvResourceLoader loader;
    loader.loadThemeFile(file(theme));
    return loader.loadQssFile(file(sheet));
}

void tst_orvresloader::isPlain()
{
    QVERIFY(!std::is_polymorphic<OrvResourceLoader>::value);
    QVERIFY(std::is_copy_constructible<OrvResourceLoader>::value);
    QVERIFY(std::is_copy_assignable<OrvResourceLoader>::value);
}

void tst_orvresloader::startsEmpty()
{
    LogCapture log;
    OrvResourceLoader loader;
    QCOMPARE(loader.appendQssFile(file("QLabel{color:@text;}")), QStringLiteral("QLabel{color:;}"));
    QCOMPARE(log.texts(), QStringList{QStringLiteral("\"text\" not exist")});
}

void tst_orvresloader::resolvesBothForms()
{
    QCOMPARE(resolved("accent=#4B66EB\n", "a:@{accent};b:@accent;c:@{accent}x;"),
             QStringLiteral("a:#4B66EB;b:#4B66EB;c:#4B66EBx;"));
}

void tst_orvresloader::resolvesReferences_data()
{
    QTest::addColumn<QByteArray>("theme");
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *theme, const char *sheet, const char *expected) {
        QTest::newRow(name) << QByteArray(theme) << QByteArray(sheet) << QString::fromUtf8(expected);
    };
    row("several times", "a=1\n", "@a @a;@{a}@a", "1 1;11");
    row("several names", "a=1\nb=2\n", "@b@a", "21");
    row("shorter name first", "main=red\nmainText=blue\n", "@main; @mainText;", "red; redText;");
    row("longer name first", "main=red\nmainText=blue\n", "@mainText; @main;", "blue; red;");
    row("braces guard a longer name", "main=red\nmainText=blue\n", "@{main}; @{mainText};", "red; blue;");
    row("high-resolution picture", "a=1\n", "url(icon@2x.png)", "url(icon.png)");
    row("name that begins with a digit", "2x=X\n", "url(icon@2x.png)", "url(iconX.png)");
    row("underscores", "a_b=1\n", "@a_b-@a_b", "1-1");
    row("case counts", "Main=1\n", "@main@Main", "1");
    row("unknown", "a=1\n", "x@b;@{c}y", "x;y");
    row("empty value", "a=\n", "x@a;", "x;");
    row("no reference", "a=1\n", "@ a @{} @{a a} @-a {a}", "@ a @{} @{a a} @-a {a}");
    row("open brace", "a=1\n", "@{a", "@{a");
    row("two signs", "a=1\n", "@@a", "@1");
    row("letters beyond ASCII end a name", "a=1\n", "@a\xc3\xa9", "1\xc3\xa9");
    // The theme's own pass leaves "@b" in the value of a.
    row("a value's reference is found later", "a=@c\nb=2\nc=@b\n", "@a @b", "2 2");
    row("but not earlier", "a=@c\nb=2\nc=@b\n", "@b @a", "2 @b");
    row("joined in front", "a=x\nbx=2\n", "@b@a @bx", "x x");
    row("joined to a later reference", "a=x\nbx=7\nz=@zz\nzz=@b\n", "@z@a @bx", "7 7");
    row("joined braces", "b=1\n", "@z @{@zb} @{b}", " 1 1");
    row("joined to a sign", "a=b\nb=1\n", "@@a @b", "1 1");
    row("joined to a brace", "a=b\nb=1\n", "@{@a} @{b}", "1 1");
    row("joined to letters", "a=x\nbcx=1\n", "@{bc@a} @{bcx}", "1 1");
    row("letters in front", "a=x\n", "bc@a {bc@a @-bc@a @{z}bc@a", "bcx {bcx @-bcx bcx");
    row("empty sheet", "a=1\n", "", "");
    row("theme name is a value too", "ThemeName=Dark\n", "@ThemeName", "Dark");
}

void tst_orvresloader::resolvesReferences()
{
    QFETCH(const QByteArray, theme);
    QFETCH(const QByteArray, sheet);
    QFETCH(const QString, expected);
    QCOMPARE(resolved(theme, sheet), expected);
    // Long sheets are worked through in another way.
    const QByteArray filler(10000, '\n');
    QCOMPARE(resolved(theme, sheet + filler), expected + QString::fromLatin1(filler));
}

void tst_orvresloader::sectionsAreFlat()
{
    const QByteArray theme = "a=top\nb=top\n[One]\na=one\nc=one\n[Two]\nc=two\nd=two\n";
    QCOMPARE(resolved(theme, "@a @b @c @d"), QStringLiteral("one top two two"));
    // QSettings lists the groups in alphabetical order, whatever their order in the file.
    QCOMPARE(resolved("[Two]\na=two\n[One]\na=one\n", "@a"), QStringLiteral("two"));
    QCOMPARE(resolved("[General]\na=general\n[Two]\nb=two\n", "@a @b"), QStringLiteral("general two"));
}

void tst_orvresloader::themesAddUp()
{
    const LogCapture quiet;
    OrvResourceLoader loader;
    QVERIFY(loader.loadThemeFile(file("a=1\nb=2\n")));
    QVERIFY(loader.loadThemeFile(file("b=3\nc=@a\n")));
    QCOMPARE(loader.loadQssFile(file("@a @b @c")), QStringLiteral("1 3 1"));
}

void tst_orvresloader::resolvesValuesOnceInKeyOrder_data()
{
    QTest::addColumn<QByteArray>("theme");
    QTest::addColumn<QString>("expected"); // of the sheet "@a"
    const auto row = [](const char *name, const char *theme, const char *expected) {
        QTest::newRow(name) << QByteArray(theme) << QString::fromUtf8(expected);
    };
    row("backward", "a=@A\nA=#fff\n", "#fff");
    row("backward chain", "a=@Z\nZ=@A\nA=#fff\n", "#fff");
    row("forward", "a=@b\nb=#fff\n", "#fff");
    row("forward chain stops after one step", "a=@c\nb=#fff\nc=@b\n", "@b");
    row("itself", "a=@a\n", "@a");
    row("prefix in a value", "a=@B-@Bc\nB=1\nBc=2\n", "1-1c");
    row("braces", "a=@{B}c@{Bc}\nB=1\nBc=2\n", "1c2");
    row("missing", "a=x@nothing;\n", "x");
}

void tst_orvresloader::resolvesValuesOnceInKeyOrder()
{
    QFETCH(const QByteArray, theme);
    QFETCH(const QString, expected);
    QCOMPARE(resolved(theme, "@a"), expected);
}

void tst_orvresloader::repeatedReferencesOfValuesAreAskedAgain()
{
    LogCapture log;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("a=@no@no@no\n"));
    const QString missing = QStringLiteral("\"no\" not exist");
    QCOMPARE(log.texts(), (QStringList{QStringLiteral("theme name: \"\""), missing, missing, missing}));
    // Twice in the own value: two steps, each of which doubles what is there.
    QCOMPARE(resolved("a=@a@a\n", "@a"), QStringLiteral("@a").repeated(8));
}

void tst_orvresloader::loadStartsAnew()
{
    const LogCapture quiet;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("a=1\n"));
    QCOMPARE(loader.loadQssFile(file("first@a")), QStringLiteral("first1"));
    QCOMPARE(loader.loadQssFile(file("second@a")), QStringLiteral("second1"));
}

void tst_orvresloader::appendAddsUp()
{
    const LogCapture quiet;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("a=1\nab=2\n"));
    QCOMPARE(loader.loadQssFile(file("x@a;@")), QStringLiteral("x1;@"));
    // What is already there is not looked at again, even where the new sheet completes a reference.
    QCOMPARE(loader.appendQssFile(file("ab@ab")), QStringLiteral("x1;@ab2"));
    QCOMPARE(loader.appendQssFile(file("\n")), QStringLiteral("x1;@ab2\n"));
}

void tst_orvresloader::missingSheet_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing.qss"));
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("missing resource") << QStringLiteral(":/nowhere/missing.qss");
    QTest::newRow("no name") << QString();
    QTest::newRow("name too long") << m_folder.filePath(QString(100000, QLatin1Char('x')));
}

void tst_orvresloader::missingSheet()
{
    QFETCH(const QString, path);
    QFile unopened(path);
    LogCapture log;
    QVERIFY(!unopened.open(QIODevice::ReadOnly));
    OrvResourceLoader loader;
    QCOMPARE(loader.loadQssFile(file("kept")), QStringLiteral("kept"));
    QCOMPARE(loader.appendQssFile(path), QStringLiteral("kept"));
    QCOMPARE(loader.loadQssFile(path), QString());
    QCOMPARE(loader.appendQssFile(file("new")), QStringLiteral("new"));

    QVector<LogLine> own = log.lines();
    own.erase(
        std::remove_if(own.begin(), own.end(),
                       [](const LogLine &line) { return !line.text.startsWith(QLatin1String("\"load [")); }),
        own.end());
    QCOMPARE(own.size(), 2);
    for (const LogLine &line : qAsConst(own)) {
        QCOMPARE(line.type, QtWarningMsg);
        QCOMPARE(line.text, QStringLiteral("\"load [%1] failed:\" \"%2\"").arg(path, unopened.errorString()));
        QVERIFY2(line.function.contains(QLatin1String("OrvResourceLoader::load(const QString&)")),
                 qPrintable(line.function));
    }
}

void tst_orvresloader::unusableTheme_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing.ini"));
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("no name") << QString();
    QTest::newRow("empty") << file("");
    QTest::newRow("no INI file") << file("just some words\nand more of them\n");
    QTest::newRow("broken sections") << file("[never closed\n]]]\n=\n[]\n===\n");
    QByteArray binary;
    for (int i = 0; i < 4096; ++i)
        binary += char(i * 7 + i / 256);
    QTest::newRow("binary") << file(binary.replace('=', '-').replace('@', '-'));
}

void tst_orvresloader::unusableTheme()
{
    QFETCH(const QString, path);
    LogCapture log;
    OrvResourceLoader loader;
    QVERIFY(loader.loadThemeFile(file("a=1\n")));
    log.clear();
    QVERIFY(loader.loadThemeFile(path));
    // QSettings itself warns of a line without a name.
    QCOMPARE(log.texts().filter(QLatin1String("theme name:")),
             QStringList{QStringLiteral("theme name: \"\"")});
    QCOMPARE(loader.loadQssFile(file("@a")), QStringLiteral("1"));
}

void tst_orvresloader::logsItsOwnCallSites()
{
    LogCapture log;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("ThemeName=Night\na=@b\n"));
    loader.loadQssFile(file("@c"));
    const QVector<LogLine> lines = log.lines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).text, QStringLiteral("theme name: \"Night\""));
    QVERIFY(
        lines.at(0).function.contains(QLatin1String("OrvResourceLoader::initConfigFile(const QString&)")));
    QCOMPARE(lines.at(1).text, QStringLiteral("\"b\" not exist"));
    QCOMPARE(lines.at(2).text, QStringLiteral("\"c\" not exist"));
    for (const LogLine &line : lines) {
        QCOMPARE(line.type, QtInfoMsg);
        QCOMPARE(line.category, QStringLiteral("default"));
        QVERIFY(line.file.endsWith(QLatin1String("orvresloader.cpp")));
        QVERIFY(line.line > 0);
    }
    QVERIFY(lines.at(2).function.contains(
        QLatin1String("OrvResourceLoader::getMatchedValue(const QString&) const")));
}

void tst_orvresloader::tellsEachMissingNameOnce()
{
    LogCapture log;
    OrvResourceLoader loader;
    loader.loadQssFile(file("@b @a @b @{a} @2x @a"));
    // The two ways to write a name are two references.
    QCOMPARE(log.texts(),
             (QStringList{QStringLiteral("\"b\" not exist"), QStringLiteral("\"a\" not exist"),
                          QStringLiteral("\"a\" not exist"), QStringLiteral("\"2x\" not exist")}));
}

void tst_orvresloader::encodings_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QString>("expected");
    QTest::newRow("UTF-8") << QByteArray("/* \xe4\xb8\xad\xf0\x9f\x98\x80 */@a")
                           << QString::fromUtf8("/* \xe4\xb8\xad\xf0\x9f\x98\x80 */1");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf@a{}") << QStringLiteral("1{}");
    QTest::newRow("not UTF-8") << QByteArray("\xff@a")
                               << QString::fromUtf8("\xef\xbf\xbd") + QLatin1Char('1');
    QTest::newRow("line ends are kept") << QByteArray("@a\r\n@a\n") << QStringLiteral("1\r\n1\n");
    // As QString takes a QByteArray, the text ends at the first zero byte.
    QTest::newRow("zero byte") << QByteArray("@a\0@a", 5) << QStringLiteral("1");
}

void tst_orvresloader::encodings()
{
    QFETCH(const QByteArray, sheet);
    QFETCH(const QString, expected);
    QCOMPARE(resolved("a=1\n", sheet), expected);
}

void tst_orvresloader::themeValuesAreReadByQSettings_data()
{
    QTest::addColumn<QByteArray>("theme");
    QTest::addColumn<QString>("expected"); // of the sheet "@a"
    QTest::newRow("quoted") << QByteArray("a=\"rgb(1, 2, 3)\"\n") << QStringLiteral("rgb(1, 2, 3)");
    QTest::newRow("quoted semicolon") << QByteArray("a=\"x;y\"\n") << QStringLiteral("x;y");
    QTest::newRow("a list has no text") << QByteArray("a=rgb(1, 2, 3)\n") << QString();
    QTest::newRow("comment") << QByteArray("; a=2\na=1 ; one\n") << QStringLiteral("1");
    // What QSettings takes an INI file for: Latin-1, or UTF-8 with Qt 6, where such a byte spoils the value.
    QTest::newRow("Latin-1") << QByteArray("a=\xe9\n")
                             << (QT_VERSION_MAJOR == 5 ? QString(QChar(0xe9)) : QString());
    QTest::newRow("escape") << QByteArray("a=\\x4e2d\n") << QString(QChar(0x4e2d));
    QTest::newRow("half a character is matched by nothing")
        << QByteArray("a=\\xd800 @b\nb=1\n") << QString(QChar(0xd800)) + QStringLiteral(" @b");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf[General]\na=1\n") << QStringLiteral("1");
    QTest::newRow("sub-groups are not entered") << QByteArray("[g]\nsub/a=1\n") << QString();
}

void tst_orvresloader::themeValuesAreReadByQSettings()
{
    QFETCH(const QByteArray, theme);
    QFETCH(const QString, expected);
    QCOMPARE(resolved(theme, "@a"), expected);
}

void tst_orvresloader::readsResources()
{
    const LogCapture log;
    QFile file(QStringLiteral(":/qssFromResource/global_QScrollBar.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    OrvResourceLoader loader;
    QCOMPARE(loader.loadQssFile(file.fileName()), QString::fromUtf8(file.readAll()));
    QCOMPARE(log.count(), 0);
}

void tst_orvresloader::copiesAreIndependent()
{
    const LogCapture quiet;
    OrvResourceLoader original;
    original.loadThemeFile(file("a=1\n"));
    original.loadQssFile(file("@a"));
    OrvResourceLoader copy(original);
    OrvResourceLoader assigned;
    assigned.loadThemeFile(file("a=9\nb=9\n"));
    OrvResourceLoader &result = (assigned = original);
    QCOMPARE(&result, &assigned);

    original.loadThemeFile(file("a=2\n"));
    QCOMPARE(original.appendQssFile(file("@a@b")), QStringLiteral("12"));
    QCOMPARE(copy.appendQssFile(file("@a@b")), QStringLiteral("11"));
    QCOMPARE(assigned.appendQssFile(file("@a@b")), QStringLiteral("11"));
    OrvResourceLoader &itself = assigned;
    assigned = itself;
    QCOMPARE(assigned.appendQssFile(file("@a")), QStringLiteral("111"));
}

void tst_orvresloader::copiesOutliveTheOriginal()
{
    const LogCapture quiet;
    auto original = std::make_unique<OrvResourceLoader>();
    original->loadThemeFile(file("a=1\n"));
    const auto copy = std::make_unique<OrvResourceLoader>(*original);
    original.reset();
    QCOMPARE(copy->loadQssFile(file("@a")), QStringLiteral("1"));
}

void tst_orvresloader::resultStylesWidgets()
{
    const LogCapture quiet;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("[Colours]\ntext=#4B66EB\n[Sizes]\nbody=17px\n"));
    loader.loadQssFile(file("QLabel { color: @text; }\n"));
    QLabel label;
    label.setStyleSheet(loader.appendQssFile(file("QLabel { font-size: @{body}; }\n")));
    label.ensurePolished();
    QCOMPARE(label.palette().color(QPalette::WindowText), QColor(0x4B, 0x66, 0xEB));
    QCOMPARE(label.font().pixelSize(), 17);
}

namespace {

constexpr int kMebi = 1024 * 1024;

} // namespace

void tst_orvresloader::valuesMayEnlargeTheSheet()
{
    // 24 times what the sheet itself holds, and more than 16 Mi characters.
    const QByteArray value(kMebi, 'x');
    const QString result = resolved("a=" + value + "\nb=@{a}@a\n", "@b;" + QByteArray("@a;").repeated(22));
    QCOMPARE(result.size(), 24 * kMebi + 23);
    QCOMPARE(result.count(QLatin1Char('x')), 24 * kMebi);
}

void tst_orvresloader::whatWouldGrowTooLongStays_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QString>("expected");
    // With a value of 1 Mi characters for "large".
    const QByteArray many = QByteArray("@large ").repeated(300);
    QTest::newRow("the others are replaced")
        << "@small " + many + "@small" << QLatin1String("1 ") + QString::fromLatin1(many) + QLatin1Char('1');
    QTest::newRow("one character too many") << QByteArray("@large").repeated(256) + '!'
                                            << QStringLiteral("@large").repeated(256) + QLatin1Char('!');
    QTest::newRow("joined to others") << "@small" + many << QLatin1Char('1') + QString::fromLatin1(many);
}

void tst_orvresloader::whatWouldGrowTooLongStays()
{
    QFETCH(const QByteArray, sheet);
    QFETCH(const QString, expected);
    OrvResourceLoader loader;
    {
        const LogCapture quiet;
        loader.loadThemeFile(file("large=" + QByteArray(kMebi, 'x') + "\nsmall=1\n"));
    }
    LogCapture log;
    QVERIFY(loader.loadQssFile(file(sheet)) == expected);
    QCOMPARE(log.texts(), QStringList{QStringLiteral("\"large\" makes the text too long")});
    const LogLine line = log.lines().constFirst();
    QCOMPARE(line.type, QtWarningMsg);
    QCOMPARE(line.category, QStringLiteral("default"));
    QVERIFY(line.file.endsWith(QLatin1String("orvresloader.cpp")));
    // The loader goes on.
    QCOMPARE(loader.loadQssFile(file("@small")), QStringLiteral("1"));
}

void tst_orvresloader::whatWouldGrowTooLongStaysInTheTheme()
{
    // A thousand times itself, a thousand times over: no memory holds that.
    const QByteArray value = QByteArray("@a;" + QByteArray(300, 'x')).repeated(1000);
    LogCapture log;
    OrvResourceLoader loader;
    loader.loadThemeFile(file("a=\"" + value + "\"\nb=@c\nc=1\n"));
    QCOMPARE(log.texts(), (QStringList{QStringLiteral("theme name: \"\""),
                                       QStringLiteral("\"a\" makes the text too long")}));
    QCOMPARE(loader.loadQssFile(file("@b")), QStringLiteral("1"));
    QVERIFY(loader.loadQssFile(file("@a")) == QString::fromLatin1(value));
}

void tst_orvresloader::sheetsAddUpToTheLimit()
{
    OrvResourceLoader loader;
    LogCapture log;
    loader.loadThemeFile(file("large=" + QByteArray(16 * kMebi, 'x') + '\n'));
    QCOMPARE(loader.loadQssFile(file("@large @large")).size(), 32 * kMebi + 1);
    log.clear();
    const QByteArray many = QByteArray("@large").repeated(14);
    QVERIFY(loader.appendQssFile(file(many)).endsWith(QLatin1Char('x') + QString::fromLatin1(many)));
    QCOMPARE(log.texts(), QStringList{QStringLiteral("\"large\" makes the text too long")});
}

void tst_orvresloader::largeSheetsAndThemes()
{
    // Names of one length, so that the result can be told without the plain recipe, which takes seconds here.
    constexpr int kNames = 5000;
    constexpr int kReferences = 10000;
    const auto name = [](int i) {
        return "name" + QByteArray::number(100000 + i);
    };
    const auto colour = [](int i) {
        return '#' + QByteArray::number(100000 + i);
    };
    QByteArray theme;
    QByteArray sheet;
    QByteArray expected;
    QStringList missing{QStringLiteral("theme name: \"\"")};
    const QByteArray filler(70, 'f');
    for (int i = 0; i < kReferences; ++i) {
        const QByteArray rule = "QWidget#w" + QByteArray::number(i) + "{/*" + filler + "*/color:";
        sheet += rule + '@' + name(i) + ";}\n";
        expected += rule + (i < kNames ? colour(i) : QByteArray()) + ";}\n";
        if (i < kNames)
            theme += name(i) + '=' + colour(i) + '\n';
        else
            missing << QStringLiteral("\"%1\" not exist").arg(QString::fromLatin1(name(i)));
    }
    QVERIFY(sheet.size() > 1000 * 1000);

    LogCapture log;
    OrvResourceLoader loader;
    loader.loadThemeFile(file(theme));
    QVERIFY(loader.loadQssFile(file(sheet)) == QString::fromLatin1(expected));
    QCOMPARE(log.texts(), missing);
}

ORV_TEST_MAIN(tst_orvresloader)

#include "tst_orvresloader.moc"
