#include "scene.h"

#include "hoverevent.h"
#include "mouseevents.h"
#include "orvlook.h"
#include "orvmaskctrl.h"
#include "values.h"

#include <QtCore/QEventLoop>
#include <QtCore/QMetaMethod>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QCursor>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <numeric>
#include <utility>

namespace Driving {

namespace {

constexpr int kActors = 9;
constexpr int kMostScreens = 4;
constexpr int kDeepestRun = 3;
constexpr QSize kWindow(500, 400);

template<typename Event>
void send(QObject *receiver, Event &&event)
{
    QCoreApplication::sendEvent(receiver, &event);
}

QString nameOf(const QWidget *widget)
{
    return QString::fromLatin1(widget->metaObject()->className());
}

} // namespace

QVector<Step> randomSteps(quint32 seed, int count)
{
    QRandomGenerator random(seed);
    QVector<Step> steps(count);
    for (Step &step : steps) {
        const quint32 number = random.generate();
        step = {quint8(number), quint8(number >> 8), quint8(number >> 16), quint8(number >> 24)};
    }
    return steps;
}

QVector<Step> stepsOf(const QByteArray &bytes)
{
    QVector<Step> steps;
    for (int i = 0; i + 3 < bytes.size(); i += 4)
        steps.append(
            {quint8(bytes.at(i)), quint8(bytes.at(i + 1)), quint8(bytes.at(i + 2)), quint8(bytes.at(i + 3))});
    return steps;
}

Scene::Scene(const QVector<Kind> &kinds, quint32 chosen)
    : m_kinds(kinds)
    , m_quiet(std::make_unique<LogCapture>())
    , m_window(new QWidget)
{
    QCursor::setPos(0, 0);
    OrvMaskCtrl::setFollowsWindow(true);
    m_window->setGeometry(QRect(QPoint(100, 80), kWindow));
    m_window->show();
    if (kinds.size() > kActors)
        OrvMaskCtrl::getInstance(m_window);
    const int count = qMin(kActors, kinds.size());
    for (int i = 0; i < count; ++i)
        addActor(&m_kinds.at(int((chosen + quint32(i) * (2 * (chosen % 11) + 1)) % quint32(kinds.size()))),
                 quint8(chosen + quint32(i)));
}

Scene::~Scene()
{
    end();
}

void Scene::end()
{
    if (!m_quiet)
        return;
    for (const Actor &actor : qAsConst(m_actors))
        delete actor.widget;
    for (void *owner : qAsConst(m_maskOwners))
        OrvMaskCtrl::getInstance(nullptr)->hideMasking(owner);
    delete m_window;
    OrvLook::setDark(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    const QList<QWidget *> left = QApplication::topLevelWidgets();
    for (QWidget *widget : left) {
        const bool isVisible = widget->isVisible();
        if (isVisible)
            breaks(nameOf(widget) + QStringLiteral(" is shown after the end"));
    }
    m_quiet->lines();
    m_quiet.reset();
}

void Scene::addActor(const Kind *kind, quint8 how)
{
    QWidget *widget = kind->make(m_window, how);
    const int place = m_actors.size();
    if (!widget->isWindow()) {
        widget->move(10 + place % 3 * 160, 20 + place / 3 * 100);
        if (widget->maximumSize() != widget->minimumSize())
            widget->resize(140, 40);
        widget->show();
    }
    watchSignals(widget);
    m_actors.append({kind, widget});
}

void Scene::watchSignals(QWidget *widget)
{
    const QMetaMethod hearing = metaObject()->method(metaObject()->indexOfSlot("hear()"));
    for (int i = QWidget::staticMetaObject.methodCount(); i < widget->metaObject()->methodCount(); ++i) {
        const QMetaMethod told = widget->metaObject()->method(i);
        if (told.methodType() == QMetaMethod::Signal)
            connect(widget, told, this, hearing);
    }
}

const QVector<Scene::Deed> &Scene::deeds()
{
    static const QVector<Deed> all{
        {"press", 20, &Scene::press, true},
        {"move", 22, &Scene::move, true},
        {"release", 20, &Scene::release, true},
        {"double click", 4, &Scene::doubleClick, true},
        {"click", 22, &Scene::click, true},
        {"hover", 12, &Scene::hover, true},
        {"key", 22, &Scene::key, true},
        {"wheel", 6, &Scene::wheel, true},
        {"focus", 8, &Scene::focus, false},
        {"attention", 8, &Scene::attention, false},
        {"change", 10, &Scene::change, false},
        {"show or hide", 14, &Scene::showOrHide, false},
        {"property", 18, &Scene::setProperty, false},
        {"slot", 8, &Scene::callSlot, false},
        {"own", 24, &Scene::own, false},
        {"run", 6, &Scene::run, false},
        {"replace", 4, &Scene::replace, false},
        {"turn", 8, &Scene::turn, false},
        {"timers", 4, &Scene::fireTimers, false},
        {"look", 1, &Scene::setLook, false},
        {"screens", 2, &Scene::changeScreens, false},
        {"window", 4, &Scene::moveWindow, false},
        {"mask", 4, &Scene::useMask, false},
        {"paint", 3, &Scene::paint, false},
        {"arm", 2, &Scene::arm, false},
    };
    return all;
}

Step Scene::step(const char *name, quint8 whom, quint8 how, quint8 much)
{
    int number = 0;
    for (const Deed &deed : deeds()) {
        if (qstrcmp(deed.name, name) == 0)
            break;
        number += deed.weight;
    }
    return {quint8(number), whom, how, much};
}

void Scene::play(const QVector<Step> &steps)
{
    m_steps = steps;
    m_next = 0;
    playNext(steps.size());
}

void Scene::playNext(int limit)
{
    for (int i = 0; i < limit && m_next < m_steps.size() && m_broken.isEmpty(); ++i) {
        const Step step = m_steps.at(m_next++);
        perform(step);
        if (m_broken.isEmpty() && !m_hearing) // Qt tells some signals in the middle of a change
            look();
    }
}

void Scene::perform(const Step &step)
{
    int number = step.what;
    const Deed *deed = nullptr;
    for (const Deed &one : deeds()) {
        if (number < one.weight) {
            deed = &one;
            break;
        }
        number -= one.weight;
    }
    if (!deed)
        deed = &deeds().first();
    if (trace) {
        const QWidget *whom = widget(step);
        trace(QStringLiteral("%1: %2, %3, %4, %5")
                  .arg(m_next - 1)
                  .arg(QLatin1String(deed->name), whom ? nameOf(whom) : QStringLiteral("nobody"))
                  .arg(step.how)
                  .arg(step.much));
    }
    QVector<const Actor *> inRange;
    for (const Actor &one : qAsConst(m_actors)) {
        if (one.widget && one.kind->isInRange && one.kind->isInRange(one.widget))
            inRange.append(&one);
    }
    const int before = m_heard;
    (this->*deed->action)(step);
    for (const Actor *one : qAsConst(inRange)) {
        if (deed->isOfUser && m_heard == before && one->widget && !one->kind->isInRange(one->widget))
            breaks(QLatin1String(one->kind->name) + QStringLiteral(" is moved out of its range"));
    }
}

void Scene::breaks(const QString &text)
{
    if (m_broken.isEmpty())
        m_broken = QStringLiteral("after step %1: %2").arg(m_next - 1).arg(text);
}

Scene::Actor *Scene::actor(const Step &step)
{
    return m_actors.isEmpty() ? nullptr : &m_actors[step.whom % m_actors.size()];
}

QWidget *Scene::widget(const Step &step)
{
    const Actor *const found = actor(step);
    return found ? found->widget.data() : nullptr;
}

/// The widget in which the pointer is, in one of the actors or in the list of a combo box.
QWidget *Scene::receiver(const Step &step, QPoint *globalPos)
{
    QWidget *target = widget(step);
    if (!target || !target->isVisible()) // nobody points at what is not there
        return nullptr;
    const QList<QWidget *> inner = target->findChildren<QWidget *>();
    for (QWidget *one : inner) {
        if (one->isWindow() && one->isVisible() && step.much % 4 != 0)
            target = one; // an open list has the pointer more often
    }
    const QPoint pos(target->width() * (step.how % 16 - 1) / 13, target->height() * (step.how / 16 - 1) / 13);
    *globalPos = target->mapToGlobal(pos);
    QCursor::setPos(*globalPos);
    QWidget *child = target->childAt(pos);
    return child && step.much % 8 != 0 ? child : target;
}

namespace {

Qt::MouseButton buttonOf(const Step &step)
{
    return step.much % 16 == 1 ? Qt::RightButton : step.much % 16 == 2 ? Qt::MiddleButton : Qt::LeftButton;
}

} // namespace

void Scene::press(const Step &step)
{
    QPoint pos;
    if (QWidget *target = receiver(step, &pos))
        MouseEvents::press(target, pos, buttonOf(step));
}

void Scene::move(const Step &step)
{
    QPoint pos;
    if (QWidget *target = receiver(step, &pos))
        MouseEvents::move(target, pos, step.much % 5 == 0 ? Qt::NoButton : buttonOf(step));
}

void Scene::release(const Step &step)
{
    QPoint pos;
    if (QWidget *target = receiver(step, &pos))
        MouseEvents::release(target, pos, buttonOf(step));
}

void Scene::doubleClick(const Step &step)
{
    QPoint pos;
    if (QWidget *target = receiver(step, &pos))
        MouseEvents::doubleClick(target, pos, buttonOf(step));
}

void Scene::click(const Step &step)
{
    QPoint pos;
    const QPointer<QWidget> target(receiver(step, &pos));
    if (target)
        MouseEvents::press(target, pos, buttonOf(step));
    if (target)
        MouseEvents::release(target, pos, buttonOf(step));
}

void Scene::hover(const Step &step)
{
    QPoint pos;
    QWidget *target = receiver(step, &pos);
    if (!target)
        return;
    switch (step.much / 16 % 5) {
    case 0:
        enter(target);
        break;
    case 1:
        MouseEvents::leave(target);
        break;
    case 2:
        send(target, HoverEvent(QEvent::HoverEnter, QPointF(1, 1), QPointF(-1, -1)));
        break;
    case 3:
        send(target, HoverEvent(QEvent::HoverLeave, QPointF(-1, -1), QPointF(1, 1)));
        break;
    default:
        MouseEvents::hover(target, pos);
        break;
    }
}

/// Leaves first where the pointer was, as Qt has it.
void Scene::enter(QPointer<QWidget> target)
{
    const QPointer<QWidget> before = std::exchange(m_entered, target);
    for (QPointer<QWidget> left = before; left && target && left != target && !left->isAncestorOf(target);) {
        const QPointer<QWidget> around = left->isWindow() ? nullptr : left->parentWidget();
        MouseEvents::leave(left);
        left = around;
    }
    if (target)
        MouseEvents::enter(target);
}

void Scene::key(const Step &step)
{
    QWidget *target = widget(step);
    if (!target || !target->isVisible())
        return;
    constexpr int kKeys[] = {Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,        Qt::Key_Down,
                             Qt::Key_Home,   Qt::Key_End,    Qt::Key_PageUp,    Qt::Key_Space,
                             Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,       Qt::Key_PageDown,
                             Qt::Key_A,      Qt::Key_F4,     Qt::Key_Backspace, Qt::Key_Enter};
    QWidget *const focused = target->focusWidget();
    QWidget *const receiver = focused && step.much % 4 != 0 ? focused : target;
    const Qt::KeyboardModifiers modifiers = step.much % 32 == 1   ? Qt::ControlModifier
                                            : step.much % 32 == 2 ? Qt::AltModifier
                                                                  : Qt::NoModifier;
    const int code = kKeys[step.how % std::size(kKeys)];
    const QString text = code == Qt::Key_A ? QStringLiteral("a") : QString();
    const QPointer<QWidget> alive(receiver);
    send(receiver, QKeyEvent(QEvent::KeyPress, code, modifiers, text));
    if (alive && step.much % 3 != 0)
        send(receiver, QKeyEvent(QEvent::KeyRelease, code, modifiers, text));
}

void Scene::wheel(const Step &step)
{
    QPoint pos;
    QWidget *target = receiver(step, &pos);
    if (target)
        send(target, QWheelEvent(target->mapFromGlobal(pos), pos, QPoint(), QPoint(0, step.much * 4 - 500),
                                 Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
}

void Scene::focus(const Step &step)
{
    QWidget *target = widget(step);
    if (!target)
        return;
    if (step.how % 4 == 0)
        target->setFocusPolicy(step.how % 8 == 0 ? Qt::StrongFocus : Qt::NoFocus);
    if (step.how % 4 == 1)
        target->clearFocus();
    else
        target->setFocus(step.much % 2 == 0 ? Qt::TabFocusReason : Qt::MouseFocusReason);
}

void Scene::attention(const Step &step)
{
    QPoint pos;
    QWidget *target = receiver(step, &pos);
    if (!target)
        return;
    constexpr QEvent::Type kTypes[] = {
        QEvent::WindowActivate,  QEvent::WindowDeactivate,      QEvent::UngrabMouse,    QEvent::WindowBlocked,
        QEvent::WindowUnblocked, QEvent::ActivationChange,      QEvent::LanguageChange, QEvent::StyleChange,
        QEvent::FontChange,      QEvent::ApplicationFontChange, QEvent::PaletteChange,  QEvent::ParentChange,
        QEvent::ThemeChange};
    if (step.how % 8 == 0)
        send(target, QContextMenuEvent(QContextMenuEvent::Mouse, target->mapFromGlobal(pos), pos));
    else
        send(step.much % 2 == 0 ? target : target->window(),
             QEvent(kTypes[step.much / 2 % std::size(kTypes)]));
}

void Scene::change(const Step &step)
{
    QWidget *target = widget(step);
    if (!target)
        return;
    switch (step.how % 6) {
    case 0:
        target->setDisabled(step.much % 2 == 0);
        break;
    case 1:
        target->resize(step.much % 200, step.much % 90);
        break;
    case 2:
        target->setLayoutDirection(step.much % 2 == 0 ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    case 3:
        target->setFont(QFont(QStringLiteral("DejaVu Sans"), 6 + step.much % 20));
        break;
    case 4:
        if (!target->isWindow())
            target->move(step.much, step.much / 2);
        break;
    default:
        m_window->setDisabled(step.much % 4 == 0);
        break;
    }
}

void Scene::showOrHide(const Step &step)
{
    QWidget *target = step.how % 8 == 7 ? m_window.data() : widget(step);
    if (!target)
        return;
    if (step.how % 8 == 3)
        target->close();
    else if (step.how % 8 == 4 && target->windowHandle())
        target->windowHandle()->hide();
    else
        target->setVisible(step.much % 3 != 0);
    if (!m_window->isVisible() && step.much % 2 == 0)
        m_window->show();
}

void Scene::setProperty(const Step &step)
{
    if (QWidget *target = widget(step))
        Values::setAnyProperty(target, step.how, step.much);
}

void Scene::callSlot(const Step &step)
{
    if (QWidget *target = widget(step))
        Values::callAnySlot(target, step.how, step.much);
}

void Scene::own(const Step &step)
{
    Actor *found = actor(step);
    if (!found || !found->widget || found->kind->own.isEmpty())
        return;
    found->kind->own.at(step.how % found->kind->own.size())(found->widget, step.how / 16, step.much);
}

void Scene::run(const Step &step)
{
    Actor *found = actor(step);
    if (!found || !found->widget || !found->kind->exec || m_running.size() >= kDeepestRun ||
        isAnyRunning(found->widget))
        return;
    const QPointer<QWidget> dialog(found->widget);
    m_running.append(dialog);
    QTimer meanwhile;
    meanwhile.setSingleShot(true);
    QTimer after;
    after.setSingleShot(true);
    connect(&meanwhile, &QTimer::timeout, this, [this, dialog, &after, step] {
        playNext(step.much % 16);
        if (dialog)
            dialog->hide();
        after.start(0);
    });
    int turns = 0;
    connect(&after, &QTimer::timeout, this, [this, dialog, &after, &turns] {
        if (++turns < 3) { // a loop within this one may be ending
            after.start(0);
            return;
        }
        breaks(QStringLiteral("exec() goes on without its dialog"));
        delete dialog;
    });
    meanwhile.start(0);
    found->kind->exec(dialog, step.how);
    m_running.removeLast();
}

void Scene::replace(const Step &step)
{
    if (m_hearing)
        return; // what Qt survives in which signal is another test's matter
    const int place = int(step.whom) % qMax(1, m_actors.size());
    delete m_actors.at(place).widget;
    const Kind *kind = &m_kinds.at(step.how % m_kinds.size());
    QWidget *widget = kind->make(m_window, step.much);
    if (!widget->isWindow()) {
        widget->move(10 + place % 3 * 160, 20 + place / 3 * 100);
        widget->setVisible(step.much % 8 != 0);
    }
    watchSignals(widget);
    m_actors[place] = {kind, widget};
}

void Scene::turn(const Step &step)
{
    if (step.how % 4 == 0)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// Time passes: what waits for it need not wait any longer.
void Scene::fireTimers(const Step &step)
{
    const QWidget *target = widget(step);
    if (!target)
        return;
    const QList<QTimer *> timers = target->findChildren<QTimer *>();
    QVector<QPointer<QTimer>> waiting;
    for (QTimer *timer : timers)
        waiting.append(timer);
    for (const QPointer<QTimer> &timer : qAsConst(waiting)) {
        if (timer && timer->isActive())
            send(timer, QTimerEvent(timer->timerId()));
    }
}

void Scene::setLook(const Step &step)
{
    if (step.how % 3 == 0)
        OrvLook::setTheme(QStringLiteral(":/none.ini"));
    else
        OrvLook::setDark(step.how % 2 == 0);
}

void Scene::changeScreens(const Step &step)
{
    if (m_hearing || !m_running.isEmpty())
        return; // the events of Qt that are on their way know the screen
    constexpr qreal kRatios[] = {1, 1.25, 1.5, 2, 3};
    const qreal ratio = kRatios[step.how % std::size(kRatios)];
    const QRect geometry(QPoint(5000 * (1 + m_screens.count()), step.much * 4),
                         QSizeF(900 * ratio, 700 * ratio).toSize());
    const int index = m_screens.count() == 0 ? 0 : step.much % m_screens.count();
    switch (step.whom % 4) {
    case 0:
    case 1:
        if (m_screens.count() < kMostScreens)
            m_screens.add(geometry, geometry.adjusted(0, 0, 0, -40), ratio);
        break;
    case 2:
        if (m_screens.count() > 0)
            m_screens.remove(index);
        break;
    default:
        if (m_screens.count() > 0)
            m_screens.change(index, QRect(m_screens.at(index)->geometry().topLeft(), geometry.size()),
                             geometry, ratio);
        break;
    }
    QCoreApplication::processEvents();
}

void Scene::moveWindow(const Step &step)
{
    if (m_screens.count() > 0 && step.how % 2 == 0)
        m_window->move(m_screens.at(step.much % m_screens.count())->screen()->geometry().topLeft() +
                       QPoint(20, 30));
    else
        m_window->resize(kWindow + QSize(step.how, step.much) / 4);
}

void Scene::useMask(const Step &step)
{
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(m_window);
    void *const owner = &m_owners[step.whom % std::size(m_owners)];
    if (!mask)
        return;
    if (step.how % 3 == 0) {
        m_maskOwners.remove(owner);
        mask->hideMasking(owner);
    } else {
        m_maskOwners.insert(owner);
        mask->showMasking(owner);
    }
}

void Scene::paint(const Step &step)
{
    QWidget *target = step.how % 4 == 0 ? m_window.data() : widget(step);
    if (target && target->width() < 2000 && target->height() < 2000)
        target->grab();
}

void Scene::arm(const Step &step)
{
    m_armed = 1 + step.how % 4;
}

/// Does the next step in a signal.
void Scene::hear()
{
    if (m_armed == 0 || --m_armed > 0 || m_hearing)
        return;
    m_hearing = true;
    ++m_heard;
    playNext(1);
    m_hearing = false;
}

} // namespace Driving
