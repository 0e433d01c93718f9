#include "events.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace Events {

namespace {

QPointer<QWindow> pressedWindow;
QPoint pressedPoint;

QPoint middleInWindow(const QWidget *widget)
{
    return widget->mapTo(widget->window(), widget->rect().center());
}

} // namespace

void hover(QWidget *widget)
{
    QWindow *window = widget->window()->windowHandle();
    const QPoint corner(1, 1);
    QEnterEvent enter(corner, corner, window->mapToGlobal(corner));
    QCoreApplication::sendEvent(window, &enter);
    QTest::mouseMove(window, middleInWindow(widget));
    QCoreApplication::processEvents();
}

void press(QWidget *widget)
{
    hover(widget);
    pressedWindow = widget->window()->windowHandle();
    pressedPoint = middleInWindow(widget);
    QTest::mousePress(pressedWindow, Qt::LeftButton, Qt::NoModifier, pressedPoint);
}

void release()
{
    if (pressedWindow)
        QTest::mouseRelease(pressedWindow, Qt::LeftButton, Qt::NoModifier, pressedPoint);
    pressedWindow = nullptr;
}

void moveAway(QWidget *widget)
{
    QTest::mouseMove(widget->window()->windowHandle(), QPoint(1, 1));
    QCoreApplication::processEvents();
}

void click(QWidget *widget)
{
    press(widget);
    release();
}

void tabTo(QWidget *widget)
{
    widget->setFocusPolicy(Qt::StrongFocus);
    QWidget *window = widget->window();
    QApplication::setActiveWindow(window);
    for (int presses = 0; presses < 20 && !widget->hasFocus(); ++presses)
        QTest::keyClick(window->windowHandle(), Qt::Key_Tab);
    QVERIFY(widget->hasFocus());
}

} // namespace Events
