#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <functional>

/// Side-by-side measurements: each row does the same work once with this library and once with stock Qt, in
/// interleaved samples of one process, and prints the medians and their ratio (ours / stock; below 1 is
/// faster).
///
/// A group of rows is one file, bench_<name>.cpp:
///
///     static const BenchGroup group("sliders", [](Bench &bench) {
///         HorizontalSlider ours;
///         QSlider stock;
///         bench.compare("repaint", [&] { ours.repaint(); }, [&] { stock.repaint(); });
///     });
class Bench
{
public:
    using Work = std::function<void()>;
    using Measure = std::function<double()>;

    /// Times one call of each. Both are called often enough that a sample is long against the clock's
    /// resolution.
    void compare(const QString &what, const Work &ours, const Work &stock);
    void compare(const char *what, const Work &ours, const Work &stock)
    {
        compare(QString::fromUtf8(what), ours, stock);
    }

    /// For what is not a call's duration: takes the numbers that the two functions return, in `unit`.
    void compareValues(const char *what, const char *unit, const Measure &ours, const Measure &stock);

    /// A line of explanation under the rows of the group.
    void note(const QString &text);

    /// Memory that the process holds on its heap, in bytes, for compareValues(); 0 where it cannot be told.
    static double heapBytes();

    /// The clock of compare(): the processor time of this thread where the system tells it, so that a busy
    /// machine does not distort the figures, otherwise the time of day.
    static double processorNanoseconds();

    /// Keeps the compiler from dropping a result that nobody reads.
    template<typename T>
    static void keep(const T &value)
    {
        s_sink = &value;
        s_sink = nullptr; // the value may be gone soon
    }

private:
    friend class BenchGroup;

    void addRow(const QString &what, const QString &unit, double ours, double stock, const QString &oursText,
                const QString &stockText);

    QJsonObject m_rows;
    static inline volatile const void *s_sink = nullptr;
};

/// Registers a group under a name that can be given on the command line.
class BenchGroup
{
public:
    using Body = void (*)(Bench &);
    BenchGroup(const char *name, Body body);

    /// Runs the groups of these names, or all of them when none is named, and returns their figures as
    /// figures.h describes them. A name that another program of the set knows is no error here.
    static QJsonObject runAll(const QStringList &wanted);

private:
    const char *m_name;
    Body m_body;
};
