#include "slidertravel.h"

namespace {

constexpr qint64 kNone = -1;

// The first of 0..count-1 for which the condition holds, given that it holds for all that follow; `count` if
// none.
template<typename Condition>
qint64 firstWhere(qint64 count, Condition holds)
{
    qint64 low = 0;
    qint64 high = count;
    while (low < high) {
        const qint64 middle = low + (high - low) / 2;
        if (holds(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

} // namespace

double SliderTravel::stepFor(double length, int minimum, int maximum)
{
    return minimum == maximum ? 0 : length / (double(maximum) - minimum);
}

// Rounding keeps the edges in order: where the step is not negative they never decrease, otherwise they never
// increase. Hence the first interval that one end allows is the only candidate, and the other end decides.
qint64 SliderTravel::intervalAt(double position) const
{
    const qint64 count = qint64(maximum) - minimum;
    const qint64 i = step >= 0 ? firstWhere(count, [&](qint64 n) { return position <= edge(n + 1); })
                               : firstWhere(count, [&](qint64 n) { return edge(n) <= position; });
    return i < count && edge(i) <= position && position <= edge(i + 1) ? i : kNone;
}

bool SliderTravel::valueAt(double position, int *value) const
{
    const qint64 i = intervalAt(position);
    if (i == kNone)
        return false;
    const double toLower = position - edge(i);
    const double toUpper = edge(i + 1) - position;
    *value = int(minimum + i + (toUpper <= toLower ? 1 : 0));
    return true;
}
