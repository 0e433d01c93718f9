#include "resources.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QSet>
#include <QtCore/QStringList>

#include <QtCore/private/qhooks_p.h>

namespace Resources {

namespace {

QSet<QObject *> *objects = nullptr;

void add(QObject *object)
{
    objects->insert(object);
}

void remove(QObject *object)
{
    objects->remove(object);
}

bool isMemory(const QString &name)
{
    return name.contains(QLatin1String("KiB"));
}

} // namespace

void begin()
{
    objects = new QSet<QObject *>; // objects are destroyed until the very end
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(&add);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(&remove);
}

Counts counted()
{
    Counts counts;
    counts.insert(QStringLiteral("objects"), objects->size());
    qint64 timers = 0;
    for (QObject *object : qAsConst(*objects))
        timers += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    counts.insert(QStringLiteral("timers"), timers);
    countSystem(&counts);
    return counts;
}

QStringList grown(const Counts &before, const Counts &after)
{
    constexpr qint64 kLeastMemory = 512;
    QStringList result;
    for (auto count = after.cbegin(); count != after.cend(); ++count) {
        const qint64 former = before.value(count.key());
        const qint64 allowed = isMemory(count.key()) ? qMax(kLeastMemory, former / 100) : 0;
        if (count.value() > former + allowed)
            result << QStringLiteral("%1: %2, then %3").arg(count.key()).arg(former).arg(count.value());
    }
    return result;
}

} // namespace Resources
