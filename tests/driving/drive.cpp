#include "scene.h"
#include "shrink.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <numeric>

// Drives the widgets at random, each sequence in a process of its own, until one fails: then it looks for the shortest
// part of it that still does.

namespace {

using namespace Driving;

constexpr int kLength = 1000; // steps of one sequence
constexpr int kPatienceMs = 300000;

/// Plays those of the sequence's steps that are named; all of them if none is.
int play(quint32 seed, const QStringList &named, bool tells)
{
    QVector<Step> steps = randomSteps(seed, kLength);
    if (!named.isEmpty()) {
        QVector<Step> some;
        for (const QString &number : named)
            some.append(steps.at(number.toInt()));
        steps = some;
    }
    Scene scene(allKinds(), seed);
    if (tells) {
        scene.trace = [](const QString &step) {
            std::fprintf(stderr, "%s\n", qPrintable(step));
        };
    }
    scene.play(steps);
    scene.end();
    if (scene.broken().isEmpty())
        return 0;
    std::fprintf(stderr, "drive: broken %s\n", qPrintable(scene.broken()));
    return 1;
}

QStringList arguments(quint32 seed, const QVector<int> &steps, bool tells)
{
    QStringList numbers;
    for (const int step : steps)
        numbers << QString::number(step);
    QStringList all{QStringLiteral("--play"), QString::number(seed)};
    if (tells)
        all << QStringLiteral("--trace");
    if (!numbers.isEmpty())
        all << QStringLiteral("--only") << numbers.join(QLatin1Char(','));
    return all;
}

/// Whether it ends as it should, and what it says.
bool succeeds(quint32 seed, const QVector<int> &steps, bool tells, QByteArray *output)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(), arguments(seed, steps, tells));
    const bool ended = process.waitForFinished(kPatienceMs);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    *output = process.readAll();
    if (!ended)
        *output += "drive: does not end\n";
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

void report(quint32 seed)
{
    std::printf("drive: seed %u fails, looking for the shortest part\n", seed);
    std::fflush(stdout);
    QVector<int> all(kLength);
    std::iota(all.begin(), all.end(), 0);
    const QVector<int> shortest = shrunk(all, [seed](const QVector<int> &some) {
        QByteArray output;
        return !some.isEmpty() && !succeeds(seed, some, false, &output);
    });
    QByteArray output;
    succeeds(seed, shortest, true, &output);
    std::printf("%s\ndrive: again with %s %s\n", output.constData(),
                qPrintable(QCoreApplication::applicationFilePath()),
                qPrintable(arguments(seed, shortest, true).join(QLatin1Char(' '))));
}

int driveOn(quint32 seed, int steps, int seconds)
{
    QElapsedTimer time;
    time.start();
    int done = 0;
    while (seconds > 0 ? time.elapsed() < seconds * qint64(1000) : done < steps) {
        QByteArray output;
        if (!succeeds(seed, {}, false, &output)) {
            report(seed);
            return 1;
        }
        done += kLength;
        ++seed;
    }
    std::printf("drive: %d steps in %lld s, up to seed %u\n", done, time.elapsed() / 1000, seed - 1);
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption steps(QStringLiteral("steps"), QStringLiteral("so many steps"),
                                   QStringLiteral("number"), QStringLiteral("20000"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("for so long"),
                                     QStringLiteral("number"), QStringLiteral("0"));
    const QCommandLineOption first(QStringLiteral("seed"), QStringLiteral("the first sequence"),
                                   QStringLiteral("seed"));
    const QCommandLineOption one(QStringLiteral("play"), QStringLiteral("one sequence, in this process"),
                                 QStringLiteral("seed"));
    const QCommandLineOption only(QStringLiteral("only"), QStringLiteral("some of its steps, by number"),
                                  QStringLiteral("numbers"));
    const QCommandLineOption tells(QStringLiteral("trace"), QStringLiteral("says what it does"));
    parser.addOptions({steps, seconds, first, one, only, tells});
    parser.process(application);
    if (parser.isSet(one)) {
        const QString numbers = parser.value(only);
        return play(parser.value(one).toUInt(),
                    numbers.isEmpty() ? QStringList() : numbers.split(QLatin1Char(',')), parser.isSet(tells));
    }
    const quint32 seed =
        parser.isSet(first) ? parser.value(first).toUInt() : QRandomGenerator::global()->generate() / 2;
    std::printf("drive: from seed %u on\n", seed);
    std::fflush(stdout);
    return driveOn(seed, parser.value(steps).toInt(), parser.value(seconds).toInt());
}
