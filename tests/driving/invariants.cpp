#include "orvmaskctrl.h"
#include "popupdlgwithmask.h"
#include "scene.h"

#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRubberBand>

#include <algorithm>

// What has to hold after every step.
namespace Driving {

namespace {

QString nameOf(const QWidget *widget)
{
    return QString::fromLatin1(widget->metaObject()->className());
}

} // namespace

void Scene::look()
{
    for (const Actor &actor : qAsConst(m_actors)) {
        const QString wrong = actor.widget && actor.kind->wrong ? actor.kind->wrong(actor.widget) : QString();
        if (!wrong.isEmpty())
            breaks(QLatin1String(actor.kind->name) + QStringLiteral(": ") + wrong);
    }
    lookAtWindows();
    lookAtMask();
    lookAtTimers();
}

/// Lists and rubber bands go with the widget that they belong to.
void Scene::lookAtWindows()
{
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        const QWidget *const parent = window->parentWidget();
        if (!window->isVisible() || window == m_window)
            continue;
        const bool isBand = qobject_cast<const QRubberBand *>(window) != nullptr;
        const bool isList = window->inherits("ShadowPopupWidget");
        if (isList && (!parent || !parent->isVisible()))
            breaks(QStringLiteral("a list is open without its combo box"));
        if (isBand && std::none_of(windows.begin(), windows.end(), [](const QWidget *other) {
                return other->isVisible() && !qobject_cast<const QRubberBand *>(other);
            }))
            breaks(QStringLiteral("a rubber band is left"));
    }
}

/// Shown exactly while there is an owner: a dialog that has asked for it and is shown, or a client.
void Scene::lookAtMask()
{
    OrvMaskCtrl *const mask = OrvMaskCtrl::getInstance(nullptr);
    const QWidget *const label = mask ? mask->getMaskWidget() : nullptr;
    if (!label)
        return;
    bool isOwned = !m_maskOwners.isEmpty();
    for (Actor &actor : m_actors) {
        // Not isHidden(): where only its window was hidden, Qt takes that back when the parent is shown.
        if (!actor.widget || !actor.widget->isVisible())
            actor.asksForMask = false;
        else if (actor.widget->property("drivenMask").toBool())
            actor.asksForMask = true;
        if (actor.widget)
            actor.widget->setProperty("drivenMask", QVariant());
        isOwned = isOwned || actor.asksForMask;
    }
    if (label->isHidden() == isOwned)
        breaks(isOwned ? QStringLiteral("the mask is hidden although it has an owner")
                       : QStringLiteral("the mask is shown without an owner"));
}

/// Nothing that is hidden waits or moves.
void Scene::lookAtTimers()
{
    for (const Actor &actor : qAsConst(m_actors)) {
        const QWidget *const widget = actor.widget;
        if (!widget || widget->isVisible())
            continue;
        const QList<QTimer *> timers = widget->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
        for (const QTimer *timer : timers) {
            if (timer->isActive() && !timer->isSingleShot())
                breaks(QLatin1String(actor.kind->name) +
                       QStringLiteral(" is hidden and has a timer that goes on"));
        }
        const QList<QLabel *> labels = widget->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->movie() && label->movie()->state() == QMovie::Running)
                breaks(nameOf(widget) + QStringLiteral(" is hidden and its movie goes on"));
        }
    }
}

} // namespace Driving
