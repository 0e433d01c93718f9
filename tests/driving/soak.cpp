#include "soak.h"

#include "resources.h"

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QApplication>

#include <cstdio>

// Opens and closes everything for so many minutes. At the end the process holds what it held after the first of them,
// or it fails.

namespace {

void print(const char *when, const Resources::Counts &counts, int rounds)
{
    std::printf("%s, %d rounds:", when, rounds);
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        std::printf(" %s %lld;", qPrintable(count.key()), count.value());
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    Resources::begin();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    constexpr qint64 kMinuteMs = 60000;
    const double minutes = argc > 1 ? QByteArray(argv[1]).toDouble() : 10;
    const auto end = qint64(minutes * kMinuteMs);
    const qint64 first = qMin(kMinuteMs, end / 10);
    QElapsedTimer time;
    time.start();
    int rounds = 0;
    Resources::Counts before;
    while (time.elapsed() < end) {
        Soak::openAndCloseEverything(quint8(rounds++));
        // Each of the 256 ways has been gone, or the other ones bring what is kept later.
        if (before.isEmpty() && time.elapsed() >= first && rounds >= 48) {
            before = Resources::counted();
            print("after the first minute", before, rounds);
        }
    }
    if (before.isEmpty()) {
        std::puts("soak: too short");
        return 2;
    }
    const Resources::Counts after = Resources::counted();
    print("at the end", after, rounds);
    const QStringList grown = Resources::grown(before, after);
    for (const QString &one : grown)
        std::printf("soak: grown: %s\n", qPrintable(one));
    return grown.isEmpty() ? 0 : 1;
}
