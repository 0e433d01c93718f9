#include "steps.h"

#include "basemovedialog.h"
#include "hoverevent.h"
#include "insideloop.h"

#include <QtCore/QVariant>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QPixmap>
#include <QtGui/QWheelEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QPushButton>

namespace Destruction {

namespace {

QVector<Step> showing()
{
    return {
        step<QWidget>("name", [](QWidget *w) { w->setObjectName(QStringLiteral("other name")); }),
        step<QWidget>("title", [](QWidget *w) { w->setWindowTitle(QStringLiteral("other title")); }),
        step<QWidget>("icon", [](QWidget *w) { w->setWindowIcon(QPixmap(16, 16)); }),
        step<QWidget>("icon text",
                      [](QWidget *w) { w->setProperty("windowIconText", QStringLiteral("text")); }),
        show(),
        turn(),
    };
}

QVector<Step> pointing()
{
    const QPoint pos(10, 10);
    return {
        step<QWidget>("enter", [=](QWidget *w) { send(w, QEnterEvent(pos, pos, w->mapToGlobal(pos))); }),
        step<QWidget>("hover", [=](QWidget *w) { MouseEvents::hover(w, w->mapToGlobal(pos)); }),
        press(pos),
        move(pos + QPoint(3, 3)),
        release(pos + QPoint(3, 3)),
        doubleClick(pos),
        release(pos),
        press(pos, Qt::RightButton),
        release(pos, Qt::RightButton),
        step<QWidget>("policy", [](QWidget *w) { w->setContextMenuPolicy(Qt::CustomContextMenu); }),
        step<QWidget>("context menu",
                      [=](QWidget *w) {
                          send(w, QContextMenuEvent(QContextMenuEvent::Mouse, pos, w->mapToGlobal(pos)));
                      }),
        plainEvent("leave", QEvent::Leave),
        wheel(120),
        wheel(-120),
    };
}

QVector<Step> typing()
{
    const auto keyRelease = [](int code) {
        return step<QWidget>(
            "key release", [=](QWidget *w) { send(w, QKeyEvent(QEvent::KeyRelease, code, Qt::NoModifier)); });
    };
    return {key(Qt::Key_A, Qt::NoModifier, QStringLiteral("a")), keyRelease(Qt::Key_A), key(Qt::Key_Tab),
            key(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")), keyRelease(Qt::Key_Space)};
}

QVector<Step> attention()
{
    const auto focus = [](const char *name, QEvent::Type type) {
        return step<QWidget>(name, [=](QWidget *w) { send(w, QFocusEvent(type, Qt::TabFocusReason)); });
    };
    const auto hover = [](QEvent::Type type) {
        return step<QWidget>("hover",
                             [=](QWidget *w) { send(w, HoverEvent(type, QPointF(9, 9), QPointF(8, 8))); });
    };
    return {
        focus("focus", QEvent::FocusIn),
        focus("no focus", QEvent::FocusOut),
        plainEvent("activate", QEvent::WindowActivate),
        plainEvent("deactivate", QEvent::WindowDeactivate),
        plainEvent("activation", QEvent::ActivationChange),
        hover(QEvent::HoverEnter),
        hover(QEvent::HoverMove),
        hover(QEvent::HoverLeave),
    };
}

} // namespace

Step press(QPoint pos, Qt::MouseButton button)
{
    return step<QWidget>("press", [=](QWidget *w) { MouseEvents::press(w, w->mapToGlobal(pos), button); });
}

Step move(QPoint pos)
{
    return step<QWidget>("move", [=](QWidget *w) { MouseEvents::move(w, w->mapToGlobal(pos)); });
}

Step release(QPoint pos, Qt::MouseButton button)
{
    return step<QWidget>("release",
                         [=](QWidget *w) { MouseEvents::release(w, w->mapToGlobal(pos), button); });
}

Step doubleClick(QPoint pos)
{
    return step<QWidget>("double click",
                         [=](QWidget *w) { MouseEvents::doubleClick(w, w->mapToGlobal(pos)); });
}

Step wheel(int delta)
{
    return step<QWidget>("wheel", [=](QWidget *w) {
        send(w, QWheelEvent(QPointF(5, 5), w->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, delta),
                            Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false));
    });
}

Step key(int code, Qt::KeyboardModifiers modifiers, const QString &text)
{
    return step<QWidget>("key",
                         [=](QWidget *w) { send(w, QKeyEvent(QEvent::KeyPress, code, modifiers, text)); });
}

Step plainEvent(const char *name, QEvent::Type type)
{
    return step<QObject>(name, [=](QObject *object) { send(object, QEvent(type)); });
}

Step turn()
{
    return step<QObject>("turn", [](QObject *) { QCoreApplication::processEvents(); });
}

Step show()
{
    return step<QWidget>("show", [](QWidget *w) { w->show(); });
}

Step clickButton(int index)
{
    return step<QObject>("button",
                         [=](QObject *dialog) { dialog->findChildren<QPushButton *>().at(index)->click(); });
}

QVector<Step> life(const QVector<Step> &own)
{
    return showing() + attention() + pointing() + typing() + own + closing();
}

QVector<Step> closing()
{
    return {
        step<QWidget>("disable", [](QWidget *w) { w->setDisabled(true); }),
        step<QWidget>("enable", [](QWidget *w) { w->setDisabled(false); }),
        step<QWidget>("hide", [](QWidget *w) { w->hide(); }),
        show(),
        turn(),
        step<QWidget>("close", [](QWidget *w) { w->close(); }),
    };
}

QVector<Step> dragging()
{
    const QPoint title(60, 20);
    return {
        press(title),   move(title + QPoint(10, 5)), release(title + QPoint(10, 5)), doubleClick(title),
        release(title), press(QPoint(199, 149)),     move(QPoint(210, 160)),         release(QPoint(50, 50)),
    };
}

QVector<Step> runs(const QByteArray &name, const std::function<void(QObject *)> &blocks)
{
    const auto run = [&](const char *end, const std::function<void(QWidget *)> &ends) {
        return Step{name + ' ' + end, [=](QObject *dialog) {
                        InsideLoop::run([ends, alive = QPointer<QObject>(dialog)] {
                            if (alive)
                                ends(static_cast<QWidget *>(alive.data()));
                        });
                        blocks(dialog);
                    }};
    };
    return {
        run("hidden", [](QWidget *dialog) { dialog->hide(); }),
        run("closed", [](QWidget *dialog) { dialog->close(); }),
        run("answered", [](QWidget *dialog) { dialog->findChild<QPushButton *>()->click(); }),
        run("hidden natively", [](QWidget *dialog) { dialog->windowHandle()->hide(); }),
    };
}

} // namespace Destruction
