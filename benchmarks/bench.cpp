#include "bench.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>

#include <algorithm>
#include <cstdio>
#include <vector>

#if defined(Q_OS_LINUX)
#    include <ctime>
#endif
#if defined(__GLIBC__)
#    include <malloc.h>
#endif

namespace {

constexpr int kSamples = 25;
constexpr qint64 kSampleNs = qint64(4) * 1000 * 1000;
constexpr int kMaxCalls = 1000000;

std::vector<std::pair<const char *, BenchGroup::Body>> &groups()
{
    static std::vector<std::pair<const char *, BenchGroup::Body>> list;
    return list;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double nanosecondsPerCall(const Bench::Work &work, int calls)
{
    const double start = Bench::processorNanoseconds();
    for (int call = 0; call < calls; ++call)
        work();
    return (Bench::processorNanoseconds() - start) / calls;
}

// Doubles the number of calls until one sample lasts long enough; this warms up caches as well. The very
// first call is not counted: it may load fonts and take longer than a sample should.
int callsPerSample(const Bench::Work &work)
{
    work();
    int calls = 1;
    while (calls < kMaxCalls && nanosecondsPerCall(work, calls) * calls < kSampleNs)
        calls *= 2;
    return calls;
}

QString duration(double nanoseconds)
{
    if (nanoseconds < 1e3)
        return QStringLiteral("%1 ns").arg(nanoseconds, 0, 'f', 1);
    if (nanoseconds < 1e6)
        return QStringLiteral("%1 us").arg(nanoseconds / 1e3, 0, 'f', 2);
    return QStringLiteral("%1 ms").arg(nanoseconds / 1e6, 0, 'f', 2);
}

void print(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

void printColumns(const QString &what, const QString &ours, const QString &stock, const QString &ratio)
{
    print(QStringLiteral("  %1 %2 %3 %4").arg(what, -58).arg(ours, 12).arg(stock, 12).arg(ratio, 8));
}

void printHeading()
{
    printColumns(QStringLiteral("what"), QStringLiteral("ours"), QStringLiteral("stock Qt"),
                 QStringLiteral("ratio"));
}

} // namespace

void Bench::compare(const QString &what, const Work &ours, const Work &stock)
{
    const int oursCalls = callsPerSample(ours);
    const int stockCalls = callsPerSample(stock);
    std::vector<double> oursTimes;
    std::vector<double> stockTimes;
    for (int sample = 0; sample < kSamples; ++sample) {
        oursTimes.push_back(nanosecondsPerCall(ours, oursCalls));
        stockTimes.push_back(nanosecondsPerCall(stock, stockCalls));
    }
    const double oursMedian = median(oursTimes);
    const double stockMedian = median(stockTimes);
    addRow(what, QStringLiteral("ns"), oursMedian, stockMedian, duration(oursMedian), duration(stockMedian));
}

void Bench::compareValues(const char *what, const char *unit, const Measure &ours, const Measure &stock)
{
    const double oursValue = ours();
    const double stockValue = stock();
    const QString unitText = QString::fromUtf8(unit);
    const auto text = [&unitText](double value) {
        return QStringLiteral("%1 %2").arg(value, 0, 'f', 1).arg(unitText);
    };
    addRow(QString::fromUtf8(what), unitText, oursValue, stockValue, text(oursValue), text(stockValue));
}

void Bench::note(const QString &text)
{
    print(QStringLiteral("    %1").arg(text));
}

double Bench::processorNanoseconds()
{
#if defined(Q_OS_LINUX)
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e9 + double(now.tv_nsec);
#else
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return double(timer.nsecsElapsed());
#endif
}

double Bench::heapBytes()
{
#if defined(__GLIBC__)
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
#else
    return 0;
#endif
}

void Bench::addRow(const QString &what, const QString &unit, double ours, double stock,
                   const QString &oursText, const QString &stockText)
{
    m_rows.insert(what, QJsonObject{{QStringLiteral("ours"), ours},
                                    {QStringLiteral("stock"), stock},
                                    {QStringLiteral("unit"), unit}});
    const QString ratio = stock > 0 ? QString::number(ours / stock, 'f', 2) : QStringLiteral("-");
    printColumns(what, oursText, stockText, ratio);
}

BenchGroup::BenchGroup(const char *name, Body body)
    : m_name(name)
    , m_body(body)
{
    groups().emplace_back(m_name, m_body);
}

QJsonObject BenchGroup::runAll(const QStringList &wanted)
{
    std::sort(groups().begin(), groups().end(),
              [](const auto &left, const auto &right) { return qstrcmp(left.first, right.first) < 0; });
    QJsonObject figures;
    for (const auto &[groupName, body] : groups()) {
        const QString name = QString::fromUtf8(groupName);
        if (!wanted.isEmpty() && !wanted.contains(name))
            continue;
        if (figures.isEmpty())
            printHeading();
        print(name);
        Bench bench;
        body(bench);
        figures.insert(name, bench.m_rows);
    }
    return figures;
}
