#pragma once

#include <QtCore/qglobal.h>

/// The value brought into a range. A range that ends before it begins has nothing but its lower end; qBound() takes no
/// such range in Qt 6.
template<typename Number>
constexpr Number bounded(Number low, Number value, Number high)
{
    return qMax(low, qMin(high, value));
}
