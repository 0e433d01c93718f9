#pragma once

#include <QtCore/QVector>

namespace Driving {

/// A sequence that still fails although no part of it, of any size down to one element, could be left out. It needs not
/// be the only one. `fails` is asked of shorter and shorter sequences; the one that is given does.
template<typename Element, typename Fails>
QVector<Element> shrunk(QVector<Element> sequence, Fails fails)
{
    for (int length = qMax(1, sequence.size() / 2); length > 0; length /= 2) {
        for (int at = 0; at < sequence.size();) {
            const QVector<Element> shorter = sequence.mid(0, at) + sequence.mid(at + length);
            if (fails(shorter))
                sequence = shorter;
            else
                at += length;
        }
    }
    return sequence;
}

} // namespace Driving
