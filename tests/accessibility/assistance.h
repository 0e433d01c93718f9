#pragma once

#include <private/qguiapplication_p.h>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>

#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

/// Assistive technology as far as a test needs it: asking, and being told.
namespace Assistance {

inline QAccessibleInterface *interfaceOf(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

inline QString nameOf(QObject *object)
{
    return interfaceOf(object)->text(QAccessible::Name);
}

inline QAccessible::State stateOf(QObject *object)
{
    return interfaceOf(object)->state();
}

inline void act(QObject *object, const QString &action)
{
    interfaceOf(object)->actionInterface()->doAction(action);
}

inline QStringList actionsOf(QObject *object)
{
    return interfaceOf(object)->actionInterface()->actionNames();
}

inline QString pressAction()
{
    return QAccessibleActionInterface::pressAction();
}

inline QString showMenuAction()
{
    return QAccessibleActionInterface::showMenuAction();
}

/// Switches on, for its lifetime, what the desktop switches on when a screen reader runs.
class Activity
{
public:
    Activity() { set(true); }
    ~Activity() { set(false); }

private:
    Q_DISABLE_COPY(Activity)

    static void set(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }
};

/// Takes in all that widgets tell, during its lifetime. There is one at a time.
class Listener
{
public:
    struct Told
    {
        QAccessible::Event what;
        QObject *object;
        QVariant value;             ///< of a change of value
        QAccessible::State changed; ///< of a change of state
    };

    Listener()
    {
        told().clear();
        m_previous = QAccessible::installUpdateHandler(&Listener::take);
    }
    ~Listener() { QAccessible::installUpdateHandler(m_previous); }

    /// What the object has told of this kind.
    QVector<Told> of(const QObject *object, QAccessible::Event what) const
    {
        QVector<Told> result;
        for (const Told &one : qAsConst(told())) {
            if (one.object == object && one.what == what)
                result.append(one);
        }
        return result;
    }
    int count(const QObject *object, QAccessible::Event what) const { return of(object, what).size(); }
    int count() const { return told().size(); }
    /// The values that the object has gone through.
    QVariantList values(const QObject *object) const
    {
        QVariantList result;
        const QVector<Told> changes = of(object, QAccessible::ValueChanged);
        for (const Told &one : changes)
            result.append(one.value);
        return result;
    }
    void clear() { told().clear(); }

private:
    Q_DISABLE_COPY(Listener)

    static QVector<Told> &told()
    {
        static QVector<Told> all;
        return all;
    }
    static void take(QAccessibleEvent *event)
    {
        Told one{event->type(), event->object(), {}, {}};
        if (event->type() == QAccessible::ValueChanged)
            one.value = static_cast<QAccessibleValueChangeEvent *>(event)->value();
        if (event->type() == QAccessible::StateChanged)
            one.changed = static_cast<QAccessibleStateChangeEvent *>(event)->changedStates();
        told().append(one);
    }

    QAccessible::UpdateHandler m_previous;
};

} // namespace Assistance
