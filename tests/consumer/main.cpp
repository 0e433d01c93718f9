// Uses the library as a client does: through its installed headers and its exported symbols alone.
#include <orvcommonlib.h>

#include <QtCore/QDebug>
#include <QtWidgets/QApplication>

namespace {

int failures = 0;

void check(bool holds, const char *what)
{
    if (holds)
        return;
    qCritical("does not hold: %s", what);
    ++failures;
}

} // namespace

#define CHECK(condition) check(condition, #condition)

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);

    const orvcommonlib first;
    orvcommonlib second;
    second = first;
    CHECK(sizeof(second) == 1);

    return failures == 0 ? 0 : 1;
}
