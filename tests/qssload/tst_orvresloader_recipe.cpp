#include "logcapture.h"
#include "orvresloader.h"
#include "plainloader.h"
#include "seed.h"
#include "testmain.h"
#include "themefolder.h"

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

namespace {

/// Small random themes and sheets of few characters, so that names are prefixes of one another, values hold
/// references and replacements join to new ones.
class RandomText
{
public:
    explicit RandomText(quint32 seed)
        : m_random(seed)
    {
    }

    int below(int limit) { return int(m_random.bounded(limit)); }

    QString name()
    {
        QString result;
        for (int length = 1 + below(3); length > 0; --length)
            result += QChar(u"abA_1"[below(5)]);
        return result;
    }

    /// Tokens without blanks between them more often than not.
    QString text(int tokens)
    {
        QString result;
        while (tokens-- > 0) {
            switch (below(8)) {
            case 0:
                result += QLatin1Char('@');
                break;
            case 1:
                result += QLatin1Char('{');
                break;
            case 2:
                result += QLatin1Char('}');
                break;
            case 3:
                result += QLatin1Char(' ');
                break;
            case 4:
                result += name();
                break;
            case 5:
                result += QLatin1String("@{") + name() + QLatin1Char('}');
                break;
            default:
                result += QLatin1Char('@') + name();
                break;
            }
        }
        return result;
    }

    QString theme()
    {
        QString result;
        for (int keys = below(9); keys > 0; --keys) {
            if (below(6) == 0)
                result += QLatin1Char('[') + name() + QLatin1String("]\n");
            result += name() + QLatin1Char('=') + text(below(4)) + QLatin1Char('\n');
        }
        return result;
    }

    /// As people write them: references stand apart, and no value refers to another.
    QString rule()
    {
        const QString brace = below(3) == 0 ? QStringLiteral("@{%1}") : QStringLiteral("@%1");
        return name() + QLatin1String(":") + brace.arg(name()) + QStringLiteral(";b\n");
    }

    QString tidyTheme()
    {
        QString result;
        for (int keys = below(30); keys > 0; --keys)
            result += name() + QLatin1Char('=') + (below(4) == 0 ? QString() : name()) + QLatin1Char('\n');
        return result;
    }

private:
    QRandomGenerator m_random;
};

QByteArray seedText(quint32 seed)
{
    return "seed " + QByteArray::number(seed);
}

} // namespace

/// The loader beside the plain recipe, which replaces one reference after the other.
class tst_orvresloader_recipe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void equalsThePlainRecipe();
    void equalsThePlainRecipeForLongSheets();
    void manyNamesThatBeginAlike();

private:
    void compareToThePlainRecipe(const QByteArray &theme, const QByteArray &sheet, const QByteArray &what);

    ThemeFolder m_folder;
};

void tst_orvresloader_recipe::compareToThePlainRecipe(const QByteArray &theme, const QByteArray &sheet,
                                                      const QByteArray &what)
{
    const QString themeFile = m_folder.file(theme);
    const QString sheetFile = m_folder.file(sheet);

    PlainLoader plain;
    plain.loadThemeFile(themeFile);
    const QString expected = plain.appendQssFile(sheetFile);

    LogCapture log;
    OrvResourceLoader loader;
    loader.loadThemeFile(themeFile);
    const QString result = loader.loadQssFile(sheetFile);
    QFile::remove(themeFile);
    QFile::remove(sheetFile);
    QVERIFY2(
        result == expected && log.texts() == plain.log(),
        qPrintable(QStringLiteral("%1\ntheme:\n%2\nsheet: %3\nresult: %4\nplain:  %5\nlog: %6\nplain: %7")
                       .arg(QString::fromLatin1(what), QString::fromUtf8(theme), QString::fromUtf8(sheet),
                            result, expected, log.texts().join(QLatin1Char(';')),
                            plain.log().join(QLatin1Char(';')))));
}

void tst_orvresloader_recipe::equalsThePlainRecipe()
{
#ifdef Q_OS_WIN
    constexpr quint32 kRounds = 300; // files are slow there
#else
    constexpr quint32 kRounds = 4000;
#endif
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds && !QTest::currentTestFailed(); ++seed) {
        RandomText random(seed);
        const QByteArray theme = random.theme().toUtf8();
        compareToThePlainRecipe(theme, random.text(random.below(25)).toUtf8(), seedText(seed));
    }
}

void tst_orvresloader_recipe::equalsThePlainRecipeForLongSheets()
{
#ifdef Q_OS_WIN
    constexpr quint32 kRounds = 100;
#else
    constexpr quint32 kRounds = 400;
#endif
    const quint32 first = firstSeed();
    for (quint32 seed = first; seed != first + kRounds && !QTest::currentTestFailed(); ++seed) {
        RandomText random(seed);
        // Seldom anything that a replacement could join to a new reference, else it is there every time.
        const bool isTidy = random.below(4) != 0;
        QByteArray sheet;
        for (int rules = 100; rules > 0; --rules)
            sheet += (isTidy && random.below(200) != 0 ? random.rule() : random.text(8)).toUtf8();
        compareToThePlainRecipe(isTidy ? random.tidyTheme().toUtf8() : random.theme().toUtf8(), sheet,
                                seedText(seed));
    }
}

void tst_orvresloader_recipe::manyNamesThatBeginAlike()
{
    QByteArray theme;
    QByteArray sheet;
    for (int i = 0; i < 1000; ++i) {
        const QByteArray number = QByteArray::number(i);
        if (i % 5 == 0)
            theme += "[section" + number + "]\n";
        theme +=
            "name" + number + '=' + (i % 7 == 0 ? "@name" + QByteArray::number(i / 2) : '#' + number) + '\n';
    }
    for (int i = 1999; i >= 0; --i)
        sheet += "QWidget#w{color:@name" + QByteArray::number(i * 7 % 2000) + ";}\n";
    compareToThePlainRecipe(theme, sheet, "many names");
}

ORV_TEST_MAIN(tst_orvresloader_recipe)

#include "tst_orvresloader_recipe.moc"
