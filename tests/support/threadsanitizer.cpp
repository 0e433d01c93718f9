// Part of every test program that is built with the thread sanitizer.
//
// The system's Qt is not instrumented: the sanitizer does not see that an event is posted before it is
// handled, and that a blocking call returns after it was answered, and would report each of them as a race.
// These functions take the place of Qt's own for the library and the tests, say so, and call the original.

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaObject>
#include <QtCore/QObject>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace {

// What the caller has done comes before what the object's thread does in the call, and that before what the
// caller does afterwards.
class CallInto
{
public:
    explicit CallInto(void *object)
        : m_object(object)
    {
        __tsan_release(m_object);
    }
    ~CallInto() { __tsan_acquire(m_object); }
    Q_DISABLE_COPY(CallInto)

private:
    void *m_object;
};

template<typename Function>
Function original(const char *mangledName)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, mangledName));
}

} // namespace

bool QObject::event(QEvent *event)
{
    using Function = bool (*)(QObject *, QEvent *);
    static const auto handle = original<Function>("_ZN7QObject5eventEP6QEvent");
    __tsan_acquire(this);
    const bool handled = handle(this, event);
    __tsan_release(this);
    return handled;
}

void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    using Function = void (*)(QObject *, QEvent *, int);
    static const auto post = original<Function>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(receiver);
    post(receiver, event, priority);
}

bool QMetaObject::invokeMethod(QObject *object, const char *member, Qt::ConnectionType type,
                               QGenericReturnArgument result, QGenericArgument val0, QGenericArgument val1,
                               QGenericArgument val2, QGenericArgument val3, QGenericArgument val4,
                               QGenericArgument val5, QGenericArgument val6, QGenericArgument val7,
                               QGenericArgument val8, QGenericArgument val9)
{
    using Function =
        bool (*)(QObject *, const char *, Qt::ConnectionType, QGenericReturnArgument, QGenericArgument,
                 QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument,
                 QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument);
    static const auto invoke = original<Function>("_ZN11QMetaObject12invokeMethodEP7QObjectPKcN2Qt14Connectio"
                                                  "nTypeE22QGenericReturnArgument16QGenericArgument"
                                                  "S7_S7_S7_S7_S7_S7_S7_S7_S7_");
    const CallInto call(object);
    return invoke(object, member, type, result, val0, val1, val2, val3, val4, val5, val6, val7, val8, val9);
}

bool QMetaObject::invokeMethodImpl(QObject *object, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                   void *result)
{
    using Function = bool (*)(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *);
    static const auto invoke = original<Function>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    const CallInto call(object);
    return invoke(object, slot, type, result);
}

bool QMetaMethod::invoke(QObject *object, Qt::ConnectionType type, QGenericReturnArgument result,
                         QGenericArgument val0, QGenericArgument val1, QGenericArgument val2,
                         QGenericArgument val3, QGenericArgument val4, QGenericArgument val5,
                         QGenericArgument val6, QGenericArgument val7, QGenericArgument val8,
                         QGenericArgument val9) const
{
    using Function =
        bool (*)(const QMetaMethod *, QObject *, Qt::ConnectionType, QGenericReturnArgument, QGenericArgument,
                 QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument,
                 QGenericArgument, QGenericArgument, QGenericArgument, QGenericArgument);
    static const auto invokeMethod = original<Function>(
        "_ZNK11QMetaMethod6invokeEP7QObjectN2Qt14ConnectionTypeE22QGenericReturnArgument16QGenericArgument"
        "S5_S5_S5_S5_S5_S5_S5_S5_S5_");
    const CallInto call(object);
    return invokeMethod(this, object, type, result, val0, val1, val2, val3, val4, val5, val6, val7, val8,
                        val9);
}
