#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

/// What the process holds at the moment, by name.
namespace Resources {

using Counts = QMap<QString, qint64>;

/// Counts objects from here on; to be called first of all.
void begin();
/// Objects, timers that run, and what the system has given: memory in KiB, threads, file handles, windows and pictures.
Counts counted();

/// What only this system counts.
void countSystem(Counts *counts);

/// What has grown by more than may be: a KiB in 100 of memory, half a MiB at least, as pieces that are free lie among
/// others; nothing else at all.
QStringList grown(const Counts &before, const Counts &after);

} // namespace Resources
