#include "stage.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QMetaEnum>
#include <QtCore/QTimer>

#include <QtGui/QCursor>

#include <algorithm>
#include <iterator>

namespace Destruction {

namespace {

constexpr char kWatched[] = "watched ";

/// The events that handlers of the library see.
constexpr QEvent::Type kEvents[] = {
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::MouseMove,
    QEvent::Enter,
    QEvent::Leave,
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Wheel,
    QEvent::Show,
    QEvent::Hide,
    QEvent::ShowToParent,
    QEvent::HideToParent,
    QEvent::Close,
    QEvent::Paint,
    QEvent::ContextMenu,
    QEvent::FocusIn,
    QEvent::FocusOut,
    QEvent::WindowActivate,
    QEvent::WindowDeactivate,
    QEvent::ActivationChange,
    QEvent::HoverEnter,
    QEvent::HoverLeave,
    QEvent::HoverMove,
    QEvent::EnabledChange,
};

/// In these Qt goes on with the receiver: QWidget::setVisible(), and the painting of its window.
constexpr QEvent::Type kEventsThatNeedTheirReceiver[] = {QEvent::Show, QEvent::Hide, QEvent::Paint};

template<typename Range>
bool contains(const Range &range, QEvent::Type type)
{
    return std::find(std::begin(range), std::end(range), type) != std::end(range);
}

QByteArray nameOf(QEvent::Type type)
{
    return QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
}

bool isIn(const QObject *object, const QObject *ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object;
}

} // namespace

Stage::Stage(const Kind &kind)
    : m_kind(kind)
{
    QCursor::setPos(0, 0);
    m_in.window = new QWidget;
    m_in.window->setGeometry(100, 100, 300, 200);
    m_in.parent = new QWidget(m_in.window);
    m_in.parent->setGeometry(0, 0, 300, 100);
    m_in.window->show();
    m_object = kind.make(m_in);

    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("noteSignal()"));
    const QVector<QMetaMethod> all = signalsOfTheObject();
    for (const QMetaMethod &signal : all)
        connect(m_object, signal, this, slot);
    if (m_kind.watched)
        m_watched = m_kind.watched(m_object);
    m_object->installEventFilter(this);
    for (QObject *other : qAsConst(m_watched))
        other->installEventFilter(this);
}

Stage::~Stage()
{
    delete m_object;
    delete m_in.window;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void Stage::plan(const What &what, int step, Deed deed)
{
    m_plannedWhat = what;
    m_plannedStep = step;
    m_deed = deed;
}

bool Stage::isPossible() const
{
    const bool ofOthers = m_plannedWhat.startsWith(kWatched);
    const QByteArray event = ofOthers ? m_plannedWhat.mid(int(qstrlen(kWatched))) : m_plannedWhat;
    const auto needsReceiver = [&event](QEvent::Type type) {
        return nameOf(type) == event;
    };
    if (std::none_of(std::begin(kEventsThatNeedTheirReceiver), std::end(kEventsThatNeedTheirReceiver),
                     needsReceiver))
        return true;
    if (!ofOthers)
        return !isDestroyed(m_object);
    return std::none_of(m_watched.begin(), m_watched.end(),
                        [this](const QObject *other) { return isDestroyed(other); });
}

void Stage::play()
{
    for (m_step = 0; m_step < m_kind.life.size() && m_object; ++m_step)
        m_kind.life.at(m_step).action(m_object);
}

QList<What> Stage::untold() const
{
    QList<What> result;
    const QVector<QMetaMethod> all = signalsOfTheObject();
    for (const QMetaMethod &signal : all) {
        if (!m_told.contains(signal.methodSignature()))
            result << signal.methodSignature();
    }
    return result;
}

bool Stage::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<QObject> alive(watched);
    if (contains(kEvents, event->type()))
        note((watched == m_object ? "" : kWatched) + nameOf(event->type()));
    return !alive; // what is gone cannot get its event any more
}

QVector<QMetaMethod> Stage::signalsOfTheObject() const
{
    QVector<QMetaMethod> result;
    const QMetaObject *all = m_object->metaObject();
    for (int i = 0; i < all->methodCount(); ++i) {
        const QMetaMethod method = all->method(i);
        if (method.methodType() == QMetaMethod::Signal && !(method.attributes() & QMetaMethod::Cloned))
            result << method;
    }
    return result;
}

/// Whether the deed destroys it.
bool Stage::isDestroyed(const QObject *object) const
{
    switch (m_deed) {
    case Deed::DeleteParent:
        return isIn(object, m_in.parent);
    case Deed::DeleteWindow:
        return isIn(object, m_in.window);
    default:
        return isIn(object, m_object);
    }
}

void Stage::note(const What &what)
{
    QVector<int> &steps = m_told[what];
    if (!steps.contains(m_step))
        steps << m_step;
    if (m_done || what != m_plannedWhat || m_step != m_plannedStep)
        return;
    m_done = true;
    act();
}

void Stage::act()
{
    switch (m_deed) {
    case Deed::DeleteObject:
        delete m_object;
        break;
    case Deed::DeleteParent:
        delete m_in.parent;
        break;
    case Deed::DeleteWindow:
        delete m_in.window;
        break;
    case Deed::DeleteLaterInALoop: {
        QEventLoop loop;
        connect(m_object, &QObject::destroyed, &loop, &QEventLoop::quit);
        QTimer::singleShot(0, m_object, [this] { m_object->deleteLater(); });
        loop.exec();
        break;
    }
    }
}

} // namespace Destruction
