#include "testmain.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <algorithm>

namespace {

constexpr int kTimeoutMs = 240000; // every page and dialog, under a sanitizer, on a busy machine
constexpr int kWindowWidth = 1000;
constexpr int kWindowHeight = 680;

struct Outcome
{
    QString failure; ///< what kept the program from ending by itself
    int exitCode = -1;
    QString output;
    QString errors;

    QStringList lines() const
    {
        return output.split(QRegularExpression(QStringLiteral("[\r\n]+")), Qt::SkipEmptyParts);
    }
    QString text() const { return QStringList{failure, errors, output}.join(QLatin1Char('\n')); }
};

QString failureOf(const QProcess &process)
{
    if (process.error() != QProcess::UnknownError && process.error() != QProcess::Crashed)
        return process.errorString();
    if (process.exitStatus() == QProcess::CrashExit)
        return QStringLiteral("crashed, with exit code 0x%1").arg(uint(process.exitCode()), 0, 16);
    return {};
}

Outcome runGallery(const QStringList &arguments, const QString &scale = QStringLiteral("1"))
{
    QProcess gallery;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
    environment.remove(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"));
    gallery.setProcessEnvironment(environment);
    gallery.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral(GALLERY_NAME)),
                  arguments);
    gallery.waitForFinished(kTimeoutMs);
    Outcome outcome;
    outcome.failure = failureOf(gallery);
    outcome.exitCode = gallery.exitCode();
    outcome.output = QString::fromUtf8(gallery.readAllStandardOutput());
    outcome.errors = QString::fromUtf8(gallery.readAllStandardError());
    return outcome;
}

QStringList pageNames()
{
    return runGallery({QStringLiteral("--list")}).lines();
}

bool hasSeveralColours(const QImage &image)
{
    const QRgb first = image.pixel(0, 0);
    for (int y = 0; y < image.height(); y += 7) {
        for (int x = 0; x < image.width(); x += 7) {
            if (image.pixel(x, y) != first)
                return true;
        }
    }
    return false;
}

/// The median of what its pixels have.
int lightness(const QImage &image)
{
    QVector<int> levels;
    for (int y = 0; y < image.height(); y += 7) {
        for (int x = 0; x < image.width(); x += 7)
            levels << qGray(image.pixel(x, y));
    }
    std::sort(levels.begin(), levels.end());
    return levels.value(levels.size() / 2);
}

} // namespace

class tst_Gallery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listNamesEachPageOnce();
    void shotsShowEachPage_data();
    void shotsShowEachPage();
    void shotsOfAFolderThatCannotBeMade();
    void unknownPageIsRefused();
    void unknownOptionIsRefused();
    void helpNamesTheOptions();
};

void tst_Gallery::listNamesEachPageOnce()
{
    QStringList names = pageNames();
    QVERIFY(!names.isEmpty());
    QCOMPARE(names.first(), QStringLiteral("welcome"));
    QVERIFY(names.contains(QStringLiteral("popupdlgwithmask")));
    QCOMPARE(names.removeDuplicates(), 0);
}

void tst_Gallery::shotsShowEachPage_data()
{
    QTest::addColumn<QString>("scale");
    const QStringList scales = QStringLiteral(GALLERY_SCALES).split(QLatin1Char(','));
    for (const QString &scale : scales)
        QTest::newRow(qPrintable(scale)) << scale;
}

void tst_Gallery::shotsShowEachPage()
{
    QFETCH(QString, scale);
    const double ratio = scale.toDouble();
    QTemporaryDir folder;
    const QDir shots(folder.filePath(QStringLiteral("a/new/folder")));
    const Outcome outcome =
        runGallery({QStringLiteral("--shots"), shots.path(), QStringLiteral("--verbose")}, scale);
    QVERIFY2(outcome.failure.isEmpty(), qPrintable(outcome.text()));
    QVERIFY2(outcome.exitCode == 0, qPrintable(outcome.text()));

    const QStringList pages = pageNames();
    QVERIFY(!pages.isEmpty());
    for (const QString &page : pages) {
        const QImage picture(shots.filePath(QStringLiteral("page-%1.png").arg(page)));
        QVERIFY2(!picture.isNull(), qPrintable(page));
        QCOMPARE(picture.width(), qRound(kWindowWidth * ratio));
        QVERIFY2(picture.height() >= qRound(kWindowHeight * ratio), qPrintable(page));
        QVERIFY2(hasSeveralColours(picture), qPrintable(page));
        const QImage dark(shots.filePath(QStringLiteral("dark/page-%1.png").arg(page)));
        QCOMPARE(dark.width(), picture.width());
        QVERIFY2(lightness(dark) < lightness(picture) / 2, qPrintable(page));
    }
    QVERIFY(!QImage(shots.filePath(QStringLiteral("light-and-dark.png"))).isNull());
    const QStringList further =
        shots.entryList({QStringLiteral("dialog-*.png"), QStringLiteral("popup-*.png")});
    QVERIFY(further.contains(QStringLiteral("dialog-popupdlgwithmask.png")));
    for (const QString &name : further)
        QCOMPARE(QImage(shots.filePath(name)).size(), (QSizeF(kWindowWidth, kWindowHeight) * ratio).toSize());

    // A page that warns when it is opened has a fault of its own: a missing picture, a sheet that does not
    // parse.
    const QStringList complaints =
        outcome.lines().filter(QRegularExpression(QStringLiteral("^(warning|critical)\t")));
    QCOMPARE(complaints, QStringList());
}

void tst_Gallery::shotsOfAFolderThatCannotBeMade()
{
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const Outcome outcome =
        runGallery({QStringLiteral("--shots"), folder.filePath(QStringLiteral("file/below"))});
    QVERIFY2(outcome.failure.isEmpty(), qPrintable(outcome.text()));
    QCOMPARE(outcome.exitCode, 1);
    QVERIFY2(outcome.errors.contains(QStringLiteral("page-welcome.png")), qPrintable(outcome.errors));
}

void tst_Gallery::unknownPageIsRefused()
{
    const Outcome outcome = runGallery({QStringLiteral("--page"), QStringLiteral("nothing-of-the-kind")});
    QVERIFY2(outcome.failure.isEmpty(), qPrintable(outcome.text()));
    QCOMPARE(outcome.exitCode, 2);
    QVERIFY2(outcome.errors.contains(QStringLiteral("nothing-of-the-kind")), qPrintable(outcome.errors));
}

void tst_Gallery::unknownOptionIsRefused()
{
    const Outcome outcome = runGallery({QStringLiteral("--nonsense")});
    QVERIFY2(outcome.failure.isEmpty(), qPrintable(outcome.text()));
    QVERIFY(outcome.exitCode != 0);
}

void tst_Gallery::helpNamesTheOptions()
{
    const Outcome outcome = runGallery({QStringLiteral("--help")});
    QVERIFY2(outcome.failure.isEmpty(), qPrintable(outcome.text()));
    QCOMPARE(outcome.exitCode, 0);
    for (const char *option : {"--shots", "--page", "--list", "--verbose", "--places"})
        QVERIFY2(outcome.output.contains(QLatin1String(option)), option);
}

ORV_TEST_MAIN(tst_Gallery)
#include "tst_gallery.moc"
