#include "resources.h"

#include <QtCore/QAbstractEventDispatcher>
#include <QtCore/QMutex>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QThread>
#include <QtGui/QPixmapCache>

#include <QtCore/private/qhooks_p.h>

namespace Resources {

namespace {

// Never destroyed: objects are, until the very end of the process, in any thread.
struct Living
{
    QMutex mutex;
    QSet<QObject *> objects;
};
Living *living = nullptr;

void add(QObject *object)
{
    const QMutexLocker lock(&living->mutex);
    living->objects.insert(object);
}

void remove(QObject *object)
{
    const QMutexLocker lock(&living->mutex);
    living->objects.remove(object);
}

bool isMemory(const QString &name)
{
    return name.contains(QLatin1String("KiB"));
}

} // namespace

void begin()
{
    living = new Living;
    qtHookData[QHooks::AddQObject] = reinterpret_cast<quintptr>(&add);
    qtHookData[QHooks::RemoveQObject] = reinterpret_cast<quintptr>(&remove);
}

Counts counted()
{
    QPixmapCache::clear(); // what Qt keeps up to a limit of its own
    Counts counts;
    qint64 timers = 0;
    {
        const QMutexLocker lock(&living->mutex);
        counts.insert(QStringLiteral("objects"), living->objects.size());
        for (QObject *object : qAsConst(living->objects)) {
            if (object->thread() == QThread::currentThread()) // the dispatcher knows no others
                timers += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
        }
    }
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
