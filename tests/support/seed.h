#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRandomGenerator>

/// Where a test with random input begins to count its seeds: anywhere, or at the value of the environment
/// variable ORV_TEST_SEED, with which a failure that printed its seed is repeated.
inline quint32 firstSeed()
{
    const QByteArray wanted = qgetenv("ORV_TEST_SEED");
    return wanted.isEmpty() ? QRandomGenerator::global()->generate() : wanted.toUInt();
}
