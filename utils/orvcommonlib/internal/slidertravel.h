#pragma once

#include <QtCore/QtGlobal>

/// How the values of a horizontal slider lie along its travel: value `minimum + i` stands at `edge(i)`.
/// Positions are handle centres in device-independent pixels.
///
/// All positions come from the same expression in double precision, so that what is painted and what is found
/// under the pointer agree to the last bit.
struct SliderTravel
{
    int minimum = 0;
    int maximum = 0;
    double half = 0; ///< half a handle width, where the travel begins
    double step =
        0; ///< pixels per value; negative where the handle is wider than its slider or the range is reversed

    /// The step that spreads the range over `length` pixels; 0 for a range of a single value.
    static double stepFor(double length, int minimum, int maximum);

    double edge(qint64 i) const { return half + step * double(i); }
    double position(int value) const { return edge(qint64(value) - minimum); }
    /// The centre of the range, rounded towards zero.
    int middle() const { return int((qint64(maximum) + minimum) / 2); }

    /// Finds the first i with edge(i) <= position <= edge(i + 1), and of both ends the nearer one, halfway
    /// the upper one. False if the position lies outside the travel; `value` is then left alone.
    ///
    /// Takes about as many steps as the range has binary digits.
    bool valueAt(double position, int *value) const;

private:
    qint64 intervalAt(double position) const;
};
