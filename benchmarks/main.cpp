#include "bench.h"

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

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    qInstallMessageHandler(dropLogLine);
    // Names of groups to run; none means all. A name that another program of the set knows is no error here.
    BenchGroup::runAll(QCoreApplication::arguments().mid(1));
    return 0;
}
