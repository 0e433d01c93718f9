#pragma once

#include <QtCore/QMutexLocker>

#include <QtCore/private/qthread_p.h>

/// Whether anything waits in the queue of this thread. Programs that include this link Qt's CorePrivate.
inline bool eventsWait()
{
    const QPostEventList &list = QThreadData::get2(QThread::currentThread())->postEventList;
    const QMutexLocker lock(const_cast<QMutex *>(&list.mutex));
    return list.size() > list.startOffset;
}
