#include "bench.h"
#include "figures.h"

#include <QtCore/QCommandLineParser>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

// The library logs as its clients rely on; on the terminal it would drown the table and cost more than the
// work.
void dropLogLine(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg || type == QtCriticalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

void printComparison(const QString &fileName, const QJsonObject &before, const QJsonObject &now)
{
    const QStringList lines = Figures::slowerRows(before, now);
    std::printf("%s more than 20 %% slower than in %s\n", lines.isEmpty() ? "no row is" : "these rows are",
                qPrintable(fileName));
    for (const QString &line : lines)
        std::printf("  %s\n", qPrintable(line));
}

int fail(const char *what, const QString &fileName)
{
    std::fprintf(stderr, "bench: cannot %s %s\n", what, qPrintable(fileName));
    return 2;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropLogLine);

    const QString file = QStringLiteral("file");
    const QCommandLineOption json(QStringLiteral("json"), QStringLiteral("Add the figures to this file."),
                                  file);
    const QCommandLineOption compare(
        QStringLiteral("compare"),
        QStringLiteral("Print the rows that became more than 20 % slower than the run in this file."), file);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({json, compare});
    parser.addPositionalArgument(QStringLiteral("groups"), QStringLiteral("What to measure (all)."),
                                 QStringLiteral("[groups...]"));
    parser.process(application);

    // Read first: both options may name one file.
    QJsonObject before;
    if (parser.isSet(compare) && !Figures::read(parser.value(compare), &before))
        return fail("read", parser.value(compare));
    const QJsonObject now = BenchGroup::runAll(parser.positionalArguments());
    if (parser.isSet(json) && !Figures::write(parser.value(json), now))
        return fail("write", parser.value(json));
    if (parser.isSet(compare) && !now.isEmpty())
        printComparison(parser.value(compare), before, now);
    return 0;
}
