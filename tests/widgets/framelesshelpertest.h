#pragma once

#include "framelesshelper.h"
#include "mouseevents.h"

#include <QtCore/QVector>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

const QRect kFrame(100, 200, 300, 250);
const QPoint kTitle(150, 30);
const QPoint kMiddle(150, 130);

/// A frameless window that notes what reaches it, and runs what a client might do from within.
class Window : public QWidget
{
public:
    Window()
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        QWidget::setGeometry(kFrame);
    }

    QVector<QEvent::Type> seen;
    QPoint posAtMouseMove;
    std::function<void()> onMove;
    std::function<void()> onResize;
    std::function<void()> onCursorChange;
    std::function<void()> onHide;

protected:
    bool event(QEvent *event) override
    {
        seen << event->type();
        if (event->type() == QEvent::MouseMove)
            posAtMouseMove = pos();
        const bool result = QWidget::event(event);
        const QEvent::Type type = event->type();
        if (type == QEvent::Move)
            run(&onMove);
        else if (type == QEvent::Resize)
            run(&onResize);
        else if (type == QEvent::CursorChange)
            run(&onCursorChange);
        else if (type == QEvent::Hide)
            run(&onHide);
        return result;
    }

private:
    /// Once, and from a copy: the action may destroy this window.
    static void run(std::function<void()> *action)
    {
        const std::function<void()> once = *action;
        *action = nullptr;
        if (once)
            once();
    }
};

inline QVector<QRubberBand *> rubberBands()
{
    QVector<QRubberBand *> bands;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *band = qobject_cast<QRubberBand *>(window))
            bands << band;
    }
    return bands;
}

/// The only rubber band, without the frame that the offscreen platform puts even around tooltips.
inline QRubberBand *rubberBand()
{
    const QVector<QRubberBand *> bands = rubberBands();
    if (bands.size() != 1)
        qFatal("There are %d rubber bands", int(bands.size()));
    bands.constFirst()->setWindowFlag(Qt::FramelessWindowHint);
    return bands.constFirst();
}

/// What the tests of the frameless helper share: a window under a helper, and a pointer that is where they
/// say. All positions are relative to the place that the window has at first.
class FramelessHelperTest : public QObject
{
protected:
    void setUp()
    {
        m_window = std::make_unique<Window>();
        m_helper = std::make_unique<FramelessHelper>();
        m_helper->activateOn(m_window.get());
    }

    void tearDown()
    {
        m_helper.reset();
        m_window.reset();
        FramelessHelper shared;
        shared.setBorderWidth(5);
        shared.setTitleHeight(50);
        shared.setRightBottomAreaExtraPix(10);
        shared.setEnabelRightBottomAreaResize(false);
        QVERIFY(rubberBands().isEmpty());
    }

    static QPoint at(const QPoint &local) { return kFrame.topLeft() + local; }
    void press(const QPoint &local) { MouseEvents::press(m_window.get(), at(local)); }
    void moveTo(const QPoint &local) { MouseEvents::move(m_window.get(), at(local)); }
    void release(const QPoint &local) { MouseEvents::release(m_window.get(), at(local)); }
    void drag(const QPoint &from, const QPoint &to)
    {
        press(from);
        moveTo(to);
        release(to);
    }

    std::unique_ptr<Window> m_window;
    std::unique_ptr<FramelessHelper> m_helper;
};
